// CWnd: menus of a window.

#include <afxwin.h>

CMenu* CWnd::GetMenu() const { return CMenu::FromHandle(::GetMenu(m_hWnd)); }
BOOL CWnd::SetMenu(CMenu* pMenu) { return ::SetMenu(m_hWnd, _AfxHandle(pMenu)); }

CMenu* CWnd::GetSystemMenu(BOOL bRevert) const {
  return CMenu::FromHandle(::GetSystemMenu(m_hWnd, bRevert));
}

BOOL CWnd::HiliteMenuItem(CMenu* pMenu, UINT nIDHiliteItem, UINT nHilite) {
  return ::HiliteMenuItem(m_hWnd, _AfxHandle(pMenu), nIDHiliteItem, nHilite);
}
