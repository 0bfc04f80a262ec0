#include "zip/ZipExtents.h"

#include <algorithm>

#include "zip/ZipEntry.h"
#include "zip/ZipFormat.h"

namespace {

// What a local header may add to the least it takes: its name and its extra field.
constexpr uint64_t kMostAdded = 2 * 0xFFFF;

// Unknown where it is in a 64-bit field; such an entry is never extracted.
uint64_t KnownDataSize(const ZipCentralRecord& record) {
  const bool isUnknown = record.compressedSize == kZipMaxSize && record.Needs64Bits();
  return isUnknown ? 0 : record.compressedSize;
}

}  // namespace

ZipExtents::ZipExtents(ZipInput& input, const ZipDirectory& directory)
    : m_input(input), m_directory(directory) {
  m_extents.reserve(directory.ReadableCount());
  for (int i = 0; i < directory.ReadableCount(); ++i) {
    const ZipCentralRecord record = directory.Record(i);
    const uint64_t start = directory.Base() + record.offset;
    m_extents.push_back({i, start, start + kZipLocalSize + KnownDataSize(record), 0, 0, 0});
    if (record.offset == kZipMaxSize && record.Needs64Bits()) m_extents.back().leastEnd = start;
  }
  m_places.resize(m_extents.size());
  std::sort(m_extents.begin(), m_extents.end(),
            [](const Extent& left, const Extent& right) { return left.start < right.start; });
  uint64_t most = 0;
  for (size_t place = 0; place < m_extents.size(); ++place) {
    m_places[m_extents[place].entry] = static_cast<uint32_t>(place);
    m_extents[place].mostLeastEnd = most = std::max(most, m_extents[place].leastEnd);
  }
}

bool ZipExtents::IsClear(int index, uint64_t dataPosition) {
  const size_t place = m_places[index];
  Extent& extent = m_extents[place];
  extent.end = dataPosition + KnownDataSize(m_directory.Record(index));
  if (extent.end > m_directory.Start()) return false;
  if (place + 1 < m_extents.size() && m_extents[place + 1].start < extent.end) return false;
  if (place == 0) return true;
  return m_extents[place - 1].mostLeastEnd <= extent.start && ReachBefore(place) <= extent.start;
}

uint64_t ZipExtents::EndOf(Extent& extent) {
  if (extent.end == 0) {
    const ZipCentralRecord record = m_directory.Record(extent.entry);
    ZipLocalHeader header;
    // An entry without a local header can't be extracted, whatever it claims.
    extent.end = ReadLocalHeader(m_input, m_directory, record, header) == kZipOk
                     ? header.data + KnownDataSize(record)
                     : extent.leastEnd;
  }
  return extent.end;
}

// The first extent that may reach as far as another one, or beyond, though it starts before it.
size_t ZipExtents::FirstNear(size_t place) const {
  const uint64_t start = m_extents[place].start;
  const auto begin = m_extents.begin();
  const auto found = std::partition_point(begin, begin + place, [start](const Extent& extent) {
    return extent.mostLeastEnd + kMostAdded <= start;
  });
  return static_cast<size_t>(found - begin);
}

// One pass finds the reach of all extents that are near this one, so that each is looked at twice
// at most, in whatever order the entries are extracted.
uint64_t ZipExtents::ReachBefore(size_t place) {
  if (m_extents[place].reach != 0) return m_extents[place].reach;
  const size_t first = FirstNear(place);
  const size_t begin = FirstNear(first);
  // Where the reach is known, nothing before it has to be looked at again.
  size_t at = place;
  while (at > begin && m_extents[at].reach == 0) --at;
  uint64_t reach = std::max<uint64_t>(m_extents[at].reach, 1);
  for (; at <= place; ++at) {
    Extent& extent = m_extents[at];
    if (at >= first) extent.reach = reach;
    reach = std::max(reach, EndOf(extent));
  }
  return m_extents[place].reach;
}
