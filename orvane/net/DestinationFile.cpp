#include "net/DestinationFile.h"

#include <mbstring.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "diag/trace.h"

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// The path's last "\"; a trail byte that looks like one is none.
const char* lastBackslash(const char* path) {
  return reinterpret_cast<const char*>(
      _mbsrchr(reinterpret_cast<const unsigned char*>(path), '\\'));
}

CString fullPathOf(const char* path) {
  char full[MAX_PATH];
  const DWORD length = GetFullPathNameA(path, MAX_PATH, full, nullptr);
  if (length < MAX_PATH) return CString(full, static_cast<int>(length));
  SetLastError(ERROR_FILENAME_EXCED_RANGE);
  return CString();
}

CString makeFileIn(const char* folder, const char* prefix) {
  char path[MAX_PATH];
  return GetTempFileNameA(folder, prefix, 0, path) != 0 ? CString(path) : CString();
}

// The lower-cased extension of the object that the URL names, without query and fragment; empty:
// none.
std::string extensionOf(std::string_view url) {
  url = url.substr(0, url.find_first_of("?#"));
  if (const size_t scheme = url.find("://"); scheme != url.npos) url.remove_prefix(scheme + 3);
  const size_t slash = url.rfind('/');
  if (slash == url.npos) return {};
  url.remove_prefix(slash);
  const size_t dot = url.rfind('.');
  if (dot == url.npos) return {};
  std::string extension(url.substr(dot + 1));
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return extension;
}

}  // namespace

DestinationFile::~DestinationFile() {
  if (m_partPath.IsEmpty()) return;
  const DWORD lastError = GetLastError();
  m_file.reset();
  VERIFY(DeleteFileA(m_partPath));
  SetLastError(lastError);
}

bool DestinationFile::Open(const char* path) {
  m_path = fullPathOf(path);
  if (m_path.IsEmpty()) return false;
  // Better to know now than after the last byte that it must not be replaced.
  const DWORD attributes = GetFileAttributesA(m_path);
  m_replaces = attributes != INVALID_FILE_ATTRIBUTES;
  if (m_replaces && (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0) {
    SetLastError(ERROR_ACCESS_DENIED);
    return false;
  }
  if (m_replaces && !unique_file(CreateFileA(m_path, GENERIC_WRITE, kShareAll, nullptr,
                                             OPEN_EXISTING, 0, nullptr)))
    return false;
  const char* const backslash = lastBackslash(m_path);
  if (backslash == nullptr) {
    SetLastError(ERROR_BAD_PATHNAME);
    return false;
  }
  const int folderLength = static_cast<int>(backslash + 1 - static_cast<const char*>(m_path));
  m_partPath = makeFileIn(m_path.Left(folderLength), "get");
  if (m_partPath.IsEmpty()) return false;
  m_file.reset(CreateFileA(m_partPath, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                           FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  return static_cast<bool>(m_file);
}

bool DestinationFile::Write(const void* bytes, DWORD size) {
  DWORD written = 0;
  if (!WriteFile(m_file.get(), bytes, size, &written, nullptr)) return false;
  if (written == size) return true;
  SetLastError(ERROR_DISK_FULL);
  return false;
}

bool DestinationFile::Commit() {
  // Where the old file would be lost with the new one, the disk is to have the new one first.
  if (m_replaces && !FlushFileBuffers(m_file.get())) return false;
  m_file.reset();
  if (!MoveFileExA(m_partPath, m_path, MOVEFILE_REPLACE_EXISTING)) return false;
  m_partPath.Empty();
  return true;
}

CString MakeTemporaryFileFor(const char* url) {
  static constexpr std::string_view kKept[] = {"htm", "html", "xml", "doc", "zip"};
  char folder[MAX_PATH];
  const DWORD length = GetTempPathA(MAX_PATH, folder);
  if (length == 0 || length >= MAX_PATH) return CString();
  const std::string extension = extensionOf(url);
  const bool isKept = std::find(std::begin(kKept), std::end(kKept), extension) != std::end(kKept);
  for (;;) {
    const CString path = makeFileIn(folder, "tmp");
    if (path.IsEmpty() || !isKept) return path;
    const CString named = path.Left(path.ReverseFind('.') + 1) + extension.c_str();
    if (MoveFileA(path, named)) return named;
    const DWORD error = GetLastError();
    DeleteFileA(path);
    // The name is taken: the next number may be free.
    if (error != ERROR_ALREADY_EXISTS && error != ERROR_FILE_EXISTS) {
      SetLastError(error);
      return CString();
    }
  }
}
