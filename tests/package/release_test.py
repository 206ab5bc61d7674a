#!/usr/bin/env python3
"""A release made as ./package makes it, looked at without Windows: contents, checksums, versions, signatures, and that the same
tree gives the same bytes in another folder.

    release_test.py --build build/windows --out FOLDER

It stays in FOLDER for the test under Wine: dist/ with a signed release, certificate.pem, and older-setup.exe, an installer of a
version before, which has files that the new one does not have.
"""

import argparse
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import unittest
import zipfile

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "packaging"))

import programs  # noqa: E402
import release  # noqa: E402

OLDER_VERSION = "18.1"
OLDER_FILES = ("guide/chapters/one.html", "samples/export/OLD.B01", "OLD.TXT")

place = {}  # the folders of this run: build, out


def sha256_of(data):
    return release.hashlib.sha256(data).hexdigest()


def certificate(folder):
    """A certificate that is trusted by whoever names it, and a password file for its key."""
    key, pem, pkcs, password = (folder / name for name in ("key.pem", "certificate.pem", "certificate.p12", "password"))
    password.write_text("a passing word", encoding="ascii")
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=Quillon test",
                    "-addext", "extendedKeyUsage=codeSigning", "-keyout", str(key), "-out", str(pem)], check=True, capture_output=True)
    subprocess.run(["openssl", "pkcs12", "-export", "-inkey", str(key), "-in", str(pem), "-out", str(pkcs),
                    "-passout", f"file:{password}"], check=True, capture_output=True)
    return pem, {"QUILLON_SIGN_CERT": str(pkcs), "QUILLON_SIGN_PASSWORD_FILE": str(password)}


def signature_is_good(program, pem):
    run = subprocess.run(["osslsigncode", "verify", "-CAfile", str(pem), "-in", str(program)], capture_output=True, check=False)
    return run.returncode == 0


def make_older_installer(out):
    """The same programs under an older version, with files that were given up since."""
    tree = out / "older" / "tree"
    with zipfile.ZipFile(next((out / "dist").glob("*.zip"))) as archive:
        archive.extractall(out / "older")
    next((out / "older").glob("quillon-*")).rename(tree)
    for name in OLDER_FILES:
        (tree / name).parent.mkdir(parents=True, exist_ok=True)
        (tree / name).write_bytes(b"of the version before\n")
    release.make_installer(tree, OLDER_VERSION, release.commit_date(), out / "older", out / "older-setup.exe", "zlib")
    shutil.rmtree(out / "older")


def make_all(build, out):
    shutil.rmtree(out, ignore_errors=True)
    out.mkdir(parents=True)
    _, signing = certificate(out)
    os.environ.update(signing)
    release.make_release(build, out / "dist")
    for name in signing:
        del os.environ[name]
    make_older_installer(out)


