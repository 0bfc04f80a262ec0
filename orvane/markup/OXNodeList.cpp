#include "markup/OXNodeList.h"

#include <bit>
#include <cstring>

#include "markup/OXNodePool.h"
#include "markup/TextScan.h"

namespace {

// An address space of 32 bits has no room for more.
constexpr unsigned kMaxNodes = (1u << 27) - 1;

}  // namespace

int COXNodeList::Find(const COXParserObject* node) const {
  for (int i = 0; i < Count(); ++i) {
    if (At(i) == node) return i;
  }
  return -1;
}

bool COXNodeList::Reserve(unsigned count, COXNodePool* pool) {
  if (count <= 1u << Doublings()) return true;
  if (count > kMaxNodes) return false;
  const unsigned doublings = std::bit_width(count - 1);
  const size_t size = sizeof(Slot) << doublings;
  auto* const array =
      static_cast<Slot*>(pool != nullptr ? pool->Allocate(size) : COXNodePool::AllocateAlone(size));
  if (array == nullptr) return false;
  CopyBytes(array, Slots(), Count() * sizeof(Slot));
  if (Doublings() > 0) COXNodePool::Release(m_array);
  m_array = array;
  m_size = Count() * kOneNode + doublings;
  return true;
}

bool COXNodeList::Insert(int index, COXParserObject* node, bool shared, COXNodePool* pool) {
  const int count = Count();
  if (!Reserve(count + 1, pool)) return false;
  Slot* const slots = Slots();
  if (index < count) memmove(slots + index + 1, slots + index, (count - index) * sizeof(Slot));
  slots[index] = reinterpret_cast<Slot>(node) | (shared ? kShared : 0);
  m_size += kOneNode;
  return true;
}

bool COXNodeList::Append(COXParserObject* const* nodes, int count, COXNodePool* pool) {
  if (!Reserve(Count() + count, pool)) return false;
  CopyBytes(Slots() + Count(), nodes, count * sizeof(Slot));
  m_size += count * kOneNode;
  return true;
}

void COXNodeList::Remove(int index) {
  Slot* const slots = Slots();
  m_size -= kOneNode;
  const int count = Count();
  if (index < count) memmove(slots + index, slots + index + 1, (count - index) * sizeof(Slot));
}

void COXNodeList::RemoveAll() {
  if (Doublings() > 0) COXNodePool::Release(m_array);
  m_single = 0;
  m_size = 0;
}

bool COXNodeList::Share(const COXNodeList& other) {
  RemoveAll();
  if (!Reserve(other.Count(), nullptr)) return false;
  for (int i = 0; i < other.Count(); ++i) Slots()[i] = other.Slots()[i] | kShared;
  m_size += other.Count() * kOneNode;
  return true;
}
