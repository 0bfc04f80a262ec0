// Another current directory for the length of a scope.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

// Remembers the current directory of the process and makes it current again at the end. The current
// directory is the whole process's: no other thread may depend on it meanwhile. Failures are
// reported by ASSERT, and the scope runs on where it is.
class ORVANE_API SetGetCurrentDir {
 public:
  // Makes folder current, creating it with its parents; null or empty: the current one stays. A
  // drive alone ("C:") is its root: that is what is left of a path split at its only backslash.
  explicit SetGetCurrentDir(const char* folder);
  ~SetGetCurrentDir();
  SetGetCurrentDir(const SetGetCurrentDir&) = delete;
  SetGetCurrentDir& operator=(const SetGetCurrentDir&) = delete;

 private:
  char m_previous[500];  // empty when it could not be read
};
