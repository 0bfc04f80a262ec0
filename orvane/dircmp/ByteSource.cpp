#include "dircmp/ByteSource.h"

#include <algorithm>
#include <cstring>

ByteSource::~ByteSource() = default;

FileSource::FileSource(const char* path)
    : m_file(CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                         nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr)) {}

int64_t FileSource::size() const {
  LARGE_INTEGER size;
  return GetFileSizeEx(m_file.get(), &size) ? size.QuadPart : -1;
}

int FileSource::Read(void* buffer, int size) {
  DWORD read = 0;
  if (!ReadFile(m_file.get(), buffer, static_cast<DWORD>(size), &read, nullptr)) {
    // How the end of a pipe shows.
    return GetLastError() == ERROR_BROKEN_PIPE ? 0 : kFailed;
  }
  return static_cast<int>(read);
}

int MemorySource::Read(void* buffer, int size) {
  const size_t count = std::min(m_left, static_cast<size_t>(size));
  if (count == 0) return 0;
  memcpy(buffer, m_next, count);
  m_next += count;
  m_left -= count;
  return static_cast<int>(count);
}
