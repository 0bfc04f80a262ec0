#include <afxwin.h>

#include "entry/PathUtils.h"

#include <io.h>
#include <sys/stat.h>

#include "diag/trace.h"
#include "entry/strutils.h"
#include "ops/DirOp.h"

bool GetFullPath(const char* path, char (&full)[MAX_PATH]) {
  const DWORD length = GetFullPathNameA(path, sizeof full, full, nullptr);
  if (length > 0 && length < sizeof full) return true;
  if (length > 0) SetLastError(ERROR_FILENAME_EXCED_RANGE);
  return false;
}

CString FullPathOf(const char* path) {
  char full[MAX_PATH];
  return GetFullPath(path, full) ? CString(full) : WithBackslashes(path);
}

CString FullFolderOf(const char* path) {
  const CString full = FullPathOf(path);
  if (full.IsEmpty()) return full;
  CString folder, name;
  SplitAtLastBackslash(full, folder, name);
  return name.IsEmpty() ? folder : full;
}

void ForceDeleteFile(const char* path) {
  if (_chmod(path, _S_IREAD | _S_IWRITE) != 0) return;
  VERIFY(_unlink(path) == 0);
}

void EnsureFileFolder(const char* filePath) {
  const CString path = WithBackslashes(filePath);
  CString folder;
  CString name;
  SplitAtLastBackslash(path, folder, name);
  // Without a backslash the left side is the whole path, and there is no folder.
  if (folder.GetLength() == path.GetLength()) return;
  // The trace log comes here for every line: a folder that stands costs one look, and the current
  // directory, which CreateDirectoryA moves about, is left alone.
  const DWORD attributes = GetFileAttributesA(folder);
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY)) return;
  if (!folder.IsEmpty()) CreateDirectoryA(folder);
}
