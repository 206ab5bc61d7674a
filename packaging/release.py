#!/usr/bin/env python3
"""Makes what a release holds from the built programs. ./package calls it.

    release.py --build build/windows --out dist

First a tree is laid out as it will stand on a user's disk: programs, samples, guide, licences, and the list of all of it. The zip
and the installer hold that tree. Everything has the date of the commit, names stand in one order, and nothing of the machine goes
in: the same sources give the same bytes. When something fails, the older release in the folder is left as it was.
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

import programs

ROOT = pathlib.Path(__file__).resolve().parent.parent
PACKAGING = ROOT / "packaging"
STRIP = "x86_64-w64-mingw32-strip"

PROGRAMS = ["quillon.exe", "quillon-pages.exe", "quillon-print.exe", "quillon-script.exe"]
EARLIEST_DATE = 315532800  # of the first of January 1980: a zip knows none before
PUBLISHER = "Quillon"
# The first line of installed.txt, by which the installer knows the list for its own.
LIST_MARK = "Files of Quillon, as its setup has put them here. An upgrade removes those that are no longer part of it."
PACKAGE_NAME = "Quillon.Quillon"  # winget's

# Whose work is in the release: a letter for the list, a file in LICENSES, and the texts that are put together there.
OWN_TERMS = "Quillon\n\nAll rights reserved by the Quillon project.\n"
LICENCES = {
    "Q": ("quillon.txt", "Quillon itself", None),
    "M": ("mingw-w64.txt", "MinGW-w64 runtime and winpthreads, linked into the programs",
          ["/usr/share/doc/mingw-w64-x86-64-dev/copyright"]),
    "G": ("gcc-runtime.txt", "GCC's runtime libraries, linked into the programs under their Runtime Library Exception",
          ["/usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright", "/usr/share/common-licenses/GPL-3"]),
    "N": ("nsis.txt", "NSIS, which makes the installer and is in setup and uninstall.exe",
          ["/usr/share/doc/nsis-common/copyright"]),
}


class ReleaseError(Exception):
    """Why there is no release."""


def version_of(build):
    """CMake's project version, by the build folder."""
    found = re.search(r"^CMAKE_PROJECT_VERSION:STATIC=(.+)$", (build / "CMakeCache.txt").read_text(encoding="utf-8"), re.MULTILINE)
    if not found:
        raise ReleaseError(f"{build} is not configured: cmake --preset windows")
    return found.group(1)


def commit_date():
    """Seconds since 1970: what SOURCE_DATE_EPOCH says, else the commit, else what git wrote into a source archive."""
    given = os.environ.get("SOURCE_DATE_EPOCH")
    if given:
        return max(int(given), EARLIEST_DATE)
    if (ROOT / ".git").exists():
        run = subprocess.run(["git", "log", "-1", "--format=%ct"], cwd=ROOT, capture_output=True, text=True, check=False)
        if run.returncode != 0 or not run.stdout.strip():  # such as a folder that belongs to somebody whom git does not trust
            raise ReleaseError(f"git does not tell the commit's date; set SOURCE_DATE_EPOCH, or help git: {run.stderr.strip()}")
        return int(run.stdout)
    written = (PACKAGING / "commit-date").read_text(encoding="ascii").strip()
    return int(written) if written.isdigit() else EARLIEST_DATE


# ---- The tree ----------------------------------------------------------------------------------------------------------


def sign(files):
    subprocess.run([str(PACKAGING / "sign"), *map(str, files)], check=True)


def stage_programs(build, tree):
    for name in PROGRAMS:
        if not (build / name).exists():
            raise ReleaseError(f"{build / name} is missing: cmake --build --preset package")
        # -p keeps the header's date as it is, which is none.
        subprocess.run([STRIP, "-p", "-o", str(tree / name), str(build / name)], check=True)
    problems = [problem for name in PROGRAMS for problem in programs.problems_of(tree / name)]
    if problems:
        raise ReleaseError("\n".join(problems))
    sign([tree / name for name in PROGRAMS])


def sample_names():
    """Those that git knows: a file that a developer tried something with is nobody's sample. A source archive has no others."""
    folder = ROOT / "samples" / "export"
    if not (ROOT / ".git").exists():
        return sorted(path.name for path in folder.iterdir())
    run = subprocess.run(["git", "ls-files", "-z", "."], cwd=folder, capture_output=True, text=True, check=False)
    names = [name for name in run.stdout.split("\0") if name]
    if run.returncode != 0 or not names:
        raise ReleaseError(f"git does not tell which samples there are: {run.stderr.strip()}")
    return names


def stage_samples(tree):
    folder = tree / "samples" / "export"
    folder.mkdir(parents=True)
    for name in sample_names():
        shutil.copyfile(ROOT / "samples" / "export" / name, folder / name)


def stage_licences(tree):
    (tree / "LICENSES").mkdir()
    for name, _, sources in LICENCES.values():
        text = OWN_TERMS if sources is None else "\n".join(pathlib.Path(source).read_text(encoding="utf-8") for source in sources)
        (tree / "LICENSES" / name).write_text(text, encoding="utf-8", newline="\r\n")


