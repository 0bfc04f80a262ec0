// The ordered list of nodes that an element holds.
#pragma once

#include <cstdint>

#include "entry/export.h"

class COXNodePool;
class COXParserObject;

// Holds addresses of nodes, each owned by the list's element or shared with another element. The
// list itself never deletes a node. When full it grows to twice its size; one node needs no array.
class ORVANE_API COXNodeList {
 public:
  COXNodeList() = default;
  ~COXNodeList() { RemoveAll(); }
  COXNodeList(const COXNodeList&) = delete;
  COXNodeList& operator=(const COXNodeList&) = delete;

  int Count() const { return static_cast<int>(m_size >> kDoublingBits); }
  // index is in range.
  COXParserObject* At(int index) const {
    return reinterpret_cast<COXParserObject*>(Slots()[index] & ~kShared);
  }
  bool IsShared(int index) const { return (Slots()[index] & kShared) != 0; }

  // The position of a node; -1: not there.
  int Find(const COXParserObject* node) const;

  // Puts a node before position index (0 to Count); false: out of memory, and nothing changed. A
  // longer array comes from the pool, when one is given.
  bool Insert(int index, COXParserObject* node, bool shared = false, COXNodePool* pool = nullptr);
  // Puts a node, or several, behind the last; the same otherwise.
  bool Append(COXParserObject* node, COXNodePool* pool) {
    const unsigned count = Count();
    if (count >> Doublings() != 0) return Insert(Count(), node, false, pool);
    Slots()[count] = reinterpret_cast<Slot>(node);
    m_size += kOneNode;
    return true;
  }
  bool Append(COXParserObject* const* nodes, int count, COXNodePool* pool);
  // Takes a node out.
  void Remove(int index);
  // Takes all nodes out and frees the array.
  void RemoveAll();

  // Makes this list hold the other's nodes, as shared ones; false: out of memory, and it is empty.
  bool Share(const COXNodeList& other);

 private:
  // A node's address; the lowest bit, which is 0 in every address, says that it is shared.
  using Slot = uintptr_t;
  static constexpr Slot kShared = 1;

  // The number of nodes, and in the lowest bits how often the capacity doubled from 1.
  static constexpr unsigned kDoublingBits = 5;
  static constexpr unsigned kOneNode = 1u << kDoublingBits;

  unsigned Doublings() const { return m_size & (kOneNode - 1); }
  const Slot* Slots() const { return Doublings() == 0 ? &m_single : m_array; }
  Slot* Slots() { return Doublings() == 0 ? &m_single : m_array; }
  bool Reserve(unsigned count, COXNodePool* pool);

  union {
    Slot m_single = 0;  // while there were no doublings
    Slot* m_array;
  };
  unsigned m_size = 0;
};
