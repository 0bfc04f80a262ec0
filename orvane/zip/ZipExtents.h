// Which bytes of an archive belong to which entry, to refuse entries that share theirs: a few bytes
// of an archive could be unpacked over and over, and one file could be hidden in another.
//
// An entry reaches from its local header to the end of its data; only the local header tells where
// the data start, by up to 128 KB. So nothing is read before an entry is to be extracted, and then
// only the headers of entries near it, each once. Extracting a whole archive takes constant time
// per entry.
#pragma once

#include <cstdint>
#include <vector>

#include "zip/ZipDirectory.h"
#include "zip/ZipInput.h"

class ZipExtents {
 public:
  // Both outlive the object.
  ZipExtents(ZipInput& input, const ZipDirectory& directory);

  // Whether the bytes of a readable entry, whose data start at dataPosition, are its own: no other
  // entry's and not the directory's.
  bool IsClear(int index, uint64_t dataPosition);

 private:
  struct Extent {
    int entry;
    uint64_t start;
    uint64_t leastEnd;      // were the local header as short as it can be
    uint64_t end;           // 0: not known yet
    uint64_t mostLeastEnd;  // of this extent and all that start before it
    uint64_t reach;  // the end of what lies before this extent, where it matters; 0: not known
  };

  uint64_t EndOf(Extent& extent);
  size_t FirstNear(size_t place) const;
  uint64_t ReachBefore(size_t place);

  ZipInput& m_input;
  const ZipDirectory& m_directory;
  std::vector<Extent> m_extents;   // by start
  std::vector<uint32_t> m_places;  // of each readable entry in m_extents
};
