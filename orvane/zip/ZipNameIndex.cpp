#include "zip/ZipNameIndex.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace {

// Another number in every process and every index: the names of an archive can't be chosen so that
// all of them collide.
uint64_t NewSeed(const void* place) {
  LARGE_INTEGER counter;
  QueryPerformanceCounter(&counter);
  return counter.QuadPart * 0x9E3779B97F4A7C15 ^ reinterpret_cast<uintptr_t>(place) ^
         static_cast<uint64_t>(GetCurrentProcessId()) << 32;
}

}  // namespace

ZipNameIndex::ZipNameIndex(const ZipDirectory& directory, bool ignoreCase)
    : m_directory(directory), m_ignoreCase(ignoreCase), m_seed(NewSeed(this)) {
  m_slots.assign(std::bit_ceil(static_cast<size_t>(directory.ReadableCount()) * 2 + 1), {0, -1});
  std::vector<char> folded;
  for (int i = 0; i < directory.ReadableCount(); ++i) {
    const std::string_view name = Fold(directory.Name(i), folded);
    const uint32_t hash = Hash(name);
    Slot& slot = m_slots[PlaceOf(name, hash)];
    if (slot.entry < 0) slot = {hash, i};
  }
}

int ZipNameIndex::Find(std::string_view name) const {
  std::vector<char> folded;
  name = Fold(name, folded);
  return m_slots[PlaceOf(name, Hash(name))].entry;
}

std::string_view ZipNameIndex::Fold(std::string_view name, std::vector<char>& buffer) const {
  if (!m_ignoreCase) return name;
  buffer.assign(name.begin(), name.end());
  bool isAscii = true;
  for (char& c : buffer) {
    if (c >= 'A' && c <= 'Z') c += 'a' - 'A';
    isAscii = isAscii && static_cast<unsigned char>(c) < 0x80;
  }
  if (!isAscii) {
    // Other letters, and the second halves of characters that look like letters, are the system's.
    buffer.assign(name.begin(), name.end());
    CharLowerBuffA(buffer.data(), static_cast<DWORD>(buffer.size()));
  }
  return {buffer.data(), buffer.size()};
}

uint32_t ZipNameIndex::Hash(std::string_view name) const {
  uint64_t hash = m_seed ^ name.size();
  for (size_t at = 0; at < name.size(); at += sizeof(uint32_t)) {
    uint32_t word = 0;
    std::memcpy(&word, name.data() + at, std::min(sizeof word, name.size() - at));
    hash = (hash ^ word) * 0x9FB21C651E98DF25;
    hash ^= hash >> 32;
  }
  return static_cast<uint32_t>(hash);
}

// Where the slot is that holds the name, or the free one where it would stand.
size_t ZipNameIndex::PlaceOf(std::string_view folded, uint32_t hash) const {
  const size_t mask = m_slots.size() - 1;
  for (size_t at = hash & mask;; at = (at + 1) & mask) {
    const Slot& slot = m_slots[at];
    if (slot.entry < 0) return at;
    if (slot.hash == hash && Fold(m_directory.Name(slot.entry), m_folded) == folded) return at;
  }
}
