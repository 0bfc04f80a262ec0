// Threads of the framework: their ends, their objects, and windows in more than one of them.
#include <afxwin.h>

#include <atomic>

#include "support/Allocations.h"
#include "windows/BoxAnswer.h"
#include "windows/Steps.h"

namespace {

class Threads : public WindowTest {};

// A thread that the test waits for and asks about.
class Started {
 public:
  template <class... How>
  explicit Started(How... how) : Started(AfxBeginThread(how..., 0, 0, CREATE_SUSPENDED)) {}
  explicit Started(CWinThread* suspended) : m_thread(suspended) { m_thread->m_bAutoDelete = FALSE; }
  ~Started() { delete m_thread; }
  CWinThread* operator->() const { return m_thread; }
  DWORD ExitCode() {
    m_thread->ResumeThread();
    ::WaitForSingleObject(m_thread->m_hThread, INFINITE);
    DWORD code = 0;
    ::GetExitCodeThread(m_thread->m_hThread, &code);
    return code;
  }

 private:
  CWinThread* m_thread;
};

// 40 more when the thread knows its object.
UINT AFX_CDECL work(LPVOID endsEarly) {
  const UINT known = AfxGetThread()->m_nThreadID == GetCurrentThreadId() ? 40 : 0;
  if (*static_cast<bool*>(endsEarly)) AfxEndThread(known + 1, TRUE);
  return known;
}

}  // namespace

TEST_F(Threads, ExitCodes) {
  for (bool endsEarly : {false, true}) {
    EXPECT_EQ(Started(&work, &endsEarly).ExitCode(), endsEarly ? 41u : 40u);
  }
}

// What a thread needs for itself is there before anybody is told that it has started.
TEST_F(Threads, WithoutMemoryOneIsNotStarted) {
  CWinApp app("threads");
  CWnd window;
  window.CreateEx(0, nullptr, "Main", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0);
  app.m_pMainWnd = &window;  // each thread remembers it
  bool endsEarly = false;
  for (unsigned n = 1, happened = 1; happened; ++n) {
    CWinThread* thread = nullptr;
    {
      allocations::FailNth failure(n);
      try {
        thread = AfxBeginThread(&work, &endsEarly, 0, 0, CREATE_SUSPENDED);
      } catch (CMemoryException* e) {
        e->Delete();
      }
      happened = failure.Happened();
    }
    ASSERT_EQ(thread == nullptr, happened) << n;
    if (thread == nullptr) continue;
    EXPECT_GT(n, 2u) << "the thread's own memory has not been asked for";
    EXPECT_EQ(Started(thread).ExitCode(), 40u);
  }
  app.m_pMainWnd = nullptr;
}

namespace {

// A thread with windows of its own.
class WindowThread : public CWinThread {
  DECLARE_DYNCREATE(WindowThread)
 public:
  static constexpr UINT kAdd = WM_APP + 1;
  static inline std::atomic<int> alive;
  static inline bool starts;

  WindowThread() { ++alive; }
  ~WindowThread() override { --alive; }
  BOOL InitInstance() override {
    m_window.CreateEx(0, nullptr, "in thread", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0);
    m_pMainWnd = &m_window;
    // Nobody else finds the object of another thread's window.
    m_sum += CWnd::FromHandlePermanent(m_window.m_hWnd) == &m_window ? 100 : 0;
    return starts;
  }
  int ExitInstance() override {
    if (m_window.m_hWnd != nullptr) m_window.DestroyWindow();
    return m_sum;
  }

 protected:
  afx_msg void OnAdd(WPARAM wParam, LPARAM lParam) {
    m_sum += static_cast<int>(wParam + lParam);
    if (lParam == 0) m_window.DestroyWindow();  // the main window: the thread's loop ends
  }
  DECLARE_MESSAGE_MAP()

 private:
  CWnd m_window;
  int m_sum = 0;
};

IMPLEMENT_DYNCREATE(WindowThread, CWinThread)

BEGIN_MESSAGE_MAP(WindowThread, CWinThread)
ON_THREAD_MESSAGE(kAdd, &WindowThread::OnAdd)
END_MESSAGE_MAP()

}  // namespace

TEST_F(Threads, ThreadWithWindowsRunsUntilItsMainWindowGoes) {
  WindowThread::starts = true;
  Started thread(RUNTIME_CLASS(WindowThread));
  thread->ResumeThread();
  // There is no queue before the thread has made one.
  while (!thread->PostThreadMessage(WindowThread::kAdd, 1, 2)) ::SwitchToThread();
  thread->PostThreadMessage(WindowThread::kAdd, 5, 0);
  EXPECT_EQ(thread.ExitCode(), 108u);
  WindowThread::starts = false;
  EXPECT_EQ(Started(RUNTIME_CLASS(WindowThread)).ExitCode(), 100u);
}

TEST_F(Threads, ObjectsDeleteThemselves) {
  WindowThread::starts = false;
  CWinThread* const thread = AfxBeginThread(RUNTIME_CLASS(WindowThread), 0, 0, CREATE_SUSPENDED);
  EXPECT_EQ(WindowThread::alive, 1);
  thread->ResumeThread();
  while (WindowThread::alive != 0) ::SwitchToThread();
}

namespace {

UINT AFX_CDECL askTheUser(LPVOID parameter) {
  BoxAnswer box(IDYES);
  const int answer = AfxMessageBox("From a thread", MB_YESNO);
  *static_cast<HWND*>(parameter) = box.owner;
  return static_cast<UINT>(answer);
}

}  // namespace

// A worker's box stands in front of the program's window, which meanwhile takes no input but goes
// on with its messages.
TEST_F(Threads, WorkersBoxIsOwnedByTheMainWindow) {
  CWinApp app("threads");
  StepDialog dialog(DialogTemplate("Main").Button("B", 7));
  dialog.Then([&] {
    app.m_pMainWnd = &dialog;
    HWND owner = nullptr;
    Started thread(&askTheUser, &owner);
    thread->ResumeThread();
    while (::MsgWaitForMultipleObjects(1, &thread->m_hThread, FALSE, INFINITE, QS_ALLINPUT) !=
           WAIT_OBJECT_0) {
      MSG message;
      while (::PeekMessage(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessage(&message);
    }
    EXPECT_EQ(thread.ExitCode(), DWORD(IDYES));
    EXPECT_EQ(owner, dialog.m_hWnd);
    EXPECT_TRUE(dialog.IsWindowEnabled());
    app.m_pMainWnd = nullptr;
  });
  dialog.DoModal();
}
