#include "foldercmp/diff/DiffStyle.h"

namespace {

constexpr int kTextPoints = 10;

LOGFONT Monospaced(const CDC& screen, const char* face) {
  LOGFONT font = {};
  font.lfHeight = -MulDiv(kTextPoints, screen.GetDeviceCaps(LOGPIXELSY), 72);
  font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  font.lfCharSet = DEFAULT_CHARSET;
  lstrcpyn(font.lfFaceName, face, LF_FACESIZE);
  return font;
}

bool HasFace(CDC& screen, CFont& font, const char* face) {
  CFont* const before = screen.SelectObject(&font);
  CString selected;
  screen.GetTextFace(selected);
  screen.SelectObject(before);
  return selected.CompareNoCase(face) == 0;
}

}  // namespace

DiffStyle::DiffStyle() {
  CClientDC screen(nullptr);
  m_dotsPerInch = screen.GetDeviceCaps(LOGPIXELSY);
  for (const char* face : {"Consolas", "Courier New"}) {
    const LOGFONT font = Monospaced(screen, face);
    m_textFont.DeleteObject();
    m_textFont.CreateFontIndirect(&font);
    if (HasFace(screen, m_textFont, face)) break;
  }

  NONCLIENTMETRICS metrics = {};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfo(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  m_titleFont.CreateFontIndirect(&metrics.lfStatusFont);

  TEXTMETRIC text = {};
  CFont* const before = screen.SelectObject(&m_titleFont);
  screen.GetTextMetrics(&text);
  m_titleHeight = text.tmHeight + Pixels(8);
  screen.SelectObject(&m_textFont);
  screen.GetTextMetrics(&text);
  m_rowHeight = text.tmHeight + 1;
  m_columnWidth = screen.GetTextExtent("0", 1).cx;
  screen.SelectObject(before);

  m_filler.CreateHatchBrush(HS_BDIAGONAL, kFillerLines);
}

COLORREF DiffStyle::RowColour(DiffKind kind) {
  switch (kind) {
    case DiffKind::Changed:
      return RGB(255, 247, 214);
    case DiffKind::Deleted:
      return RGB(255, 230, 230);
    case DiffKind::Added:
      return RGB(228, 248, 228);
    default:
      return GetSysColor(COLOR_WINDOW);
  }
}

COLORREF DiffStyle::WordColour(DiffKind kind) {
  return kind == DiffKind::Changed ? RGB(255, 214, 110) : RowColour(kind);
}

COLORREF DiffStyle::MapColour(DiffKind kind) {
  switch (kind) {
    case DiffKind::Changed:
      return RGB(232, 170, 20);
    case DiffKind::Deleted:
      return RGB(214, 80, 80);
    case DiffKind::Added:
      return RGB(70, 170, 80);
    default:
      return GetSysColor(COLOR_WINDOW);
  }
}

// Differences have light grounds whatever the system's colours are.
COLORREF DiffStyle::TextColour(DiffKind kind) {
  return kind == DiffKind::Equal ? GetSysColor(COLOR_WINDOWTEXT) : RGB(0, 0, 0);
}
