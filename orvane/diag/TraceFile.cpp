#include <afxwin.h>

#include "diag/TraceFile.h"

#include <cerrno>
#include <share.h>

#include "entry/PathUtils.h"

namespace {

constexpr DWORD kWaitMilliseconds = 200;

FILE* OpenForAppending(const char* path) {
  const DWORD start = GetTickCount();
  for (;;) {
    if (FILE* const file = _fsopen(path, "a", _SH_DENYWR)) return file;
    if (GetLastError() != ERROR_SHARING_VIOLATION) return nullptr;
    if (GetTickCount() - start > kWaitMilliseconds) return _fsopen(path, "a", _SH_DENYNO);
    Sleep(0);
  }
}

}  // namespace

TraceFile::TraceFile(const char* path) {
  EnsureFileFolder(path);
  m_file = OpenForAppending(path);
}

TraceFile::~TraceFile() {
  if (m_file != nullptr) fclose(m_file);
}
