// A dialog template in memory (DLGTEMPLATE and DLGITEMTEMPLATE of the Windows documentation).
#pragma once

#include <afxwin.h>

#include <vector>

#include "controls/ControlData.h"

// Places are left out: the dialog puts its windows where they belong, to the pixel, when it opens.
class DialogTemplate {
 public:
  DialogTemplate(DWORD style, const char* caption, const char* face, int pointSize);
  void Add(const MControlData::Window& window);
  LPCDLGTEMPLATE Get() const { return reinterpret_cast<LPCDLGTEMPLATE>(m_words.data()); }

 private:
  void Put(WORD value) { m_words.push_back(value); }
  void PutDouble(DWORD value) { Put(LOWORD(value)), Put(HIWORD(value)); }
  // From the system's code page, with its terminating zero.
  void PutText(const char* text);

  std::vector<WORD> m_words;
};
