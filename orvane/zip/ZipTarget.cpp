#include "zip/ZipTarget.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr size_t kBufferSize = 64 * 1024;
constexpr uint64_t kUnknown = ~0ull;  // a file position after a failure

}  // namespace

ZipResult ZipTarget::OpenHandle(HANDLE handle) {
  // INVALID_HANDLE_VALUE would be duplicated as the process's own pseudo handle.
  HANDLE copy;
  if (handle == INVALID_HANDLE_VALUE ||
      !DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &copy, 0, FALSE,
                       DUPLICATE_SAME_ACCESS))
    return kZipNoDuplicate;
  m_duplicate.reset(copy);
  m_handle = copy;
  LARGE_INTEGER start;
  if (GetFileType(copy) == FILE_TYPE_DISK && SetFilePointerEx(copy, {}, &start, FILE_CURRENT)) {
    m_canSeek = true;
    m_archiveStart = start.QuadPart;
  }
  UseBuffer();
  return kZipOk;
}

ZipResult ZipTarget::OpenFile(const char* path) {
  if (!m_named.Open(path)) return kZipNoFile;
  m_handle = m_named.Handle();
  // A path can name a device too.
  m_canSeek = GetFileType(m_handle) == FILE_TYPE_DISK;
  UseBuffer();
  return kZipOk;
}

ZipResult ZipTarget::OpenMemory(void* block, unsigned int size) {
  if (size == 0) return kZipMemoryFull;
  if (block == nullptr) {
    m_mapping.reset(
        CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, size, nullptr));
    if (m_mapping) m_view.reset(MapViewOfFile(m_mapping.get(), FILE_MAP_ALL_ACCESS, 0, 0, size));
    if (!m_view) return kZipNoMemory;
    block = m_view.get();
  }
  m_canSeek = true;
  m_window = static_cast<uint8_t*>(block);
  m_windowSize = size;
  return kZipOk;
}

void ZipTarget::UseBuffer() {
  m_buffer.reset(new uint8_t[kBufferSize]);
  m_window = m_buffer.get();
  m_windowSize = kBufferSize;
}

ZipResult ZipTarget::Room(uint8_t*& room, size_t& size) {
  if (m_windowFill == m_windowSize) {
    const ZipResult result = IsMemory() ? Fail(kZipMemoryFull) : Flush();
    if (result != kZipOk) return result;
  }
  room = m_window + m_windowFill;
  size = m_windowSize - m_windowFill;
  return kZipOk;
}

ZipResult ZipTarget::Write(const void* bytes, size_t size) {
  auto from = static_cast<const uint8_t*>(bytes);
  while (size > 0) {
    uint8_t* room;
    size_t roomSize;
    if (const ZipResult result = Room(room, roomSize); result != kZipOk) return result;
    const size_t piece = std::min(size, roomSize);
    std::memcpy(room, from, piece);
    Advance(piece);
    from += piece;
    size -= piece;
  }
  return kZipOk;
}

ZipResult ZipTarget::Patch(uint64_t position, const void* bytes, size_t size) {
  if (position < m_windowStart && position + size > m_windowStart)
    if (const ZipResult result = Flush(); result != kZipOk) return result;
  if (position < m_windowStart) return WriteAt(position, static_cast<const uint8_t*>(bytes), size);
  std::memcpy(m_window + (position - m_windowStart), bytes, size);
  return kZipOk;
}

void ZipTarget::TakeBack(uint64_t position) {
  if (position >= m_windowStart) {
    m_windowFill = static_cast<size_t>(position - m_windowStart);
  } else {
    m_windowFill = 0;
    if (m_canSeek) m_windowStart = position;
  }
}

ZipResult ZipTarget::Flush() {
  if (IsMemory()) return kZipOk;
  const ZipResult result = WriteAt(m_windowStart, m_window, m_windowFill);
  if (result != kZipOk) return result;
  m_windowStart += m_windowFill;
  m_windowFill = 0;
  return kZipOk;
}

ZipResult ZipTarget::Finish() {
  if (const ZipResult result = Flush(); result != kZipOk) return result;
  if (const ZipResult result = CutOff(); result != kZipOk) return result;
  if (m_named.Handle() == INVALID_HANDLE_VALUE) return kZipOk;
  if (m_hasFailed && m_named.Replaces()) return kZipEarlierError;
  return m_named.Commit() ? kZipOk : Fail(kZipWriteError);
}

ZipResult ZipTarget::CutOff() {
  if (IsMemory() || !m_canSeek || m_fileWritten <= Position()) return kZipOk;
  // Bytes of an entry that was taken back stand behind the archive. If they reach to the end of the
  // file they are cut off; what the caller had there before is the caller's.
  LARGE_INTEGER fileSize;
  if (!GetFileSizeEx(m_handle, &fileSize)) return Fail(kZipWriteError);
  const auto size = static_cast<uint64_t>(fileSize.QuadPart);
  if (size <= m_archiveStart + Position() || size > m_archiveStart + m_fileWritten) return kZipOk;
  return SetEndOfFile(m_handle) ? kZipOk : Fail(kZipWriteError);
}

ZipResult ZipTarget::WriteAt(uint64_t position, const uint8_t* bytes, size_t size) {
  if (size == 0) return kZipOk;
  if (m_filePosition != position) {
    // A pipe that did not take everything has no defined position any more.
    if (!m_canSeek) return Fail(kZipWriteError);
    LARGE_INTEGER to;
    to.QuadPart = static_cast<LONGLONG>(m_archiveStart + position);
    if (!SetFilePointerEx(m_handle, to, nullptr, FILE_BEGIN)) return Fail(kZipNoSeek);
  }
  m_filePosition = kUnknown;
  m_fileWritten = std::max(m_fileWritten, position + size);
  for (size_t done = 0; done < size;) {
    DWORD written = 0;
    if (!WriteFile(m_handle, bytes + done, static_cast<DWORD>(size - done), &written, nullptr) ||
        written == 0)
      return Fail(kZipWriteError);
    done += written;
  }
  m_filePosition = position + size;
  return kZipOk;
}

ZipResult ZipTarget::Fail(ZipResult result) {
  m_hasFailed = true;
  return result;
}
