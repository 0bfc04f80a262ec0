"""Checks of an archive that orv wrote against the tree it was made of."""

import os
import re
import struct
import zipfile
import zlib

import trees
import zip_records
from interop import ANSI, check, check_equal, run

_PACKED = (".z", ".zip", ".zoo", ".arc", ".lzh", ".arj", ".gz", ".tgz")


def _external_attributes(path, data):
    attributes = zip_records.ARCHIVE | 0x81000000
    if trees.is_read_only(path):
        attributes |= zip_records.READ_ONLY
    else:
        attributes |= 0x00800000
    return attributes | (0x00400000 if data == trees.PROGRAM else 0)


def _crc(path):
    crc = 0
    with open(path, "rb") as file:
        while block := file.read(1 << 20):
            crc = zlib.crc32(block, crc)
    return crc


def check_records(path, tree, streamed=False, zone="UTC", foreign=False):
    """Every field of every record, computed from the tree; no byte between the records. The files of
    a foreign tree change their time of last access when they are read."""
    archive = zip_records.Archive(path)
    files = {name.encode(ANSI): file for name, file in trees.files(tree).items()}
    check_equal(sorted(r.name for r in archive.records), sorted(files), "names")
    count = len(files)
    check_equal(
        archive.end, (0, 0, count, count, archive.end.size, archive.end.offset, b""), "end record"
    )
    at = 0
    for record in archive.records:
        check_equal(record.offset, at, f"offset of {record.name}")
        at = _check_entry(archive, record, files[record.name], streamed, zone, foreign)
    check_equal(archive.end.offset, at, "offset of the directory")
    check_equal(archive.directory_end, archive.end_offset, "end of the directory")


def _check_entry(archive, record, file, streamed, zone, foreign):
    """Returns where the entry ends."""
    status = file.stat()
    written, accessed = int(status.st_mtime), int(status.st_atime)
    extension = os.path.splitext(record.name)[1].lower().decode(ANSI)
    head = file.read_bytes() if status.st_size < 10_000 else b""
    local = archive.local(record)
    date, time = zip_records.dos_time(written, zone)
    expected = record._replace(
        made_by=0x0B17,
        needed=20,
        flags=8 if streamed else 0,
        method=0 if extension in _PACKED else 8,
        time=time,
        date=date,
        crc=_crc(file),
        size=status.st_size,
        disk=0,
        internal=0,
        external=_external_attributes(file, head),
        extra=struct.pack("<2HBi", zip_records.UT, 5, 7, written),
        comment=b"",
    )
    check_equal(record, expected, f"central record of {record.name}")

    # The time of creation has no counterpart on this machine.
    known = slice(0, -8 if foreign else -4)
    stamp = struct.pack("<2HB3i", zip_records.UT, 13, 7, written, accessed, 0)
    check_equal(len(local.extra), len(stamp), f"size of the local extra field of {record.name}")
    check_equal(local.extra[known], stamp[known], f"local extra field of {record.name}")
    sums = (0, 0, 0) if streamed else (record.crc, record.packed, record.size)
    expected = (20, record.flags, record.method, time, date, *sums, record.name)
    check_equal(local[:9], expected, f"local header of {record.name}")

    end = local.data_offset + record.packed
    if not streamed:
        return end
    descriptor = struct.pack("<4s3I", b"PK\7\10", record.crc, record.packed, record.size)
    check_equal(archive.data[end : end + 16], descriptor, f"descriptor of {record.name}")
    return end + 16


def check_with_python(path, tree):
    files = trees.files(tree)
    with zipfile.ZipFile(path) as archive:
        names = {info: info.orig_filename.encode("cp437").decode(ANSI) for info in archive.infolist()}
        check_equal(sorted(names.values()), sorted(files), "names for Python")
        for info, name in names.items():
            check(archive.read(info) == files[name].read_bytes(), f"{name}: other bytes for Python")


def check_with_tools(path):
    run("unzip", "-tqq", path).expect()
    run("7z", "t", "-bd", path).expect()


def check_extracted_by_unzip(path, tree, target):
    """It writes the names as they stand in the archive."""
    run("unzip", "-qq", "-^", path, "-d", target).expect()
    trees.check_same(tree, target, code_page=ANSI)


def check_attributes_in_7z(path, tree):
    """The attributes and times that 7z shows."""
    listing = run("7z", "l", "-slt", path).expect().stdout.decode(ANSI)
    shown = {}
    for block in listing.split("----------", 1)[1].split("\n\n"):
        fields = dict(re.findall(r"^(\w+) = (.*)$", block, re.MULTILINE))
        if "Path" in fields:
            shown[fields["Path"]] = fields
    files = trees.files(tree)
    check_equal(sorted(shown), sorted(files), "names for 7z")
    for name, file in files.items():
        attributes = "RA" if trees.is_read_only(file) else "A"
        found = "".join(letter for letter in shown[name]["Attributes"].split()[0] if letter in "RHSDA")
        check_equal(found, attributes, f"{name}: attributes in 7z")
        check_equal(int(shown[name]["Size"]), file.stat().st_size, f"{name}: size in 7z")


def check_folder_entry(path, name):
    archive = zip_records.Archive(path)
    record = next((r for r in archive.records if r.name == name), None)
    check(record is not None, f"there is no entry {name}")
    check_equal((record.method, record.external, record.size), (0, 0x41C00010, 0), f"record {name}")
