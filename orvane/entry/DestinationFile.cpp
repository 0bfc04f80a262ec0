#include "entry/DestinationFile.h"

#include <mbstring.h>

#include <atomic>
#include <cstdio>
#include <cstring>

#include "diag/trace.h"
#include "entry/PathUtils.h"

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr int kMostTries = 100;
constexpr size_t kTemporaryName = 13;  // the name that GetTempFileName makes, and a zero

// Where the name begins, behind the last "\"; a trail byte that looks like one is none.
size_t nameStart(const char* path) {
  const auto* const text = reinterpret_cast<const unsigned char*>(path);
  const auto* const backslash = _mbsrchr(text, '\\');
  return backslash == nullptr ? 0 : static_cast<size_t>(backslash + 1 - text);
}

// A name as long as that of path itself: its last character is another one.
bool makeFileNamedLike(const char* path, char (&made)[MAX_PATH]) {
  const auto* const begin = reinterpret_cast<const unsigned char*>(path);
  const auto* const last = _mbsdec(begin, begin + std::strlen(path));
  const size_t stem = static_cast<size_t>(last - begin);
  std::memcpy(made, path, stem);
  made[stem + 1] = 0;
  for (const char other : {'~', '0', '1', '2', '3', '4', '5', '6', '7', '8', '9'}) {
    made[stem] = other;
    if (unique_file(CreateFileA(made, GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr)))
      return true;
    if (GetLastError() != ERROR_FILE_EXISTS) return false;
  }
  return false;
}

}  // namespace

bool MakeFileBeside(const char* path, const char* prefix, char (&made)[MAX_PATH]) {
  made[0] = 0;
  const size_t length = nameStart(path);
  const bool isUsable = length > 0 && path[length] != 0 && std::strlen(path) < MAX_PATH;
  if (!isUsable) {
    SetLastError(ERROR_BAD_PATHNAME);
    return false;
  }
  if (length > MAX_PATH - kTemporaryName) return makeFileNamedLike(path, made);
  char folder[MAX_PATH];
  std::memcpy(folder, path, length);
  folder[length] = 0;
  return GetTempFileNameA(folder, prefix, 0, made) != 0;
}

bool DestinationFile::Open(const char* path, const Options& options) {
  Discard();
  m_options = options;
  if (!GetFullPath(path, m_path)) return false;
  m_replaces = false;
  if (!m_options.alwaysBeside) {
    if (OpenNew(path)) return true;
    if (GetLastError() != ERROR_FILE_EXISTS && GetLastError() != ERROR_ALREADY_EXISTS) return false;
  }
  const DWORD attributes = GetFileAttributesA(m_path);
  m_replaces = attributes != INVALID_FILE_ATTRIBUTES;
  if (!m_replaces) return OpenBeside();
  // Better to know now than after the last byte that it must not be replaced.
  if ((attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0) {
    SetLastError(ERROR_ACCESS_DENIED);
    return false;
  }
  m_old.reset(CreateFileA(path, GENERIC_WRITE, m_options.locks ? 0 : kShareAll, nullptr,
                          OPEN_EXISTING, 0, nullptr));
  if (!m_old) return false;
  if (GetFileType(m_old.get()) != FILE_TYPE_DISK) {
    m_file = std::move(m_old);
    return true;
  }
  if (!m_options.locks) m_old.reset();
  if (OpenBeside()) return true;
  m_old.reset();
  return false;
}

bool DestinationFile::OpenNew(const char* path) {
  m_file.reset(
      CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_NEW, m_options.attributes, nullptr));
  if (m_file && GetFileType(m_file.get()) == FILE_TYPE_DISK) std::strcpy(m_partPath, m_path);
  return static_cast<bool>(m_file);
}

// GetTempFileName would make the file, close it, and have it opened again.
bool DestinationFile::OpenBeside() {
  static std::atomic<unsigned> count{GetTickCount()};
  const DWORD attributes = m_options.attributes | FILE_FLAG_SEQUENTIAL_SCAN;
  const size_t folder = nameStart(m_path);
  for (int tries = 0; folder <= MAX_PATH - kTemporaryName && tries < kMostTries; ++tries) {
    std::memcpy(m_partPath, m_path, folder);
    std::snprintf(m_partPath + folder, kTemporaryName, "new%04X.tmp", ++count & 0xFFFF);
    m_file.reset(
        CreateFileA(m_partPath, GENERIC_WRITE, 0, nullptr, CREATE_NEW, attributes, nullptr));
    if (m_file) return true;
    m_partPath[0] = 0;
    if (GetLastError() != ERROR_FILE_EXISTS) return false;
  }
  if (!MakeFileBeside(m_path, "new", m_partPath)) {
    m_partPath[0] = 0;
    return false;
  }
  m_file.reset(
      CreateFileA(m_partPath, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, attributes, nullptr));
  if (m_file) return true;
  Discard();
  return false;
}

bool DestinationFile::Write(const void* bytes, DWORD size) {
  DWORD written = 0;
  if (!WriteFile(m_file.get(), bytes, size, &written, nullptr)) return false;
  if (written == size) return true;
  SetLastError(ERROR_DISK_FULL);
  return false;
}

bool DestinationFile::Commit() {
  if (!m_file) return false;
  if (m_replaces && m_options.flushes && m_partPath[0] != 0 && !FlushFileBuffers(m_file.get()))
    return false;
  m_file.reset();
  m_old.reset();
  if (m_partPath[0] != 0 && std::strcmp(m_partPath, m_path) != 0 &&
      !MoveFileExA(m_partPath, m_path, MOVEFILE_REPLACE_EXISTING))
    return false;
  m_partPath[0] = 0;
  return true;
}

void DestinationFile::Discard() {
  const DWORD lastError = GetLastError();
  m_file.reset();
  m_old.reset();
  if (m_partPath[0] != 0) {
    if ((m_options.attributes & FILE_ATTRIBUTE_READONLY) != 0)
      SetFileAttributesA(m_partPath, FILE_ATTRIBUTE_NORMAL);
    VERIFY(DeleteFileA(m_partPath));
    m_partPath[0] = 0;
  }
  SetLastError(lastError);
}
