"""What a program must be before it ships: linked with the system's own libraries alone, without a date and without a word of
the machine on which it was built.

    programs.py FILE...    tells what is wrong; status 1 when something is
"""

import pathlib
import re
import struct
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
OBJDUMP = "x86_64-w64-mingw32-objdump"

# Part of every Windows 10. msvcrt.dll is the C library that Windows itself uses.
SYSTEM_LIBRARIES = {"advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll",
                    "oleaut32.dll", "shell32.dll", "shlwapi.dll", "user32.dll", "uxtheme.dll", "version.dll", "winspool.drv"}

# Folders of machines that build. A path of Windows is none of theirs.
MACHINE_PATH = re.compile(rb"(?<![\w./])/(?:build|builds|home|mnt|opt|root|srv|tmp|usr|var|work)/[\w.+-]+[\w./+-]*")


def imported_libraries(program):
    text = subprocess.run([OBJDUMP, "-p", str(program)], check=True, capture_output=True, text=True, errors="replace").stdout
    return {name.lower() for name in re.findall(r"DLL Name: (\S+)", text)}


def header_date(data):
    header = struct.unpack_from("<I", data, 0x3C)[0]
    return struct.unpack_from("<I", data, header + 8)[0]


def machine_paths(data):
    """In single bytes, and in the two of Windows' wide characters at even and at odd places."""
    texts = [data, data[0::2], data[1::2]]
    root = str(ROOT).encode()
    found = {match.group().decode() for text in texts for match in MACHINE_PATH.finditer(text)}
    return found | {str(ROOT) for text in texts if root in text}


def problems_of(program, dated=False):
    """`dated` is for what others made and signed: the installer's own head has a date that belongs to it."""
    data = pathlib.Path(program).read_bytes()
    name = pathlib.Path(program).name
    foreign = imported_libraries(program) - SYSTEM_LIBRARIES
    if foreign:
        yield f"{name} needs libraries that Windows does not have: {', '.join(sorted(foreign))}"
    if not dated and header_date(data) != 0:
        yield f"{name} has the date of its making in it: the next build would have other bytes"
    paths = machine_paths(data)
    if paths:
        yield f"{name} tells of the machine on which it was built: {', '.join(sorted(paths)[:5])}"


if __name__ == "__main__":
    found = [problem for program in sys.argv[1:] for problem in problems_of(program)]
    print("\n".join(found) or "nothing is wrong")
    sys.exit(1 if found else 0)
