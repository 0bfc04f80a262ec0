"""Folder trees with what archives get wrong, and comparing them."""

import os
import pathlib
import random
import struct
import time

from interop import WORDS, check, check_equal

# Later than any change of the files, so that the system does not set it anew when they are read.
ACCESSED = int(time.time()) + 3600

# Runnable by the letter of the external attributes' rule: two bytes that hardly any file starts with,
# and a program's signature where the number at 36 points.
PROGRAM = b"\xAD\x54".ljust(36, b".") + struct.pack("<I", 64) + bytes(24) + b"MZ\0\0" + bytes(100)

_TEXT = b"".join(b"line %d of a text\r\n" % (i * i) for i in range(40_000))

_FILES = {
    "a.txt": b"hello",
    "empty": b"",
    "with blanks in it .txt": b"blanks",
    f"{WORDS[0]}.txt": b"high characters",
    f"{WORDS[1]}.txt": b"characters of the code page above ISO 8859-1",
    f"sub folder/{WORDS[2]}/deeper.txt": b"deeper",
    "sub folder/.dotted": b"dotted",
    "UPPER.TXT": b"upper",
    "no extension": b"none",
    "text.txt": _TEXT,
    "noise.bin": random.Random(1).randbytes(1_000_000),
    "16384.txt": _TEXT[:16384],
    "65536.bin": random.Random(2).randbytes(65536),
    "65537.bin": random.Random(3).randbytes(65537),
    "archive.ZIP": b"packed by its name" * 100,
    "archive.tar.gz": b"packed by its name" * 100,
    "a.z": b"packed by its name" * 100,
    "zip": b"not packed by its name" * 100,
    "program.bin": PROGRAM,
    "real.exe": b"MZ" + PROGRAM[2:],
    "read-only.txt": b"read-only",
}

_TIMES = {
    "a.txt": 1_000_000_000.75,  # fractions and odd seconds
    "empty": 1_000_000_001,
    "UPPER.TXT": 315_619_200,  # early in 1980
    "text.txt": 2_145_916_799,  # the end of 2037
    "noise.bin": 1_720_000_000,  # summer
    "no extension": 1_700_000_000,  # winter
}


def special(folder):
    for number, (name, data) in enumerate(_FILES.items()):
        path = folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)
        written = _TIMES.get(name, 1_500_000_000 + number)
        os.utime(path, (max(ACCESSED, written + 1), written))
    (folder / "read-only.txt").chmod(0o444)
    return folder


def files(folder, code_page=None):
    """The files below a folder by their path relative to it, with "/". With a code page: the bytes
    of their names are in that one."""
    return {
        _name(path.relative_to(folder), code_page): path
        for path in sorted(pathlib.Path(folder).rglob("*"))
        if path.is_file()
    }


def _name(path, code_page):
    return os.fsencode(path).decode(code_page) if code_page else str(path)


def is_read_only(path):
    return path.stat().st_mode & 0o222 == 0


def check_same(expected, found, code_page=None):
    """The same files with the same bytes, times to the second and write protection; the same
    folders. The code page is that of the names found."""
    expected_files, found_files = files(expected), files(found, code_page)
    check_equal(sorted(found_files), sorted(expected_files), f"files in {found}")
    for name, path in expected_files.items():
        other = found_files[name]
        check(_same_bytes(path, other), f"{name}: other bytes in {found}")
        check_equal(int(other.stat().st_mtime), int(path.stat().st_mtime), f"{name}: time")
        check_equal(is_read_only(other), is_read_only(path), f"{name}: read-only")
    check_equal(_folders(found, code_page), _folders(expected), f"folders in {found}")


def _folders(folder, code_page=None):
    return sorted(
        _name(path.relative_to(folder), code_page)
        for path in pathlib.Path(folder).rglob("*")
        if path.is_dir()
    )


def _same_bytes(path, other):
    if path.stat().st_size != other.stat().st_size:
        return False
    with open(path, "rb") as left, open(other, "rb") as right:
        while True:
            block = left.read(1 << 20)
            if block != right.read(1 << 20):
                return False
            if not block:
                return True
