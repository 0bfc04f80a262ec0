// A file that takes its name only when it is whole.
#pragma once

#include <afxwin.h>

#include "entry/Handles.h"

// Writes beside the destination and moves the result there at the end, so that whoever looks at the
// destination, at any moment, finds what stood there before or all of the new file.
// Members give false when the system refuses something; its last error says why.
class DestinationFile {
 public:
  DestinationFile() = default;
  ~DestinationFile();
  DestinationFile(const DestinationFile&) = delete;
  DestinationFile& operator=(const DestinationFile&) = delete;

  // False also for a destination that stands there and could not be written to.
  bool Open(const char* path);
  bool Write(const void* bytes, DWORD size);
  // Without it nothing of what was written is left.
  bool Commit();

 private:
  CString m_path;      // absolute
  CString m_partPath;  // not empty: there is such a file
  bool m_replaces = false;
  unique_file m_file;
};

// Makes a fresh empty file in the system's temporary folder and gives its path; empty: the last
// error says why there is none. Its extension is that of the URL where it is one of those that
// programs are chosen by.
CString MakeTemporaryFileFor(const char* url);
