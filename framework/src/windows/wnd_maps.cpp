// CWnd: object and window.

#include <afxwin.h>

#include "windows/thread_state.h"
#include "windows/wnd_access.h"

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

const CWnd CWnd::wndTop(HWND_TOP);
const CWnd CWnd::wndBottom(HWND_BOTTOM);
const CWnd CWnd::wndTopMost(HWND_TOPMOST);
const CWnd CWnd::wndNoTopMost(HWND_NOTOPMOST);

CWnd::CWnd() : CWnd(nullptr) {}

CWnd::CWnd(HWND hWnd)
    : m_hWnd(hWnd),
      m_hWndOwner(nullptr),
      m_nFlags(0),
      m_pfnSuper(nullptr),
      m_nModalResult(-1),
      m_pModalLoop(nullptr) {}

CWnd::~CWnd() {
  if (m_hWnd != nullptr && FromHandlePermanent(m_hWnd) == this) CWnd::DestroyWindow();
  _AfxModalLoop::ObjectEnds(m_pModalLoop);
}

CWnd* PASCAL CWnd::FromHandle(HWND hWnd) {
  if (hWnd == nullptr) return nullptr;
  CWnd* const window = State().windows.FromHandle(hWnd, [] { return new CWnd; });
  window->m_hWnd = hWnd;
  return window;
}

CWnd* PASCAL CWnd::FromHandlePermanent(HWND hWnd) { return State().windows.FindPermanent(hWnd); }

void PASCAL CWnd::DeleteTempMap() { State().windows.DeleteTemporary(); }

BOOL CWnd::Attach(HWND hWndNew) {
  if (hWndNew == nullptr) return FALSE;
  State().windows.SetPermanent(hWndNew, this);
  m_hWnd = hWndNew;
  // The window may come from another object, whose messages are now this one's.
  auto& formerProcedures = State().formerProcedures;
  if (const auto former = formerProcedures.find(hWndNew); former != formerProcedures.end()) {
    *GetSuperWndProcAddr() = former->second;
    formerProcedures.erase(former);
  }
  return TRUE;
}

// A window that the framework has subclassed still has the framework's procedure, which passes its
// messages on to the former one until another object takes it.
HWND CWnd::Detach() {
  const HWND window = m_hWnd;
  if (window == nullptr) return nullptr;
  WNDPROC& former = *GetSuperWndProcAddr();
  if (former != nullptr) {
    State().formerProcedures[window] = former;
    former = nullptr;
  }
  State().windows.Remove(window, this);
  m_hWnd = nullptr;
  return window;
}

BOOL CWnd::DestroyWindow() {
  const HWND window = m_hWnd;
  if (window == nullptr) return FALSE;
  // The object may be gone after this, unless it is still found.
  const BOOL destroyed = ::DestroyWindow(window);
  if (destroyed && FromHandlePermanent(window) == this) Detach();
  return destroyed;
}

BOOL CWnd::SubclassWindow(HWND hWnd) {
  if (!::IsWindow(hWnd) || !Attach(hWnd)) return FALSE;
  PreSubclassWindow();
  ReplaceProcedure(*this);
  return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent) {
  return SubclassWindow(::GetDlgItem(pParent->m_hWnd, static_cast<int>(nID)));
}

HWND CWnd::UnsubclassWindow() {
  RestoreProcedure(*this);
  return Detach();
}

void CWnd::PreSubclassWindow() {}
WNDPROC* CWnd::GetSuperWndProcAddr() { return &m_pfnSuper; }
