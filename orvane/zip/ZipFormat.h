// The records of a zip archive (PKWARE APPNOTE 4.x): signatures, sizes, flags, and the
// little-endian fields they are made of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

constexpr uint32_t kZipLocalSignature = 0x04034B50;       // 4.3.7
constexpr uint32_t kZipDescriptorSignature = 0x08074B50;  // 4.3.9
constexpr uint32_t kZipCentralSignature = 0x02014B50;     // 4.3.12
constexpr uint32_t kZipEndSignature = 0x06054B50;         // 4.3.16

// Without the names, extra fields and comments that follow the fixed part.
constexpr uint32_t kZipLocalSize = 30;
constexpr uint32_t kZipDescriptorSize = 16;
constexpr uint32_t kZipCentralSize = 46;
constexpr uint32_t kZipEndSize = 22;

// Sizes and offsets are 32-bit, counts and lengths 16-bit.
constexpr uint64_t kZipMaxSize = 0xFFFFFFFF;
constexpr uint32_t kZipMaxCount = 0xFFFF;

constexpr uint16_t kZipStored = 0;
constexpr uint16_t kZipDeflated = 8;

constexpr uint16_t kZipFlagEncrypted = 1 << 0;
constexpr uint16_t kZipFlagDescriptor = 1 << 3;
constexpr uint16_t kZipFlagPatch = 1 << 5;
constexpr uint16_t kZipFlagStrongEncryption = 1 << 6;

// External attributes: the Windows attributes in the low byte, the Unix mode in the high word.
constexpr uint32_t kZipUnixFile = 1u << 31;
constexpr uint32_t kZipUnixFolder = 1u << 30;
constexpr uint32_t kZipUnixReadable = 1u << 24;  // by its owner, as the two below
constexpr uint32_t kZipUnixWritable = 1u << 23;
constexpr uint32_t kZipUnixRunnable = 1u << 22;

// The extended time stamp of Info-ZIP: a flag byte with a bit for each time, then the times as
// 32-bit seconds since 1970. The local header holds all that are flagged, the directory only the
// first.
constexpr uint16_t kZipTimesId = 0x5455;  // "UT"
constexpr uint8_t kZipTimesModified = 1;
constexpr uint8_t kZipTimesAccessed = 2;
constexpr uint8_t kZipTimesCreated = 4;

constexpr uint16_t kZip64Id = 0x0001;

inline uint16_t GetLe16(const uint8_t* at) { return static_cast<uint16_t>(at[0] | at[1] << 8); }

inline uint32_t GetLe32(const uint8_t* at) {
  return GetLe16(at) | static_cast<uint32_t>(GetLe16(at + 2)) << 16;
}

// Puts one field after another into a record whose size the caller has provided for.
class ZipFieldWriter {
 public:
  explicit ZipFieldWriter(uint8_t* at) : m_at(at) {}

  ZipFieldWriter& U8(uint8_t value) {
    *m_at++ = value;
    return *this;
  }
  ZipFieldWriter& U16(uint32_t value) {
    return U8(static_cast<uint8_t>(value)).U8(static_cast<uint8_t>(value >> 8));
  }
  ZipFieldWriter& U32(uint32_t value) { return U16(value & 0xFFFF).U16(value >> 16); }
  ZipFieldWriter& Text(std::string_view text) {
    std::memcpy(m_at, text.data(), text.size());
    m_at += text.size();
    return *this;
  }

 private:
  uint8_t* m_at;
};
