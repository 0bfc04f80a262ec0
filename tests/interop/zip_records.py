"""Reads the records of a zip archive field by field (PKWARE APPNOTE 4.x, section 4.3), and says what
Windows file times and attributes come to in them."""

import calendar
import collections
import datetime
import struct
import zoneinfo

from interop import check, check_equal

UT = 0x5455

READ_ONLY, FOLDER, ARCHIVE, NORMAL = 0x01, 0x10, 0x20, 0x80

_LOCAL = struct.Struct("<4s5H3I2H")
_CENTRAL = struct.Struct("<4s6H3I5H2I")
_END = struct.Struct("<4s4H2IH")

Local = collections.namedtuple(
    "Local",
    "needed flags method time date crc packed size name extra data_offset",
)
Central = collections.namedtuple(
    "Central",
    "made_by needed flags method time date crc packed size disk internal external offset"
    " name extra comment",
)
End = collections.namedtuple("End", "disk first_disk here count size offset comment")


class Archive:
    """The records of an archive without stub and archive comment, and its bytes."""

    def __init__(self, path):
        with open(path, "rb") as file:
            self.data = file.read()
        self.end_offset = len(self.data) - _END.size
        signature, *fields, comment_length = _END.unpack_from(self.data, self.end_offset)
        check_equal(signature, b"PK\5\6", f"signature of the end record of {path}")
        check_equal(comment_length, 0, f"comment length of {path}")
        self.end = End(*fields, b"")
        self.records = []
        at = self.end.offset
        while at < self.end.offset + self.end.size:
            record, at = self._central(at)
            self.records.append(record)
        self.directory_end = at

    def _central(self, at):
        fields = _CENTRAL.unpack_from(self.data, at)
        check_equal(fields[0], b"PK\1\2", f"signature of the central record at {at}")
        name_length, extra_length, comment_length = fields[10:13]
        name = at + _CENTRAL.size
        extra = name + name_length
        comment = extra + extra_length
        end = comment + comment_length
        record = Central(
            *fields[1:10],
            *fields[13:],
            self.data[name:extra],
            self.data[extra:comment],
            self.data[comment:end],
        )
        return record, end

    def local(self, record):
        at = record.offset
        fields = _LOCAL.unpack_from(self.data, at)
        check_equal(fields[0], b"PK\3\4", f"signature of the local header at {at}")
        name_length, extra_length = fields[9:]
        name = at + _LOCAL.size
        extra = name + name_length
        data = extra + extra_length
        return Local(*fields[1:9], self.data[name:extra], self.data[extra:data], data)


def extra_blocks(extra):
    """The blocks of an extra field, by id."""
    blocks = {}
    while len(extra) >= 4:
        block_id, length = struct.unpack_from("<2H", extra)
        blocks[block_id] = extra[4 : 4 + length]
        extra = extra[4 + length :]
    return blocks


def dos_time(seconds, zone):
    """DOS date and time of a Unix time, as local time, odd seconds rounded down."""
    local = datetime.datetime.fromtimestamp(int(seconds), zoneinfo.ZoneInfo(zone))
    date = (local.year - 1980) << 9 | local.month << 5 | local.day
    return date, local.hour << 11 | local.minute << 5 | local.second // 2


def unix_time(date, time, zone):
    """The Unix time of a DOS date and time."""
    local = datetime.datetime(
        (date >> 9) + 1980, date >> 5 & 15, date & 31, time >> 11, time >> 5 & 63, (time & 31) * 2
    )
    return calendar.timegm(local.replace(tzinfo=zoneinfo.ZoneInfo(zone)).utctimetuple())


def windows_attributes(external):
    """What a reader makes of external attributes: read-only unless the Unix mode says writable."""
    attributes = NORMAL
    if external & (1 << 30) or external & FOLDER:
        attributes |= FOLDER
    attributes |= external & 0x26
    if not external & 1 << 23 or external & READ_ONLY:
        attributes |= READ_ONLY
    return attributes


def modification_time(archive, record, zone):
    """The time of the local header's extended time stamp, or else of its DOS time."""
    stamp = extra_blocks(archive.local(record).extra).get(UT)
    if stamp and stamp[0] & 1:
        return struct.unpack_from("<i", stamp, 1)[0]
    return unix_time(record.date, record.time, zone)
