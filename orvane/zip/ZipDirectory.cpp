#include "zip/ZipDirectory.h"

#include <algorithm>

#include "zip/ZipFormat.h"

namespace {

// The end record is looked for backwards in blocks that overlap, so that none cuts its signature.
constexpr uint64_t kSearchBlock = 1028;
constexpr uint64_t kSearchOverlap = 3;
constexpr uint64_t kSearchLimit = 0xFFFF;

constexpr size_t kFirstCopy = 64 * 1024;

std::string_view ViewOf(const uint8_t* bytes, size_t size) {
  return {reinterpret_cast<const char*>(bytes), size};
}

}  // namespace

// A record that may be the end record. Comments and entries can hold bytes that look like one, so
// every candidate is judged by what it says of the directory.
struct ZipDirectory::EndRecord {
  enum Rank { kNone, kPossible, kGood, kPerfect };

  Rank rank = kNone;
  uint64_t position = 0;
  int count = 0;
  uint64_t directoryStart = 0;
  uint64_t base = 0;
};

bool ZipCentralRecord::Needs64Bits() const {
  if (size != kZipMaxSize && compressedSize != kZipMaxSize && offset != kZipMaxSize) return false;
  const auto bytes = reinterpret_cast<const uint8_t*>(extra.data());
  for (size_t at = 0; at + 4 <= extra.size(); at += 4 + GetLe16(bytes + at + 2))
    if (GetLe16(bytes + at) == kZip64Id) return true;
  return false;
}

ZipResult ZipDirectory::Open(ZipInput& input) {
  EndRecord end;
  if (const ZipResult result = FindEndRecord(input, end); result != kZipOk) return result;
  m_count = end.count;
  m_start = end.directoryStart;
  m_base = end.base;
  return Index(input, end.position);
}

// The last perfect record wins at once; otherwise the best one, and the last among equals.
ZipResult ZipDirectory::FindEndRecord(ZipInput& input, EndRecord& found) const {
  const uint64_t limit = input.Size() - std::min(input.Size(), kSearchLimit);
  uint64_t blockEnd = input.Size();
  uint8_t block[kSearchBlock];
  while (blockEnd > limit + kSearchOverlap) {
    const uint64_t blockStart = std::max(limit, blockEnd - std::min(blockEnd, kSearchBlock));
    const auto blockSize = static_cast<size_t>(blockEnd - blockStart);
    if (const ZipResult result = input.ReadData(blockStart, block, blockSize); result != kZipOk)
      return result;
    for (size_t i = blockSize - kSearchOverlap; i-- > 0;) {
      if (GetLe32(block + i) != kZipEndSignature) continue;
      EndRecord candidate;
      if (const ZipResult result = JudgeEndRecord(input, blockStart + i, candidate);
          result != kZipOk)
        return result;
      if (candidate.rank > found.rank) found = candidate;
      if (found.rank == EndRecord::kPerfect) return kZipOk;
    }
    blockEnd = blockStart + kSearchOverlap;
  }
  return found.rank == EndRecord::kNone ? kZipCorrupt : kZipOk;
}

ZipResult ZipDirectory::JudgeEndRecord(ZipInput& input, uint64_t position,
                                       EndRecord& record) const {
  uint8_t bytes[kZipEndSize];
  if (!input.Holds(position, sizeof bytes)) return kZipOk;
  if (const ZipResult result = input.ReadHeader(position, bytes, sizeof bytes); result != kZipOk)
    return result;
  const uint64_t disk = GetLe16(bytes + 4);
  const uint64_t directoryDisk = GetLe16(bytes + 6);
  const uint64_t size = GetLe32(bytes + 12);
  const uint64_t offset = GetLe32(bytes + 16);
  const uint64_t commentEnd = position + kZipEndSize + GetLe16(bytes + 20);
  if (disk != 0 || directoryDisk != 0 || commentEnd > input.Size() || offset + size > position)
    return kZipOk;

  record.position = position;
  record.count = GetLe16(bytes + 10);
  const auto isDirectory = [&](uint64_t start) {
    uint8_t signature[4];
    return position - start >= kZipCentralSize &&
           input.ReadHeader(start, signature, sizeof signature) == kZipOk &&
           GetLe32(signature) == kZipCentralSignature;
  };
  if (record.count == 0) {
    // Nothing confirms an empty archive, so it is one only when there is no better record.
    record.directoryStart = position - size;
    record.base = record.directoryStart - offset;
    record.rank = EndRecord::kPossible;
  } else if (isDirectory(position - size)) {
    record.directoryStart = position - size;
    record.base = record.directoryStart - offset;
    record.rank = commentEnd == input.Size() ? EndRecord::kPerfect : EndRecord::kGood;
  } else if (isDirectory(offset)) {
    // Something stands between the directory and its end record, or the size is wrong.
    record.directoryStart = offset;
    record.base = 0;
    record.rank = EndRecord::kPossible;
  }
  return kZipOk;
}

// One pass over the directory, copying no more of it than its records take, whatever size is
// announced.
ZipResult ZipDirectory::Index(ZipInput& input, uint64_t end) {
  const uint64_t most = std::min(end - m_start, kZipMaxSize);
  // Makes sure that the copy holds size bytes.
  const auto copy = [&](uint64_t size) {
    if (size <= m_bytes.size()) return kZipOk;
    if (size > most) return kZipCorrupt;
    const size_t old = m_bytes.size();
    const uint64_t grown = std::max<uint64_t>(size, old == 0 ? kFirstCopy : old * 2ull);
    m_bytes.resize(static_cast<size_t>(std::min(grown, most)));
    return input.ReadData(m_start + old, m_bytes.data() + old, m_bytes.size() - old);
  };

  m_records.reserve(static_cast<size_t>(std::min<uint64_t>(m_count, most / kZipCentralSize)));
  uint64_t at = 0;
  while (ReadableCount() < m_count) {
    ZipResult result = copy(at + kZipCentralSize);
    if (result == kZipReadError) return result;
    if (result != kZipOk || GetLe32(&m_bytes[at]) != kZipCentralSignature) break;
    const uint64_t next = at + kZipCentralSize + GetLe16(&m_bytes[at + 28]) +
                          GetLe16(&m_bytes[at + 30]) + GetLe16(&m_bytes[at + 32]);
    result = copy(next);
    if (result == kZipReadError) return result;
    if (result != kZipOk) break;
    m_records.push_back(static_cast<uint32_t>(at));
    at = next;
  }
  return kZipOk;
}

ZipCentralRecord ZipDirectory::Record(int index) const {
  const uint8_t* at = &m_bytes[m_records[index]];
  ZipCentralRecord record;
  record.flags = GetLe16(at + 8);
  record.method = GetLe16(at + 10);
  record.time = GetLe16(at + 12);
  record.date = GetLe16(at + 14);
  record.crc = GetLe32(at + 16);
  record.compressedSize = GetLe32(at + 20);
  record.size = GetLe32(at + 24);
  record.disk = GetLe16(at + 34);
  record.attributes = GetLe32(at + 38);
  record.offset = GetLe32(at + 42);
  record.name = ViewOf(at + kZipCentralSize, GetLe16(at + 28));
  record.extra = ViewOf(at + kZipCentralSize + record.name.size(), GetLe16(at + 30));
  return record;
}

std::string_view ZipDirectory::Name(int index) const {
  const uint8_t* at = &m_bytes[m_records[index]];
  return ViewOf(at + kZipCentralSize, GetLe16(at + 28));
}
