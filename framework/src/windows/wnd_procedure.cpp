// The procedure of the framework's windows.

#include <afxwin.h>

#include "windows/handler_exceptions.h"
#include "windows/thread_state.h"
#include "windows/wnd_access.h"

namespace {

// The message that is being handled, for as long as it is.
class MessageScope {
 public:
  MessageScope(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
      : m_state(State()), m_before(m_state.message) {
    m_state.message = {window, message, wParam, lParam, 0, {0, 0}};
  }
  ~MessageScope() { m_state.message = m_before; }
  MessageScope(const MessageScope&) = delete;
  MessageScope& operator=(const MessageScope&) = delete;

  const MSG& Message() const { return m_state.message; }

 private:
  ThreadState& m_state;
  MSG m_before;
};

// A dialog that its OnInitDialog has neither moved nor shown is centred.
class InitialPlace {
 public:
  explicit InitialPlace(HWND dialog) : m_dialog(dialog) { GetWindowRect(dialog, &m_rect); }

  void Centre() const {
    CWnd* const dialog = CWnd::FromHandlePermanent(m_dialog);
    if (dialog == nullptr || (dialog->GetStyle() & (WS_VISIBLE | WS_CHILD)) != 0) return;
    CRect now;
    dialog->GetWindowRect(now);
    if (now == m_rect && dialog->CheckAutoCenter()) dialog->CenterWindow();
  }

 private:
  HWND m_dialog;
  CRect m_rect;
};

LRESULT call(CWnd& window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_INITDIALOG) return _AfxWndAccess::WindowProc(window, message, wParam, lParam);
  const InitialPlace place(window.m_hWnd);
  const LRESULT result = _AfxWndAccess::WindowProc(window, message, wParam, lParam);
  place.Centre();
  return result;
}

// The object of a window that the framework has subclassed is gone: the window goes on without.
LRESULT callFormer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto& formerProcedures = State().formerProcedures;
  const auto found = formerProcedures.find(window);
  if (found == formerProcedures.end()) return ::DefWindowProc(window, message, wParam, lParam);
  const WNDPROC former = found->second;
  if (message == WM_NCDESTROY) formerProcedures.erase(found);
  return ::CallWindowProc(former, window, message, wParam, lParam);
}

}  // namespace

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam) {
  CWnd* const window = CWnd::FromHandlePermanent(hWnd);
  if (window == nullptr) return callFormer(hWnd, nMsg, wParam, lParam);
  const MessageScope scope(hWnd, nMsg, wParam, lParam);
  try {
    return call(*window, nMsg, wParam, lParam);
  } catch (...) {
    // No exception may pass the system's frames.
    return ResultOfException(scope.Message());
  }
}

WNDPROC AFXAPI AfxGetAfxWndProc() { return &AfxWndProc; }

const MSG* PASCAL CWnd::GetCurrentMessage() { return &State().message; }

LRESULT CWnd::Default() {
  const MSG& message = State().message;
  return DefWindowProc(message.message, message.wParam, message.lParam);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  LRESULT result = 0;
  if (OnWndMsg(message, wParam, lParam, &result)) return result;
  return DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (const WNDPROC former = *GetSuperWndProcAddr())
    return ::CallWindowProc(former, m_hWnd, message, wParam, lParam);
  return ::DefWindowProc(m_hWnd, message, wParam, lParam);
}
