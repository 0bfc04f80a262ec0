#include "zip/ZipEntry.h"

#include <algorithm>
#include <cstring>

#include "zip/ZipFormat.h"

namespace {

unsigned long WindowsAttributesOf(uint32_t external) {
  unsigned long attributes = FILE_ATTRIBUTE_NORMAL;
  if (external & (kZipUnixFolder | FILE_ATTRIBUTE_DIRECTORY))
    attributes |= FILE_ATTRIBUTE_DIRECTORY;
  attributes |= external & (FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  // By design an entry without a Unix mode is read-only: its writer did not say that it isn't.
  if (!(external & kZipUnixWritable) || external & FILE_ATTRIBUTE_READONLY)
    attributes |= FILE_ATTRIBUTE_READONLY;
  return attributes;
}

constexpr size_t kBlockHeader = 4;  // id and length of a block of the extra field
constexpr size_t kMostTimes = 1 + 3 * 4;

// Takes the times of an extended time stamp, the fields behind its id and length.
void UseTimes(const uint8_t* fields, size_t size, ZIPENTRY& entry) {
  size_t at = 1;
  const auto next = [&](uint8_t flag, FILETIME& time) {
    if (!(fields[0] & flag) || at + 4 > size) return;
    time = FromUnixTime(static_cast<int32_t>(GetLe32(fields + at)));
    at += 4;
  };
  next(kZipTimesModified, entry.mtime);
  next(kZipTimesAccessed, entry.atime);
  next(kZipTimesCreated, entry.ctime);
}

// By design the walk steps by the low byte of a block's length. A block of 256 bytes or more
// misleads it, and the times of the directory stand; it never leaves the field.
ZipResult UseExtraField(ZipInput& input, const ZipLocalHeader& header, ZIPENTRY& entry) {
  for (uint64_t at = header.extra; at + kBlockHeader <= header.data;) {
    uint8_t block[kBlockHeader + kMostTimes] = {};
    const auto shown = static_cast<size_t>(std::min<uint64_t>(sizeof block, header.data - at));
    if (const ZipResult result = input.ReadHeader(at, block, shown); result != kZipOk)
      return result;
    const size_t length = block[2];
    if (GetLe16(block) == kZipTimesId) {
      UseTimes(block + kBlockHeader, std::min(length, shown - kBlockHeader), entry);
      return kZipOk;
    }
    at += kBlockHeader + length;
  }
  return kZipOk;
}

}  // namespace

ZipResult ReadLocalHeader(ZipInput& input, const ZipDirectory& directory,
                          const ZipCentralRecord& record, ZipLocalHeader& header) {
  const uint64_t position = directory.Base() + record.offset;
  uint8_t bytes[kZipLocalSize];
  if (const ZipResult result = input.ReadHeader(position, bytes, sizeof bytes); result != kZipOk)
    return result;
  if (GetLe32(bytes) != kZipLocalSignature) return kZipCorrupt;
  header.extra = position + kZipLocalSize + GetLe16(bytes + 26);
  header.data = header.extra + GetLe16(bytes + 28);
  return input.Holds(header.data, 0) ? kZipOk : kZipCorrupt;
}

ZipResult ReadZipEntry(ZipInput& input, const ZipDirectory& directory, const ZipTimeZone& timeZone,
                       int index, ZIPENTRY& entry) {
  if (index >= directory.ReadableCount()) return kZipCorrupt;
  const ZipCentralRecord record = directory.Record(index);
  ZipLocalHeader header;
  if (const ZipResult result = ReadLocalHeader(input, directory, record, header); result != kZipOk)
    return result;

  entry = {};
  entry.index = index;
  std::memcpy(entry.name, record.name.data(), std::min(record.name.size(), sizeof entry.name - 1));
  entry.attr = WindowsAttributesOf(record.attributes);
  entry.comp_size = static_cast<int>(record.compressedSize);
  entry.unc_size = static_cast<int>(record.size);
  entry.mtime = timeZone.FromDosTime({record.time, record.date});
  entry.atime = entry.ctime = entry.mtime;
  return UseExtraField(input, header, entry);
}
