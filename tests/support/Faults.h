// Makes calls that the libraries and the C runtime make to the system fail, through their import
// tables.
#pragma once

#include <memory>

#include "support/Allocations.h"

namespace faults {

enum class Kind {
  kMemory,    // the allocations, as allocations::FailNth has them
  kMapping,   // blocks of memory from the system itself
  kOpen,      // files opened, made and made beside others
  kRead,      // ReadFile, sizes and positions
  kWrite,     // WriteFile, ends of files, flushing
  kMove,      // files moved and copied
  kFolder,    // folders listed and made
  kRegistry,  // keys opened, values stored and read
  kInternet,  // everything of WinInet but the closing of handles
};

inline constexpr Kind kAllKinds[] = {Kind::kMemory, Kind::kMapping,  Kind::kOpen,
                                     Kind::kRead,   Kind::kWrite,    Kind::kMove,
                                     Kind::kFolder, Kind::kRegistry, Kind::kInternet};

const char* NameOf(Kind kind);

// While one exists, the n-th call of a kind from its creation on (counted from 1) fails, whatever
// thread makes it. One at a time.
class FailNth {
 public:
  FailNth(Kind kind, unsigned n);
  ~FailNth();
  FailNth(const FailNth&) = delete;
  FailNth& operator=(const FailNth&) = delete;

  // Whether the call came and failed: a loop over n ends when one did not.
  bool Happened() const;
  // The function that failed; empty: none, or an allocation.
  const char* Function() const;

 private:
  std::unique_ptr<allocations::FailNth> m_allocation;
};

}  // namespace faults
