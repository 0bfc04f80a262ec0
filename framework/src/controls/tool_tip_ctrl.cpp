#include <afxcmn.h>

#include "controls/common_classes.h"

IMPLEMENT_DYNAMIC(CToolTipCtrl, CWnd)

namespace {

constexpr int kLongestText = 1024;

// How a tool is named: a whole window by its handle, a part of one by the window and the part's id.
TOOLINFO toolOf(const CWnd* wnd, UINT_PTR id) {
  TOOLINFO tool = {};
  tool.cbSize = TTTOOLINFO_V1_SIZE;
  if (id != 0) {
    tool.hwnd = wnd->m_hWnd;
    tool.uId = id;
  } else {
    const HWND parent = ::GetParent(wnd->m_hWnd);
    tool.hwnd = parent != nullptr ? parent : wnd->m_hWnd;
    tool.uFlags = TTF_IDISHWND;
    tool.uId = reinterpret_cast<UINT_PTR>(wnd->m_hWnd);
  }
  return tool;
}

}  // namespace

BOOL CToolTipCtrl::Create(CWnd* pParentWnd, DWORD dwStyle) {
  RegisterCommonControls();
  return CreateEx(0, TOOLTIPS_CLASS, nullptr, WS_POPUP | dwStyle, CW_USEDEFAULT, CW_USEDEFAULT,
                  CW_USEDEFAULT, CW_USEDEFAULT,
                  pParentWnd != nullptr ? pParentWnd->m_hWnd : nullptr, nullptr);
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, UINT nIDText, LPCRECT lpRectTool, UINT_PTR nIDTool) {
  CString text;
  return text.LoadString(nIDText) && AddTool(pWnd, text, lpRectTool, nIDTool);
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCTSTR lpszText, LPCRECT lpRectTool, UINT_PTR nIDTool) {
  TOOLINFO tool = toolOf(pWnd, nIDTool);
  if (lpRectTool != nullptr) tool.rect = *lpRectTool;
  tool.lpszText = const_cast<LPTSTR>(lpszText);
  return _AfxSend(this, TTM_ADDTOOL, 0, &tool);
}

void CToolTipCtrl::DelTool(CWnd* pWnd, UINT_PTR nIDTool) {
  TOOLINFO tool = toolOf(pWnd, nIDTool);
  _AfxSend(this, TTM_DELTOOL, 0, &tool);
}

void CToolTipCtrl::GetText(CString& str, CWnd* pWnd, UINT_PTR nIDTool) const {
  TOOLINFO tool = toolOf(pWnd, nIDTool);
  tool.lpszText = str.GetBuffer(kLongestText);
  tool.lpszText[0] = '\0';
  _AfxSend(this, TTM_GETTEXT, kLongestText, &tool);
  str.ReleaseBuffer();
}

void CToolTipCtrl::UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool) {
  TOOLINFO tool = toolOf(pWnd, nIDTool);
  tool.lpszText = const_cast<LPTSTR>(lpszText);
  _AfxSend(this, TTM_UPDATETIPTEXT, 0, &tool);
}

void CToolTipCtrl::UpdateTipText(UINT nIDText, CWnd* pWnd, UINT_PTR nIDTool) {
  CString text;
  if (text.LoadString(nIDText)) UpdateTipText(text, pWnd, nIDTool);
}

BOOL CToolTipCtrl::GetToolInfo(TOOLINFO& ToolInfo, CWnd* pWnd, UINT_PTR nIDTool) const {
  const LPTSTR buffer = ToolInfo.lpszText;
  ToolInfo = toolOf(pWnd, nIDTool);
  ToolInfo.lpszText = buffer;
  return _AfxSend(this, TTM_GETTOOLINFO, 0, &ToolInfo);
}

void CToolTipCtrl::SetToolRect(CWnd* pWnd, UINT_PTR nIDTool, LPCRECT lpRect) {
  TOOLINFO tool = toolOf(pWnd, nIDTool);
  tool.rect = *lpRect;
  _AfxSend(this, TTM_NEWTOOLRECT, 0, &tool);
}

BOOL CToolTipCtrl::HitTest(CWnd* pWnd, CPoint pt, LPTOOLINFO lpToolInfo) const {
  TTHITTESTINFO hit = {};
  hit.hwnd = pWnd->m_hWnd;
  hit.pt = pt;
  hit.ti.cbSize = TTTOOLINFO_V1_SIZE;
  if (!_AfxSend(this, TTM_HITTEST, 0, &hit)) return FALSE;
  *lpToolInfo = hit.ti;
  return TRUE;
}

CSize CToolTipCtrl::GetBubbleSize(LPTOOLINFO lpToolInfo) const {
  const DWORD size = _AfxSend(this, TTM_GETBUBBLESIZE, 0, lpToolInfo);
  return CSize(LOWORD(size), HIWORD(size));
}
