#include "zip/ZipExtraction.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "zip/ZipFormat.h"

namespace {

// Stored data of so many bytes go from the archive straight to their place.
constexpr size_t kLargePiece = 64 * 1024;

}  // namespace

ZipResult ZipExtraction::Start(const ZipCentralRecord& record, uint64_t dataPosition) {
  m_state = State::kDone;
  constexpr uint16_t kNotDone = kZipFlagEncrypted | kZipFlagPatch | kZipFlagStrongEncryption;
  if (record.flags & kNotDone || record.disk != 0 || record.Needs64Bits()) return kZipCorrupt;
  if (record.method != kZipStored && record.method != kZipDeflated) return kZipCorrupt;
  m_isDeflated = record.method == kZipDeflated;
  if (!m_isDeflated && record.compressedSize != record.size) return kZipCorrupt;
  if (m_isDeflated) {
    const int status =
        m_stream.state != nullptr ? inflateReset(&m_stream) : inflateInit2(&m_stream, -MAX_WBITS);
    if (status != Z_OK) throw std::bad_alloc();
  }
  m_position = dataPosition;
  m_compressedLeft = record.compressedSize;
  m_left = record.size;
  // Some writers say deflated of an empty entry and write nothing.
  m_isStreamEnded = record.size == 0 && record.compressedSize == 0;
  m_crc = 0;
  m_announcedCrc = record.crc;
  m_state = State::kReading;
  return kZipOk;
}

ZipExtraction::State ZipExtraction::Read(uint8_t* to, size_t capacity, size_t& got) {
  got = 0;
  if (m_left == 0) Finish();
  while (m_state == State::kReading && m_left > 0 && got < capacity) {
    const size_t piece =
        m_isDeflated ? Inflate(to + got, capacity - got) : Copy(to + got, capacity - got);
    m_crc = crc32(m_crc, to + got, static_cast<uInt>(piece));
    got += piece;
  }
  return m_state;
}

size_t ZipExtraction::Copy(uint8_t* to, size_t capacity) {
  size_t size = std::min<size_t>(capacity, m_left);
  ZipResult result;
  if (size >= kLargePiece) {
    result = m_input.ReadData(m_position, to, size);
  } else {
    const uint8_t* bytes;
    size_t available;
    result = m_input.ShowData(m_position, size, bytes, available);
    if (result == kZipOk) {
      size = available;
      std::memcpy(to, bytes, size);
    }
  }
  if (result != kZipOk) {
    m_state = State::kBroken;
    return 0;
  }
  m_position += size;
  m_left -= static_cast<uint32_t>(size);
  return size;
}

size_t ZipExtraction::Inflate(uint8_t* to, size_t capacity) {
  const uint8_t* bytes = nullptr;
  size_t available = 0;
  if (m_compressedLeft > 0) {
    if (m_input.ShowData(m_position, m_compressedLeft, bytes, available) != kZipOk) {
      m_state = State::kBroken;
      return 0;
    }
  }
  // A byte more than announced, where there is room for it: zlib then sees the end of the data at
  // once.
  const auto room = static_cast<size_t>(std::min<uint64_t>(capacity, m_left + 1ull));
  m_stream.next_in = bytes;
  m_stream.avail_in = static_cast<uInt>(available);
  m_stream.next_out = to;
  m_stream.avail_out = static_cast<uInt>(room);
  // Told that all is there, zlib keeps no copy of the last 32 KB.
  const bool isAllThere = available == m_compressedLeft && room > m_left;
  const int status = inflate(&m_stream, isAllThere ? Z_FINISH : Z_NO_FLUSH);
  if (status == Z_MEM_ERROR) throw std::bad_alloc();
  const size_t consumed = available - m_stream.avail_in;
  size_t produced = room - m_stream.avail_out;
  m_position += consumed;
  m_compressedLeft -= static_cast<uint32_t>(consumed);

  const bool isTooMuch = produced > m_left;
  if (isTooMuch) produced = m_left;
  m_left -= static_cast<uint32_t>(produced);
  if (status == Z_STREAM_END) m_isStreamEnded = true;
  if (isTooMuch || (m_isStreamEnded && m_left > 0))
    m_state = State::kMismatch;
  else if (status != Z_OK && status != Z_STREAM_END && status != Z_BUF_ERROR)
    m_state = State::kBroken;
  else if (status != Z_STREAM_END && consumed == 0 && produced == 0)
    m_state = State::kBroken;  // the compressed data end too early
  return produced;
}

// All announced bytes are given out: the compressed data must end too, without one more.
void ZipExtraction::Finish() {
  uint8_t none;
  while (m_state == State::kReading && m_isDeflated && !m_isStreamEnded) Inflate(&none, 1);
  if (m_state == State::kReading)
    m_state = m_crc == m_announcedCrc ? State::kDone : State::kMismatch;
}
