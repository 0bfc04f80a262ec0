#include "zip/ZipWriter.h"

#include <algorithm>
#include <string>
#include <vector>

#include "zip/ZipArchive.h"
#include "zip/ZipDeflater.h"
#include "zip/ZipFormat.h"
#include "zip/ZipMessages.h"
#include "zip/ZipSource.h"
#include "zip/ZipTarget.h"
#include "zip/ZipTime.h"

namespace {

constexpr uint16_t kVersionMadeBy = 0x0B17;  // NTFS, 2.3
constexpr uint16_t kVersionNeeded = 20;
constexpr uint32_t kLocalTimesSize = 17;
constexpr uint32_t kCentralTimesSize = 9;
constexpr uint8_t kAllTimes = kZipTimesModified | kZipTimesAccessed | kZipTimesCreated;

// zlib reads and writes fastest in pieces that fit the processor's second cache.
constexpr size_t kPieceSize = 64 * 1024;

ZipResult g_lastResult = kZipOk;

// What is written into both headers of an entry.
struct NewEntry {
  std::string name;
  uint16_t flags = kZipFlagDescriptor;
  uint16_t method = kZipStored;
  ZipDosTime dosTime;
  int32_t modified = 0;
  int32_t accessed = 0;
  int32_t created = 0;
  uint32_t crc = 0;
  uint32_t compressedSize = 0;
  uint32_t size = 0;
  uint32_t attributes = 0;
  uint32_t offset = 0;
};

// The name as archives hold it: "/" for every "\" that isn't the second half of a character.
std::string EntryNameOf(const char* name, bool isFolder) {
  std::string result(name);
  for (size_t i = 0; i < result.size(); ++i) {
    if (IsDBCSLeadByte(result[i]))
      ++i;
    else if (result[i] == '\\')
      result[i] = '/';
  }
  if (isFolder && result.back() != '/') result += '/';
  return result;
}

// Whether a name says that its bytes are packed already.
bool IsPackedName(const std::string& name) {
  const size_t dot = name.rfind('.');
  if (dot == std::string::npos) return false;
  for (const char* extension : {".Z", ".zip", ".zoo", ".arc", ".lzh", ".arj", ".gz", ".tgz"})
    if (_stricmp(name.c_str() + dot, extension) == 0) return true;
  return false;
}

// The most that deflate makes of size bytes in the worst case (zlib's deflateBound in 64 bits).
uint64_t WorstDeflatedSize(uint64_t size) {
  return size + (size >> 12) + (size >> 14) + (size >> 25) + 7;
}

}  // namespace

class ZipWriter : public ZipArchive {
 public:
  static constexpr ZipArchiveKind kArchiveKind = ZipArchiveKind::kWriter;

  ZipWriter() : ZipArchive(kArchiveKind), m_piece(new uint8_t[kPieceSize]) {}

  ZipResult Open(void* target, unsigned int length, unsigned long kind);
  ZipResult Add(const char* name, const void* source, unsigned int length, unsigned long kind);
  ZipResult End();

  const ZipTarget& Target() const { return m_target; }

 private:
  bool HasRoomFor(const NewEntry& entry, const ZipSource& source);
  ZipResult WriteEntry(NewEntry& entry, ZipSource& source);
  ZipResult WriteData(NewEntry& entry, ZipSource& source);
  ZipResult Deflate(z_stream& stream, const uint8_t* bytes, size_t size, bool isEnd);
  ZipResult CheckLimit() const { return m_target.Position() > m_limit ? kZipBadArguments : kZipOk; }
  void PutLocalHeader(const NewEntry& entry, uint8_t* header) const;
  void AppendToDirectory(const NewEntry& entry);
  static void PutCommonFields(const NewEntry& entry, uint32_t extraSize, ZipFieldWriter& fields);

