#!/usr/bin/env python3
"""A release on a Windows desktop, under Wine: installed without a word, worked with, refused and replaced while it runs, removed
again; and the zip in folders that are not made for it.

    package_wine.py --build build/windows --release FOLDER     the folder that release_test.py left

Each step is one that a user or a firm's administrator takes, in one prefix that belongs to this test alone.
"""

import argparse
import hashlib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import time
import zipfile

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
sys.path[:0] = [str(HERE), str(HERE.parent / "windows"), str(HERE.parent / "tools"), str(ROOT / "packaging")]

import release  # noqa: E402
import transcripts  # noqa: E402
import wine_desktop  # noqa: E402

TRADE_FILE = "TR010109.B01"
COMMANDS = ["tool PRNTRPT", "choose export/" + TRADE_FILE, "press 1199", "press 1011", "type 1013 REPORT.TXT", "answer yes", "press 1015"]
OLDER_VERSION = "18.1"
OLDER_FILES = ["guide/chapters/one.html", "samples/export/OLD.B01", "OLD.TXT"]
KEY = "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Quillon"
ENTRIES = ["Quillon Guide.lnk", "Quillon Pages.lnk", "Quillon Samples.lnk", "Quillon.lnk", "Uninstall Quillon.lnk"]
NOT_WRITTEN, TOO_OLD, STRANGE_FILE, IN_USE, NO_WORK_FOLDER = 2, 3, 4, 5, 7
# What Windows, and Wine in its place, writes for itself when a program shows a window or is installed: the bare key of all uninstallers.
WINDOWS_OWN = re.compile(r"\\Explorer\\Advanced\]|\\Software\\Wine\\|\\CurrentVersion\\Uninstall\]")
DEADLINE = 120


class Failure(Exception):
    """What was seen and what was wanted."""


def expect(what, seen, wanted):
    if seen != wanted:
        raise Failure(f"{what}: {seen!r}, wanted {wanted!r}")


def without_power_over_permissions():
    """Root writes wherever it likes, read-only or not. This one does not, where the machine lets it give that up."""
    powers = "-dac_override,-dac_read_search"
    without = ["setpriv", "--bounding-set", powers, "--inh-caps", powers]
    if os.geteuid() != 0 or "--as-anybody" in sys.argv or subprocess.run([*without, "true"], check=False).returncode != 0:
        return
    os.execvp("setpriv", [*without, sys.executable, "-B", *sys.argv, "--as-anybody"])


def is_read_only(folder):
    if os.access(folder, os.W_OK):
        print("not tried: a read-only folder is none for this user", flush=True)
        return False
    return True


