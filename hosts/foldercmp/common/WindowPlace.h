// The place of a window from one run to the next.
#pragma once

#include <afxwin.h>

// Where a window's place is kept, and how its values there begin: "Window" for "WindowLeft".
struct WindowPlace {
  // Moves the window to the place that was kept, shrunk and moved into the work area of a screen;
  // what was not kept stays as it is. Gives how the window is to be shown: cmdShow, or maximized
  // when it was and the user hasn't asked otherwise.
  int Restore(CWnd& window, int cmdShow) const;
  void Store(const CWnd& window) const;

  const char* name;
};
