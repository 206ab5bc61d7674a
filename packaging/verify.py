#!/usr/bin/env python3
"""Two releases of the committed sources must have the same bytes, though they are built in folders of different length, with
another time zone, language and mask of permissions, and without the compiler's cache, which would hide a difference.

./package --verify calls it. It takes minutes: everything is compiled twice.
"""

import os
import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
PLACE = ROOT / "build" / "verify"
SURROUNDINGS = {
    "a": {"TZ": "UTC", "LC_ALL": "C", "CMAKE_BUILD_PARALLEL_LEVEL": "1"},
    "another-folder/with-a-longer-name": {"TZ": "Asia/Kolkata", "LC_ALL": "C.UTF-8", "CMAKE_BUILD_PARALLEL_LEVEL": "2"},
}


def build(name, surroundings, mask):
    folder = PLACE / name
    folder.parent.mkdir(parents=True, exist_ok=True)
    subprocess.run(["git", "clone", "--quiet", "--no-hardlinks", str(ROOT), str(folder)], check=True)
    environment = {name: value for name, value in os.environ.items() if name not in ("SOURCE_DATE_EPOCH", "QUILLON_SIGN_CERT")}
    environment.update(surroundings, CCACHE_DISABLE="1")
    subprocess.run(["./package"], cwd=folder, env=environment, umask=mask, check=True, stdout=subprocess.DEVNULL)
    return folder / "dist"


def differences(one, other):
    names = [sorted(path.relative_to(dist).as_posix() for path in dist.rglob("*") if path.is_file()) for dist in (one, other)]
    yield from sorted(set(names[0]) ^ set(names[1]))
    for name in sorted(set(names[0]) & set(names[1])):
        if (one / name).read_bytes() != (other / name).read_bytes():
            yield name


def main():
    shutil.rmtree(PLACE, ignore_errors=True)
    dists = [build(name, surroundings, mask) for (name, surroundings), mask in zip(SURROUNDINGS.items(), (0o022, 0o077))]
    print((dists[0] / "SHA256SUMS").read_text(encoding="ascii"), end="")
    found = list(differences(*dists))
    if found:
        print(f"These differ between {dists[0]} and {dists[1]}: {', '.join(found)}")
        return 1
    print("Two builds in different folders: the same bytes")
    shutil.rmtree(PLACE)
    return 0


if __name__ == "__main__":
    sys.exit(main())
