// A dialog template in memory (DLGTEMPLATE and DLGITEMTEMPLATE of the Windows documentation).
#pragma once

#include <afxwin.h>

#include <vector>

#include "controls/ControlData.h"

// Places and texts are left out. When it opens, the dialog puts its windows where they belong, to
// the pixel, and sets their texts, of which the system takes longer ones so than from a template.
class DialogTemplate {
 public:
  DialogTemplate(DWORD style, const char* face, int pointSize);
  void Add(const MControlData::Window& window);
  LPCDLGTEMPLATE Get() const { return reinterpret_cast<LPCDLGTEMPLATE>(m_words.data()); }

 private:
  void Put(WORD value) { m_words.push_back(value); }
  void PutDouble(DWORD value) { Put(LOWORD(value)), Put(HIWORD(value)); }
  // ASCII.
  void PutName(const char* name);

  std::vector<WORD> m_words;
};
