// CWinThread: its message loop.

#include <afxwin.h>
#include <afxpriv.h>

#include <algorithm>

#include "threads/message_pump.h"
#include "threads/temporary_objects.h"
#include "windows/handler_exceptions.h"
#include "windows/message_map.h"
#include "windows/thread_state.h"

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)

CWinThread::CWinThread() : CWinThread(nullptr, nullptr) {}

CWinThread::CWinThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam)
    : m_pMainWnd(nullptr),
      m_bAutoDelete(TRUE),
      m_hThread(nullptr),
      m_nThreadID(0),
      m_msgCur(),
      m_pThreadParams(pParam),
      m_pfnThreadProc(pfnThreadProc) {}

CWinThread::~CWinThread() {
  if (m_hThread != nullptr) CloseHandle(m_hThread);
  if (State().thread == this) State().thread = nullptr;
}

void CWinThread::Delete() {
  if (m_bAutoDelete) delete this;
}

BOOL CWinThread::InitInstance() { return FALSE; }

// A program whose InitInstance shows a dialog and is done has had other messages.
int CWinThread::ExitInstance() {
  return m_msgCur.message == WM_QUIT ? static_cast<int>(m_msgCur.wParam) : 0;
}

int CWinThread::Run() {
  bool idling = true;
  LONG idleCount = 0;
  for (;;) {
    while (idling && !IsMessageWaiting()) idling = OnIdle(idleCount++);
    do {
      if (!PumpMessage()) return ExitInstance();
      if (IsIdleMessage(&m_msgCur)) {
        idling = true;
        idleCount = 0;
      }
    } while (IsMessageWaiting());
  }
}

BOOL CWinThread::PumpMessage() {
  if (::GetMessage(&m_msgCur, nullptr, 0, 0) <= 0) return FALSE;
  if (m_msgCur.message == WM_KICKIDLE || PreTranslateMessage(&m_msgCur)) return TRUE;
  ::TranslateMessage(&m_msgCur);
  ::DispatchMessage(&m_msgCur);
  return TRUE;
}

BOOL CWinThread::PreTranslateMessage(MSG* pMsg) {
  if (pMsg->hwnd == nullptr && DispatchThreadMessage(pMsg)) return TRUE;
  return PreTranslateByDefault(*pMsg);
}

BOOL CWinThread::DispatchThreadMessage(MSG* pMsg) {
  const AFX_MSGMAP_ENTRY* const entry = FindMessageEntry(GetMessageMap(), pMsg->message);
  if (entry == nullptr) return FALSE;
  (this->*HandlerOf<_AfxSigThread>(*entry))(pMsg->wParam, pMsg->lParam);
  return TRUE;
}

// First the commands in menus and bars are brought up to date, then temporary objects are deleted.
BOOL CWinThread::OnIdle(LONG lCount) {
  if (lCount <= 0) {
    const std::vector<CFrameWnd*> frames = State().frames;
    for (CFrameWnd* const frame : frames) {
      const auto& present = State().frames;
      if (std::find(present.begin(), present.end(), frame) == present.end()) continue;
      if (!frame->IsWindowVisible()) continue;
      frame->SendMessage(WM_IDLEUPDATECMDUI, TRUE);
      frame->SendMessageToDescendants(WM_IDLEUPDATECMDUI, TRUE, 0, TRUE, TRUE);
    }
    return TRUE;
  }
  DeleteTemporaryObjects(0);
  return FALSE;
}

BOOL CWinThread::IsIdleMessage(MSG* pMsg) { return IsIdleMessageByDefault(*pMsg); }

LRESULT CWinThread::ProcessWndProcException(CException* e, const MSG* pMsg) {
  return ReportHandlerException(e, *pMsg);
}

CWnd* CWinThread::GetMainWnd() { return m_pMainWnd; }

CWinThread* AFXAPI AfxGetThread() { return State().thread; }

CWnd* AFXAPI AfxGetMainWnd() {
  CWinThread* const thread = AfxGetThread();
  return thread != nullptr ? thread->GetMainWnd() : nullptr;
}

void AFXAPI AfxPostQuitMessage(int nExitCode) { ::PostQuitMessage(nExitCode); }