def files_of(tree):
    """Names with slashes, in one order on every machine."""
    return sorted(path.relative_to(tree).as_posix() for path in tree.rglob("*") if path.is_file())


def sha256(path):
    return hashlib.sha256(path.read_bytes()).hexdigest()


def licences_of(name):
    return "Q M G" if name.endswith(".exe") else "Q" if not name.startswith("LICENSES/") else "-"


def contents(tree, version):
    lines = [f"Quillon {version}", "", "Every file: its bytes, its SHA-256, whose work is in it, its name.", ""]
    for name in files_of(tree):
        lines.append("%9d  %s  %-5s  %s" % ((tree / name).stat().st_size, sha256(tree / name), licences_of(name), name))
    lines += ["", "An installed copy also has uninstall.exe (Q N) and installed.txt, the list that an upgrade goes by.", ""]
    lines += [f"{letter}  {what}: LICENSES/{name}" for letter, (name, what, _) in LICENCES.items()]
    return "\n".join(lines) + "\n"


def set_dates(tree, date):
    for path in tree.rglob("*"):
        os.utime(path, (date, date))


def stage(build, tree, version, date):
    """The tree as it will stand on a user's disk. `tree` must not be there yet."""
    tree.mkdir(parents=True)
    stage_programs(build, tree)
    stage_samples(tree)
    subprocess.run([str(ROOT / "tools" / "manual"), str(tree / "guide")], check=True, stdout=subprocess.DEVNULL)
    stage_licences(tree)
    (tree / "CONTENTS.txt").write_text(contents(tree, version), encoding="utf-8", newline="\r\n")
    names = files_of(tree)
    strange = [name for name in names if not re.fullmatch(r"[\w./-]+", name, re.ASCII)]
    strange += [name for name in names if [other.lower() for other in names].count(name.lower()) > 1]
    if strange:  # the installer's lists and every tool that unpacks a zip agree on plain letters, in whatever case
        raise ReleaseError(f"names that not every disk tells apart: {strange}")
    set_dates(tree, date)


# ---- What is made of it ------------------------------------------------------------------------------------------------


def make_zip(tree, top, date, path):
    """The tree below one folder. A zip has no time zone: its times are those of Greenwich, in steps of two seconds."""
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for name in files_of(tree):
            entry = zipfile.ZipInfo(f"{top}/{name}", time.gmtime(date - date % 2)[:6])
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.create_system = 0  # of Windows, which has no permissions to tell
            entry.external_attr = 0x20
            archive.writestr(entry, (tree / name).read_bytes())


def folders_of(names):
    """Each folder behind those in which it stands."""
    return sorted({parent.as_posix() for name in names for parent in pathlib.PurePosixPath(name).parents if parent.name})


def windows_name(name):
    return name.replace("/", "\\")


def installer_lists(tree):
    """The files as NSIS macros: the installer places, and the uninstaller removes, one by one and nothing else."""
    names = files_of(tree)
    folders = folders_of(names)
    kinds = {"EachProgram": [name for name in names if name.endswith(".exe")],
             "EachOtherFile": [name for name in names if not name.endswith(".exe")], "EachFolder": folders, "EachFolderFromBelow": folders[::-1]}
    text = ""
    for macro, entries in kinds.items():
        text += f"!macro {macro} ACTION\n"
        text += "".join(f'  !insertmacro ${{ACTION}} "{windows_name(name)}"\n' for name in entries) + "!macroend\n"
    return text


def installed_list(tree):
    """What an upgrade reads of the version before it: files, then folders, each behind what is in it."""
    names = files_of(tree)
    lines = [windows_name(name) for name in names] + [windows_name(name) + "\\" for name in folders_of(names)[::-1]]
    return "".join(line + "\r\n" for line in [LIST_MARK, *lines])


def four_numbers(version):
    numbers = version.split(".")
    return ".".join((numbers + ["0"] * 4)[:4])