  ZipTarget m_target;
  const ZipTimeZone m_timeZone;
  ZipDeflater m_deflater;
  std::unique_ptr<uint8_t[]> m_piece;  // of a source that is a file
  std::vector<uint8_t> m_directory;    // the central records of the entries so far
  uint32_t m_count = 0;
  uint64_t m_limit = 0;  // position that the data of the entry being written must not pass
  bool m_isEnded = false;
  ZipResult m_endResult = kZipOk;
};

ZipResult ZipWriter::Open(void* target, unsigned int length, unsigned long kind) {
  switch (kind) {
    case kZipHandle:
      return m_target.OpenHandle(target);
    case kZipFileName:
      if (target == nullptr) return kZipBadArguments;
      return m_target.OpenFile(static_cast<const char*>(target));
    case kZipMemory:
      return m_target.OpenMemory(target, length);
    default:
      return kZipBadArguments;
  }
}

ZipResult ZipWriter::Add(const char* name, const void* source, unsigned int length,
                         unsigned long kind) {
  if (m_target.HasFailed()) return kZipEarlierError;
  if (m_isEnded) return kZipEnded;
  if (name == nullptr || *name == 0 || m_count == kZipMaxCount) return kZipBadArguments;

  NewEntry entry;
  entry.name = EntryNameOf(name, kind == kZipFolder);
  if (entry.name.size() > kZipMaxCount) return kZipBadArguments;
  if (kind != kZipFolder && !IsPackedName(entry.name)) entry.method = kZipDeflated;

  ZipSource input(m_piece.get(), kPieceSize);
  if (const ZipResult result = input.Open(source, length, kind); result != kZipOk) return result;
  if (!HasRoomFor(entry, input)) return kZipBadArguments;

  const uint64_t start = m_target.Position();
  const size_t directorySize = m_directory.size();
  ZipResult result;
  try {
    result = WriteEntry(entry, input);
  } catch (const std::exception&) {
    result = kZipNoMemory;
  }
  if (result != kZipOk) {
    m_target.TakeBack(start);
    m_directory.resize(directorySize);
    return result;
  }
  ++m_count;
  return kZipOk;
}

// Finds out how far the data may reach so that this entry's record and the end of the archive still
// fit below 4 GiB, and whether they can. The packed size is not known beforehand: what can't be
// taken back is refused for its worst case, the rest only when the limit is really passed.
bool ZipWriter::HasRoomFor(const NewEntry& entry, const ZipSource& source) {
  const uint64_t after = (m_target.CanSeek() ? 0 : kZipDescriptorSize) + m_directory.size() +
                         kZipCentralSize + entry.name.size() + kCentralTimesSize + kZipEndSize;
  const uint64_t header = kZipLocalSize + entry.name.size() + kLocalTimesSize;
  const uint64_t size = source.Size().value_or(0);
  uint64_t data = size;
  if (entry.method == kZipDeflated) data = m_target.CanSeek() ? 0 : WorstDeflatedSize(size);
  if (size > kZipMaxSize || m_target.Position() + header + data + after > kZipMaxSize) return false;
  m_limit = kZipMaxSize - after;
  return true;
}

ZipResult ZipWriter::WriteEntry(NewEntry& entry, ZipSource& source) {
  entry.offset = static_cast<uint32_t>(m_target.Position());
  entry.dosTime = m_timeZone.ToDosTime(source.Modified());
  entry.modified = ToUnixTime(source.Modified());
  entry.accessed = ToUnixTime(source.Accessed());
  entry.created = ToUnixTime(source.Created());
  entry.attributes = source.Attributes();

  uint8_t header[kZipLocalSize];
  PutLocalHeader(entry, header);
  uint8_t times[kLocalTimesSize];
  ZipFieldWriter(times)
      .U16(kZipTimesId)
      .U16(kLocalTimesSize - 4)
      .U8(kAllTimes)
      .U32(entry.modified)
      .U32(entry.accessed)
      .U32(entry.created);
  ZipResult result = m_target.Write(header, sizeof header);
  if (result == kZipOk) result = m_target.Write(entry.name.data(), entry.name.size());
  if (result == kZipOk) result = m_target.Write(times, sizeof times);
  if (result == kZipOk) result = WriteData(entry, source);
  if (result != kZipOk) return result;

  if (m_target.CanSeek()) {
    entry.flags &= ~kZipFlagDescriptor;
    PutLocalHeader(entry, header);
    result = m_target.Patch(entry.offset, header, sizeof header);
  } else {
    uint8_t descriptor[kZipDescriptorSize];
    ZipFieldWriter(descriptor)
        .U32(kZipDescriptorSignature)
        .U32(entry.crc)
        .U32(entry.compressedSize)
        .U32(entry.size);
    result = m_target.Write(descriptor, sizeof descriptor);
  }
  // Whoever reads a pipe gets every entry when it is added, and a full disk shows here.
  if (result == kZipOk) result = m_target.Flush();
  if (result == kZipOk) AppendToDirectory(entry);
  return result;
}

