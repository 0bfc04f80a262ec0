#include "foldercmp/PanelMetrics.h"

void PanelMetrics::Update() {
  NONCLIENTMETRICS metrics = {};
  // The size that systems of all versions take.
  metrics.cbSize = offsetof(NONCLIENTMETRICS, lfMessageFont) + sizeof metrics.lfMessageFont;
  SystemParametersInfo(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
  m_font.DeleteObject();
  m_font.CreateFontIndirect(&metrics.lfMessageFont);

  CClientDC dc(nullptr);
  CFont* const old = dc.SelectObject(&m_font);
  TEXTMETRIC text = {};
  dc.GetTextMetrics(&text);
  constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  const CSize extent = dc.GetTextExtent(kLetters, sizeof kLetters - 1);
  m_character = CSize((extent.cx / 26 + 1) / 2, text.tmHeight);
  dc.SelectObject(old);
}

int PanelMetrics::TextWidth(const char* text) const {
  CClientDC dc(nullptr);
  CFont* const old = dc.SelectObject(CFont::FromHandle(m_font));
  CRect place(0, 0, 0, 0);
  dc.DrawText(text, -1, place, DT_CALCRECT | DT_SINGLELINE);
  dc.SelectObject(old);
  return place.Width();
}
