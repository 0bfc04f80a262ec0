"""What Python's zipfile does not tell of the entries of an archive (PKWARE APPNOTE 4.x, section 4.3),
and what Windows file times and attributes come to in them."""

import datetime
import struct
import zipfile
import zoneinfo

UT = 0x5455

READ_ONLY, FOLDER, ARCHIVE, NORMAL = 0x01, 0x10, 0x20, 0x80

_NAME_IS_UTF8 = 0x800
_LOCAL_SIZE = 30


class Archive:
    """The entries of an archive, and its bytes."""

    def __init__(self, path):
        self._data = path.read_bytes()
        with zipfile.ZipFile(path) as archive:
            self.entries = archive.infolist()

    def local_extra(self, entry):
        """The extra field of an entry's local header."""
        lengths = struct.unpack_from("<2H", self._data, entry.header_offset + 26)
        extra = entry.header_offset + _LOCAL_SIZE + lengths[0]
        return self._data[extra : extra + lengths[1]]

    def modification_time(self, entry, zone):
        """The time of the local header's extended time stamp, or else of its DOS time."""
        extra = self.local_extra(entry)
        while len(extra) >= 4:
            block_id, length = struct.unpack_from("<2H", extra)
            if block_id == UT and extra[4] & 1:
                return struct.unpack_from("<i", extra, 5)[0]
            extra = extra[4 + length :]
        return int(datetime.datetime(*entry.date_time, tzinfo=zoneinfo.ZoneInfo(zone)).timestamp())


def name(entry):
    """The bytes of an entry's name."""
    return entry.orig_filename.encode("utf-8" if entry.flag_bits & _NAME_IS_UTF8 else "cp437")


def dos_time(seconds, zone):
    """What the DOS date and time of a Unix time say: local time, odd seconds rounded down."""
    local = datetime.datetime.fromtimestamp(seconds, zoneinfo.ZoneInfo(zone)).timetuple()
    return local[:5] + (local.tm_sec // 2 * 2,)


def windows_attributes(external):
    """What a reader makes of external attributes: read-only unless the Unix mode says writable."""
    attributes = NORMAL
    if external & (1 << 30) or external & FOLDER:
        attributes |= FOLDER
    attributes |= external & 0x26
    if not external & 1 << 23 or external & READ_ONLY:
        attributes |= READ_ONLY
    return attributes
