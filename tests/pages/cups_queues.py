"""A print spooler of the tests' own: cupsd with its files, its socket and its queues below one folder. Nothing of the machine's
printers is touched.

What arrives at a queue is kept as it arrived, in the order of the jobs. A queue with a printer description (that of the package
printer-driver-cups-pdf) gets PostScript from Windows programs under Wine; a raw one gets whatever it is given.
"""

import os
import pathlib
import shutil
import stat
import subprocess
import tempfile
import time

DESCRIPTION = "/usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd"
SYSTEM_PROGRAMS = "/usr/lib/cups"
SECONDS = 60

# What CUPS starts for each job, with the number, the user, the title, the copies and the options, and perhaps a file.
BACKEND = """#!/bin/sh
[ $# -lt 5 ] && exit 0
folder=${DEVICE_URI#keep:}
[ -e "$folder/broken" ] && exit 4
cat ${6:+"$6"} >"$folder/$1.part" || exit 1
printf '%s\\n' "$3" >"$folder/$1.title"
mv "$folder/$1.part" "$folder/$1.job"
"""

DAEMON = """Listen {folder}/socket
Browsing Off
WebInterface No
LogLevel warn
MaxJobs 0
PreserveJobHistory No
PreserveJobFiles No
DefaultAuthType None
ErrorPolicy abort-job
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  SubscriptionPrivateAccess all
  SubscriptionPrivateValues none
  <Limit All>
    Order deny,allow
    Allow all
  </Limit>
</Policy>
"""

FILES = """ServerRoot {folder}/root
ServerBin {folder}/bin
DataDir /usr/share/cups
RequestRoot {folder}/spool
CacheDir {folder}/cache
StateDir {folder}/state
TempDir {folder}/tmp
ErrorLog {folder}/error_log
AccessLog {folder}/access_log
PageLog {folder}/page_log
Sandboxing relaxed
SystemGroup root
"""


class CupsError(Exception):
    """The spooler, or something of it, is missing; the message says what."""


class Spooler:
    """`with Spooler() as spooler:` ; programs that are to print get its `environment`."""

    def __init__(self):
        for tool in ("cupsd", "lpadmin"):
            if not self.tool(tool):
                raise CupsError(f"{tool} is not installed: tools/setup installs what the tests need")
        if not os.path.exists(DESCRIPTION):
            raise CupsError("printer-driver-cups-pdf is not installed: tools/setup installs what the tests need")
        self.folder = pathlib.Path(os.path.realpath(tempfile.mkdtemp(prefix="qp-")))  # short: a socket's name has 107 letters
        self.environment = dict(os.environ, CUPS_SERVER=str(self.folder / "socket"))
        self.process = None

    @staticmethod
    def tool(name):
        return shutil.which(name, path=os.environ["PATH"] + ":/usr/sbin:/sbin")

    def __enter__(self):
        self.folder.chmod(0o755)  # jobs are carried out by another user than root
        for name in ("root/ppd", "bin/backend", "spool", "cache", "state", "tmp", "queues"):
            (self.folder / name).mkdir(parents=True)
        for name in ("tmp", "queues"):
            (self.folder / name).chmod(0o1777)
        for name in ("daemon", "filter", "notifier"):
            if os.path.exists(f"{SYSTEM_PROGRAMS}/{name}"):
                (self.folder / "bin" / name).symlink_to(f"{SYSTEM_PROGRAMS}/{name}")
        backend = self.folder / "bin/backend/keep"
        backend.write_text(BACKEND)
        backend.chmod(stat.S_IRWXU | stat.S_IRGRP | stat.S_IXGRP | stat.S_IROTH | stat.S_IXOTH)
        (self.folder / "daemon.conf").write_text(DAEMON.format(folder=self.folder))
        (self.folder / "files.conf").write_text(FILES.format(folder=self.folder))
        try:
            self.start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        self.stop()
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self):
        self.process = subprocess.Popen(
            [self.tool("cupsd"), "-f", "-c", str(self.folder / "daemon.conf"), "-s", str(self.folder / "files.conf")],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        end = time.monotonic() + SECONDS
        while subprocess.run(["lpstat", "-r"], env=self.environment, capture_output=True, text=True).stdout.strip() != "scheduler is running":
            if time.monotonic() > end or self.process.poll() is not None:
                raise CupsError("cupsd did not start: " + self.words())
            time.sleep(0.05)

    def stop(self):
        if self.process:
            self.process.terminate()
            self.process.wait(SECONDS)
            self.process = None

    def words(self):
        log = self.folder / "error_log"
        return log.read_text(errors="replace")[-2000:] if log.exists() else "no words"

    def queue(self, name, described=True, default=False):
        """Makes a queue; with a printer description, or a raw one."""
        place = self.place(name)
        place.mkdir(exist_ok=True)
        place.chmod(0o777)
        self.run("lpadmin", "-p", name, "-v", f"keep:{place}", *(["-P", DESCRIPTION] if described else ["-m", "raw"]), "-E")
        if default:
            self.run("lpadmin", "-d", name)

    def place(self, name):
        return self.folder / "queues" / name

    def run(self, *command):
        done = subprocess.run([self.tool(command[0]), *command[1:]], env=self.environment, capture_output=True, text=True, timeout=SECONDS)
        # Raw queues are called deprecated each time.
        if done.returncode != 0:
            raise CupsError(f"{' '.join(command)}: {done.stderr}\n{self.words()}")

    def jobs(self, name, count, seconds=SECONDS):
        """The jobs that have arrived at a queue, as (title, bytes), when there are `count` of them. They are taken away."""
        place = self.place(name)
        end = time.monotonic() + seconds
        while len(list(place.glob("*.job"))) < count:
            if time.monotonic() > end:
                raise CupsError(f"{name}: {len(list(place.glob('*.job')))} jobs of {count} have arrived\n{self.words()}")
            time.sleep(0.02)
        found = []
        for path in sorted(place.glob("*.job"), key=lambda job: int(job.stem)):
            title = path.with_suffix(".title")
            found.append((title.read_text().strip(), path.read_bytes()))
            path.unlink()
            title.unlink()
        return found

    def idle(self, name):
        """No job of this queue waits or is on its way."""
        said = subprocess.run(["lpstat", "-o", name], env=self.environment, capture_output=True, text=True, timeout=SECONDS).stdout
        return not said.strip()
