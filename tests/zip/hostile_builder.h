// Builds zip archives byte by byte, sound ones and broken ones, without the library under test.
//
// An Archive is the list of its entries and its end record. Every field can be set to a lie;
// lengths and offsets that are left alone come out true. Format: PKWARE APPNOTE 4.x, section 4.3.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace hostile {

constexpr uint16_t kStored = 0;
constexpr uint16_t kDeflated = 8;

constexpr uint16_t kEncrypted = 0x0001;      // flag bit 0
constexpr uint16_t kHasDescriptor = 0x0008;  // flag bit 3

constexpr size_t kLocalSize = 30;  // a local header without name and extra field

// Set: written as it is. Not set: the truth is written.
template <class Number>
using Lie = std::optional<Number>;

// What a local header and a central record have in common.
struct Header {
  uint32_t signature = 0;
  uint16_t flags = 0;
  uint16_t method = kStored;
  uint16_t time = 0x6000;  // 12:00:00
  uint16_t date = 0x5921;  // 1 September 2024
  uint32_t crc = 0;
  uint32_t compressed = 0;
  uint32_t uncompressed = 0;
  std::string name;
  std::string extra;
  Lie<uint16_t> nameLength;
  Lie<uint16_t> extraLength;
};

struct Entry {
  std::string plain;  // the file's bytes

  std::string before;  // stray bytes in front of the local header
  bool hasLocal = true;
  Header local;
  std::string data;  // the file's bytes as they stand in the archive
  std::string descriptor;

  bool hasCentral = true;
  Header central;
  uint16_t disk = 0;
  uint32_t external = 0x81800020;
  std::string comment;
  Lie<uint32_t> offset;

  // Changes a field of both headers: entry.Both(&Header::crc, 1).
  template <class Field, class Value>
  Entry& Both(Field Header::*field, const Value& value) {
    local.*field = value;
    central.*field = value;
    return *this;
  }
};

Entry Stored(const std::string& name, const std::string& plain);
Entry Deflated(const std::string& name, const std::string& plain);
Entry Folder(const std::string& name);
// The entry with its sizes and CRC behind the data.
Entry Piped(Entry entry);

// The local header, data and descriptor of an entry.
std::string LocalPart(const Entry& entry);

// The central record of an entry whose local header is at an offset.
std::string CentralPart(const Entry& entry, size_t offset);

struct Layout {
  std::string bytes;
  std::vector<size_t> offsets;  // of each entry's local header, from the start of the bytes
  size_t directory = 0;
  size_t end = 0;
};

struct Archive {
  std::string stub;  // in front; offsets count from behind it
  std::vector<Entry> entries;
  std::string beforeDirectory;
  std::string insideDirectory;  // behind the records, counted in the directory's size
  std::string comment;
  std::string behind;  // after the end record and its comment

  uint32_t endSignature = 0x06054B50;
  uint16_t disk = 0;
  Lie<uint16_t> count;
  Lie<uint32_t> directorySize;
  Lie<uint32_t> directoryOffset;
  Lie<uint16_t> commentLength;

  Entry& operator[](size_t index) { return entries[index]; }

  Layout LayOut() const;
  std::string Bytes() const { return LayOut().bytes; }
};

// A sound archive: deflated text, stored noise, a folder, a file in it, an empty file and a
// streamed one, in this order.
Archive GoodArchive();
constexpr size_t kText = 0, kNoise = 1, kFolder = 2, kInner = 3, kEmpty = 4, kStreamed = 5;

// Little-endian numbers as text.
std::string U16(uint32_t value);
std::string U32(uint32_t value);

// A field of an extra block: id, length, bytes.
std::string ExtraBlock(uint16_t id, const std::string& bytes);

// Raw deflate data of some bytes, of level 8.
std::string Deflate(const std::string& plain);
uint32_t Crc(const std::string& bytes);

// Bytes that don't compress, the same for the same seed.
std::string Noise(size_t size, uint32_t seed);

}  // namespace hostile
