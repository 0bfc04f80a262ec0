#include "markup/OXNodePool.h"

#include <algorithm>
#include <atomic>

#include "markup/TextScan.h"

struct COXNodeSlab {
  std::atomic<int> holders;
};

namespace {

constexpr size_t kFirstSlab = 4 * 1024;
constexpr size_t kLargestSlab = 256 * 1024;
// Keeps the alignment of the heap in a block that has it alone.
constexpr size_t kAloneHeader = 8;

// What the pool counts as while it hands out blocks from a slab: more than there can be blocks, so
// that the slab stays; the blocks are counted when the pool lets go.
constexpr int kPoolShare = 1 << 30;

#ifdef ORVANE_CHECKED
constexpr bool kOneSlabEach = true;  // every access outside a node is seen
#else
constexpr bool kOneSlabEach = false;
#endif

// What copying in whole units may write behind the last text of a slab.
constexpr size_t kSlack = kOneSlabEach ? 0 : kUnit;

void LetGo(COXNodeSlab* slab, int share) {
  if (slab->holders.fetch_sub(share, std::memory_order_acq_rel) == share) ::operator delete(slab);
}

COXNodeSlab* NewSlab(size_t size, int holders) {
  void* const memory = ::operator new(size, std::nothrow);
  return memory == nullptr ? nullptr : ::new (memory) COXNodeSlab{holders};
}

}  // namespace

void* COXNodePool::AllocateInNewSlab(size_t size) {
  const size_t slabSize = std::clamp(m_slabSize * 2, kFirstSlab, kLargestSlab);
  const bool alone = kOneSlabEach || size > slabSize / 4;
  COXNodeSlab* const slab =
      NewSlab(alone ? sizeof(COXNodeSlab) + size + kSlack : slabSize, alone ? 1 : kPoolShare);
  if (slab == nullptr) return nullptr;
  char* const first = reinterpret_cast<char*>(slab + 1);
  SlabOf(first + kHeader) = slab;
  if (alone) return first + kHeader;
  LetGoOfSlab();
  m_slab = slab;
  m_slabSize = slabSize;
  m_next = first + size;
  m_end = reinterpret_cast<char*>(slab) + slabSize - kSlack;
  m_given = 1;
  return first + kHeader;
}

void COXNodePool::LetGoOfSlab() {
  if (m_slab != nullptr) LetGo(m_slab, kPoolShare - m_given);
  m_slab = nullptr;
  m_next = m_end = nullptr;
}

void COXNodePool::Reset() {
  LetGoOfSlab();
  m_slabSize = 0;
  m_sourceLast = nullptr;
}

void* COXNodePool::AllocateAlone(size_t size) {
  char* const memory = static_cast<char*>(::operator new(size + kAloneHeader, std::nothrow));
  if (memory == nullptr) return nullptr;
  SlabOf(memory + kAloneHeader) = nullptr;
  return memory + kAloneHeader;
}

void COXNodePool::Release(void* block) {
  if (block == nullptr) return;
  COXNodeSlab* const slab = SlabOf(block);
  if (slab == nullptr) {
    ::operator delete(static_cast<char*>(block) - kAloneHeader);
  } else {
    LetGo(slab, 1);
  }
}

void COXNodePool::SetSource(const char* start, const char* end) {
  m_sourceStart = start;
  m_sourceLast =
      !kOneSlabEach && end - start >= static_cast<ptrdiff_t>(kUnit) ? end - kUnit : nullptr;
}
