// The file of a report. Inside the library only.
#pragma once

#include <afxwin.h>

#include <string_view>

#include "markup/OXMarkupFile.h"

// Comes into being whole or not at all, as a markup file does, and knows the first error.
class ReportFile {
 public:
  // Begins the file, in a folder that is made when missing. 0, or the system's error: also when
  // what stands at path could not be replaced.
  DWORD Open(const CString& path);

  void Write(std::string_view text);
  // For who writes into the file itself.
  COXMarkupFile& Markup() { return m_file; }

  // The system's error of the first write that failed, 0: none has.
  DWORD Error();

  // Closes the file and puts it in the place of what stood at its path. 0, or the system's error.
  DWORD PutInPlace();

 private:
  COXMarkupFile m_file;
  DWORD m_error = 0;
};
