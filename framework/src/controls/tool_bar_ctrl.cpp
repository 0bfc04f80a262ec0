#include <afxcmn.h>

#include "controls/common_classes.h"

IMPLEMENT_DYNAMIC(CToolBarCtrl, CWnd)

BOOL CToolBarCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  RegisterCommonControls();
  if (!CWnd::Create(TOOLBARCLASSNAME, nullptr, dwStyle, rect, pParentWnd, nID)) return FALSE;
  SetButtonStructSize(sizeof(TBBUTTON));
  return TRUE;
}

// The control takes several texts, so one needs two nulls.
int CToolBarCtrl::AddString(UINT nStringID) {
  CString string;
  if (!string.LoadString(nStringID)) return -1;
  string += '\0';
  return AddStrings(string);
}

int CToolBarCtrl::AddBitmap(int nNumButtons, UINT nBitmapID) {
  const HINSTANCE module = AfxFindResourceHandle(MAKEINTRESOURCE(nBitmapID), RT_BITMAP);
  TBADDBITMAP bitmap = {module, nBitmapID};
  return _AfxSend(this, TB_ADDBITMAP, nNumButtons, &bitmap);
}

int CToolBarCtrl::AddBitmap(int nNumButtons, CBitmap* pBitmap) {
  TBADDBITMAP bitmap = {nullptr, reinterpret_cast<UINT_PTR>(_AfxHandle(pBitmap))};
  return _AfxSend(this, TB_ADDBITMAP, nNumButtons, &bitmap);
}

CToolTipCtrl* CToolBarCtrl::GetToolTips() const {
  return static_cast<CToolTipCtrl*>(CWnd::FromHandle(_AfxAsk<HWND>(this, TB_GETTOOLTIPS)));
}

void CToolBarCtrl::SetToolTips(CToolTipCtrl* pTip) { _AfxSend(this, TB_SETTOOLTIPS, pTip->m_hWnd); }
