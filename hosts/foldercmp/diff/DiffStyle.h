// Fonts, measures and colours of the panes.
#pragma once

#include <afxwin.h>

#include "foldercmp/diff/DiffDocument.h"

// Made for the screen's resolution. Lengths in pixels.
class DiffStyle {
 public:
  DiffStyle();

  CFont& textFont() { return m_textFont; }
  CFont& titleFont() { return m_titleFont; }
  CBrush& filler() { return m_filler; }  // of rows where nothing stands
  // A length in pixels of a screen of 96 dots per inch.
  int Pixels(int at96) const { return MulDiv(at96, m_dotsPerInch, 96); }
  int columnWidth() const { return m_columnWidth; }
  int rowHeight() const { return m_rowHeight; }
  int titleHeight() const { return m_titleHeight; }

  // Behind a row, behind changed words in it, and in the map. Equal rows are the window's colour.
  static COLORREF RowColour(DiffKind kind);
  static COLORREF WordColour(DiffKind kind);
  static COLORREF MapColour(DiffKind kind);
  static COLORREF TextColour(DiffKind kind);

  static constexpr COLORREF kFillerGround = RGB(246, 246, 246);
  static constexpr COLORREF kFillerLines = RGB(216, 216, 216);
  static constexpr COLORREF kMargin = RGB(240, 242, 245);
  static constexpr COLORREF kMarginText = RGB(110, 118, 128);
  static constexpr COLORREF kCurrent = RGB(30, 90, 200);  // the current difference
  static constexpr COLORREF kFound = RGB(255, 170, 60);
  static constexpr COLORREF kNotice = RGB(255, 248, 220);

 private:
  CFont m_textFont;
  CFont m_titleFont;
  CBrush m_filler;
  int m_dotsPerInch = 96;
  int m_columnWidth = 0;
  int m_rowHeight = 0;
  int m_titleHeight = 0;
};
