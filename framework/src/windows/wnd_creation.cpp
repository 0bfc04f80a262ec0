// Creating windows: a hook attaches the object before the window's first message.

#include <afxwin.h>

#include <utility>

#include "windows/thread_state.h"
#include "windows/window_class.h"
#include "windows/wnd_access.h"

namespace {

// The system makes windows of its own for input methods, at any time.
bool isInputMethod(HWND window) {
  char name[16] = "";
  GetClassName(window, name, sizeof name);
  return lstrcmpi(name, "IME") == 0 || lstrcmpi(name, "MSCTFIME UI") == 0;
}

LRESULT CALLBACK creationHook(int code, WPARAM wParam, LPARAM lParam) {
  ThreadState& state = State();
  const HWND created = reinterpret_cast<HWND>(wParam);
  if (code == HCBT_CREATEWND && state.creating != nullptr && !isInputMethod(created)) {
    CWnd& window = *std::exchange(state.creating, nullptr);
    try {
      window.Attach(created);
      _AfxWndAccess::PreSubclass(window);
      ReplaceProcedure(window);
    } catch (...) {
      window.Detach();
      state.creating = &window;
      return 1;  // the window is not created
    }
  }
  return CallNextHookEx(state.creationHook, code, wParam, lParam);
}

}  // namespace

bool HookCreation(CWnd& window) {
  ThreadState& state = State();
  state.creating = &window;
  if (state.creationHook == nullptr)
    state.creationHook = SetWindowsHookEx(WH_CBT, creationHook, nullptr, GetCurrentThreadId());
  return state.creationHook != nullptr;
}

bool UnhookCreation() {
  ThreadState& state = State();
  if (state.creationHook != nullptr) UnhookWindowsHookEx(state.creationHook);
  state.creationHook = nullptr;
  const bool created = state.creating == nullptr;
  state.creating = nullptr;
  return created;
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                    int x, int y, int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu,
                    LPVOID lpParam) {
  CREATESTRUCT cs;
  cs.dwExStyle = dwExStyle;
  cs.lpszClass = lpszClassName;
  cs.lpszName = lpszWindowName;
  cs.style = static_cast<LONG>(dwStyle);
  cs.x = x;
  cs.y = y;
  cs.cx = nWidth;
  cs.cy = nHeight;
  cs.hwndParent = hWndParent;
  cs.hMenu = nIDorHMenu;
  cs.hInstance = AfxGetInstanceHandle();
  cs.lpCreateParams = lpParam;
  if (!PreCreateWindow(cs) || !HookCreation(*this)) {
    UnhookCreation();
    PostNcDestroy();
    return FALSE;
  }
  const HWND window = ::CreateWindowEx(cs.dwExStyle, cs.lpszClass, cs.lpszName,
                                       static_cast<DWORD>(cs.style), cs.x, cs.y, cs.cx, cs.cy,
                                       cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams);
  // When the window came and went, the object may have deleted itself.
  if (!UnhookCreation()) PostNcDestroy();
  return window != nullptr;
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                    const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam) {
  const CRect place(rect);
  return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, place.left, place.top,
                  place.Width(), place.Height(),
                  pParentWnd != nullptr ? pParentWnd->m_hWnd : nullptr,
                  reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), lpParam);
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID, CCreateContext* pContext) {
  return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID,
                  pContext);
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& cs) {
  if (cs.lpszClass == nullptr) cs.lpszClass = ChildWindowClass();
  return cs.lpszClass != nullptr;
}

void CWnd::PostNcDestroy() {}
