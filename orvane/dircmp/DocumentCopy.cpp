#include <afxwin.h>

#include "dircmp/DocumentCopy.h"

#include "entry/PathUtils.h"

bool CopyDocument(const char* source, const char* destination) {
  EnsureFileFolder(destination);
  // An earlier copy may be write-protected, as the document is. What is not written over stays so.
  const DWORD attributes = GetFileAttributesA(destination);
  SetFileAttributesA(destination, FILE_ATTRIBUTE_NORMAL);
  if (CopyFileA(source, destination, FALSE)) return true;
  const DWORD error = GetLastError();
  if (attributes != INVALID_FILE_ATTRIBUTES) SetFileAttributesA(destination, attributes);
  SetLastError(error);
  return false;
}
