// A named archive and what reading it must come to, whichever way it is read.
#pragma once

#include <gtest/gtest.h>

#include "hostile_builder.h"

namespace hostile {

struct Case {
  const char* name;

  // A letter an entry, in the order of the directory:
  //   g  good: looked up, found by its name, extracted with its bytes
  //   c  0x700 before any byte of it is handed out
  //   e  0x700 at its end: bytes were handed out, but no more than announced
  //   d  its data can't be read: 0x5000000 into memory, 0x400 to a file
  //   .  any documented result
  // A "~" in front: the archive may also be refused when it is opened. "refused": it must be.
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
