// CWnd: fonts, device contexts and regions of a window.

#include <afxwin.h>

void CWnd::SetFont(CFont* pFont, BOOL bRedraw) {
  ::SendMessage(m_hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(_AfxHandle(pFont)), bRedraw);
}

CFont* CWnd::GetFont() const {
  return CFont::FromHandle(reinterpret_cast<HFONT>(::SendMessage(m_hWnd, WM_GETFONT, 0, 0)));
}

CDC* CWnd::BeginPaint(LPPAINTSTRUCT lpPaint) {
  return CDC::FromHandle(::BeginPaint(m_hWnd, lpPaint));
}

void CWnd::EndPaint(LPPAINTSTRUCT lpPaint) { ::EndPaint(m_hWnd, lpPaint); }

CDC* CWnd::GetDC() { return CDC::FromHandle(::GetDC(m_hWnd)); }
CDC* CWnd::GetWindowDC() { return CDC::FromHandle(::GetWindowDC(m_hWnd)); }

CDC* CWnd::GetDCEx(CRgn* prgnClip, DWORD flags) {
  return CDC::FromHandle(::GetDCEx(m_hWnd, _AfxHandle(prgnClip), flags));
}

int CWnd::ReleaseDC(CDC* pDC) { return ::ReleaseDC(m_hWnd, _AfxHandle(pDC)); }

void CWnd::Print(CDC* pDC, DWORD dwFlags) const {
  ::SendMessage(m_hWnd, WM_PRINT, reinterpret_cast<WPARAM>(_AfxHandle(pDC)), dwFlags);
}

void CWnd::PrintClient(CDC* pDC, DWORD dwFlags) const {
  ::SendMessage(m_hWnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(_AfxHandle(pDC)), dwFlags);
}

int CWnd::GetUpdateRgn(CRgn* pRgn, BOOL bErase) {
  return ::GetUpdateRgn(m_hWnd, _AfxHandle(pRgn), bErase);
}

void CWnd::InvalidateRgn(CRgn* pRgn, BOOL bErase) {
  ::InvalidateRgn(m_hWnd, _AfxHandle(pRgn), bErase);
}

void CWnd::ValidateRgn(CRgn* pRgn) { ::ValidateRgn(m_hWnd, _AfxHandle(pRgn)); }

BOOL CWnd::RedrawWindow(LPCRECT lpRectUpdate, CRgn* prgnUpdate, UINT flags) {
  return ::RedrawWindow(m_hWnd, lpRectUpdate, _AfxHandle(prgnUpdate), flags);
}

int CWnd::ScrollWindowEx(int dx, int dy, LPCRECT lpRectScroll, LPCRECT lpRectClip, CRgn* prgnUpdate,
                         LPRECT lpRectUpdate, UINT flags) {
  return ::ScrollWindowEx(m_hWnd, dx, dy, lpRectScroll, lpRectClip, _AfxHandle(prgnUpdate),
                          lpRectUpdate, flags);
}

void CWnd::CreateCaret(CBitmap* pBitmap) { ::CreateCaret(m_hWnd, _AfxHandle(pBitmap), 0, 0); }
