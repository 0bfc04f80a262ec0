// The archive that a reader reads: a file or a block of memory, read at given positions.
//
// Headers lie scattered through a file and are asked for in any order, so they are read through a
// cache of pages; the data of entries go through a window.
//
// Positions are counted in bytes from the start of the archive, 64 bits wide, so that no sum of an
// archive's fields can overflow them.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "entry/Handles.h"
#include "zip/ZipTypes.h"

class ZipInput {
 public:
  ZipInput();
  ~ZipInput();

  // Each gives a result code as OpenZipU does. Exactly one is called, first.
  ZipResult OpenHandle(HANDLE handle);
  ZipResult OpenFile(const char* path);
  ZipResult OpenMemory(const void* block, unsigned int size);

  uint64_t Size() const { return m_size; }

  // Whether a range lies inside the archive.
  bool Holds(uint64_t position, uint64_t size) const {
    return position <= m_size && size <= m_size - position;
  }

  // Copies the bytes of a header. kZipCorrupt beyond the end, kZipReadError. Throws bad_alloc.
  ZipResult ReadHeader(uint64_t position, void* to, size_t size);

  // Copies bytes straight to their place. The same failures.
  ZipResult ReadData(uint64_t position, void* to, size_t size);

  // Shows the wanted bytes at a position without copying them, or the first of them (at least one).
  // Valid until the next call. The same failures.
  ZipResult ShowData(uint64_t position, uint64_t wanted, const uint8_t*& bytes, size_t& size);

 private:
  struct Page;

  ZipResult UseFile();
  ZipResult GetPage(uint64_t number, const Page*& page);
  const Page* FindPage(uint64_t number) const;
  size_t PlaceOf(uint64_t number) const {
    return static_cast<size_t>(number) & (m_pages.size() - 1);
  }
  ZipResult ReadFileAt(uint64_t position, uint8_t* to, size_t size);

  const uint8_t* m_memory = nullptr;  // null: a file
  unique_file m_file;
  uint64_t m_archiveStart = 0;  // in the file
  uint64_t m_size = 0;

  std::vector<std::unique_ptr<Page>> m_pages;  // a power of two; each place is that of many pages

  std::vector<uint8_t> m_window;  // no larger than was ever wanted
  uint64_t m_windowStart = 0;
  size_t m_windowFill = 0;
};
