// Where the comparison of two contents reads from.
#pragma once

#include <afxwin.h>

#include <cstdint>

#include "entry/Handles.h"
#include "entry/export.h"

class ORVANE_API ByteSource {
 public:
  static constexpr int kFailed = -1;

  virtual ~ByteSource();
  // Reads up to size bytes (above 0, below 2^31) into buffer: how many were read, 0 at the end,
  // kFailed when they can't be read. Fewer bytes than asked for are not the end.
  virtual int Read(void* buffer, int size) = 0;
};

// The bytes of a file, from its beginning.
class ORVANE_API FileSource : public ByteSource {
 public:
  // Others may write, rename and delete the file meanwhile.
  explicit FileSource(const char* path);
  FileSource(FileSource&&) = default;

  // Whether the file could be opened.
  bool isOpen() const { return static_cast<bool>(m_file); }
  // In bytes, as it is now; -1 when it can't be found out.
  int64_t size() const;
  int Read(void* buffer, int size) override;

 private:
  unique_file m_file;
};

// Bytes in memory, which stay the caller's.
class ORVANE_API MemorySource : public ByteSource {
 public:
  MemorySource(const void* bytes, size_t size)
      : m_next(static_cast<const char*>(bytes)), m_left(size) {}

  int Read(void* buffer, int size) override;

 private:
  const char* m_next;
  size_t m_left;
};
