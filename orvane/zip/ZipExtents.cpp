#include "zip/ZipExtents.h"

#include <algorithm>

#include "zip/ZipEntry.h"
#include "zip/ZipFormat.h"

namespace {

// What a local header may add to the least it takes: its name and its extra field.
constexpr uint64_t kMostAdded = 2 * 0xFFFF;

// Unknown where it is in a 64-bit field; such an entry is never extracted.
uint64_t knownDataSize(const ZipCentralRecord& record) {
  const bool isUnknown = record.compressedSize == kZipMaxSize && record.Needs64Bits();
  return isUnknown ? 0 : record.compressedSize;
}

}  // namespace

ZipExtents::ZipExtents(ZipInput& input, const ZipDirectory& directory)
    : m_input(input), m_directory(directory) {
  m_extents.reserve(directory.Count());
  for (int i = 0; i < directory.Count() && directory.IsReadable(i); ++i) {
    const ZipCentralRecord record = directory.Record(i);
    const uint64_t start = directory.Base() + record.offset;
    m_extents.push_back({i, start, start + kZipLocalSize + knownDataSize(record), 0, 0, 0});
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
  extent.end = dataPosition + knownDataSize(m_directory.Record(index));
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
    extent.end = readLocalHeader(m_input, m_directory, record, header) == kZipOk
                     ? header.data + knownDataSize(record)
                     : extent.leastEnd;
  }
  return extent.end;
}

// Goes back until nothing before can reach as far as this extent, or until an extent is met that
// was asked about before: what matters to it matters here, and nothing else before it does.
uint64_t ZipExtents::ReachBefore(size_t place) {
  Extent& extent = m_extents[place];
  if (extent.reach != 0) return extent.reach;
  uint64_t reach = 1;
  for (size_t before = place; before-- > 0 && reach <= extent.start;) {
    Extent& other = m_extents[before];
    if (other.mostLeastEnd + kMostAdded <= extent.start) break;
    reach = std::max(reach, EndOf(other));
    if (other.reach != 0) {
      reach = std::max(reach, other.reach);
      break;
    }
  }
  return extent.reach = reach;
}
