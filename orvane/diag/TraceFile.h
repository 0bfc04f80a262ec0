// The log file for the length of one event. Inside the library only.
#pragma once

#include <cstdio>

class TraceFile {
 public:
  // Opens the file for appending, with its folder made when missing. While one event is written no
  // other one can be: the file is opened without letting others write, and an event that meets
  // another waits for it. (Without that, two threads that append at a time write over each other's
  // lines: the runtime seeks to the end and writes in two steps.) A file that someone else keeps
  // open for writing is waited for a moment only, and then written to all the same.
  explicit TraceFile(const char* path);
  ~TraceFile();
  TraceFile(const TraceFile&) = delete;
  TraceFile& operator=(const TraceFile&) = delete;

  explicit operator bool() const { return m_file != nullptr; }
  FILE* get() const { return m_file; }

 private:
  FILE* m_file;
};
