// The file that a markup tree is written to.
#pragma once

#include <string_view>

#include "entry/Handles.h"
#include "entry/export.h"

// Collects what is written and passes it on in large pieces. Once a write has failed every later
// one fails too, and so does Close.
class ORVANE_API COXMarkupFile {
 public:
  COXMarkupFile() = default;
  ~COXMarkupFile() { Close(); }
  COXMarkupFile(const COXMarkupFile&) = delete;
  COXMarkupFile& operator=(const COXMarkupFile&) = delete;

  // Creates the file, or empties an existing one; nobody else can open it until it is closed. 1 or
  // 0; the system's last error says why.
  int Create(const char* path);

  // Appends text: 1 or 0.
  int Write(std::string_view text);
  // Appends text so many times.
  int WriteTimes(std::string_view text, int times);

  // Writes what is left and closes the file. 1 when every byte was written since Create, else 0.
  int Close();

 private:
  bool Flush();

  unique_file m_file;
  bool m_good = false;
  unsigned m_length = 0;
  char m_buffer[32 * 1024];
};
