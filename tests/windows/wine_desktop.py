"""A Windows desktop to run quillon.exe on: Wine in a prefix of its own, on a screen of its own.

The prefix is made once and kept under the build folder. The screen and the Wine server are started here and ended here, by
their own process or prefix; nothing of the user's is touched.
"""

import fcntl
import os
import re
import shutil
import subprocess
import tempfile

SCREEN = "1280x1024"
START_SECONDS = 120
# For all that is tested beside the scripts of quillon.exe, which take the longest.
SECOND_PREFIX = "wine-beside"
UNTOUCHED = b"nothing was printed yet\n"  # what a printer's file holds until the program opens the printer


class DesktopError(Exception):
    """Something that the desktop needs is missing; the message says what."""


class Desktop:
    """`with Desktop(build) as desktop:` ; build is the folder with quillon.exe and quillon-driver.exe.

    Its own screen's points are kept in the folder `frame_buffers`, where one is given, for who takes pictures.
    With `own_screen` False the windows come up on the display that is there, each by itself. `prefix` is the name of another
    prefix than the tests'.
    """

    def __init__(self, build, own_screen=True, dpi=96, frame_buffers=None, prefix=None):
        self.build = os.path.abspath(build)
        self.program = os.path.join(self.build, "quillon.exe")
        self.driver = os.path.join(self.build, "quillon-driver.exe")
        for path in (self.program, self.driver):
            if not os.path.exists(path):
                raise DesktopError("%s is missing: build it with cmake --preset windows && cmake --build --preset windows" % path)
        for tool in ["wine", "wineserver"] + (["Xvfb"] if own_screen else []):
            if not shutil.which(tool):
                raise DesktopError("%s is not installed: tools/setup installs what the tests need" % tool)
        # A program that is left open for use has a prefix of its own, so that no test meets it or ends it.
        self.prefix = os.path.join(self.build, prefix or ("wine" if own_screen else "wine-for-use"))
        self.own_screen = own_screen
        self.dpi = dpi
        self.frame_buffers = frame_buffers
        self.screen = None
        self.session = None
        self.lock = None
        self.keep_open = False
        self.environment = dict(os.environ, WINEPREFIX=self.prefix, WINEARCH="win64", WINEDEBUG="-all",
                                WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d")

    def __enter__(self):
        os.makedirs(self.prefix, exist_ok=True)
        self.lock = open(self.prefix + ".lock", "w", encoding="ascii")
        fcntl.flock(self.lock, fcntl.LOCK_EX)
        try:
            if self.own_screen:
                self._start_screen()
            self._make_prefix()
            self._configure()
            if self.own_screen:
                self._start_session()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        if self.session:
            self.session.stdin.close()
            self.session.wait(START_SECONDS)
            self.session.stdout.close()
        if not self.keep_open:
            subprocess.run(["wineserver", "-k"], env=self.environment, check=False, timeout=START_SECONDS)
        if self.screen:
            self.screen.terminate()
            self.screen.wait()
        self.lock.close()

    def _start_screen(self):
        read_end, write_end = os.pipe()
        self.screen = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", SCREEN + "x24", "-nolisten", "tcp"] +
            (["-nocursor", "-fbdir", self.frame_buffers] if self.frame_buffers else []),
            pass_fds=[write_end], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            number = pipe.readline().strip()  # comes when the screen is ready, or ends when it could not start
        if not number:
            raise DesktopError("Xvfb did not start")
        self.environment["DISPLAY"] = ":" + number

    def _make_prefix(self):
        done = os.path.join(self.prefix, "complete")
        if os.path.exists(done):
            return
        self.wine(["wineboot", "--init"])
        subprocess.run(["wineserver", "-w"], env=self.environment, check=True, timeout=START_SECONDS)
        with open(done, "w", encoding="ascii"):
            pass

    def _configure(self):
        """On a screen of its own Wine draws the desktop too, with title bars, since no window manager is there."""
        settings = ["REGEDIT4", "", "[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]",
                    '"Desktop"=' + ('"Default"' if self.own_screen else "-"), "",
                    "[HKEY_CURRENT_USER\\Software\\Wine\\Explorer\\Desktops]", '"Default"="%s"' % SCREEN, "",
                    "[HKEY_CURRENT_USER\\Control Panel\\Desktop]", '"LogPixels"=dword:%08x' % self.dpi, ""]
        text = "\r\n".join(settings)
        kept = os.path.join(self.prefix, "settings.reg")
        if os.path.exists(kept):
            with open(kept, encoding="ascii", newline="") as file:
                if file.read() == text:
                    return
        with open(kept, "w", encoding="ascii", newline="") as file:
            file.write(text)
        self.wine(["regedit", "/S", windows_path(kept)])
        subprocess.run(["wineserver", "-w"], env=self.environment, check=True, timeout=START_SECONDS)

    def _start_session(self):
        """Somebody who is logged on and does nothing, until the end.

        Without any program Wine ends its desktop and its services: each script would wait some three seconds for them to go
        down and come up again. They keep the pipe open that the first program has for its words, so that who reads it to its
        end waits for all of them. Hence one line is read here, and the driver's programs find the services there already.
        """
        self.session = subprocess.Popen(["wine", self.driver, "--hold"], env=self.environment, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        if not self.session.stdout.readline():
            raise DesktopError("nobody could log on to the desktop")

    def wine(self, arguments):
        subprocess.run(["wine"] + arguments, env=self.environment, check=True, timeout=START_SECONDS,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def start_driver(self, folder, script=None, options=()):
        """A driver with the program in `folder`; without a script it takes its commands from standard input."""
        arguments = ["wine", self.driver] + list(options) + [windows_path(self.program)]
        if script:
            arguments.append(windows_path(os.path.abspath(script)))
        return subprocess.Popen(arguments, cwd=folder, env=self.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, text=True, encoding="utf-8")

    def run_and_leave(self, folder, commands):
        """Carries out the commands and leaves the program open; gives the driver's status and what it wrote.

        Through files: a program that stays keeps a pipe open, and its end would never come.
        """
        with tempfile.TemporaryFile() as given, tempfile.TemporaryFile() as written:
            given.write(("\n".join(commands) + "\n").encode("utf-8"))
            given.seek(0)
            run = subprocess.run(["wine", self.driver, "--leave", windows_path(self.program)], cwd=folder, env=self.environment,
                                 stdin=given, stdout=written, stderr=subprocess.DEVNULL, check=False, timeout=START_SECONDS)
            written.seek(0)
            return run.returncode, written.read().decode("utf-8")

    def link_printer(self, path):
        """What goes to PRN goes to this file; None takes the printer away.

        The file has to be there for Wine to find it. It holds a mark until the program opens the printer.
        """
        link = os.path.join(self.prefix, "dosdevices", "lpt1")
        if os.path.lexists(link):
            os.remove(link)
        if path is None:
            return
        if not os.path.exists(path):
            with open(path, "wb") as file:
                file.write(UNTOUCHED)
        os.symlink(path, link)

    def run_script(self, folder, script, options=()):
        """The transcript of a script and the driver's words of complaint, which are empty when all went well."""
        self.link_printer(None)
        printers = []
        process = self.start_driver(folder, script, options)
        lines = []
        for line in process.stdout:
            line = line.rstrip("\r\n")
            if not line.startswith("?"):
                lines.append(line)
                continue
            name = re.fullmatch(r"\?printer (.*)", line)[1]
            path = None if name == "off" else os.path.join(folder, name.replace("\\", "/"))
            if path:
                printers.append(path)
            self.link_printer(path)
            process.stdin.write("done\n")
            process.stdin.flush()
        # Wine has words of its own there, about its devices.
        complaint = "".join(line for line in process.stderr if not line.startswith("wine: "))
        process.stdin.close()
        status = process.wait()
        self.link_printer(None)
        remove_untouched(printers)
        if status != 0 and not complaint:
            complaint = "the driver ended with status %d" % status
        return "\n".join(lines), complaint


def remove_untouched(paths):
    for path in paths:
        if not os.path.isfile(path):
            continue
        with open(path, "rb") as file:
            untouched = file.read(len(UNTOUCHED) + 1) == UNTOUCHED
        if untouched:
            os.remove(path)


def windows_path(path):
    return "Z:" + path.replace("/", "\\")


def new_folder():
    """A fresh folder with a short name: the open-file dialog starts at what is below it."""
    return os.path.realpath(tempfile.mkdtemp(prefix="quillon-"))