class Release(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.dist = place["out"] / "dist"
        cls.pem = place["out"] / "certificate.pem"
        cls.version = release.version_of(place["build"])
        cls.zip = cls.dist / f"quillon-{cls.version}-portable.zip"
        cls.setup = cls.dist / f"quillon-{cls.version}-setup.exe"
        with zipfile.ZipFile(cls.zip) as archive:
            cls.files = {info.filename: archive.read(info) for info in archive.infolist()}
            cls.infos = archive.infolist()
        cls.top = f"quillon-{cls.version}/"

    def test_the_folder_holds_a_release_and_nothing_else(self):
        winget = [f"winget/Quillon.Quillon{part}.yaml" for part in ("", ".installer", ".locale.en-US")]
        self.assertEqual(release.files_of(self.dist), sorted([self.zip.name, self.setup.name, "CONTENTS.txt", "SHA256SUMS"] + winget))

    def test_zip_holds_programs_samples_guide_and_licences(self):
        samples = {f"samples/export/{name}" for name in release.sample_names()}
        wanted = set(release.PROGRAMS) | samples | {"CONTENTS.txt", "guide/index.html"}
        wanted |= {f"LICENSES/{name}" for name, _, _ in release.LICENCES.values()}
        self.assertEqual(wanted - {name.removeprefix(self.top) for name in self.files}, set())
        self.assertIn(b"RUNTIME LIBRARY EXCEPTION", self.files[self.top + "LICENSES/gcc-runtime.txt"])
        self.assertIn(b"winpthreads", self.files[self.top + "LICENSES/mingw-w64.txt"])
        held = {name.removeprefix(self.top) for name in self.files}
        self.assertEqual({name for name in held if name.startswith("samples/")}, samples)
        for sample in samples:
            self.assertEqual(self.files[self.top + sample], (ROOT / sample).read_bytes())

    def test_a_file_that_git_does_not_know_is_no_sample(self):
        kept, release.ROOT = release.ROOT, place["out"] / "sources"
        folder = release.ROOT / "samples" / "export"
        folder.mkdir(parents=True)
        (folder / "ONE.B01").write_bytes(b"one")
        (folder / "TWO.B01").write_bytes(b"two")
        try:
            self.assertEqual(release.sample_names(), ["ONE.B01", "TWO.B01"], "a source archive")
            subprocess.run(["git", "init", "--quiet"], cwd=release.ROOT, check=True)
            with self.assertRaises(release.ReleaseError):
                release.sample_names()
            subprocess.run(["git", "add", "samples/export/ONE.B01"], cwd=release.ROOT, check=True)
            self.assertEqual(release.sample_names(), ["ONE.B01"])
        finally:
            release.ROOT = kept

    def test_zip_stands_in_one_folder_in_order_with_the_date_of_the_commit(self):
        names = [info.filename for info in self.infos]
        self.assertEqual(names, sorted(names))
        self.assertTrue(all(name.startswith(self.top) for name in names))
        date = release.commit_date()
        self.assertEqual({info.date_time for info in self.infos}, {release.time.gmtime(date - date % 2)[:6]})

    def test_list_of_contents_names_every_file_with_its_checksum(self):
        rows = re.findall(r"^ *(\d+)  ([0-9a-f]{64})  ([QMGN -]{5})  (\S+)\r?$", (self.dist / "CONTENTS.txt").read_text(), re.MULTILINE)
        listed = {self.top + name: (int(size), digest) for size, digest, _, name in rows}
        held = {name: (len(data), sha256_of(data)) for name, data in self.files.items() if name != self.top + "CONTENTS.txt"}
        self.assertEqual(listed, held)
        self.assertEqual({name for _, _, letters, name in rows if letters == "Q M G"}, set(release.PROGRAMS))
        self.assertEqual(self.files[self.top + "CONTENTS.txt"], (self.dist / "CONTENTS.txt").read_bytes())

    def test_checksums_are_what_sha256sum_reads(self):
        run = subprocess.run(["sha256sum", "--strict", "--quiet", "-c", "SHA256SUMS"], cwd=self.dist, capture_output=True, check=False)
        self.assertEqual((run.returncode, run.stdout), (0, b""))
        listed = [line.split("  ")[1] for line in (self.dist / "SHA256SUMS").read_text().splitlines()]
        self.assertEqual(listed, [name for name in release.files_of(self.dist) if name != "SHA256SUMS"])

    def test_winget_manifest_is_of_this_version_and_installer(self):
        for path in (self.dist / "winget").iterdir():
            text = path.read_text(encoding="utf-8")
            self.assertIn(f"PackageIdentifier: Quillon.Quillon\nPackageVersion: \"{self.version}\"\n", text)
            self.assertIn("ManifestVersion: 1.6.0\n", text)
        text = (self.dist / "winget" / "Quillon.Quillon.installer.yaml").read_text(encoding="utf-8")
        self.assertIn(f"InstallerSha256: {sha256_of(self.setup.read_bytes()).upper()}\n", text)
        self.assertIn(f"/{self.version}/{self.setup.name}\n", text)

    def test_every_program_tells_the_version(self):
        major, minor = map(int, self.version.split("."))
        text = f"{major}.{minor:02}"  # as the title bar has it; the companions may tell it plainly
        for name in release.PROGRAMS:
            data = self.files[self.top + name]
            at = data.index(struct.pack("<II", 0xFEEF04BD, 0x10000))
            numbers = (major << 16 | minor, 0)
            self.assertEqual(struct.unpack_from("<IIII", data, at + 8), numbers * 2, name)
            texts = [text] if name == "quillon.exe" else [text, self.version]
            tells = b"(" + b"|".join(re.escape(f"{told}\0".encode("utf-16-le")) for told in texts) + b")"
            for key in ("FileVersion", "ProductVersion"):
                self.assertRegex(data, re.escape(f"{key}\0".encode("utf-16-le")) + b"(\0\0)?" + tells, name)
        title = re.search(r'title = "([^"]*)"', (ROOT / "src/frame/main_window.cpp").read_text(encoding="utf-8"))[1]
        self.assertEqual(title.split("Version ")[1], text)

    def test_everything_that_runs_is_signed(self):
        scratch = place["out"] / "signed"
        scratch.mkdir()
        other, _ = certificate(scratch)
        for name in release.PROGRAMS:
            (scratch / name).write_bytes(self.files[self.top + name])
            self.assertTrue(signature_is_good(scratch / name, self.pem), name)
        self.assertTrue(signature_is_good(self.setup, self.pem))
        self.assertFalse(signature_is_good(self.setup, other), "signed by somebody else")
        data = bytearray((scratch / "quillon.exe").read_bytes())
        data[len(data) // 2] ^= 1
        (scratch / "quillon.exe").write_bytes(data)
        self.assertFalse(signature_is_good(scratch / "quillon.exe", self.pem), "changed since")

    def test_without_a_certificate_nothing_is_signed(self):
        data = (place["build"] / "quillon-print.exe").read_bytes()
        copy = place["out"] / "unsigned.exe"
        copy.write_bytes(data)
        release.sign([copy])
        self.assertEqual(copy.read_bytes(), data)

    def test_a_certificate_without_its_password_is_told(self):
        run = subprocess.run([str(ROOT / "packaging" / "sign"), "x.exe"], env=dict(os.environ, QUILLON_SIGN_CERT="x.p12"),
                             capture_output=True, text=True, check=False)
        self.assertEqual((run.returncode, run.stderr), (1, "QUILLON_SIGN_CERT is set, but QUILLON_SIGN_PASSWORD_FILE is not\n"))

    def test_no_installer_comes_with_an_uninstaller_that_could_not_be_signed(self):
        folder = place["out"] / "unsignable"
        with zipfile.ZipFile(self.zip) as archive:
            archive.extractall(folder)
        os.environ.update(QUILLON_SIGN_CERT=str(folder / "missing.p12"), QUILLON_SIGN_PASSWORD_FILE=str(place["out"] / "password"))
        try:  # the installer itself is signed later, with another error
            with self.assertRaises(release.ReleaseError):
                release.make_installer(folder / self.top, self.version, release.commit_date(), folder / "work", folder / "s.exe", "zlib")
        finally:
            del os.environ["QUILLON_SIGN_CERT"], os.environ["QUILLON_SIGN_PASSWORD_FILE"]

    def test_a_commit_whose_date_git_does_not_tell_is_no_release(self):
        kept, release.ROOT = release.ROOT, place["out"] / "no-repository"
        release.ROOT.mkdir()
        (release.ROOT / ".git").write_text("gitdir: of nobody\n", encoding="ascii")
        try:
            with self.assertRaises(release.ReleaseError):
                release.commit_date()
        finally:
            release.ROOT = kept

    def test_the_same_tree_gives_the_same_bytes_in_another_folder(self):
        made = []
        for name in ("one", "another folder with a longer name"):
            folder = place["out"] / name
            with zipfile.ZipFile(self.zip) as archive:
                archive.extractall(folder)
            tree = folder / self.top
            date = release.commit_date()
            release.set_dates(tree, date if name == "one" else date + 3600)
            release.make_zip(tree, "q", date, folder / "q.zip")
            release.make_installer(tree, self.version, date, folder / "work", folder / "q-setup.exe", "zlib")
            made.append([(folder / result).read_bytes() for result in ("q.zip", "q-setup.exe")])
            shutil.rmtree(folder)
        self.assertEqual(made[0], made[1])

    def test_a_program_that_may_not_ship_is_told(self):
        folder = place["out"] / "bad"
        folder.mkdir()
        (folder / "bad.cpp").write_text('#include <string>\nconst char* volatile narrow = "/home/somebody/quillon/src/x.cpp";\n'
                                        'const wchar_t* volatile wide = L"(/root/y.cpp)";\n'
                                        "int main(int n, char** a) { return std::stoi(a[n - 1]) + *narrow + *wide; }\n", encoding="ascii")
        subprocess.run(["x86_64-w64-mingw32-g++-posix", "bad.cpp", "-o", "bad.exe"], cwd=folder, check=True)
        told = list(programs.problems_of(folder / "bad.exe"))
        self.assertEqual(len(told), 3)
        self.assertIn("libstdc++-6.dll", told[0])
        self.assertIn("date", told[1])
        self.assertIn("/home/somebody/quillon/src/x.cpp", told[2])
        self.assertIn("/root/y.cpp", told[2])

    def test_the_date_is_given_or_the_commits_or_the_archives(self):
        kept = (release.ROOT, release.PACKAGING)
        archive = place["out"] / "archive"
        archive.mkdir()
        try:
            os.environ["SOURCE_DATE_EPOCH"] = "1700000000"
            self.assertEqual(release.commit_date(), 1700000000)
            del os.environ["SOURCE_DATE_EPOCH"]
            release.ROOT = release.PACKAGING = archive
            (archive / "commit-date").write_text("1600000000\n", encoding="ascii")
            self.assertEqual(release.commit_date(), 1600000000)
            (archive / "commit-date").write_text("$Format:%ct$\n", encoding="ascii")
            self.assertEqual(release.commit_date(), release.EARLIEST_DATE)
        finally:
            os.environ.pop("SOURCE_DATE_EPOCH", None)
            release.ROOT, release.PACKAGING = kept


def main():
    parser = argparse.ArgumentParser(description="Makes a release and looks at it.")
    parser.add_argument("--build", type=pathlib.Path, required=True, help="the folder of the windows preset")
    parser.add_argument("--out", type=pathlib.Path, required=True, help="where the release is left for other tests")
    options = parser.parse_args()
    place.update(build=options.build.resolve(), out=options.out.resolve())
    make_all(place["build"], place["out"])
    unittest.main(argv=sys.argv[:1])


main()
