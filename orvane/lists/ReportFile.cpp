#include "lists/ReportFile.h"

#include "entry/PathUtils.h"

namespace {

DWORD lastErrorOr(DWORD other) {
  const DWORD error = GetLastError();
  return error != 0 ? error : other;
}

}  // namespace

DWORD ReportFile::Open(const CString& path) {
  char full[MAX_PATH];
  if (!GetFullPath(path, full)) return ERROR_BAD_PATHNAME;
  EnsureFileFolder(full);
  return m_file.Create(full) ? 0 : lastErrorOr(ERROR_CANNOT_MAKE);
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
  if (Error() == 0 && !m_file.Close()) m_error = lastErrorOr(ERROR_WRITE_FAULT);
  return m_error;
}
