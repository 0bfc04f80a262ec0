// Finds the entries of a directory by name in constant time.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "zip/ZipDirectory.h"

class ZipNameIndex {
 public:
  // Indexes the readable entries. The directory outlives the index.
  ZipNameIndex(const ZipDirectory& directory, bool ignoreCase);

  // The first entry of that name in the directory's order, or -1.
  int Find(std::string_view name) const;

 private:
  struct Slot {
    uint32_t hash;
    int entry;  // -1: free
  };

  std::string_view Fold(std::string_view name, std::vector<char>& buffer) const;
  uint32_t Hash(std::string_view name) const;
  size_t PlaceOf(std::string_view folded, uint32_t hash) const;

  const ZipDirectory& m_directory;
  const bool m_ignoreCase;
  const uint64_t m_seed;
  std::vector<Slot> m_slots;           // a power of two, at most half of them used
  mutable std::vector<char> m_folded;  // the name that is compared with
};
