// A busy cursor for the whole desktop.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

// While it lives, the system's normal arrow is another cursor, in every program's windows. The
// arrow that comes back is the one of the time when the library was loaded; of two that overlap the
// first to end brings it back.
class ORVANE_API SysWaitCursor {
 public:
  // wait: not 0: the hourglass; 0: the arrow with the hourglass, for work that does not keep the
  // user from going on.
  explicit SysWaitCursor(int wait);
  ~SysWaitCursor();
  SysWaitCursor(const SysWaitCursor&) = delete;
  SysWaitCursor& operator=(const SysWaitCursor&) = delete;
};
