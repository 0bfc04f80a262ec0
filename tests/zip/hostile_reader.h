// Does everything to an archive that a host can do with the reader, and checks what must hold for
// every archive, however broken: a documented result from every function, no access outside the
// archive's block or the destination's, bounded memory, bounded output, and nothing extracted as
// good that differs between the ways of extracting it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hostile_builder.h"
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
  bool operator==(const EntryOutcome&) const = default;
};

struct Outcome {
  bool opened = false;
  int count = 0;                      // entries, by the reader
  std::vector<EntryOutcome> entries;  // the first hundred
  bool operator==(const Outcome&) const = default;
};

// source tells how the reader gets at the archive: kZipMemory (in a block with pages without access
// on both sides), kZipFileName, or kZipHandle (behind other bytes of its file).
Outcome ReadEverything(const std::string& archive, ZipKind source, const TempFolder& folder);

// Nothing is extracted as good but the bytes of the archive's entries.
void ExpectNothingMadeUp(const Archive& archive, const Outcome& outcome);

}  // namespace hostile
