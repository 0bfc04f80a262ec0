// Starting and ending threads.

#include <afxwin.h>

#include <process.h>

#include <memory>

#include "threads/thread_access.h"
#include "windows/thread_state.h"

namespace {

// What a new thread is told.
struct Start {
  CWinThread* thread;
  HWND mainWindow;  // of the thread that has started it
};

HWND mainWindowHandle() {
  const CWnd* const window = AfxGetMainWnd();
  return window != nullptr ? window->m_hWnd : nullptr;
}

// The starting thread's main window is the new one's, too, until it has one of its own: it owns the
// thread's message boxes.
UINT __stdcall threadMain(void* parameter) {
  // Freed here, because AfxEndThread may end the thread without coming back.
  const Start start = *std::unique_ptr<Start>(static_cast<Start*>(parameter));
  CWinThread& thread = *start.thread;
  State().thread = &thread;
  CWnd mainWindow;
  if (thread.m_pMainWnd == nullptr && mainWindow.Attach(start.mainWindow))
    thread.m_pMainWnd = &mainWindow;
  const UINT exitCode = _AfxThreadAccess::Run(thread);
  if (thread.m_pMainWnd == &mainWindow) thread.m_pMainWnd = nullptr;
  mainWindow.Detach();
  AfxEndThread(exitCode);
  return exitCode;
}

}  // namespace

BOOL CWinThread::CreateThread(DWORD dwCreateFlags, UINT nStackSize,
                              LPSECURITY_ATTRIBUTES lpSecurityAttrs) {
  auto start = std::make_unique<Start>(Start{this, mainWindowHandle()});
  UINT id = 0;
  // The object must be whole before the thread, which may delete it, runs.
  m_hThread =
      reinterpret_cast<HANDLE>(_beginthreadex(lpSecurityAttrs, nStackSize, &threadMain, start.get(),
                                              dwCreateFlags | CREATE_SUSPENDED, &id));
  if (m_hThread == nullptr) return FALSE;
  start.release();
  m_nThreadID = id;
  if ((dwCreateFlags & CREATE_SUSPENDED) == 0) ResumeThread();
  return TRUE;
}

static CWinThread* begin(CWinThread* thread, int nPriority, UINT nStackSize, DWORD dwCreateFlags,
                         LPSECURITY_ATTRIBUTES lpSecurityAttrs) {
  if (!thread->CreateThread(dwCreateFlags | CREATE_SUSPENDED, nStackSize, lpSecurityAttrs)) {
    _AfxThreadAccess::Delete(*thread);
    return nullptr;
  }
  thread->SetThreadPriority(nPriority);
  if ((dwCreateFlags & CREATE_SUSPENDED) == 0) thread->ResumeThread();
  return thread;
}

CWinThread* AFXAPI AfxBeginThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam, int nPriority,
                                  UINT nStackSize, DWORD dwCreateFlags,
                                  LPSECURITY_ATTRIBUTES lpSecurityAttrs) {
  return begin(new CWinThread(pfnThreadProc, pParam), nPriority, nStackSize, dwCreateFlags,
               lpSecurityAttrs);
}

CWinThread* AFXAPI AfxBeginThread(CRuntimeClass* pThreadClass, int nPriority, UINT nStackSize,
                                  DWORD dwCreateFlags, LPSECURITY_ATTRIBUTES lpSecurityAttrs) {
  CObject* const object = pThreadClass->CreateObject();
  if (object == nullptr) AfxThrowMemoryException();
  return begin(STATIC_DOWNCAST(CWinThread, object), nPriority, nStackSize, dwCreateFlags,
               lpSecurityAttrs);
}

void AFXAPI AfxEndThread(UINT nExitCode, BOOL bDelete) {
  ThreadState& state = State();
  if (CWinThread* const thread = state.thread) {
    state.thread = nullptr;
    if (bDelete) _AfxThreadAccess::Delete(*thread);
  }
  _endthreadex(nExitCode);
}
