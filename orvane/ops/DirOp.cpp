#include "ops/DirOp.h"

#include <mbstring.h>

#include "diag/trace.h"
#include "entry/strutils.h"
#include "markup/NoException.h"

namespace {

const char* FindBackslash(const char* text) {
  return reinterpret_cast<const char*>(_mbschr(reinterpret_cast<const unsigned char*>(text), '\\'));
}

const char* PastBackslash(const char* text) {
  const char* const backslash = FindBackslash(text);
  return backslash == nullptr ? text : backslash + 1;
}

bool IsShared(const char* path) { return path[0] == '\\' && path[1] == '\\'; }

// The part of a path that always exists is skipped: where the first part to be tested begins.
const char* FirstTestedPart(const char* path) {
  if (IsShared(path)) return PastBackslash(path + 2);
  if (path[0] != 0 && path[1] == ':') return path[2] == 0 ? path + 2 : path + 3;
  if (path[0] == '.') return PastBackslash(path);
  if (path[0] == '\\') return path + 1;
  return path;
}

bool CanBeCurrent(const char* folder) {
  char previous[MAX_PATH] = "";
  const DWORD length = GetCurrentDirectoryA(sizeof previous, previous);
  ASSERT(length > 0 && length < sizeof previous);
  if (!SetCurrentDirectoryA(folder)) return false;
  if (length > 0 && length < sizeof previous) VERIFY(SetCurrentDirectoryA(previous));
  return true;
}

bool IsFolder(const char* path) {
  const DWORD attributes = GetFileAttributesA(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool MakeFolder(const char* folder) {
  if (CreateDirectoryA(folder, nullptr)) return true;
  // Another thread or program may have made it since it was tested.
  return GetLastError() == ERROR_ALREADY_EXISTS && IsFolder(folder);
}

bool MakeFolders(const char* path) {
  const CString whole = WithBackslashes(path);
  const char* const begin = whole;
  bool isShare = IsShared(begin);
  for (const char* part = FirstTestedPart(begin); part != nullptr;) {
    const char* const backslash = FindBackslash(part);
    const CString prefix =
        backslash == nullptr ? whole : whole.Left(static_cast<int>(backslash - begin));
    if (!CanBeCurrent(prefix) && (isShare || !MakeFolder(prefix))) return false;
    isShare = false;
    part = backslash == nullptr ? nullptr : backslash + 1;
  }
  return true;
}

}  // namespace

int CreateDirectoryA(const char* path) {
  if (path == nullptr || *path == 0) return 0;
  return WithoutException([path] { return MakeFolders(path); });
}
