#include "foldercmp/FolderPath.h"

#include <shlwapi.h>

#include "entry/strutils.h"

CString AbsoluteFolder(const char* typed) {
  CString path = WithBackslashes(typed);
  path.TrimLeft(" \t\"");
  path.TrimRight(" \t\"");
  if (path.IsEmpty()) return path;
  char full[MAX_PATH] = "";
  const DWORD length = GetFullPathNameA(path, sizeof full, full, nullptr);
  if (length == 0 || length >= sizeof full) return path;
  while (!PathIsRootA(full)) {
    const char* const end = PathRemoveBackslashA(full);
    if (*end == 0) break;
  }
  return full;
}

bool IsSameFolder(const char* one, const char* two) { return lstrcmpiA(one, two) == 0; }

CString FolderName(const char* path) {
  const char* const name = PathFindFileNameA(path);
  return *name != 0 ? name : path;
}
