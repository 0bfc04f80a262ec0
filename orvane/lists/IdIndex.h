// Finds by identifier where an item's record is, in constant time.
#pragma once

#include <cstdint>
#include <vector>

// A hash table with open addressing: the entries that collide stand behind each other.
class IdIndex {
 public:
  static constexpr uint32_t kNone = UINT32_MAX;

  // kNone: there is no such identifier.
  uint32_t Find(uint32_t id) const {
    if (m_entries.empty()) return kNone;
    return m_entries[PlaceOf(id)].record;
  }

  // The identifier must not be there yet. Throws std::bad_alloc, with nothing changed.
  void Insert(uint32_t id, uint32_t record) {
    if ((m_count + 1) * 10 > m_entries.size() * 7) Grow();
    m_entries[PlaceOf(id)] = {id, record};
    ++m_count;
  }

  // The identifier must be there.
  void Erase(uint32_t id) {
    size_t hole = PlaceOf(id);
    m_entries[hole].record = kNone;
    --m_count;
    // Entries behind the hole that were pushed past it move up, so that they are found again.
    for (size_t next = Next(hole); m_entries[next].record != kNone; next = Next(next)) {
      const size_t home = Home(m_entries[next].id);
      const size_t pushed = (next - home) & Mask(), distance = (next - hole) & Mask();
      if (pushed < distance) continue;
      m_entries[hole] = m_entries[next];
      m_entries[next].record = kNone;
      hole = next;
    }
  }

  void Clear() {
    m_entries = {};
    m_count = 0;
    m_shift = 32;
  }

 private:
  struct Entry {
    uint32_t id;
    uint32_t record = kNone;
  };
  static constexpr int kFirstBits = 6;

  size_t Mask() const { return m_entries.size() - 1; }
  size_t Next(size_t place) const { return (place + 1) & Mask(); }
  // The high bits of the product depend on all bits of the identifier, which may well be the
  // address of something.
  size_t Home(uint32_t id) const { return id * 0x9E3779B9u >> m_shift; }
  size_t PlaceOf(uint32_t id) const {
    size_t place = Home(id);
    while (m_entries[place].record != kNone && m_entries[place].id != id) place = Next(place);
    return place;
  }

  void Grow() {
    const int bits = m_entries.empty() ? kFirstBits : 32 - m_shift + 1;
    std::vector<Entry> old(size_t{1} << bits);
    old.swap(m_entries);
    m_shift = 32 - bits;
    for (const Entry& entry : old)
      if (entry.record != kNone) m_entries[PlaceOf(entry.id)] = entry;
  }

  std::vector<Entry> m_entries;  // a power of two, at most seven tenths in use
  size_t m_count = 0;
  int m_shift = 32;
};