ZipResult ZipWriter::WriteData(NewEntry& entry, ZipSource& source) {
  const uint64_t start = m_target.Position();
  z_stream* stream = entry.method == kZipDeflated ? &m_deflater.Start() : nullptr;
  const uint64_t mostBytes = source.Size().value_or(kZipMaxSize);
  uint64_t size = 0;
  uint32_t crc = 0;
  for (;;) {
    const uint8_t* bytes;
    size_t piece;
    ZipResult result = source.Next(bytes, piece);
    if (result != kZipOk) return result;
    size += piece;
    if (size > mostBytes) return source.Size() ? kZipSizeDiffers : kZipBadArguments;
    crc = crc32(crc, bytes, static_cast<uInt>(piece));
    const bool isEnd = piece == 0;
    if (stream != nullptr)
      result = Deflate(*stream, bytes, piece, isEnd);
    else if (m_target.Position() + piece > m_limit)
      result = kZipBadArguments;
    else
      result = m_target.Write(bytes, piece);
    if (result != kZipOk) return result;
    if (isEnd) break;
  }
  if (source.Size() && size != *source.Size()) return kZipSizeDiffers;
  entry.crc = crc;
  entry.size = static_cast<uint32_t>(size);
  entry.compressedSize = static_cast<uint32_t>(m_target.Position() - start);
  return kZipOk;
}

ZipResult ZipWriter::Deflate(z_stream& stream, const uint8_t* bytes, size_t size, bool isEnd) {
  stream.next_in = bytes;
  stream.avail_in = static_cast<uInt>(size);
  do {
    uint8_t* room;
    size_t roomSize;
    if (const ZipResult result = m_target.Room(room, roomSize); result != kZipOk) return result;
    stream.next_out = room;
    stream.avail_out = static_cast<uInt>(roomSize);
    const int status = deflate(&stream, isEnd ? Z_FINISH : Z_NO_FLUSH);
    if (status != Z_OK && status != Z_STREAM_END && status != Z_BUF_ERROR) return kZipFlateError;
    m_target.Advance(roomSize - stream.avail_out);
    if (const ZipResult result = CheckLimit(); result != kZipOk) return result;
    if (status == Z_STREAM_END) break;
  } while (stream.avail_out == 0);
  return kZipOk;
}

void ZipWriter::PutLocalHeader(const NewEntry& entry, uint8_t* header) const {
  ZipFieldWriter fields(header);
  fields.U32(kZipLocalSignature);
  PutCommonFields(entry, kLocalTimesSize, fields);
}

void ZipWriter::AppendToDirectory(const NewEntry& entry) {
  const size_t at = m_directory.size();
  m_directory.resize(at + kZipCentralSize + entry.name.size() + kCentralTimesSize);
  ZipFieldWriter fields(&m_directory[at]);
  fields.U32(kZipCentralSignature).U16(kVersionMadeBy);
  PutCommonFields(entry, kCentralTimesSize, fields);
  fields
      .U16(0)  // comment length
      .U16(0)  // disk
      .U16(0)  // internal attributes
      .U32(entry.attributes)
      .U32(entry.offset)
      .Text(entry.name)
      .U16(kZipTimesId)
      .U16(kCentralTimesSize - 4)
      .U8(kAllTimes)
      .U32(entry.modified);
}

