// The file of a report, which comes into being whole or not at all. Inside the library only.
#pragma once

#include <afxwin.h>

#include <string_view>

#include "markup/OXMarkupFile.h"

class ReportFile {
 public:
  ReportFile() = default;
  // What was not put in place is deleted.
  ~ReportFile();
  ReportFile(const ReportFile&) = delete;
  ReportFile& operator=(const ReportFile&) = delete;

  // Opens a new file in the folder of path, which is made when missing. 0, or the system's error:
  // also when what stands at path could not be replaced.
  DWORD Open(const CString& path);

  void Write(std::string_view text);
  // For who writes into the file itself.
  COXMarkupFile& Markup() { return m_file; }

  // Closes the file and puts it in the place of what stands at path. 0, or the system's error.
  DWORD PutInPlace();

  // The system's error of the first write that failed, 0: none has.
  DWORD Error();

 private:
  CString m_path;
  char m_partPath[MAX_PATH] = "";  // empty: there is no such file
  COXMarkupFile m_file;
  DWORD m_error = 0;
};
