#include <afxwin.h>

#include "dircmp/DocumentCopy.h"

#include "entry/PathUtils.h"

bool CopyDocument(const char* source, const char* destination) {
  EnsureFileFolder(destination);
  // An earlier copy may be write-protected, as the document is.
  SetFileAttributesA(destination, FILE_ATTRIBUTE_NORMAL);
  return CopyFileA(source, destination, FALSE) != FALSE;
}
