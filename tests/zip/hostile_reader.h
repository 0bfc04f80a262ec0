// Does everything to an archive that a host can do with the reader, and checks what must hold for
// every archive, however broken: a documented result from every function, no access outside the
// archive's block or the destination's, bounded memory, bounded output, and nothing extracted as
// good that differs between the ways of extracting it.
#pragma once

#include <gtest/gtest.h>

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

struct EntryOutcome {
  unsigned long look = 0;    // of GetZipItemA
  bool found = false;        // under its own name, in whatever case, at its own index
  bool folder = false;       // the record says so
  unsigned long memory = 0;  // the last result of UnzipItem into memory
  unsigned long file = 0;    // of UnzipItem to a file
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

// A named archive and what reading it must come to, whichever way it is read.
struct Case {
  const char* name;

  // A letter an entry, in the order of the directory:
  //   g  good: looked up, found by its name, extracted with its bytes
  //   c  0x700 before any byte of it is handed out
  //   e  0x700 at its end: bytes were handed out, but no more than announced
  //   d  its data can't be read: 0x5000000 into memory, 0x400 to a file
  //   .  any documented result
  // "refused": the archive, when it is opened.
  const char* expected;

  // Makes the case out of GoodArchive().
  void (*change)(Archive& archive);
};

// gtest's names and messages.
std::string NameOf(const testing::TestParamInfo<Case>& info);
void PrintTo(const Case& hostileCase, std::ostream* stream);

// Reads the archive of a case from memory, by file name and by handle.
void Check(const Case& hostileCase);

}  // namespace hostile
