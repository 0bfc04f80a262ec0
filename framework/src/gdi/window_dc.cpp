// Contexts for windows.

#include <afxwin.h>

IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)
IMPLEMENT_DYNAMIC(CPaintDC, CDC)

namespace {

HWND handleOf(const CWnd* wnd) { return wnd != nullptr ? wnd->m_hWnd : nullptr; }

}  // namespace

CWnd* CDC::GetWindow() const { return CWnd::FromHandle(::WindowFromDC(m_hDC)); }

int CDC::ExcludeUpdateRgn(CWnd* pWnd) { return ::ExcludeUpdateRgn(m_hDC, *pWnd); }

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(handleOf(pWnd)) {
  if (!Attach(::GetDC(m_hWnd))) AfxThrowResourceException();
}

CClientDC::~CClientDC() { ::ReleaseDC(m_hWnd, Detach()); }

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(handleOf(pWnd)) {
  if (!Attach(::GetWindowDC(m_hWnd))) AfxThrowResourceException();
}

CWindowDC::~CWindowDC() { ::ReleaseDC(m_hWnd, Detach()); }

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(handleOf(pWnd)) {
  if (!Attach(::BeginPaint(m_hWnd, &m_ps))) AfxThrowResourceException();
}

CPaintDC::~CPaintDC() {
  ::EndPaint(m_hWnd, &m_ps);
  Detach();
}