// What an entry's local header and its record in the directory have in common.
void ZipWriter::PutCommonFields(const NewEntry& entry, uint32_t extraSize, ZipFieldWriter& fields) {
  fields.U16(kVersionNeeded)
      .U16(entry.flags)
      .U16(entry.method)
      .U16(entry.dosTime.time)
      .U16(entry.dosTime.date)
      .U32(entry.crc)
      .U32(entry.compressedSize)
      .U32(entry.size)
      .U16(static_cast<uint32_t>(entry.name.size()))
      .U16(extraSize);
}

// Writes the directory and the end record, once. After a failed write that is tried too: the
// entries before it may still fit.
ZipResult ZipWriter::End() {
  if (m_isEnded) return m_endResult;
  m_isEnded = true;
  uint8_t end[kZipEndSize];
  ZipFieldWriter(end)
      .U32(kZipEndSignature)
      .U16(0)  // this disk
      .U16(0)  // disk of the directory
      .U16(m_count)
      .U16(m_count)
      .U32(static_cast<uint32_t>(m_directory.size()))
      .U32(static_cast<uint32_t>(m_target.Position()))
      .U16(0);  // comment length
  m_endResult = m_target.Write(m_directory.data(), m_directory.size());
  if (m_endResult == kZipOk) m_endResult = m_target.Write(end, sizeof end);
  if (m_endResult == kZipOk) m_endResult = m_target.Finish();
  return m_endResult;
}

HZIP CreateZipZ(void* target, unsigned int length, unsigned long kind) {
  HZIP archive = nullptr;
  RunZipCall(g_lastResult, [&] {
    auto writer = std::make_unique<ZipWriter>();
    const ZipResult result = writer->Open(target, length, kind);
    if (result == kZipOk) archive = writer.release();
    return result;
  });
  return archive;
}

unsigned long ZipAdd(HZIP archive, const char* name, const void* source, unsigned int length,
                     unsigned long kind) {
  return RunZipCall<ZipWriter>(g_lastResult, archive, [&](ZipWriter& writer) {
    return writer.Add(name, source, length, kind);
  });
}

unsigned long ZipAdd(HZIP archive, const char* name, const void* source, unsigned int length,
                     unsigned long kind, unsigned long& bytesWritten) {
  bytesWritten = 0;
  return RunZipCall<ZipWriter>(g_lastResult, archive, [&](ZipWriter& writer) {
    const ZipResult result = writer.Add(name, source, length, kind);
    bytesWritten = static_cast<unsigned long>(writer.Target().Position());
    return result;
  });
}

unsigned long ZipGetMemory(HZIP archive, void** memory, unsigned long* length) {
  if (memory != nullptr) *memory = nullptr;
  if (length != nullptr) *length = 0;
  return RunZipCall<ZipWriter>(g_lastResult, archive, [&](ZipWriter& writer) {
    if (!writer.Target().IsMemory()) return kZipNotMemory;
    const ZipResult result = writer.End();
    if (result != kZipOk) return result;
    if (memory != nullptr) *memory = writer.Target().Memory();
    if (length != nullptr) *length = static_cast<unsigned long>(writer.Target().Position());
    return kZipOk;
  });
}

unsigned long CloseZipZ(HZIP archive) {
  return RunZipCall<ZipWriter>(g_lastResult, archive, [&](ZipWriter& writer) {
    const std::unique_ptr<ZipWriter> owner(&writer);
    return writer.End();
  });
}

void DropZip(HZIP archive) {
  if (archive != nullptr && archive->kind == ZipArchiveKind::kWriter)
    delete static_cast<ZipWriter*>(archive);
}

bool IsZipHandleZ(HZIP archive) { return IsZipArchiveOf(archive, ZipArchiveKind::kWriter); }

unsigned int FormatZipMessageZ(unsigned long code, char* buffer, unsigned int size) {
  return FormatZipMessage(code == kZipRecent ? g_lastResult : code, buffer, size);
}
