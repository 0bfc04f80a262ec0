#include "zip/ZipEntry.h"

#include <algorithm>
#include <cstring>

#include "zip/ZipFormat.h"
#include "zip/ZipTime.h"

namespace {

// External attributes: Windows attributes in the low byte, the Unix mode in the high word.
constexpr uint32_t kUnixFolder = 1u << 30;
constexpr uint32_t kUnixWritable = 1u << 23;

unsigned long windowsAttributesOf(uint32_t external) {
  unsigned long attributes = FILE_ATTRIBUTE_NORMAL;
  if (external & (kUnixFolder | FILE_ATTRIBUTE_DIRECTORY)) attributes |= FILE_ATTRIBUTE_DIRECTORY;
  attributes |= external & (FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  // By design an entry without a Unix mode is read-only: its writer did not say that it isn't.
  if (!(external & kUnixWritable) || external & FILE_ATTRIBUTE_READONLY)
    attributes |= FILE_ATTRIBUTE_READONLY;
  return attributes;
}

// Takes the times of an extended time stamp, the fields behind its id and length.
void useTimes(const uint8_t* at, const uint8_t* end, ZIPENTRY& entry) {
  if (at == end) return;
  const uint8_t flags = *at++;
  const auto next = [&](uint8_t flag, FILETIME& time) {
    if (!(flags & flag) || end - at < 4) return;
    time = fromUnixTime(static_cast<int32_t>(getLe32(at)));
    at += 4;
  };
  next(kZipTimesModified, entry.mtime);
  next(kZipTimesAccessed, entry.atime);
  next(kZipTimesCreated, entry.ctime);
}

// By design the walk steps by the low byte of a block's length. A block of 256 bytes or more
// misleads it, and the times of the directory stand; it never leaves the field.
void useExtraField(const uint8_t* at, size_t size, ZIPENTRY& entry) {
  const uint8_t* const end = at + size;
  while (end - at >= 4) {
    const uint16_t id = getLe16(at);
    const size_t length = at[2];
    at += 4;
    const uint8_t* const blockEnd = at + std::min<size_t>(length, end - at);
    if (id == kZipTimesId) return useTimes(at, blockEnd, entry);
    at = blockEnd;
  }
}

}  // namespace

ZipResult readLocalHeader(ZipInput& input, const ZipDirectory& directory,
                          const ZipCentralRecord& record, ZipLocalHeader& header) {
  const uint64_t position = directory.Base() + record.offset;
  const uint8_t* bytes;
  size_t size;
  if (const ZipResult result = input.Show(position, kZipLocalSize, bytes, size); result != kZipOk)
    return result;
  if (getLe32(bytes) != kZipLocalSignature) return kZipCorrupt;
  header.extra = position + kZipLocalSize + getLe16(bytes + 26);
  header.extraSize = getLe16(bytes + 28);
  header.data = header.extra + header.extraSize;
  return input.Holds(header.data, 0) ? kZipOk : kZipCorrupt;
}

ZipResult readZipEntry(ZipInput& input, const ZipDirectory& directory, int index, ZIPENTRY& entry) {
  if (!directory.IsReadable(index)) return kZipCorrupt;
  const ZipCentralRecord record = directory.Record(index);
  ZipLocalHeader header;
  if (const ZipResult result = readLocalHeader(input, directory, record, header); result != kZipOk)
    return result;

  entry = {};
  entry.index = index;
  std::memcpy(entry.name, record.name.data(), std::min(record.name.size(), sizeof entry.name - 1));
  entry.attr = windowsAttributesOf(record.attributes);
  entry.comp_size = static_cast<int>(record.compressedSize);
  entry.unc_size = static_cast<int>(record.size);
  entry.mtime = fromDosTime({record.time, record.date});
  entry.atime = entry.ctime = entry.mtime;
  const uint8_t* extra;
  size_t shown;
  if (const ZipResult result = input.Show(header.extra, header.extraSize, extra, shown);
      result != kZipOk)
    return result;
  useExtraField(extra, header.extraSize, entry);
  return kZipOk;
}
