// Paths of element names, separated by "\".
#pragma once

#include <afxwin.h>

// The end of the first name. The second byte of a double-byte character may be a "\".
inline const char* FirstNameEnd(const char* path) {
  while (*path != 0 && *path != '\\') path += IsDBCSLeadByte(*path) && path[1] != 0 ? 2 : 1;
  return path;
}
