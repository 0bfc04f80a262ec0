#include "controls/CellTip.h"

namespace {

constexpr int kWidest = 600;  // pixels; longer lines are broken

}  // namespace

TOOLINFO CellTip::Tool() const {
  TOOLINFO tool = {};
  tool.cbSize = TTTOOLINFOA_V1_SIZE;  // known to all versions of the control
  tool.uFlags = TTF_IDISHWND | TTF_TRACK | TTF_ABSOLUTE | TTF_TRANSPARENT;
  tool.hwnd = m_list;
  tool.uId = reinterpret_cast<UINT_PTR>(m_list);
  tool.lpszText = const_cast<char*>(static_cast<LPCTSTR>(m_text));
  return tool;
}

bool CellTip::Create(CListCtrl& list) {
  if (m_tip.GetSafeHwnd() != nullptr) return true;
  m_list = list;
  if (!m_tip.Create(&list, TTS_ALWAYSTIP | TTS_NOPREFIX)) return false;
  TOOLINFO tool = Tool();
  m_tip.SendMessage(TTM_ADDTOOL, 0, reinterpret_cast<LPARAM>(&tool));
  m_tip.SendMessage(TTM_SETMAXTIPWIDTH, 0, kWidest);
  return true;
}

void CellTip::Show(CListCtrl& list, const char* text, CPoint place) {
  if ((m_shown && m_text == text) || !Create(list)) return;
  Hide();
  m_text = text;
  m_tip.SetFont(list.GetFont(), FALSE);
  TOOLINFO tool = Tool();
  m_tip.SendMessage(TTM_UPDATETIPTEXT, 0, reinterpret_cast<LPARAM>(&tool));
  m_tip.SendMessage(TTM_TRACKPOSITION, 0, MAKELPARAM(place.x, place.y));
  m_tip.SendMessage(TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
  m_shown = true;
}

void CellTip::Hide() {
  if (!m_shown) return;
  m_shown = false;
  TOOLINFO tool = Tool();
  m_tip.SendMessage(TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&tool));
}

void CellTip::Destroy() {
  Hide();
  m_tip.DestroyWindow();
}
