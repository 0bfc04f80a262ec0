// The file that a markup tree is written to.
#pragma once

#include <string_view>

#include "entry/DestinationFile.h"
#include "entry/export.h"

// Collects what is written and passes it on in large pieces. Once a write has failed every later
// one fails too, and so does Close. What stood there is replaced by Close, or not at all.
class ORVANE_API COXMarkupFile {
 public:
  COXMarkupFile() = default;
  ~COXMarkupFile() = default;
  COXMarkupFile(const COXMarkupFile&) = delete;
  COXMarkupFile& operator=(const COXMarkupFile&) = delete;

  // Begins the file; nobody else can open it, or the existing one that it is to replace, until it
  // is closed. 1 or 0; the system's last error says why.
  int Create(const char* path);

  // Appends text: 1 or 0.
  int Write(std::string_view text);
  // Appends text so many times.
  int WriteTimes(std::string_view text, int times);

  // Writes what is left and closes the file. 1 when every byte was written since Create; else 0,
  // and what stood there is still there. Without it nothing is left of what was written.
  int Close();

 private:
  bool Flush();

  DestinationFile m_file;
  bool m_good = false;
  unsigned m_length = 0;
  char m_buffer[32 * 1024];
};
