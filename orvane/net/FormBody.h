// The body of a form that sends a file (RFC 7578).
#pragma once

#include <afxwin.h>

#include <memory>

enum class FormResult { Done, NoFile, TooLarge };

class FormBody {
 public:
  // Reads a file into the form's one field. Done; NoFile: the last error says why; TooLarge: it
  // does not fit into one block.
  FormResult Read(const char* path, const char* fileName);

  char* Bytes() { return m_bytes.get(); }
  DWORD Size() const { return m_size; }

 private:
  std::unique_ptr<char[]> m_bytes;
  DWORD m_size = 0;
};
