// The central directory of an archive: found, copied and indexed once, when the archive is opened.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "zip/ZipInput.h"

// What the directory says of an entry (APPNOTE 4.3.12). The views end with the directory.
struct ZipCentralRecord {
  uint16_t flags;
  uint16_t method;
  uint16_t time;
  uint16_t date;
  uint32_t crc;
  uint32_t compressedSize;
  uint32_t size;
  uint16_t disk;
  uint32_t attributes;
  uint32_t offset;  // of the local header, from ZipDirectory::Base
  std::string_view name;
  std::string_view extra;

  // Sizes, offset or disk are in a 64-bit extra field, which is not read here.
  bool Needs64Bits() const;
};

class ZipDirectory {
 public:
  // kZipCorrupt when the archive has no end record with a directory, kZipReadError.
  ZipResult Open(ZipInput& input);

  // As the end record announces it.
  int Count() const { return m_count; }

  // The entries before this one have sound records; it is less than Count when a record is broken.
  int ReadableCount() const { return static_cast<int>(m_records.size()); }

  // Of an entry from 0 below ReadableCount.
  ZipCentralRecord Record(int index) const;
  std::string_view Name(int index) const;

  // Positions in the archive: where the directory starts, and where the offsets of its records
  // count from, which is behind a stub that stands in front of the archive.
  uint64_t Start() const { return m_start; }
  uint64_t Base() const { return m_base; }

 private:
  struct EndRecord;
  ZipResult FindEndRecord(ZipInput& input, EndRecord& found) const;
  ZipResult JudgeEndRecord(ZipInput& input, uint64_t position, EndRecord& record) const;
  ZipResult Index(ZipInput& input, uint64_t end);

  int m_count = 0;
  uint64_t m_start = 0;
  uint64_t m_base = 0;
  std::vector<uint8_t> m_bytes;     // the records, as they stand in the archive
  std::vector<uint32_t> m_records;  // where each begins in m_bytes
};
