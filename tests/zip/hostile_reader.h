// Does everything to an archive that a host can do with the reader, and checks what must hold for
// every archive, however broken: a documented result from every function, no access outside the
// archive's block or the destination's, bounded memory, bounded output, and nothing extracted as
// good that differs between the ways of extracting it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/TempFolder.h"
#include "zip/XUnzip.h"

namespace hostile {

// Size and CRC of some bytes.
struct Digest {
  uint32_t size = 0;
  uint32_t crc = 0;
  bool operator==(const Digest&) const = default;
};

Digest DigestOf(const std::string& bytes);

struct EntryOutcome {
  unsigned long look = 0;    // of GetZipItemA
  bool found = false;        // by FindZipItemA under its own name, at its own index
  bool folder = false;       // the record says so
  unsigned long memory = 0;  // the last result of UnzipItem into memory
  unsigned long file = 0;    // of UnzipItem to a file or handle
  Digest bytes;              // handed out into memory
};

struct Outcome {
  bool opened = false;
  std::string message;                // of the last result when it could not be opened
  int count = 0;                      // entries, by the reader
  std::vector<EntryOutcome> entries;  // the first hundred
  std::string problem;                // the first rule that did not hold; empty: none
};

// source tells how the reader gets at the archive: kZipMemory (in a block with pages without access
// on both sides), kZipFileName, or kZipHandle (behind other bytes of its file).
Outcome ReadEverything(const std::string& archive, ZipKind source, const TempFolder& folder);

}  // namespace hostile
