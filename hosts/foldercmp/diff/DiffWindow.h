// The window that shows two documents side by side with their differences.
#pragma once

#include <afxwin.h>

#include <optional>

#include "dircmp/ContentCompare.h"

// What is shown: two files, and what they are called in the window. Texts are in the ANSI code
// page; empty titles are replaced by the paths.
struct DiffArguments {
  CString left;
  CString right;
  CString leftTitle;
  CString rightTitle;
  std::optional<CompareOptions> options = {};  // none: as the user compared the last time
};

// Opens the window as the program's main window and serves it until the user has closed it. The
// program's exit status: 0, or 1 when there is no window to be had.
int RunDiffWindow(const DiffArguments& arguments);