class OwnDesktop(wine_desktop.Desktop):
    """With a prefix and a home of its own: Wine's Documents folder is the one of the home."""

    def __init__(self, build):
        super().__init__(build)
        self.prefix = os.path.join(self.build, "wine-package")
        self.home = pathlib.Path(self.prefix + "-home").resolve()
        self.home.mkdir(exist_ok=True)
        self.environment.update(WINEPREFIX=self.prefix, HOME=str(self.home), XDG_CONFIG_HOME=str(self.home / ".config"),
                                LC_ALL="C.UTF-8")
        self.disk = pathlib.Path(self.prefix).resolve() / "drive_c"

    def run(self, arguments, folder=None):
        return subprocess.run(["wine", *map(str, arguments)], cwd=folder, env=self.environment, stdin=subprocess.DEVNULL,
                              capture_output=True, timeout=DEADLINE, check=False)

    def status(self, arguments, folder=None):
        return self.run(arguments, folder).returncode

    def take_for(self, windows):
        """Wine passes for any Windows; its own choice is an old one."""
        expect("reg's status", self.status(["reg", "add", "HKCU\\Software\\Wine", "/v", "Version", "/d", windows, "/f"]), 0)

    def variable(self, name):
        """What Windows says where a folder is, as a path of ours."""
        text = self.run(["cmd", "/c", f"echo %{name}%"]).stdout.decode().strip()
        return self.unix_path(text)

    def unix_path(self, path):
        return pathlib.Path(subprocess.run(["winepath", "-u", path], env=self.environment, capture_output=True, text=True,
                                           check=True).stdout.strip()).resolve()

    def registry(self):
        """Everything that is the user's, as lines behind their key."""
        kept = os.path.join(self.prefix, "user-now.reg")
        expect("regedit's status", self.status(["regedit", "/E", wine_desktop.windows_path(kept), "HKEY_CURRENT_USER"]), 0)
        text = pathlib.Path(kept).read_text(encoding="utf-16")
        os.remove(kept)
        lines, key = set(), ""
        for line in text.splitlines():
            key = line if line.startswith("[") else key
            if line and not WINDOWS_OWN.search(key):
                lines.add((key, line))
        return lines

    def value(self, name):
        text = self.run(["reg", "query", KEY, "/v", name]).stdout.decode(errors="replace")
        found = re.search(rf"{name}\s+REG_\w+\s+(.*?)\r?\n", text)
        return found[1] if found else None

    def files(self):
        """Every file and folder that a user's programs can have written, with what is in it."""
        places = [self.disk / "users", self.disk / "Program Files", self.disk / "ProgramData", self.home]
        return {str(path): "folder" if path.is_dir() else hashlib.sha256(path.read_bytes()).hexdigest()
                for place in places for base, folders, names in os.walk(place) for path in [pathlib.Path(base, n) for n in folders + names]
                if not is_scratch(path)}

    def main_job(self, program, folder):
        """Trades opened, the sample loaded and printed to a file: the text of the last box."""
        self.program = str(program)
        process = self.start_driver(folder)
        out, complaint = process.communicate("\n".join(COMMANDS) + "\n", timeout=DEADLINE)
        boxes = [line["box"]["text"] for line in transcripts.parse(out) if "box" in line]
        if not boxes:
            raise Failure(f"no box was shown: status {process.returncode}, {out} {complaint}")
        return boxes[-1]


def is_scratch(path):
    """What programs, Wine's own among them, leave for nobody. NSIS copies its uninstaller there to remove the original."""
    return "Temp" in path.parts or ".cache" in path.parts or path.is_symlink()


def put_sample(folder):
    (folder / "export").mkdir(parents=True, exist_ok=True)
    shutil.copy(ROOT / "samples" / "export" / TRADE_FILE, folder / "export")


def expect_programs_work(desktop, programs, folder):
    """The same report three ways, and as PDF."""
    expect("the last box", desktop.main_job(programs / "quillon.exe", folder), "PRINTING COMPLETE")
    expect_others_work(desktop, programs, folder)


def expect_others_work(desktop, programs, folder):
    expect("quillon-print", desktop.status([programs / "quillon-print.exe", "trades", "export\\" + TRADE_FILE, "-o", "SECOND.TXT"], folder), 0)
    report = (folder / "SECOND.TXT").read_bytes()
    expect("a page's end in the report", b"\x0c" in report, True)
    if (folder / "REPORT.TXT").exists():
        expect("quillon's report", (folder / "REPORT.TXT").read_bytes(), report)
    (folder / "script").write_text("\n".join(COMMANDS).replace("REPORT.TXT", "THIRD.TXT") + "\nquit\n", encoding="ascii")
    expect("quillon-script", desktop.status([programs / "quillon-script.exe", "script"], folder), 0)
    expect("quillon-script's report", (folder / "THIRD.TXT").read_bytes(), report)
    expect("quillon-pages", desktop.status([programs / "quillon-pages.exe", "SECOND.TXT", "/pdf", "REPORT.PDF"], folder), 0)
    expect("the PDF's beginning", (folder / "REPORT.PDF").read_bytes()[:5], b"%PDF-")


# ---- The installer -----------------------------------------------------------------------------------------------------


