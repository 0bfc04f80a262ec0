// A dialog template in memory, built item by item.
#pragma once

#include <afxwin.h>

#include <string>
#include <vector>

class DialogTemplate {
 public:
  explicit DialogTemplate(const char* title = "Dialog",
                          DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU, short x = 0,
                          short y = 0) {
    Put(style | DS_MODALFRAME);
    Put(DWORD(0));
    Put(WORD(0));
    Put(x), Put(y), Put(short(160)), Put(short(90));
    Put(WORD(0)), Put(WORD(0));
    PutText(title);
  }

  DialogTemplate& Button(const char* text, WORD id, DWORD style = BS_PUSHBUTTON) {
    return Item(0x0080, text, id, style | WS_TABSTOP);
  }
  DialogTemplate& Edit(const char* text, WORD id) {
    return Item(0x0081, text, id, WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL);
  }

  // A control of a system class (its number in templates), one below the other.
  DialogTemplate& Item(WORD systemClass, const char* text, WORD id, DWORD style) {
    Align();
    Put(style | WS_CHILD | WS_VISIBLE);
    Put(DWORD(0));
    Put(short(5)), Put(short(5 + 16 * Count())), Put(short(60)), Put(short(14));
    Put(id);
    Put(WORD(0xFFFF)), Put(systemClass);
    PutText(text);
    Put(WORD(0));
    ++Count();
    return *this;
  }

  operator LPCDLGTEMPLATE() const { return reinterpret_cast<LPCDLGTEMPLATE>(m_words.data()); }

 private:
  WORD& Count() { return m_words[4]; }
  void Put(DWORD value) { Put(LOWORD(value)), Put(HIWORD(value)); }
  void Put(WORD value) { m_words.push_back(value); }
  void Put(short value) { Put(static_cast<WORD>(value)); }
  void PutText(const char* text) {
    do Put(static_cast<WORD>(static_cast<unsigned char>(*text)));
    while (*text++ != 0);
  }
  // Items begin at multiples of four bytes.
  void Align() {
    if (m_words.size() % 2 != 0) Put(WORD(0));
  }

  std::vector<WORD> m_words;
};
