"""Checks of an archive that orv wrote against the tree it was made of."""

import os
import struct
import zipfile
import zlib

import trees
import zip_records
from interop import ANSI, check_equal, run

_PACKED = (".z", ".zip", ".zoo", ".arc", ".lzh", ".arj", ".gz", ".tgz")


def _external_attributes(path, data):
    attributes = zip_records.ARCHIVE | 0x81000000
    if trees.is_read_only(path):
        attributes |= zip_records.READ_ONLY
    else:
        attributes |= 0x00800000
    return attributes | (0x00400000 if data == trees.PROGRAM else 0)


def check_records(path, tree, streamed=False, zone="UTC", foreign=False):
    """Every field of an entry that depends on its file. The files of a foreign tree change their time
    of last access when they are read."""
    archive = zip_records.Archive(path)
    files = {name.encode(ANSI): file for name, file in trees.files(tree).items()}
    check_equal(sorted(map(zip_records.name, archive.entries)), sorted(files), "names")
    for entry in archive.entries:
        name = zip_records.name(entry)
        file, data = files[name], files[name].read_bytes()
        written, accessed = int(file.stat().st_mtime), int(file.stat().st_atime)
        extension = os.path.splitext(name)[1].lower().decode(ANSI)
        check_equal(
            (entry.flag_bits, entry.compress_type, entry.date_time, entry.CRC, entry.file_size,
             entry.external_attr, entry.extra),
            (8 if streamed else 0, 0 if extension in _PACKED else 8,
             zip_records.dos_time(written, zone), zlib.crc32(data), len(data),
             _external_attributes(file, data), struct.pack("<2HBi", zip_records.UT, 5, 7, written)),
            f"record of {name}",
        )
        # The time of creation has no counterpart on this machine.
        known = slice(0, -8 if foreign else -4)
        stamp = struct.pack("<2HB3i", zip_records.UT, 13, 7, written, accessed, 0)
        extra = archive.local_extra(entry)
        check_equal(len(extra), len(stamp), f"size of the local extra field of {name}")
        check_equal(extra[known], stamp[known], f"local extra field of {name}")


def check_with_tools(path):
    run("unzip", "-tqq", path).expect()
    run("7z", "t", "-bd", path).expect()
    with zipfile.ZipFile(path) as archive:
        check_equal(archive.testzip(), None, "what Python takes for damaged")


def check_extracted_by_unzip(path, tree, target):
    """It writes the names as they stand in the archive."""
    run("unzip", "-qq", "-^", path, "-d", target).expect()
    trees.check_same(tree, target, code_page=ANSI)
