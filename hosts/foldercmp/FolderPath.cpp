#include "foldercmp/FolderPath.h"

#include <shlwapi.h>

#include "entry/Handles.h"
#include "entry/PathUtils.h"
#include "entry/strutils.h"

CString AbsoluteFolder(const char* typed) {
  CString path = WithBackslashes(typed);
  path.TrimLeft(" \t\"");
  path.TrimRight(" \t\"");
  if (path.IsEmpty()) return path;
  char full[MAX_PATH];
  if (!GetFullPath(path, full)) return path;
  if (!PathIsRootA(full)) PathRemoveBackslashA(full);
  return full;
}

DWORD FolderError(const char* path) {
  const DWORD attributes = GetFileAttributesA(path);
  if (attributes == INVALID_FILE_ATTRIBUTES) return GetLastError();
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return ERROR_DIRECTORY;
  WIN32_FIND_DATAA entry;
  const unique_find find(FindFirstFileA(CString(path) + "\\*", &entry));
  if (find) return ERROR_SUCCESS;
  // The root of an empty drive has no entry at all.
  const DWORD error = GetLastError();
  return error == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : error;
}

bool IsSameFolder(const char* one, const char* two) { return lstrcmpiA(one, two) == 0; }

CString FolderName(const char* path) {
  const char* const name = PathFindFileNameA(path);
  return *name != 0 ? name : path;
}
