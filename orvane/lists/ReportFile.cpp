#include "lists/ReportFile.h"

#include <mbstring.h>

#include "entry/Handles.h"
#include "entry/PathUtils.h"

namespace {

constexpr char kPartPrefix[] = "rep";

DWORD lastErrorOr(DWORD other) {
  const DWORD error = GetLastError();
  return error != 0 ? error : other;
}

CString fullPath(const CString& path) {
  char full[MAX_PATH] = "";
  const DWORD length = GetFullPathNameA(path, sizeof full, full, nullptr);
  return length > 0 && length < sizeof full ? CString(full) : CString();
}

CString folderOf(const CString& path) {
  const auto* const begin = reinterpret_cast<const unsigned char*>(static_cast<LPCSTR>(path));
  const auto* const backslash = _mbsrchr(begin, '\\');
  return backslash == nullptr ? CString(".") : path.Left(static_cast<int>(backslash - begin) + 1);
}

// Whether what stands at a path can be replaced: 0, or the system's error. Somebody may have it
// open; better to know that before the work than after it.
DWORD whyNotReplaced(const CString& path) {
  const DWORD attributes = GetFileAttributesA(path);
  if (attributes == INVALID_FILE_ATTRIBUTES) return 0;
  if ((attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0)
    return ERROR_ACCESS_DENIED;
  const unique_file file(CreateFileA(path, DELETE,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                     nullptr, OPEN_EXISTING, 0, nullptr));
  return file ? 0 : GetLastError();
}

}  // namespace

ReportFile::~ReportFile() {
  m_file.Close();
  if (*m_partPath != 0) DeleteFileA(m_partPath);
}

DWORD ReportFile::Open(const CString& path) {
  m_path = fullPath(path);
  if (m_path.IsEmpty()) return ERROR_BAD_PATHNAME;
  if (const DWORD error = whyNotReplaced(m_path); error != 0) return error;
  EnsureFileFolder(m_path);
  if (GetTempFileNameA(folderOf(m_path), kPartPrefix, 0, m_partPath) == 0) {
    *m_partPath = 0;
    return lastErrorOr(ERROR_CANNOT_MAKE);
  }
  return m_file.Create(m_partPath) ? 0 : lastErrorOr(ERROR_CANNOT_MAKE);
}

void ReportFile::Write(std::string_view text) {
  if (!m_file.Write(text)) Error();
}

// Appending nothing tells whether everything was written so far.
DWORD ReportFile::Error() {
  if (m_error == 0 && !m_file.Write("")) m_error = lastErrorOr(ERROR_WRITE_FAULT);
  return m_error;
}

DWORD ReportFile::PutInPlace() {
  if (Error() != 0) return m_error;
  if (!m_file.Close()) return lastErrorOr(ERROR_WRITE_FAULT);
  if (!MoveFileExA(m_partPath, m_path, MOVEFILE_REPLACE_EXISTING)) return GetLastError();
  *m_partPath = 0;
  return 0;
}
