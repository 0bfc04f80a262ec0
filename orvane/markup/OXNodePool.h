// The memory of a document's nodes: a few large blocks instead of several small ones a node.
#pragma once

#include <string_view>

#include "markup/OXElement.h"

struct COXNodeSlab;

// Hands out blocks from slabs that it takes from the heap. A slab is freed when the pool and the
// last block in it have let go of it, so blocks may outlive the pool, and may be released by any
// thread. Only one thread at a time takes blocks from one pool.
class COXNodePool {
 public:
  COXNodePool() = default;
  ~COXNodePool() { Reset(); }
  COXNodePool(const COXNodePool&) = delete;
  COXNodePool& operator=(const COXNodePool&) = delete;

  // A block of size bytes for objects of at most 4-byte alignment; null: out of memory.
  void* Allocate(size_t size) {
    size = (size + kHeader + 3) & ~size_t{3};
    if (size > static_cast<size_t>(m_end - m_next)) return AllocateInNewSlab(size);
    char* const block = m_next + kHeader;
    m_next += size;
    SlabOf(block) = m_slab;
    ++m_given;
    return block;
  }
  // The same from the heap, for objects of any ordinary alignment.
  static void* AllocateAlone(size_t size);
  // Releases a block of either kind; null does nothing.
  static void Release(void* block);

  // Starts anew with a small slab.
  void Reset();

  // Says where most texts of the next nodes will lie; Reset forgets it.
  void SetSource(const char* start, const char* end);

  // New nodes, each with its texts in one block; null: out of memory. Deleted like any other node.
  COXParserObject* NewObject(COXParserElement* parent, int type, std::string_view text);
  COXParserElement* NewElement(COXParserElement* parent, std::string_view name);
  COXAttribute* NewAttribute(COXParserElement* parent, std::string_view name,
                             std::string_view value);
  COXAttribute* NewAttribute(COXParserElement* parent, std::string_view name, int value);

 private:
  // In front of every block stands the address of its slab, or null when it came from the heap
  // alone.
  static constexpr size_t kHeader = sizeof(COXNodeSlab*);
  static COXNodeSlab*& SlabOf(void* block) { return static_cast<COXNodeSlab**>(block)[-1]; }

  void* AllocateInNewSlab(size_t size);
  void LetGoOfSlab();
  // Copies a text, with a zero behind it, to where the string of a node borrows it.
  char* Place(char* at, std::string_view text) const;

  COXNodeSlab* m_slab = nullptr;
  char* m_next = nullptr;
  char* m_end = nullptr;
  int m_given = 0;  // blocks handed out from m_slab
  size_t m_slabSize = 0;
  const char* m_sourceStart = nullptr;
  const char* m_sourceLast = nullptr;  // from where on a unit can't be read any more; null: nowhere
};