class Installation:
    """The steps of one installation's life, in their order."""

    def __init__(self, desktop, setups, tree):
        self.desktop, self.tree = desktop, tree
        self.older, self.newer = setups
        self.programs = desktop.variable("LOCALAPPDATA") / "Programs" / "Quillon"
        self.settings = desktop.variable("APPDATA") / "Quillon"
        self.menu = desktop.variable("APPDATA") / "Microsoft" / "Windows" / "Start Menu" / "Programs" / "Quillon"
        self.version = release.version_of(pathlib.Path(desktop.build))

    def install(self, setup, *options):
        return self.desktop.status([setup, "/S", *options])

    def install_by_batch_file(self, setup, options):
        """The options as an administrator types them: /D= has blanks and no quotes."""
        batch = pathlib.Path(self.desktop.prefix) / "install.bat"
        batch.write_text(f'@"{wine_desktop.windows_path(str(setup))}" /S {options}\r\n@exit /b %ERRORLEVEL%\r\n', encoding="ascii", newline="")
        return self.desktop.status(["cmd", "/c", wine_desktop.windows_path(str(batch))])

    def expect_installed(self, version, extra):
        wanted = {name: (self.tree / name).read_bytes() for name in release.files_of(self.tree)}
        seen = {name: (self.programs / name).read_bytes() for name in release.files_of(self.programs)}
        expect("files too many and too few", sorted({*wanted, "uninstall.exe", "installed.txt", *extra} ^ set(seen)), [])
        expect("files with other bytes", [name for name in wanted if seen[name] != wanted[name]], [])
        expect("version", self.desktop.value("DisplayVersion"), version)
        expect("start menu", sorted(os.listdir(self.menu)), ENTRIES)

    def clean(self):
        """Nothing of an earlier run, whatever became of it."""
        users = self.desktop.disk / "users"
        for folder in (self.programs.parent, self.settings, self.menu, users / "Else where", users / "My Work", users / "Closed",
                       users / "Strange"):
            shutil.rmtree(folder, ignore_errors=True)
        (users / "Alias").unlink(missing_ok=True)
        for path in self.desktop.home.iterdir():
            if path.is_dir() and not path.name.startswith("."):
                shutil.rmtree(path)
        self.desktop.status(["reg", "delete", KEY, "/f"])

    def on_an_old_windows(self):
        self.desktop.take_for("win81")
        before = self.desktop.files()
        expect("status on an old Windows", self.install(self.older), TOO_OLD)
        expect("files that changed", sorted(set(before.items()) ^ set(self.desktop.files().items())), [])
        self.desktop.take_for("win10")

    def where_nothing_can_be_written(self):
        closed = self.desktop.disk / "users" / "Closed"
        closed.mkdir(mode=0o555)
        before = self.desktop.files()
        if is_read_only(closed):
            expect("status where nothing can be written", self.install(self.older, "/D=C:\\users\\Closed\\Quillon"), NOT_WRITTEN)
            expect("files that changed", sorted(set(before.items()) ^ set(self.desktop.files().items())), [])
        closed.rmdir()

    def where_somebody_elses_files_are(self):
        """A list of another program, and a file of the user's, by names of ours; a file with another name is in nobody's way."""
        strange = self.desktop.disk / "users" / "Strange"
        for name in ("installed.txt", "uninstall.exe", "quillon.exe", "guide/index.html"):
            path = strange / name
            path.parent.mkdir(parents=True)
            path.write_bytes(b"note of mine.txt\r\n")
            (strange / "note of mine.txt").write_bytes(b"mine")
            before = self.desktop.files()
            expect(f"status beside a stranger's {name}", self.install(self.older, "/D=C:\\users\\Strange"), STRANGE_FILE)
            expect("files that changed", sorted(set(before.items()) ^ set(self.desktop.files().items())), [])
            shutil.rmtree(strange)

    def where_no_work_folder_can_be_made(self):
        (self.desktop.disk / "users" / "Strange").write_bytes(b"a file")
        self.programs.parent.mkdir(exist_ok=True)
        before = self.desktop.files()
        expect("status", self.install(self.older, "/WORK=C:\\users\\Strange"), NO_WORK_FOLDER)
        expect("files that changed", sorted(set(before.items()) ^ set(self.desktop.files().items())), [])
        (self.desktop.disk / "users" / "Strange").unlink()

    def fresh(self):
        expect("status", self.install(self.older), 0)
        self.expect_installed(OLDER_VERSION, OLDER_FILES)
        self.work = self.desktop.unix_path(self.desktop.value("WorkFolder"))
        expect("the folder for files and reports", os.listdir(self.work), ["export"])
        expect("is below the user's documents", self.work.name, "Quillon")
        link = (self.menu / "Quillon.lnk").read_bytes().decode("utf-16-le", errors="replace") + \
            (self.menu / "Quillon.lnk").read_bytes()[1:].decode("utf-16-le", errors="replace")
        expect("the start menu starts there", self.desktop.value("WorkFolder") in link, True)
        expect("the size that is told", int(self.desktop.value("EstimatedSize"), 16) > 1000, True)

    def work_with_it(self):
        put_sample(self.work)
        expect_programs_work(self.desktop, self.programs, self.work)
        self.settings.mkdir(exist_ok=True)
        (self.settings / "quillon-pages.ini").write_text("[Pages]\r\n", encoding="ascii")
        (self.programs / "note of mine.txt").write_text("mine", encoding="ascii")
        places = [self.work, self.settings, self.programs / "note of mine.txt"]
        mine = {str(path) for place in places for path in [place, *place.rglob("*")]}
        self.mine = {name: what for name, what in self.desktop.files().items() if name in mine}

    def while_it_runs(self, action):
        """The program stands open with a form, before and after."""
        self.desktop.program = str(self.programs / "quillon.exe")
        running = self.desktop.start_driver(self.work)
        running.stdin.write("tool PRNTRPT\n")
        running.stdin.flush()
        lines = []
        while not any("changed" in line or "opened" in line for line in lines):
            lines += transcripts.parse(running.stdout.readline())
        before = self.desktop.files(), self.desktop.registry()
        action()
        expect("files that changed", sorted(set(before[0].items()) ^ set(self.desktop.files().items())), [])
        expect("registry lines that changed", sorted(before[1] ^ self.desktop.registry()), [])
        out, _ = running.communicate("show\nquit\n", timeout=DEADLINE)
        lines = transcripts.parse(out)
        expect("the form is still there", any("PRNTRPT" in str(line.get("changed", "")) for line in lines), True)
        expect("the program's end", lines[-1], {"exit": 0})

    def upgrade_is_refused(self):
        expect("status of setup while the program runs", self.install(self.newer), IN_USE)

    def second_setup_is_refused(self):
        """Beside one that asks its user for the folder."""
        first = subprocess.Popen(["wine", str(self.newer)], env=self.desktop.environment, stdin=subprocess.DEVNULL,
                                 stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        time.sleep(3)  # where that is too short, the second one is the first, and installs
        expect("status of a second setup", self.install(self.newer), IN_USE)
        expect("the first one's end", first.poll(), None)
        first.terminate()
        first.wait()

    def uninstall_is_refused(self):
        expect("status of uninstall while the program runs", self.uninstall_and_wait(), IN_USE)

    def spoil_the_list(self):
        """Names that lead out of the folder, and one that stands for many: none of these files goes."""
        outside = self.programs.parent / "outside.txt"
        outside.write_bytes(b"mine")
        (self.programs / "guide" / "mine.txt").write_bytes(b"mine")
        (self.desktop.disk / "users" / "Public" / "mine.txt").write_bytes(b"mine")
        self.spared = [outside, self.programs / "guide" / "mine.txt", self.desktop.disk / "users" / "Public" / "mine.txt"]
        bad = ["..\\outside.txt", "guide\\..\\..\\outside.txt", "\\outside.txt", "guide\\mine.*", "guide\\????.txt",
               "C:\\users\\Public\\mine.txt", "guide/../../outside.txt", "..\\..\\..\\..\\..\\Public\\mine.txt"]
        listed = self.programs / "installed.txt"
        lines = listed.read_text(encoding="ascii").splitlines()
        expect("the list's first line", lines[0], release.LIST_MARK)
        listed.write_text("".join(line + "\r\n" for line in [lines[0], *bad, *lines[1:]]), encoding="ascii", newline="")

    def upgrade(self):
        self.spoil_the_list()
        shortcut = self.menu / "Quillon.lnk"
        shortcut.write_bytes(shortcut.read_bytes() + b"the user's")
        kept = shortcut.read_bytes()
        expect("status", self.install(self.newer), 0)
        expect("files that an upgrade must not remove", [path.name for path in self.spared if not path.exists()], [])
        for path in self.spared:
            path.unlink()
        self.expect_installed(self.version, ["note of mine.txt"])
        expect("a folder of the version before", (self.programs / "guide" / "chapters").exists(), False)
        expect("the start menu's entry as the user made it", shortcut.read_bytes(), kept)
        (self.programs / "installed.txt").write_bytes(b"note of mine.txt\r\n")  # without its first line it is no list
        expect("the version of another day", self.install(self.newer), 0)  # once more: a repair
        self.expect_installed(self.version, ["note of mine.txt"])

    def move(self):
        """Another folder, and another one to work in, which the workstation has made: nothing of the first installation stays, save
        what was not its own."""
        elsewhere = self.desktop.disk / "users" / "Else where"
        export = self.desktop.disk / "users" / "My Work" / "export"
        export.mkdir(parents=True)
        self.mine.update({str(export.parent): "folder", str(export): "folder"})
        expect("status", self.install_by_batch_file(self.newer, '/WORK="C:\\users\\My Work" /D=C:\\users\\Else where'), 0)
        expect("what stays in the first folder", os.listdir(self.programs), ["note of mine.txt"])
        expect("version", self.desktop.value("DisplayVersion"), self.version)
        expect("start menu", sorted(os.listdir(self.menu)), ENTRIES)
        expect("the other folder to work in", self.desktop.value("WorkFolder"), "C:\\users\\My Work")
        self.programs = elsewhere
        self.expect_all_there()

    def expect_all_there(self):
        expect("files there", release.files_of(self.programs), sorted(release.files_of(self.tree) + ["uninstall.exe", "installed.txt"]))

    def by_another_name(self):
        """The same folder, named by a link: it is no other one, from which the programs would have to be removed."""
        (self.programs.parent / "Alias").symlink_to(self.programs)
        expect("status", self.install(self.newer, "/D=C:\\users\\Alias"), 0)
        expect("where it is now", self.desktop.value("InstallLocation"), "C:\\users\\Alias")
        self.expect_all_there()

    def uninstall_and_wait(self):
        """In place, so that its status is its own and not that of a copy; its own file stays then."""
        where = subprocess.run(["winepath", "-w", str(self.programs)], env=self.desktop.environment, capture_output=True, text=True,
                               check=True).stdout.strip()
        return self.desktop.status([self.programs / "uninstall.exe", "/S", "_?=" + where])

    def uninstall(self, pem):
        signed = subprocess.run(["osslsigncode", "verify", "-CAfile", str(pem), "-in", str(self.programs / "uninstall.exe")],
                                capture_output=True, check=False)
        expect("the uninstaller's signature", signed.returncode, 0)
        expect("status", self.desktop.status([self.programs / "uninstall.exe", "/S"]), 0)
        deadline = time.monotonic() + DEADLINE
        while self.programs.exists() and time.monotonic() < deadline:  # a copy of it is at work
            time.sleep(0.2)
        while self.desktop.value("DisplayVersion") and time.monotonic() < deadline:
            time.sleep(0.2)

    def unused(self, pem):
        """Installed and removed, and nothing done in between: nothing stays, the folder of all of a user's programs aside."""
        self.programs.parent.mkdir(exist_ok=True)
        before = self.desktop.files()
        expect("status", self.install(self.newer), 0)
        self.uninstall(pem)
        expect("files that changed", sorted(set(before.items()) ^ set(self.desktop.files().items())), [])

    def live(self, pem):
        self.clean()
        self.on_an_old_windows()
        self.where_nothing_can_be_written()
        self.where_somebody_elses_files_are()
        self.where_no_work_folder_can_be_made()
        before = self.desktop.files(), self.desktop.registry()
        self.unused(pem)
        self.fresh()
        self.work_with_it()
        self.while_it_runs(self.upgrade_is_refused)
        self.second_setup_is_refused()
        self.upgrade()
        self.while_it_runs(self.uninstall_is_refused)
        users = {str(self.programs.parent), str(self.programs)}
        self.move()
        self.by_another_name()
        self.uninstall(pem)
        left = dict(set(self.desktop.files().items()) - set(before[0].items()))
        expect("what is left behind", sorted(set(left) - users - set(self.mine)), [])
        expect("the user's files that are gone or changed", sorted(set(self.mine.items()) - set(left.items())), [])
        expect("registry lines left behind", sorted(self.desktop.registry() - before[1]), [])


# ---- The zip -----------------------------------------------------------------------------------------------------------


def unpack(archive, folder):
    with zipfile.ZipFile(archive) as file:
        file.extractall(folder)
    return next(folder.iterdir())


def zip_in_a_folder_with_any_letters(desktop, archive, scratch):
    programs = unpack(archive, scratch / "J\u00fcrgen's reports \u65e5\u5831 \u0434\u043d\u044f")
    put_sample(programs)
    expect_programs_work(desktop, programs, programs)


def zip_in_a_read_only_folder(desktop, archive, scratch):
    programs = unpack(archive, scratch / "read-only")
    put_sample(programs)
    (programs / "KEPT.TXT").write_bytes(b"a report of before\x0c")
    folders = [programs, *(path for path in programs.rglob("*") if path.is_dir())]
    for path in folders:
        path.chmod(0o555)
    try:
        if not is_read_only(programs):
            return
        expect("quillon's last box", desktop.main_job(programs / "quillon.exe", programs), "Error In Opening Output File")
        run = desktop.run([programs / "quillon-print.exe", "trades", "export\\" + TRADE_FILE, "-o", "REPORT.TXT"], programs)
        expect("quillon-print's status", run.returncode, 1)
        expect("quillon-print's word", b"REPORT.TXT" in run.stderr, True)
        expect("quillon-pages' status", desktop.status([programs / "quillon-pages.exe", "KEPT.TXT", "/pdf", "K.PDF"], programs), 8)
        expect("files that came", [name for name in os.listdir(programs) if name.upper().startswith(("REPORT", "K.PDF"))], [])
    finally:
        for path in folders:
            path.chmod(0o755)


def zip_in_a_folder_of_a_long_name(desktop, archive, scratch):
    """Windows lets no program have such a folder for its current one, so the files are elsewhere. And no program of Windows starts
    another by such a name, the driver neither: quillon.exe is started from outside, and a second copy finds it running."""
    folder = scratch
    while len(str(folder)) < 300:
        folder = folder / "a folder with a name that is longer than most of them"
    programs = unpack(archive, folder)
    work = scratch / "work"
    put_sample(work)
    expect_others_work(desktop, programs, work)
    desktop.program = os.path.join(desktop.build, "quillon.exe")
    for _ in range(10):
        running = subprocess.Popen(["wine", str(programs / "quillon.exe")], cwd=work, env=desktop.environment,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        time.sleep(1)  # where that is too short, the second copy is the first, and ends the other
        out, _ = desktop.start_driver(work).communicate("quit\n", timeout=DEADLINE)
        found = transcripts.parse(out) == [{"exit": 0}] and running.poll() is None
        running.terminate()
        running.wait()
        if found:
            return
    raise Failure("quillon.exe did not start")


def run_steps(desktop, made, scratch):
    """How many failed."""
    archive, newer = next((made / "dist").glob("*-portable.zip")), next((made / "dist").glob("*-setup.exe"))
    tree = unpack(archive, scratch / "tree")
    steps = {"installation": lambda: Installation(desktop, (made / "older-setup.exe", newer), tree).live(made / "certificate.pem")}
    for step in (zip_in_a_folder_with_any_letters, zip_in_a_read_only_folder, zip_in_a_folder_of_a_long_name):
        steps[step.__name__] = lambda step=step: step(desktop, archive, scratch)
    failures = 0
    for name, step in steps.items():
        started, outcome = time.monotonic(), "passed"
        try:
            step()
        except Failure as failure:
            failures += 1
            outcome = f"FAILED: {failure}"
        print("%s: %.0f seconds, %s" % (name, time.monotonic() - started, outcome), flush=True)
    return failures


def main():
    without_power_over_permissions()
    parser = argparse.ArgumentParser(description="Installs, upgrades and removes a release under Wine, and runs the zip.")
    parser.add_argument("--build", required=True, help="the build folder with quillon-driver.exe")
    parser.add_argument("--release", type=pathlib.Path, required=True, help="the folder that release_test.py left")
    parser.add_argument("--as-anybody", action="store_true", help=argparse.SUPPRESS)
    options = parser.parse_args()
    scratch = pathlib.Path(wine_desktop.new_folder())
    failures = 1
    try:
        with OwnDesktop(options.build) as desktop:
            failures = run_steps(desktop, options.release.resolve(), scratch)
    except wine_desktop.DesktopError as error:
        print(error)
    finally:
        shutil.rmtree(scratch, ignore_errors=True)
        if failures:  # what a failure leaves must not be the next run's beginning
            for folder in ("wine-package", "wine-package-home"):
                shutil.rmtree(os.path.join(os.path.abspath(options.build), folder), ignore_errors=True)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
