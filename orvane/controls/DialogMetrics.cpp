#include "controls/DialogMetrics.h"

#include <algorithm>

namespace {

constexpr int kHundredthsPerInch = 2540;
// Dialog units in a character.
constexpr SIZE kUnitsPerCharacter = {4, 8};
// The heights of controls with one line, in dialog units, as the system's style guide has them.
constexpr int kButtonHeight = 14, kEditHeight = 12;
// The square of a check box or radio button at 96 dots per inch.
constexpr int kCheckSize = 13;

int upward(int value, int factor, int divisor) {
  return static_cast<int>((static_cast<long long>(value) * factor + divisor - 1) / divisor);
}

}  // namespace

DialogMetrics::DialogMetrics() {
  m_dc.CreateCompatibleDC(nullptr);
  m_resolution = CSize(m_dc.GetDeviceCaps(LOGPIXELSX), m_dc.GetDeviceCaps(LOGPIXELSY));
  // As the system makes the font that a dialog's template names.
  m_font.CreateFont(-MulDiv(kPointSize, m_resolution.cy, 72), 0, 0, 0, FW_NORMAL, FALSE, FALSE,
                    FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                    DEFAULT_QUALITY, FF_DONTCARE, kFace);
  m_oldFont = m_dc.SelectObject(&m_font);
  // And as the system finds its average width.
  constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  SIZE extent = {};
  ::GetTextExtentPoint32(m_dc.m_hDC, kLetters, sizeof kLetters - 1, &extent);
  TEXTMETRIC metrics = {};
  m_dc.GetTextMetrics(&metrics);
  m_base = CSize(std::max(1L, (extent.cx / 26 + 1) / 2), std::max(1L, metrics.tmHeight));
}

DialogMetrics::~DialogMetrics() { m_dc.SelectObject(m_oldFont); }

CSize DialogMetrics::TextSize(const char* text, UINT format, int width) {
  if (text == nullptr || *text == 0) return CSize(0, 0);
  if (width > 0) format |= DT_WORDBREAK | DT_EDITCONTROL;
  CRect place(0, 0, width, 0);
  m_dc.DrawText(text, -1, &place, DT_CALCRECT | DT_EXPANDTABS | format);
  return place.Size();
}

CSize DialogMetrics::ControlSize(const char* text, MControlKind kind, int width) {
  const CSize edge(GetSystemMetrics(SM_CXEDGE), GetSystemMetrics(SM_CYEDGE));
  const auto within = [width](int beside) { return width > 0 ? std::max(1, width - beside) : 0; };
  switch (kind) {
    case MControlKind::TextBox:
      return TextSize(text, DT_NOPREFIX, width);
    case MControlKind::CheckBox:
    case MControlKind::RadioButton: {
      // The square, a gap, and the focus rectangle around the text.
      const int beside = Scaled(kCheckSize) + m_base.cx + Scaled(2);
      const CSize inner = TextSize(text, 0, within(beside));
      return CSize(inner.cx + beside, std::max<int>(inner.cy + 2 * Scaled(1), Scaled(kCheckSize)));
    }
    case MControlKind::Edit: {
      const int beside = 2 * (edge.cx + m_base.cx);
      const CSize inner = TextSize(text, DT_NOPREFIX, within(beside));
      return CSize(inner.cx + beside,
                   std::max<int>(inner.cy + 2 * (edge.cy + Scaled(1)),
                                 upward(kEditHeight, m_base.cy, kUnitsPerCharacter.cy)));
    }
    case MControlKind::List: {
      const int beside = 2 * (edge.cx + Scaled(2)) + GetSystemMetrics(SM_CXVSCROLL);
      const CSize inner = TextSize(text, DT_NOPREFIX, 0);
      return CSize(inner.cx + beside, inner.cy + 2 * edge.cy);
    }
    case MControlKind::PushButton: {
      const int beside = 2 * (edge.cx + m_base.cx);
      const CSize inner = TextSize(text, 0, within(beside));
      return CSize(inner.cx + beside,
                   std::max<int>(inner.cy + 2 * (edge.cy + Scaled(2)),
                                 upward(kButtonHeight, m_base.cy, kUnitsPerCharacter.cy)));
    }
    case MControlKind::Icon:
      break;
  }
  return CSize(GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON));
}

CSize DialogMetrics::ToPixels(CSize size, MDialogUnits units) const {
  if (units == MDialogUnits::OfDialog) {
    return CSize(MulDiv(size.cx, m_base.cx, kUnitsPerCharacter.cx),
                 MulDiv(size.cy, m_base.cy, kUnitsPerCharacter.cy));
  }
  return CSize(MulDiv(size.cx, m_resolution.cx, kHundredthsPerInch),
               MulDiv(size.cy, m_resolution.cy, kHundredthsPerInch));
}

CSize DialogMetrics::FromPixels(CSize pixels, MDialogUnits units) const {
  if (units == MDialogUnits::OfDialog) {
    return CSize(upward(pixels.cx, kUnitsPerCharacter.cx, m_base.cx),
                 upward(pixels.cy, kUnitsPerCharacter.cy, m_base.cy));
  }
  return CSize(upward(pixels.cx, kHundredthsPerInch, m_resolution.cx),
               upward(pixels.cy, kHundredthsPerInch, m_resolution.cy));
}
