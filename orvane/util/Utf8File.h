// The text file that UTF-16 text is written to.
#pragma once

#include <cstdint>

#include "entry/DestinationFile.h"

// Encodes code units as UTF-8, one by one: a surrogate becomes three bytes of its own. Collects
// what is written and passes it on in large pieces. Once a write has failed, so does Close. What
// stood there is replaced by Close, or not at all.
class Utf8File {
 public:
  Utf8File() = default;
  Utf8File(const Utf8File&) = delete;
  Utf8File& operator=(const Utf8File&) = delete;

  // Begins the file. False when it can't be made or replaced, and above all when anyone has it
  // open: it may be the file that is being read.
  bool Create(const char* path);

  // At the end of a line CR LF, whether or not the carriage return was written before.
  void Write(wchar_t unit);

  // Whether anything written was beyond ASCII.
  bool HasNonAscii() const { return m_hasNonAscii; }

  // Writes what is left. Whether everything arrived; when it did not, or when this is not called,
  // nothing is left of what was written.
  bool Close();

 private:
  void Put(unsigned byte) { m_buffer[m_length++] = static_cast<uint8_t>(byte); }
  bool Flush();

  DestinationFile m_file;
  bool m_good = false;
  bool m_hasNonAscii = false;
  wchar_t m_last = 0;
  unsigned m_length = 0;
  uint8_t m_buffer[32 * 1024];
};
