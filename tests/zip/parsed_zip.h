// Takes a zip archive apart, without the library under test: every field of every record.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// A local header or a central record. Fields that a local header doesn't have are zero there.
struct ParsedHeader {
  unsigned madeBy = 0, needed = 0, flags = 0, method = 0, time = 0, date = 0;
  uint32_t crc = 0, compressed = 0, size = 0;
  std::string name, extra;
  unsigned commentLength = 0, disk = 0, internal = 0;
  uint32_t external = 0, offset = 0;
};

struct ParsedEntry {
  ParsedHeader central;
  ParsedHeader local;
  std::string packed;  // as it stands in the archive
  std::string bytes;   // unpacked
  std::string behind;  // between the data and what follows: the data descriptor
};

struct ParsedZip {
  std::vector<ParsedEntry> entries;
  unsigned disk = 0, directoryDisk = 0, countHere = 0, count = 0, commentLength = 0;
  uint32_t directorySize = 0, directoryOffset = 0;

  std::vector<std::string> Names() const;
};

// Fails the test where the records don't follow each other without a gap, or data don't unpack to
// the size and CRC that the directory tells. Entries that were not taken back from a pipe are a
// gap: allowGaps accepts them.
ParsedZip ParseZip(const std::string& archive, bool allowGaps = false);

uint32_t CrcOf(const std::string& bytes);
