// Starting and ending threads.

#include <afxwin.h>

#include <process.h>

#include <memory>
#include <utility>

#include "threads/thread_access.h"
#include "windows/thread_state.h"

namespace {

// Signalled once, for one waiting thread.
class Event {
 public:
  Event() : m_handle(::CreateEvent(nullptr, FALSE, FALSE, nullptr)) {}
  Event(Event&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
  ~Event() {
    if (m_handle != nullptr) ::CloseHandle(m_handle);
  }
  Event& operator=(Event&&) = delete;
  HANDLE Get() const { return m_handle; }

 private:
  HANDLE m_handle;
};

// What a new thread is told. It stands on the stack of the thread that starts it, which waits until
// the new one is ready.
struct Start {
  CWinThread* thread;
  HWND mainWindow;  // of the thread that starts it
  Event ready;      // the new thread has made what it needs
  Event go;         // it may run: its own, since it may do so long after its start
};

HWND mainWindowHandle() {
  const CWnd* const window = AfxGetMainWnd();
  return window != nullptr ? window->m_hWnd : nullptr;
}

// The starting thread's main window is the new one's, too, until it has one of its own: it owns the
// thread's message boxes. False: memory is short.
bool prepare(CWinThread& thread, CWnd& mainWindow, HWND handle) {
  try {
    ThreadState& state = State();
    if (thread.m_pMainWnd == nullptr && mainWindow.Attach(handle)) thread.m_pMainWnd = &mainWindow;
    state.thread = &thread;
    return true;
  } catch (...) {
    return false;  // no exception may pass the system's frames
  }
}

UINT __stdcall threadMain(void* parameter) {
  Start& start = *static_cast<Start*>(parameter);
  CWinThread& thread = *start.thread;
  CWnd mainWindow;
  if (!prepare(thread, mainWindow, start.mainWindow)) return 0;
  {
    const Event go(std::move(start.go));
    ::SetEvent(start.ready.Get());
    ::WaitForSingleObject(go.Get(), INFINITE);
  }
  const UINT exitCode = _AfxThreadAccess::Run(thread);
  if (thread.m_pMainWnd == &mainWindow) thread.m_pMainWnd = nullptr;
  mainWindow.Detach();
  AfxEndThread(exitCode);
  return exitCode;
}

}  // namespace

BOOL CWinThread::CreateThread(DWORD dwCreateFlags, UINT nStackSize,
                              LPSECURITY_ATTRIBUTES lpSecurityAttrs) {
  Start start = {this, mainWindowHandle(), {}, {}};
  const HANDLE go = start.go.Get();
  if (start.ready.Get() == nullptr || go == nullptr) return FALSE;
  UINT id = 0;
  // The object must be whole before the thread, which may delete it, runs.
  m_hThread = reinterpret_cast<HANDLE>(_beginthreadex(
      lpSecurityAttrs, nStackSize, &threadMain, &start, dwCreateFlags | CREATE_SUSPENDED, &id));
  if (m_hThread == nullptr) return FALSE;
  m_nThreadID = id;
  ResumeThread();
  const HANDLE readyOrEnded[] = {start.ready.Get(), m_hThread};
  if (::WaitForMultipleObjects(2, readyOrEnded, FALSE, INFINITE) != WAIT_OBJECT_0) {
    ::CloseHandle(std::exchange(m_hThread, nullptr));
    m_nThreadID = 0;
    return FALSE;
  }
  if ((dwCreateFlags & CREATE_SUSPENDED) != 0) SuspendThread();
  ::SetEvent(go);
  return TRUE;
}

static CWinThread* begin(CWinThread* thread, int nPriority, UINT nStackSize, DWORD dwCreateFlags,
                         LPSECURITY_ATTRIBUTES lpSecurityAttrs) {
  constexpr auto end = [](CWinThread* failed) { _AfxThreadAccess::Delete(*failed); };
  std::unique_ptr<CWinThread, decltype(end)> started(thread, end);
  if (!thread->CreateThread(dwCreateFlags | CREATE_SUSPENDED, nStackSize, lpSecurityAttrs))
    return nullptr;
  thread->SetThreadPriority(nPriority);
  if ((dwCreateFlags & CREATE_SUSPENDED) == 0) thread->ResumeThread();
  return started.release();
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
