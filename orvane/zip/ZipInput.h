// The archive that a reader reads: a file or a block of memory, read at given positions through a
// window that reads ahead where the reading goes forward.
//
// Positions are counted in bytes from the start of the archive, 64 bits wide, so that no sum of an
// archive's fields can overflow them.
#pragma once

#include <cstdint>
#include <memory>

#include "entry/Handles.h"
#include "zip/ZipTypes.h"

class ZipInput {
 public:
  // Each gives a result code as OpenZipU does. Exactly one is called, first.
  ZipResult OpenHandle(HANDLE handle);
  ZipResult OpenFile(const char* path);
  ZipResult OpenMemory(const void* block, unsigned int size);

  uint64_t Size() const { return m_size; }

  // Whether a range lies inside the archive.
  bool Holds(uint64_t position, uint64_t size) const {
    return position <= m_size && size <= m_size - position;
  }

  // Shows the bytes at a position without copying them: size is at least least (at most
  // kMostShown), and more where more is at hand. Valid until the next call. kZipCorrupt beyond the
  // end, kZipReadError.
  ZipResult Show(uint64_t position, size_t least, const uint8_t*& bytes, size_t& size);

  // Copies bytes. The same failures.
  ZipResult Read(uint64_t position, void* to, size_t size);

  static constexpr size_t kMostShown = 64 * 1024;

 private:
  ZipResult Measure();
  ZipResult ReadFileAt(uint64_t position, uint8_t* to, size_t size);

  unique_file m_file;           // none: memory
  uint64_t m_archiveStart = 0;  // in the file
  uint64_t m_size = 0;

  const uint8_t* m_window = nullptr;  // all of a memory archive, or a part of a file
  uint64_t m_windowStart = 0;
  size_t m_windowSize = 0;
  size_t m_readAhead = 0;
  std::unique_ptr<uint8_t[]> m_buffer;  // the window of a file
};
