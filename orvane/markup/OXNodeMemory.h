// Where the memory of markup nodes comes from.
#pragma once

#include <cstddef>
#include <new>

#include "entry/export.h"

class COXNodePool;

// Gives a class and those derived from it the operators new and delete of the markup tree: the
// parser takes the nodes of a document from large blocks, and new COXParserElement takes a block of
// its own; delete is right for both.
class ORVANE_API COXNodeMemory {
 public:
  static void* operator new(size_t size);
  static void* operator new(size_t size, const std::nothrow_t&) noexcept;
  static void* operator new(size_t, void* place) noexcept { return place; }
  // The form that the framework's debugging new takes.
  static void* operator new(size_t size, const char* file, int line);

  static void operator delete(void* block) noexcept;
  static void operator delete(void* block, const std::nothrow_t&) noexcept;
  static void operator delete(void*, void*) noexcept {}
  static void operator delete(void* block, const char* file, int line) noexcept;
};
