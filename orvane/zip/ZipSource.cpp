#include "zip/ZipSource.h"

#include <algorithm>
#include <utility>

#include "zip/ZipFormat.h"

namespace {

constexpr uint32_t kPlainFile = kZipUnixFile;  // what has no attributes of its own
constexpr uint32_t kEmptyFolder = kZipUnixFolder | kZipUnixReadable | kZipUnixWritable |
                                  kZipUnixRunnable | FILE_ATTRIBUTE_DIRECTORY;
constexpr uint32_t kWindowsAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                                        FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_DIRECTORY |
                                        FILE_ATTRIBUTE_ARCHIVE;

FILETIME FileTimeOf(const LARGE_INTEGER& time) {
  return {time.LowPart, static_cast<DWORD>(time.HighPart)};
}

}  // namespace

ZipResult ZipSource::Open(const void* source, unsigned int length, unsigned long kind) {
  switch (kind) {
    case kZipHandle:
      if (source == nullptr || source == INVALID_HANDLE_VALUE) return kZipBadArguments;
      return OpenHandle(const_cast<HANDLE>(source), length);
    case kZipFileName:
      if (source == nullptr) return kZipBadArguments;
      m_owned.reset(CreateFileA(static_cast<const char*>(source), GENERIC_READ, FILE_SHARE_READ,
                                nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
      if (!m_owned) return kZipNoFile;
      return OpenHandle(m_owned.get(), 0);
    case kZipMemory:
      if (source == nullptr || length == 0) return kZipBadArguments;
      m_memory = static_cast<const uint8_t*>(source);
      m_memoryLeft = length;
      m_size = length;
      m_attributes = kPlainFile;
      UseCurrentTime();
      return kZipOk;
    case kZipFolder:
      m_size = 0;
      m_attributes = kEmptyFolder;
      UseCurrentTime();
      return kZipOk;
    default:
      return kZipBadArguments;
  }
}

ZipResult ZipSource::OpenHandle(HANDLE handle, unsigned int length) {
  m_file = handle;
  // The facts are taken first: asking for the type can count as an access.
  FILE_BASIC_INFO facts;
  const bool hasFacts =
      GetFileInformationByHandleEx(handle, FileBasicInfo, &facts, sizeof facts) != FALSE;
  if (GetFileType(handle) == FILE_TYPE_DISK) return hasFacts ? OpenDiskFile(facts) : kZipNoFile;
  if (length > 0) m_size = length;
  m_attributes = kPlainFile;
  UseCurrentTime();
  return kZipOk;
}

ZipResult ZipSource::OpenDiskFile(const FILE_BASIC_INFO& facts) {
  m_modified = FileTimeOf(facts.LastWriteTime);
  // File systems that keep fewer times give zeros.
  m_accessed = facts.LastAccessTime.QuadPart != 0 ? FileTimeOf(facts.LastAccessTime) : m_modified;
  m_created = facts.CreationTime.QuadPart != 0 ? FileTimeOf(facts.CreationTime) : m_modified;

  m_attributes = facts.FileAttributes & kWindowsAttributes;
  m_attributes |= kZipUnixReadable;
  const bool isFolder = (facts.FileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  m_attributes |= isFolder ? kZipUnixFolder : kZipUnixFile;
  if (!(facts.FileAttributes & FILE_ATTRIBUTE_READONLY)) m_attributes |= kZipUnixWritable;
  if (isFolder) {
    m_file = nullptr;  // there is nothing to read
    m_size = 0;
    return kZipOk;
  }

  LARGE_INTEGER size;
  if (!GetFileSizeEx(m_file, &size)) return kZipReadError;
  m_size = size.QuadPart;
  if (!m_owned && !SetFilePointerEx(m_file, {}, nullptr, FILE_BEGIN)) return kZipReadError;
  if (const ZipResult result = ReadPiece(m_firstPiece); result != kZipOk) return result;
  return MarkProgram();
}

ZipResult ZipSource::Next(const uint8_t*& bytes, size_t& size) {
  if (m_file == nullptr) {
    // In pieces too, so that they are still in the processor's cache at the second look.
    bytes = m_memory;
    size = std::min(m_memoryLeft, m_bufferSize);
    m_memory += size;
    m_memoryLeft -= size;
    return kZipOk;
  }
  bytes = m_buffer;
  size = std::exchange(m_firstPiece, 0);
  return size > 0 ? kZipOk : ReadPiece(size);
}

ZipResult ZipSource::ReadPiece(size_t& size) {
  DWORD got = 0;
  if (!ReadFile(m_file, m_buffer, static_cast<DWORD>(m_bufferSize), &got, nullptr)) {
    switch (GetLastError()) {
      case ERROR_MORE_DATA:  // a part of a pipe's message
        break;
      case ERROR_BROKEN_PIPE:  // the other side has closed the pipe
      case ERROR_HANDLE_EOF:
        got = 0;
        break;
      default:
        return kZipReadError;
    }
  }
  size = got;
  return kZipOk;
}

// Marks a file that begins as a program does. By design the first two bytes are compared with
// 0x54AD, so that hardly any file is marked: extractors on Unix then leave the programs of Windows
// not runnable.
ZipResult ZipSource::MarkProgram() {
  if (*m_size <= 40 || m_firstPiece < 40 || GetLe16(m_buffer) != 0x54AD) return kZipOk;
  const uint64_t offset = GetLe32(m_buffer + 36);
  if (*m_size <= offset + 52) return kZipOk;

  uint8_t signature[4];
  DWORD got = 0;
  LARGE_INTEGER header, next;
  header.QuadPart = static_cast<LONGLONG>(offset);
  next.QuadPart = static_cast<LONGLONG>(m_firstPiece);
  if (!SetFilePointerEx(m_file, header, nullptr, FILE_BEGIN) ||
      !ReadFile(m_file, signature, sizeof signature, &got, nullptr) || got != sizeof signature ||
      !SetFilePointerEx(m_file, next, nullptr, FILE_BEGIN))
    return kZipReadError;
  switch (GetLe32(signature)) {
    case 0x5A4D:  // "MZ"
    case 0x454E:  // "NE"
    case 0x454C:  // "LE"
    case 0x4550:  // "PE"
      m_attributes |= kZipUnixRunnable;
  }
  return kZipOk;
}

void ZipSource::UseCurrentTime() {
  GetSystemTimeAsFileTime(&m_modified);
  m_accessed = m_created = m_modified;
}
