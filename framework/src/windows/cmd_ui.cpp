// CCmdUI: the item of a command in a menu, or a control.

#include <afxwin.h>

CCmdUI::CCmdUI()
    : m_nID(0),
      m_nIndex(0),
      m_pMenu(nullptr),
      m_pSubMenu(nullptr),
      m_pParentMenu(nullptr),
      m_pOther(nullptr),
      m_bEnableChanged(FALSE),
      m_bContinueRouting(FALSE),
      m_nIndexMax(0) {}

namespace {

// The focus does not stay in a control that is being disabled.
void leave(HWND control) {
  if (GetFocus() != control) return;
  const HWND parent = GetParent(control);
  SetFocus(GetNextDlgTabItem(parent, control, FALSE));
}

bool hasText(HWND window, LPCTSTR text) {
  const int length = lstrlen(text);
  if (GetWindowTextLength(window) != length) return false;
  CString present;
  GetWindowText(window, present.GetBuffer(length), length + 1);
  present.ReleaseBuffer();
  return present == text;
}

}  // namespace

void CCmdUI::Enable(BOOL bOn) {
  if (m_pMenu != nullptr) {
    if (m_pSubMenu != nullptr) return;  // the item that opens a menu is no command
    ::EnableMenuItem(*m_pMenu, m_nIndex, MF_BYPOSITION | (bOn ? MF_ENABLED : MF_GRAYED));
  } else if (m_pOther != nullptr) {
    if (!bOn) leave(m_pOther->m_hWnd);
    m_pOther->EnableWindow(bOn);
  }
  m_bEnableChanged = TRUE;
}

void CCmdUI::SetCheck(int nCheck) {
  if (m_pMenu != nullptr) {
    if (m_pSubMenu != nullptr) return;
    ::CheckMenuItem(*m_pMenu, m_nIndex, MF_BYPOSITION | (nCheck != 0 ? MF_CHECKED : MF_UNCHECKED));
  } else if (m_pOther != nullptr && (m_pOther->SendMessage(WM_GETDLGCODE) & DLGC_BUTTON) != 0) {
    m_pOther->SendMessage(BM_SETCHECK, static_cast<WPARAM>(nCheck));
  }
}

void CCmdUI::SetRadio(BOOL bOn) {
  SetCheck(bOn ? 1 : 0);
  if (m_pMenu == nullptr || m_pSubMenu != nullptr) return;
  MENUITEMINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = MIIM_FTYPE;
  const HMENU menu = *m_pMenu;
  if (!::GetMenuItemInfo(menu, m_nIndex, TRUE, &info)) return;
  if (bOn)
    info.fType |= MFT_RADIOCHECK;
  else
    info.fType &= ~static_cast<UINT>(MFT_RADIOCHECK);
  ::SetMenuItemInfo(menu, m_nIndex, TRUE, &info);
}

void CCmdUI::SetText(LPCTSTR lpszText) {
  if (m_pMenu != nullptr) {
    if (m_pSubMenu != nullptr) return;
    MENUITEMINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STRING;
    info.dwTypeData = const_cast<LPTSTR>(lpszText);
    ::SetMenuItemInfo(*m_pMenu, m_nIndex, TRUE, &info);
  } else if (m_pOther != nullptr && !hasText(m_pOther->m_hWnd, lpszText)) {
    m_pOther->SetWindowText(lpszText);
  }
}

BOOL CCmdUI::DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHandler) {
  if (m_nID == 0 || LOWORD(m_nID) == 0xFFFF) return TRUE;  // a separator, a static text
  m_bEnableChanged = FALSE;
  const BOOL handled =
      pTarget->OnCmdMsg(m_nID, static_cast<int>(CN_UPDATE_COMMAND_UI), this, nullptr);
  if (bDisableIfNoHandler && !m_bEnableChanged) {
    AFX_CMDHANDLERINFO info = {nullptr, nullptr};
    Enable(pTarget->OnCmdMsg(m_nID, CN_COMMAND, this, &info));
  }
  return handled;
}
