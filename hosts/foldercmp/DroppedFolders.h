// What the user has dropped on the window.
#pragma once

#include <afxwin.h>

#include <vector>

struct DroppedFolders {
  // Takes what a WM_DROPFILES message brings, and frees it.
  explicit DroppedFolders(HDROP drop);

  std::vector<CString> paths;  // files and folders, in the order of the drop
  CPoint point;                // in the window's client area
};
