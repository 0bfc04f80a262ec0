// The main window.
#pragma once

#include <afxwin.h>

class MainFrame : public CFrameWnd {
 public:
  // Creates the window, hidden. FALSE: it could not be created, and this object is gone.
  BOOL Open();
};
