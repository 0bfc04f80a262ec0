#include <afxwin.h>

#include <string.h>

#include <algorithm>

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CListBox, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)

BOOL CStatic::Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                     UINT nID) {
  return CWnd::Create("STATIC", lpszText, dwStyle, rect, pParentWnd, nID);
}

BOOL CButton::Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                     UINT nID) {
  return CWnd::Create("BUTTON", lpszCaption, dwStyle, rect, pParentWnd, nID);
}

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create("EDIT", nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create("LISTBOX", nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create("COMBOBOX", nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CScrollBar::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create("SCROLLBAR", nullptr, dwStyle, rect, pParentWnd, nID);
}

void CEdit::SetSel(int nStartChar, int nEndChar, BOOL bNoScroll) {
  _AfxSend(this, EM_SETSEL, nStartChar, nEndChar);
  if (!bNoScroll) _AfxSend(this, EM_SCROLLCARET);
}

BOOL CScrollBar::GetScrollInfo(LPSCROLLINFO lpScrollInfo, UINT nMask) {
  return CWnd::GetScrollInfo(SB_CTL, lpScrollInfo, nMask);
}

BOOL CScrollBar::SetScrollInfo(LPSCROLLINFO lpScrollInfo, BOOL bRedraw) {
  return CWnd::SetScrollInfo(SB_CTL, lpScrollInfo, bRedraw);
}

int CScrollBar::GetScrollLimit() { return CWnd::GetScrollLimit(SB_CTL); }

// The control reads the size of the buffer from where it writes the line.
int CEdit::GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const {
  const WORD size = static_cast<WORD>(nMaxLength);
  memcpy(lpszBuffer, &size, sizeof size);
  return GetLine(nIndex, lpszBuffer);
}

void CListBox::GetText(int nIndex, CString& rString) const {
  const int length = GetTextLen(nIndex);
  if (length == LB_ERR) return rString.Empty();
  const LPTSTR buffer = rString.GetBuffer(length);
  rString.ReleaseBuffer(std::max(GetText(nIndex, buffer), 0));
}

void CComboBox::GetLBText(int nIndex, CString& rString) const {
  const int length = GetLBTextLen(nIndex);
  if (length == CB_ERR) return rString.Empty();
  const LPTSTR buffer = rString.GetBuffer(length);
  rString.ReleaseBuffer(std::max(GetLBText(nIndex, buffer), 0));
}

// The message says with the order of the two items whether to select; for one item it cannot.
int CListBox::SelItemRange(BOOL bSelect, int nFirstItem, int nLastItem) {
  if (bSelect) return _AfxSend(this, LB_SELITEMRANGEEX, nFirstItem, nLastItem);
  if (nFirstItem == nLastItem) return SetSel(nFirstItem, FALSE);
  return _AfxSend(this, LB_SELITEMRANGEEX, nLastItem, nFirstItem);
}

void CStatic::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CStatic::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, pResult);
  DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
  return TRUE;
}

void CButton::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, pResult);
  DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
  return TRUE;
}

void CListBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CListBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CListBox::CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
void CListBox::DeleteItem(LPDELETEITEMSTRUCT) {}
int CListBox::VKeyToItem(UINT, UINT) { return -1; }
int CListBox::CharToItem(UINT, UINT) { return -1; }

// What a list box and a combo box are asked about items that they draw themselves. FALSE: something
// else.
template <class Control>
static BOOL answerForItems(Control& control, UINT message, LPARAM lParam, LRESULT* pResult) {
  switch (message) {
    case WM_DRAWITEM:
      control.DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
      return TRUE;
    case WM_MEASUREITEM:
      control.MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
      return TRUE;
    case WM_COMPAREITEM:
      *pResult = control.CompareItem(reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam));
      return TRUE;
    case WM_DELETEITEM:
      control.DeleteItem(reinterpret_cast<LPDELETEITEMSTRUCT>(lParam));
      return TRUE;
    default:
      return FALSE;
  }
}

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  if (answerForItems(*this, message, lParam, pResult)) return TRUE;
  switch (message) {
    case WM_VKEYTOITEM:
      *pResult = VKeyToItem(LOWORD(wParam), HIWORD(wParam));
      return TRUE;
    case WM_CHARTOITEM:
      *pResult = CharToItem(LOWORD(wParam), HIWORD(wParam));
      return TRUE;
    default:
      return CWnd::OnChildNotify(message, wParam, lParam, pResult);
  }
}

void CComboBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CComboBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CComboBox::CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
void CComboBox::DeleteItem(LPDELETEITEMSTRUCT) {}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  return answerForItems(*this, message, lParam, pResult) ||
         CWnd::OnChildNotify(message, wParam, lParam, pResult);
}
