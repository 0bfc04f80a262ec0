// CWnd: modal loops.

#include <afxpriv.h>

#include "threads/message_pump.h"
#include "threads/temporary_objects.h"
#include "windows/wnd_access.h"

constexpr UINT kLoopFlags = WF_MODALLOOP | WF_CONTINUEMODAL;

_AfxModalLoop::_AfxModalLoop(CWnd& window)
    : object(&window), outer(window.m_pModalLoop), flagsBefore(window.m_nFlags & kLoopFlags) {
  window.m_pModalLoop = this;
}

_AfxModalLoop::~_AfxModalLoop() {
  if (object == nullptr) return;
  object->m_pModalLoop = outer;
  object->m_nFlags = (object->m_nFlags & ~kLoopFlags) | flagsBefore;
}

void _AfxModalLoop::WindowEnds(_AfxModalLoop* innermost) {
  for (auto loop = innermost; loop != nullptr; loop = loop->outer) loop->hasWindow = false;
}

void _AfxModalLoop::ObjectEnds(_AfxModalLoop* innermost) {
  WindowEnds(innermost);
  for (auto loop = innermost; loop != nullptr; loop = loop->outer) loop->object = nullptr;
}

namespace {

// What a modal loop does while no message waits.
class ModalIdle {
 public:
  ModalIdle(const _AfxModalLoop& loop, DWORD flags)
      : m_loop(loop),
        m_window(loop.object->m_hWnd),
        m_parent(GetParent(m_window)),
        m_flags(flags),
        m_hidden((flags & MLF_SHOWONIDLE) != 0 && !IsWindowVisible(m_window)) {}

  void Show() {
    if (!m_hidden) return;
    m_hidden = false;
    ShowWindow(m_window, SW_SHOWNORMAL);
    UpdateWindow(m_window);
  }

  // False: there is nothing to do before the next message.
  bool Work() {
    Show();
    if (m_count == 0 && (m_flags & MLF_NOIDLEMSG) == 0 && m_parent != nullptr)
      SendMessage(m_parent, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_window));
    if (!m_loop.hasWindow || (m_flags & MLF_NOKICKIDLE) != 0) return false;
    return SendMessage(m_window, WM_KICKIDLE, MSGF_DIALOGBOX, m_count++) != 0;
  }

  void AfterMessage(const MSG& message) {
    // The system is about to show something of its own, or the user works already.
    if (message.message == kSystemTimer || message.message == WM_SYSKEYDOWN) Show();
  }

  void Restart() { m_count = 0; }

 private:
  static constexpr UINT kSystemTimer = 0x0118;

  const _AfxModalLoop& m_loop;
  HWND m_window;
  HWND m_parent;
  DWORD m_flags;
  bool m_hidden;
  LONG m_count = 0;
};

}  // namespace

int CWnd::RunModalLoop(DWORD dwFlags) {
  _AfxModalLoop loop(*this);
  ModalIdle idle(loop, dwFlags);
  const auto goesOn = [&] { return loop.hasWindow && ContinueModal(); };
  const unsigned mark = TemporaryMark();
  bool idling = true;
  bool quit = false;
  m_nFlags |= kLoopFlags;
  while (!quit && goesOn()) {
    while (idling && loop.hasWindow && !IsMessageWaiting()) idling = idle.Work();
    DeleteTemporaryObjects(mark);
    if (!goesOn()) break;
    do {
      MSG message;
      if (!PumpMessage(&message)) {
        AfxPostQuitMessage(static_cast<int>(message.wParam));
        quit = true;
        break;
      }
      if (!loop.hasWindow) break;
      idle.AfterMessage(message);
      if (IsIdleMessage(message)) {
        idling = true;
        idle.Restart();
      }
    } while (goesOn() && IsMessageWaiting());
  }
  return quit || !loop.hasWindow ? -1 : m_nModalResult;
}

BOOL CWnd::ContinueModal() { return (m_nFlags & WF_CONTINUEMODAL) != 0; }

void CWnd::EndModalLoop(int nResult) {
  m_nModalResult = nResult;
  if ((m_nFlags & WF_CONTINUEMODAL) == 0) return;
  m_nFlags &= ~WF_CONTINUEMODAL;
  PostMessage(WM_NULL);  // the loop may be waiting
}
