// A file that takes its name only when it is whole.
#pragma once

#include <afxwin.h>

#include "entry/Handles.h"
#include "entry/export.h"

// Where something stands at the destination already, writes beside it and moves the result there at
// the end, so that whoever looks at the destination, at any moment, finds what stood there before
// or all of the new file. A destination that names a device is written to as it is. Members give
// false when the system refuses something; its last error says why. Nothing is thrown.
class ORVANE_API DestinationFile {
 public:
  struct Options {
    DWORD attributes = FILE_ATTRIBUTE_NORMAL;  // of the new file
    // Nobody else may have open what stands there, from Open on. Otherwise it may be read
    // meanwhile.
    bool locks = true;
    // Writes beside the destination even when nothing stands there.
    bool alwaysBeside = false;
    // The disk has all of the new file before the old one goes. Costs some milliseconds: not for
    // file after file of a tree.
    bool flushes = true;
  };

  DestinationFile() = default;
  ~DestinationFile() { Discard(); }
  DestinationFile(const DestinationFile&) = delete;
  DestinationFile& operator=(const DestinationFile&) = delete;

  // False also for a destination that stands there and could not be written to.
  bool Open(const char* path, const Options& options);
  bool Open(const char* path) { return Open(path, Options()); }

  // What the new file is written through; it stays this object's.
  HANDLE Handle() const { return m_file.get(); }
  // Whether something stood at the destination when it was opened.
  bool Replaces() const { return m_replaces; }

  bool Write(const void* bytes, DWORD size);
  // Puts the file in place and closes it. Without it nothing of what was written is left.
  bool Commit();
  void Discard();

 private:
  bool OpenNew(const char* path);
  bool OpenBeside();

  char m_path[MAX_PATH];           // absolute
  char m_partPath[MAX_PATH] = "";  // of the file that is written; empty: nothing to take back
  Options m_options;
  bool m_replaces = false;
  unique_file m_old;  // what stands there, kept from everybody else
  unique_file m_file;
};

// Makes a fresh empty file in the folder of another, whose path is absolute. False: the last error
// says why there is none.
bool MakeFileBeside(const char* path, const char* prefix, char (&made)[MAX_PATH]);
