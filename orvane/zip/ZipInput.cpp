#include "zip/ZipInput.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr size_t kBufferSize = 128 * 1024;
constexpr size_t kLeastReadAhead = 1024;

}  // namespace

ZipResult ZipInput::OpenHandle(HANDLE handle) {
  HANDLE copy;
  // INVALID_HANDLE_VALUE would be duplicated as the process's own pseudo handle.
  if (handle == INVALID_HANDLE_VALUE ||
      !DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &copy, 0, FALSE,
                       DUPLICATE_SAME_ACCESS))
    return kZipNoDuplicate;
  m_file.reset(copy);
  LARGE_INTEGER start;
  if (GetFileType(copy) != FILE_TYPE_DISK || !SetFilePointerEx(copy, {}, &start, FILE_CURRENT))
    return kZipNoSeek;
  m_archiveStart = start.QuadPart;
  return Measure();
}

ZipResult ZipInput::OpenFile(const char* path) {
  m_file.reset(CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                           FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!m_file) return kZipNoFile;
  // A path can name a device too.
  return GetFileType(m_file.get()) == FILE_TYPE_DISK ? Measure() : kZipNoSeek;
}

ZipResult ZipInput::OpenMemory(const void* block, unsigned int size) {
  m_window = static_cast<const uint8_t*>(block);
  m_windowSize = size;
  m_size = size;
  return kZipOk;
}

ZipResult ZipInput::Measure() {
  LARGE_INTEGER end;
  if (!GetFileSizeEx(m_file.get(), &end)) return kZipReadError;
  const auto fileSize = static_cast<uint64_t>(end.QuadPart);
  m_size = fileSize > m_archiveStart ? fileSize - m_archiveStart : 0;
  m_buffer.reset(new uint8_t[kBufferSize]);
  m_window = m_buffer.get();
  return kZipOk;
}

ZipResult ZipInput::Show(uint64_t position, size_t least, const uint8_t*& bytes, size_t& size) {
  if (!Holds(position, least)) return kZipCorrupt;
  const bool isNear = position >= m_windowStart &&
                      position - m_windowStart <= static_cast<uint64_t>(m_windowSize) + m_readAhead;
  if (!isNear || position - m_windowStart + least > m_windowSize) {
    // Only files get here: the window of a memory archive is all of it.
    m_readAhead = isNear ? std::min(m_readAhead * 2, kBufferSize) : kLeastReadAhead;
    m_readAhead = std::max(m_readAhead, least);
    const auto wanted = static_cast<size_t>(std::min<uint64_t>(m_readAhead, m_size - position));
    m_windowSize = 0;
    if (const ZipResult result = ReadFileAt(position, m_buffer.get(), wanted); result != kZipOk)
      return result;
    m_windowStart = position;
    m_windowSize = wanted;
  }
  const auto offset = static_cast<size_t>(position - m_windowStart);
  bytes = m_window + offset;
  size = m_windowSize - offset;
  return kZipOk;
}

ZipResult ZipInput::Read(uint64_t position, void* to, size_t size) {
  if (!Holds(position, size)) return kZipCorrupt;
  auto out = static_cast<uint8_t*>(to);
  while (size > 0) {
    // What is more than the window would hold goes straight to its place.
    if (m_file && size >= kMostShown) return ReadFileAt(position, out, size);
    const uint8_t* bytes;
    size_t shown;
    if (const ZipResult result = Show(position, 1, bytes, shown); result != kZipOk) return result;
    const size_t piece = std::min(size, shown);
    std::memcpy(out, bytes, piece);
    out += piece;
    position += piece;
    size -= piece;
  }
  return kZipOk;
}

ZipResult ZipInput::ReadFileAt(uint64_t position, uint8_t* to, size_t size) {
  while (size > 0) {
    const uint64_t at = m_archiveStart + position;
    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(at);
    place.OffsetHigh = static_cast<DWORD>(at >> 32);
    DWORD got = 0;
    if (!ReadFile(m_file.get(), to, static_cast<DWORD>(size), &got, &place) &&
        // A caller's handle may have been opened for overlapped use.
        (GetLastError() != ERROR_IO_PENDING ||
         !GetOverlappedResult(m_file.get(), &place, &got, TRUE)))
      return kZipReadError;
    if (got == 0) return kZipReadError;
    to += got;
    position += got;
    size -= got;
  }
  return kZipOk;
}
