#include "threads/message_pump.h"

#include "threads/thread_access.h"
#include "windows/thread_state.h"

bool IsMessageWaiting() {
  MSG message;
  return PeekMessage(&message, nullptr, 0, 0, PM_NOREMOVE) != FALSE;
}

bool PumpMessage(MSG* message) {
  if (CWinThread* const thread = AfxGetThread()) {
    const BOOL pumped = thread->PumpMessage();
    *message = _AfxThreadAccess::LastMessage(*thread);
    return pumped;
  }
  if (GetMessage(message, nullptr, 0, 0) <= 0) return false;
  if (PreTranslateByDefault(*message)) return true;
  TranslateMessage(message);
  DispatchMessage(message);
  return true;
}

bool IsIdleMessage(MSG& message) {
  CWinThread* const thread = AfxGetThread();
  return thread != nullptr ? thread->IsIdleMessage(&message) : IsIdleMessageByDefault(message);
}

// Mouse messages come again and again while the mouse rests; painting and blinking change nothing
// that idle work is about.
bool IsIdleMessageByDefault(const MSG& message) {
  constexpr UINT kSystemTimer = 0x0118;
  if (message.message == WM_PAINT || message.message == kSystemTimer) return false;
  if (message.message != WM_MOUSEMOVE && message.message != WM_NCMOUSEMOVE) return true;
  ThreadState& state = State();
  if (message.message == state.lastMouseMessage && message.pt.x == state.lastMouse.x &&
      message.pt.y == state.lastMouse.y)
    return false;
  state.lastMouse = message.pt;
  state.lastMouseMessage = message.message;
  return true;
}

bool PreTranslateByDefault(MSG& message) {
  CWnd* const mainWindow = AfxGetMainWnd();
  const HWND stop = mainWindow != nullptr ? mainWindow->m_hWnd : nullptr;
  if (CWnd::WalkPreTranslateTree(stop, &message)) return true;
  // The main window's keys work in other windows at the top, too.
  if (mainWindow == nullptr || message.hwnd == nullptr) return false;
  HWND top = message.hwnd;
  while (const HWND further = GetParent(top)) top = further;
  return top != stop && mainWindow->PreTranslateMessage(&message);
}