def make_installer(tree, version, date, work, path, compressor="/SOLID lzma"):
    """`work` is a folder for what NSIS reads beside the tree."""
    work.mkdir(parents=True, exist_ok=True)
    (work / "files.nsh").write_text(installer_lists(tree), encoding="ascii")
    (work / "installed.txt").write_text(installed_list(tree), encoding="ascii", newline="")
    os.utime(work / "installed.txt", (date, date))
    size = sum((tree / name).stat().st_size for name in files_of(tree))
    defined = {"VERSION": version, "VERSION_NUMBERS": four_numbers(version), "PUBLISHER": PUBLISHER, "LIST_MARK": LIST_MARK, "TREE": tree, "WORK": work,
               "ICON": ROOT / "resources" / "quillon.ico", "OUT": path, "KILOBYTES": (size + 1023) // 1024}
    if os.environ.get("QUILLON_SIGN_CERT"):
        defined["SIGN"] = PACKAGING / "sign"
    command = ["makensis", "-V2", "-WX", "-NOCD", "-INPUTCHARSET", "UTF8", f"-XSetCompressor {compressor}"]
    command += [f"-D{name}={value}" for name, value in defined.items()] + [str(PACKAGING / "installer.nsi")]
    environment = dict(os.environ, SOURCE_DATE_EPOCH=str(date), TZ="UTC", LC_ALL="C.UTF-8")
    run = subprocess.run(command, env=environment, capture_output=True, text=True, errors="replace", check=False)
    if run.returncode != 0:
        raise ReleaseError(run.stdout + run.stderr)
    problems = list(programs.problems_of(path, dated=True))
    if problems:
        raise ReleaseError("\n".join(problems))
    sign([path])


def winget_manifest(version, installer):
    """Three files by name. Where the installer will lie for all to fetch is known to who publishes it."""
    address = os.environ.get("QUILLON_RELEASE_URL", "https://quillon.example/releases").rstrip("/")
    head = f"PackageIdentifier: {PACKAGE_NAME}\nPackageVersion: \"{version}\"\n"

    def manifest(kind, body):
        schema = f"# yaml-language-server: $schema=https://aka.ms/winget-manifest.{kind}.1.6.0.schema.json\n\n"
        return schema + head + body + f"ManifestType: {kind}\nManifestVersion: 1.6.0\n"

    return {
        f"{PACKAGE_NAME}.yaml": manifest("version", "DefaultLocale: en-US\n"),
        f"{PACKAGE_NAME}.installer.yaml": manifest("installer", f"""Platform:
- Windows.Desktop
MinimumOSVersion: 10.0.0.0
InstallerType: nullsoft
Scope: user
InstallModes:
- interactive
- silent
- silentWithProgress
InstallerSwitches:
  Silent: /S
  SilentWithProgress: /S
  InstallLocation: /D=<INSTALLPATH>
UpgradeBehavior: install
ExpectedReturnCodes:
- InstallerReturnCode: 1
  ReturnResponse: cancelledByUser
- InstallerReturnCode: 3
  ReturnResponse: systemNotSupported
- InstallerReturnCode: 4
  ReturnResponse: invalidParameter
- InstallerReturnCode: 5
  ReturnResponse: packageInUse
- InstallerReturnCode: 7
  ReturnResponse: invalidParameter
ProductCode: Quillon
AppsAndFeaturesEntries:
- DisplayName: Quillon
  Publisher: {PUBLISHER}
  DisplayVersion: "{version}"
  ProductCode: Quillon
Installers:
- Architecture: x64
  InstallerUrl: {address}/{version}/{installer.name}
  InstallerSha256: {sha256(installer).upper()}
"""),
        f"{PACKAGE_NAME}.locale.en-US.yaml": manifest("defaultLocale", f"""PackageLocale: en-US
Publisher: {PUBLISHER}
PackageName: Quillon
License: All rights reserved
ShortDescription: Prints the files that a stock exchange's trading workstation leaves behind as paginated reports.
Tags:
- report
- printing
- back-office
"""),
    }


def checksums(folder):
    return "".join(f"{sha256(folder / name)}  {name}\n" for name in files_of(folder) if name != "SHA256SUMS")


def make_release(build, out):
    """All of `out`, which holds nothing else afterwards."""
    version, date = version_of(build), commit_date()
    work = build / "release"
    shutil.rmtree(work, ignore_errors=True)
    tree, made = work / "tree", work / "dist"
    stage(build, tree, version, date)
    (made / "winget").mkdir(parents=True)
    make_zip(tree, f"quillon-{version}", date, made / f"quillon-{version}-portable.zip")
    installer = made / f"quillon-{version}-setup.exe"
    make_installer(tree, version, date, work, installer)
    shutil.copy2(tree / "CONTENTS.txt", made / "CONTENTS.txt")
    for name, text in winget_manifest(version, installer).items():
        (made / "winget" / name).write_text(text, encoding="utf-8", newline="\n")
    (made / "SHA256SUMS").write_text(checksums(made), encoding="ascii", newline="\n")
    set_dates(made, date)
    shutil.rmtree(out, ignore_errors=True)
    shutil.move(made, out)
    return [out / name for name in files_of(out)]


def main():
    parser = argparse.ArgumentParser(description="Makes a release from the built programs.")
    parser.add_argument("--build", type=pathlib.Path, required=True, help="the folder of the windows preset")
    parser.add_argument("--out", type=pathlib.Path, required=True, help="where the release goes; what is there is replaced")
    options = parser.parse_args()
    try:
        made = make_release(options.build.resolve(), options.out.resolve())
    except (ReleaseError, OSError, subprocess.CalledProcessError) as error:
        print(f"No release was made: {error}", file=sys.stderr)
        return 1
    for path in made:
        print("%11d  %s" % (path.stat().st_size, path.relative_to(options.out.resolve().parent)))
    return 0


if __name__ == "__main__":
    sys.exit(main())
