// CCmdUI: the item of a command in a menu.

#include <afxwin.h>

CCmdUI::CCmdUI()
    : m_nID(0),
      m_nIndex(0),
      m_pMenu(nullptr),
      m_pSubMenu(nullptr),
      m_pParentMenu(nullptr),
      m_bEnableChanged(FALSE),
      m_bContinueRouting(FALSE),
      m_nIndexMax(0) {}

void CCmdUI::Enable(BOOL bOn) {
  if (m_pMenu != nullptr) {
    if (m_pSubMenu != nullptr) return;  // the item that opens a menu is no command
    ::EnableMenuItem(*m_pMenu, m_nIndex, MF_BYPOSITION | (bOn ? MF_ENABLED : MF_GRAYED));
  }
  m_bEnableChanged = TRUE;
}

void CCmdUI::SetCheck(int nCheck) {
  if (m_pMenu == nullptr || m_pSubMenu != nullptr) return;
  ::CheckMenuItem(*m_pMenu, m_nIndex, MF_BYPOSITION | (nCheck != 0 ? MF_CHECKED : MF_UNCHECKED));
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
  if (m_pMenu == nullptr || m_pSubMenu != nullptr) return;
  MENUITEMINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = MIIM_STRING;
  info.dwTypeData = const_cast<LPTSTR>(lpszText);
  ::SetMenuItemInfo(*m_pMenu, m_nIndex, TRUE, &info);
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
