// Where the bytes, times and attributes of a new entry come from: a file, a pipe, a block of memory
// or nothing but a folder's name.
#pragma once

#include <cstdint>
#include <optional>

#include "entry/Handles.h"
#include "zip/ZipTypes.h"

class ZipSource {
 public:
  // Pieces of a file are read into buffer, which outlives the source.
  ZipSource(uint8_t* buffer, size_t bufferSize) : m_buffer(buffer), m_bufferSize(bufferSize) {}

  // A result code as ZipAdd gives it.
  ZipResult Open(const void* source, unsigned int length, unsigned long kind);

  // The next bytes, valid until the next call; none at the end.
  ZipResult Next(const uint8_t*& bytes, size_t& size);

  // Known once it is open.
  std::optional<uint64_t> Size() const { return m_size; }
  uint32_t Attributes() const { return m_attributes; }  // as in the directory of the archive
  const FILETIME& Modified() const { return m_modified; }
  const FILETIME& Accessed() const { return m_accessed; }
  const FILETIME& Created() const { return m_created; }

 private:
  ZipResult OpenHandle(HANDLE handle, unsigned int length);
  ZipResult OpenDiskFile(const FILE_BASIC_INFO& facts);
  ZipResult ReadPiece(size_t& size);
  ZipResult MarkProgram();
  void UseCurrentTime();

  uint8_t* m_buffer;
  size_t m_bufferSize;

  unique_file m_owned;      // a file that was opened here
  HANDLE m_file = nullptr;  // null: memory or a folder
  size_t m_firstPiece = 0;  // bytes in the buffer that were read when the file was opened
  const uint8_t* m_memory = nullptr;
  size_t m_memoryLeft = 0;

  std::optional<uint64_t> m_size;
  uint32_t m_attributes = 0;
  FILETIME m_modified = {};
  FILETIME m_accessed = {};
  FILETIME m_created = {};
};
