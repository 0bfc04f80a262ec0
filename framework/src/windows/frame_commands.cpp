// CFrameWnd: keys, menus and the texts of commands.

#include <afxpriv.h>

BOOL CFrameWnd::PreTranslateMessage(MSG* pMsg) {
  if (CWnd::PreTranslateMessage(pMsg)) return TRUE;
  if (pMsg->message < WM_KEYFIRST || pMsg->message > WM_KEYLAST) return FALSE;
  return m_hAccelTable != nullptr && ::TranslateAccelerator(m_hWnd, m_hAccelTable, pMsg);
}

// A command goes to the frame and to the program; a frame with a pane that handles commands asks it
// first in an OnCmdMsg of its own.
BOOL CFrameWnd::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) return TRUE;
  CWinThread* const thread = AfxGetThread();
  return thread != nullptr && thread->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

void CFrameWnd::OnInitMenuPopup(CMenu* pMenu, UINT nIndex, BOOL bSysMenu) {
  CWnd::OnInitMenuPopup(pMenu, nIndex, bSysMenu);
  if (bSysMenu) return;
  const HMENU menu = *pMenu;
  CCmdUI state;
  state.m_pMenu = pMenu;
  state.m_nIndexMax = static_cast<UINT>(::GetMenuItemCount(menu));
  for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex) {
    const int position = static_cast<int>(state.m_nIndex);
    BOOL disable = m_bAutoMenuEnable;
    state.m_nID = ::GetMenuItemID(menu, position);
    state.m_pSubMenu = nullptr;
    if (state.m_nID == 0) continue;  // a separator
    if (state.m_nID == static_cast<UINT>(-1)) {
      // An item that opens a menu is asked about by that menu's first command.
      const HMENU subMenu = ::GetSubMenu(menu, position);
      state.m_pSubMenu = CMenu::FromHandle(subMenu);
      if (state.m_pSubMenu == nullptr) continue;
      state.m_nID = ::GetMenuItemID(subMenu, 0);
      if (state.m_nID == 0 || state.m_nID == static_cast<UINT>(-1)) continue;
      disable = FALSE;
    }
    state.DoUpdate(this, disable && state.m_nID < 0xF000);
    // A handler may have added or removed items.
    const UINT count = static_cast<UINT>(::GetMenuItemCount(menu));
    if (count < state.m_nIndexMax) {
      state.m_nIndex -= state.m_nIndexMax - count;
      while (state.m_nIndex < count &&
             ::GetMenuItemID(menu, static_cast<int>(state.m_nIndex)) == state.m_nID)
        ++state.m_nIndex;
    }
    state.m_nIndexMax = count;
  }
}

void CFrameWnd::OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu) {
  CWnd::OnMenuSelect(nItemID, nFlags, hSysMenu);
  const bool closed = nFlags == 0xFFFF;
  const bool command = (nFlags & (MF_SEPARATOR | MF_POPUP | MF_SYSMENU)) == 0;
  m_nIDTracking = closed ? AFX_IDS_IDLEMESSAGE : command ? nItemID : 0;
  SetMessageText(m_nIDTracking);
}

CWnd* CFrameWnd::GetMessageBar() { return GetDescendantWindow(AFX_IDW_STATUS_BAR); }

void CFrameWnd::SetMessageText(LPCTSTR lpszText) {
  SendMessage(WM_SETMESSAGESTRING, 0, reinterpret_cast<LPARAM>(lpszText));
}

void CFrameWnd::SetMessageText(UINT nID) { SendMessage(WM_SETMESSAGESTRING, nID, 0); }

// The part after the line end is the command's short name.
void CFrameWnd::GetMessageString(UINT nID, CString& rMessage) const {
  CString all;
  all.LoadString(nID);
  AfxExtractSubString(rMessage, all, 0);
}

LRESULT CFrameWnd::OnSetMessageString(WPARAM wParam, LPARAM lParam) {
  CWnd* const bar = GetMessageBar();
  if (bar == nullptr) return 0;
  if (lParam != 0) {
    bar->SetWindowText(reinterpret_cast<LPCTSTR>(lParam));
  } else {
    CString text;
    if (wParam != 0) GetMessageString(static_cast<UINT>(wParam), text);
    bar->SetWindowText(text);
  }
  return 0;
}
