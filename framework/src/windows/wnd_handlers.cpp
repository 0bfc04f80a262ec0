// CWnd: its own message map, and what its handlers do.

#include <afxwin.h>

#include "menus/owner_drawn.h"
#include "windows/thread_state.h"
#include "windows/wnd_access.h"

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_NCDESTROY()
ON_WM_CTLCOLOR()
ON_WM_DRAWITEM()
ON_WM_MEASUREITEM()
ON_WM_DELETEITEM()
ON_WM_COMPAREITEM()
ON_WM_VKEYTOITEM()
ON_WM_CHARTOITEM()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_PARENTNOTIFY()
ON_WM_SYSCOLORCHANGE()
ON_WM_SETTINGCHANGE()
END_MESSAGE_MAP()

void CWnd::OnNcDestroy() {
  _AfxModalLoop::WindowEnds(m_pModalLoop);
  if (CWinThread* const thread = AfxGetThread()) {
    if (thread->m_pMainWnd == this) {
      thread->m_pMainWnd = nullptr;
      AfxPostQuitMessage(0);
    }
  }
  Default();
  RestoreProcedure(*this);
  *GetSuperWndProcAddr() = nullptr;
  Detach();
  PostNcDestroy();
}

HBRUSH CWnd::OnCtlColor(CDC*, CWnd* pWnd, UINT) {
  LRESULT result = 0;
  if (!ReflectLastMsg(pWnd->m_hWnd, &result)) result = Default();
  return reinterpret_cast<HBRUSH>(result);
}

void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT lpDrawItemStruct) {
  const bool drawn = lpDrawItemStruct->CtlType == ODT_MENU
                         ? DrawMenuItem(lpDrawItemStruct)
                         : ReflectLastMsg(lpDrawItemStruct->hwndItem) != FALSE;
  if (!drawn) Default();
}

// The message names the control by its id only.
void CWnd::OnMeasureItem(int, LPMEASUREITEMSTRUCT lpMeasureItemStruct) {
  if (lpMeasureItemStruct->CtlType == ODT_MENU) {
    if (MeasureMenuItem(lpMeasureItemStruct)) return;
  } else {
    CWnd* const child = GetDescendantWindow(static_cast<int>(lpMeasureItemStruct->CtlID), TRUE);
    if (child != nullptr && child->SendChildNotifyLastMsg()) return;
  }
  Default();
}

void CWnd::OnDeleteItem(int, LPDELETEITEMSTRUCT lpDeleteItemStruct) {
  if (!ReflectLastMsg(lpDeleteItemStruct->hwndItem)) Default();
}

int CWnd::OnCompareItem(int, LPCOMPAREITEMSTRUCT lpCompareItemStruct) {
  LRESULT result = 0;
  if (!ReflectLastMsg(lpCompareItemStruct->hwndItem, &result)) result = Default();
  return static_cast<int>(result);
}

// The parameters of these two are those of the message, which says which control it is.
static HWND senderInLParam() { return reinterpret_cast<HWND>(State().message.lParam); }

int CWnd::OnVKeyToItem(UINT, CListBox*, UINT) {
  LRESULT result = 0;
  if (!ReflectLastMsg(senderInLParam(), &result)) result = Default();
  return static_cast<int>(result);
}

int CWnd::OnCharToItem(UINT, CListBox*, UINT) {
  LRESULT result = 0;
  if (!ReflectLastMsg(senderInLParam(), &result)) result = Default();
  return static_cast<int>(result);
}

void CWnd::OnHScroll(UINT, UINT, CScrollBar*) {
  if (!ReflectLastMsg(senderInLParam())) Default();
}

void CWnd::OnVScroll(UINT, UINT, CScrollBar*) {
  if (!ReflectLastMsg(senderInLParam())) Default();
}

void CWnd::OnParentNotify(UINT message, LPARAM lParam) {
  const UINT event = LOWORD(message);
  if ((event == WM_CREATE || event == WM_DESTROY) && ReflectLastMsg(reinterpret_cast<HWND>(lParam)))
    return;
  Default();
}

// Only windows at the top get these two from the system; controls need them as well.
void CWnd::OnSysColorChange() {
  if ((GetStyle() & WS_CHILD) == 0) SendMessageToDescendants(WM_SYSCOLORCHANGE);
  Default();
}

void CWnd::OnSettingChange(UINT, LPCTSTR lpszSection) { CWnd::OnWinIniChange(lpszSection); }

void CWnd::OnWinIniChange(LPCTSTR) {
  const MSG message = State().message;
  if ((GetStyle() & WS_CHILD) == 0)
    SendMessageToDescendants(message.message, message.wParam, message.lParam);
  Default();
}
