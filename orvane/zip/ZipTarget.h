// Where an archive is written: a file, a pipe or a block of memory, all behind one window of bytes
// that can still be changed. A file or pipe has a buffer for it that is written out when it is
// full; a memory archive is one window from its first byte to its last.
//
// Positions are counted in bytes from the start of the archive.
#pragma once

#include <cstdint>
#include <memory>

#include "entry/DestinationFile.h"
#include "zip/ZipTypes.h"

class ZipTarget {
 public:
  // Each gives a result code as CreateZipZ does. Exactly one is called, first.
  ZipResult OpenHandle(HANDLE handle);
  ZipResult OpenFile(const char* path);
  ZipResult OpenMemory(void* block, unsigned int size);

  bool CanSeek() const { return m_canSeek; }
  bool IsMemory() const { return m_handle == INVALID_HANDLE_VALUE; }
  void* Memory() const { return m_window; }

  // Bytes of the archive so far, those included that wait to be written out.
  uint64_t Position() const { return m_windowStart + m_windowFill; }

  // Whether a write has failed, ever. Writing may be tried again all the same.
  bool HasFailed() const { return m_hasFailed; }

  // Where the next bytes can be put, never empty; Advance says how many were.
  ZipResult Room(uint8_t*& room, size_t& size);
  void Advance(size_t size) { m_windowFill += size; }

  ZipResult Write(const void* bytes, size_t size);

  // Replaces bytes that were written before. Only where CanSeek.
  ZipResult Patch(uint64_t position, const void* bytes, size_t size);

  // Drops what was written from position on. What has left for a pipe stays where it is.
  void TakeBack(uint64_t position);

  // Hands all bytes to the system.
  ZipResult Flush();

  // Flush, and an end to the file where taking back left it longer than the archive. A file that
  // was named takes the place of what stood there, unless a write to it has failed
  // (kZipEarlierError); without this, or when it fails, there is no such file and what stood there
  // stays.
  ZipResult Finish();

 private:
  void UseBuffer();
  ZipResult CutOff();
  ZipResult WriteAt(uint64_t position, const uint8_t* bytes, size_t size);
  ZipResult Fail(ZipResult result);

  HANDLE m_handle = INVALID_HANDLE_VALUE;  // of one of the next two; none: memory
  unique_file m_duplicate;
  DestinationFile m_named;
  bool m_canSeek = false;
  bool m_hasFailed = false;
  uint64_t m_archiveStart = 0;  // in the file
  uint64_t m_filePosition = 0;  // where the file pointer stands
  uint64_t m_fileWritten = 0;   // bytes up to here may hold something of ours

  uint8_t* m_window = nullptr;
  size_t m_windowSize = 0;
  uint64_t m_windowStart = 0;
  size_t m_windowFill = 0;

  std::unique_ptr<uint8_t[]> m_buffer;  // the window of a file
  unique_kernel_handle m_mapping;       // the window of the library's own memory
  unique_view m_view;
};
