// The page that shows the two sides of a modified document. Inside the library only.
#pragma once

#include <afxwin.h>

#include <string>

#include "dircmp/ContentCompare.h"

struct DifferencePage {
  // All of them HTML already.
  std::string title;
  std::string baseHeading;
  std::string revisedHeading;
  std::string navigation;

  CString basePath;
  CString revisedPath;
  CompareOptions options;
};

// Writes the page: 0, or the system's error; ERROR_CANCELLED: stop, which is asked as by DiffLines,
// has ended the work and there is no page. Documents that can't be shown as texts are named with
// the reason.
DWORD WriteDifferencePage(const CString& file, const DifferencePage& page,
                          const ContentCompare::StopPoll& stop);
