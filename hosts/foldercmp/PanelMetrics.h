// The font of the main window's controls, and lengths that follow it.
#pragma once

#include <afxwin.h>

// Lengths are given in dialog units (a quarter of the font's average character width, an eighth of
// its height), so that they grow with the user's font and resolution.
class PanelMetrics {
 public:
  PanelMetrics() { Update(); }
  // The user has chosen another font. Windows that show the old one get the new one after this.
  void Update();

  CFont& Font() { return m_font; }
  int Width(int units) const { return MulDiv(units, m_character.cx, 4); }
  int Height(int units) const { return MulDiv(units, m_character.cy, 8); }
  // The pixels of a text in one line, "&" not counted.
  int TextWidth(const char* text) const;

 private:
  CFont m_font;
  CSize m_character;
};
