// Threads of the framework: their ends, their objects, and windows in more than one of them.
#include <afxwin.h>

#include <atomic>

#include "windows/BoxAnswer.h"
#include "windows/Steps.h"

namespace {

class Threads : public WindowTest {};

// A thread that the test waits for and asks about.
class Started {
 public:
  template <class... How>
  explicit Started(How... how) : m_thread(AfxBeginThread(how..., 0, 0, CREATE_SUSPENDED)) {
    m_thread->m_bAutoDelete = FALSE;
  }
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

UINT AFX_CDECL returnIt(LPVOID parameter) { return *static_cast<UINT*>(parameter); }

UINT AFX_CDECL endEarly(LPVOID parameter) {
  AfxEndThread(*static_cast<UINT*>(parameter) + 1, TRUE);
  return 0;
}

UINT AFX_CDECL knowItself(LPVOID) {
  const CWinThread* const self = AfxGetThread();
  return self != nullptr && self->m_nThreadID == GetCurrentThreadId() ? 1 : 0;
}

}  // namespace

TEST_F(Threads, ExitCodes) {
  UINT value = 40;
  EXPECT_EQ(Started(&returnIt, &value).ExitCode(), 40u);
  EXPECT_EQ(Started(&endEarly, &value).ExitCode(), 41u);
  EXPECT_EQ(Started(&knowItself, &value).ExitCode(), 1u);
}

namespace {

// A thread with windows of its own.
class WindowThread : public CWinThread {
  DECLARE_DYNCREATE(WindowThread)
 public:
  static constexpr UINT kAdd = WM_APP + 1;
  static inline const UINT kRegisteredAdd = RegisterWindowMessage("orvane thread add");
  static inline std::atomic<int> alive;
  static inline HANDLE ended;
  static inline bool starts;

  WindowThread() { ++alive; }
  ~WindowThread() override {
    --alive;
    if (ended != nullptr) ::SetEvent(ended);
  }
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
ON_REGISTERED_THREAD_MESSAGE(kRegisteredAdd, &WindowThread::OnAdd)
END_MESSAGE_MAP()

}  // namespace

TEST_F(Threads, ThreadWithWindowsRunsUntilItsMainWindowGoes) {
  WindowThread::starts = true;
  Started thread(RUNTIME_CLASS(WindowThread));
  thread->ResumeThread();
  // There is no queue before the thread has made one.
  while (!thread->PostThreadMessage(WindowThread::kAdd, 1, 2)) ::SwitchToThread();
  thread->PostThreadMessage(WindowThread::kRegisteredAdd, 3, 4);
  thread->PostThreadMessage(WindowThread::kAdd, 5, 0);
  EXPECT_EQ(thread.ExitCode(), 115u);
}

TEST_F(Threads, InitInstanceMayRefuse) {
  WindowThread::starts = false;
  EXPECT_EQ(Started(RUNTIME_CLASS(WindowThread)).ExitCode(), 100u);
}

TEST_F(Threads, ObjectsDeleteThemselves) {
  WindowThread::starts = false;
  WindowThread::ended = ::CreateEvent(nullptr, FALSE, FALSE, nullptr);
  AfxBeginThread(RUNTIME_CLASS(WindowThread));
  EXPECT_EQ(::WaitForSingleObject(WindowThread::ended, 10000), DWORD(WAIT_OBJECT_0));
  EXPECT_EQ(WindowThread::alive, 0);
  ::CloseHandle(std::exchange(WindowThread::ended, nullptr));
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
  HWND owner = nullptr;
  HWND main = nullptr;
  CWinThread* thread = nullptr;
  DWORD answer = 0;
  class Waiting : public CWnd {
   public:
    HANDLE thread = nullptr;
    BOOL ContinueModal() override { return ::WaitForSingleObject(thread, 0) == WAIT_TIMEOUT; }
  } waiting;
  dialog.Then([&] {
    app.m_pMainWnd = &dialog;
    main = dialog.m_hWnd;
    waiting.CreateEx(0, nullptr, "", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0);
    thread = AfxBeginThread(&askTheUser, &owner, 0, 0, CREATE_SUSPENDED);
    thread->m_bAutoDelete = FALSE;
    waiting.thread = thread->m_hThread;
    waiting.SetTimer(1, 10);
    thread->ResumeThread();
    waiting.RunModalLoop(MLF_NOKICKIDLE);
    ::GetExitCodeThread(thread->m_hThread, &answer);
    delete thread;
    waiting.DestroyWindow();
    EXPECT_TRUE(dialog.IsWindowEnabled());
    app.m_pMainWnd = nullptr;
  });
  dialog.DoModal();
  EXPECT_EQ(answer, DWORD(IDYES));
  EXPECT_EQ(owner, main);
}

namespace {

// A worker that asks the user with a dialog of its own while the user's thread waits for it.
class Worker {
 public:
  explicit Worker(CDialog& waiting) : m_waiting(waiting), m_userThread(GetCurrentThreadId()) {
    m_thread = AfxBeginThread(&Work, this, 0, 0, CREATE_SUSPENDED);
    m_thread->m_bAutoDelete = FALSE;
    m_thread->ResumeThread();
  }
  ~Worker() {
    ::WaitForSingleObject(m_thread->m_hThread, INFINITE);
    delete m_thread;
  }

  std::atomic<bool> done = false;
  int answer = 0;
  bool ownerWasDisabled = false;

 private:
  static UINT AFX_CDECL Work(LPVOID self) { return static_cast<Worker*>(self)->Ask(); }

  UINT Ask() {
    ::AttachThreadInput(m_userThread, GetCurrentThreadId(), TRUE);
    m_waiting.ShowWindow(SW_HIDE);
    {
      StepDialog question(DialogTemplate("Question").Button("OK", IDOK));
      question.Then([&] {
        ownerWasDisabled = !::IsWindowEnabled(::GetWindow(question.m_hWnd, GW_OWNER));
        question.PostClick(IDOK);
      });
      answer = static_cast<int>(question.DoModal());
    }
    m_waiting.ShowWindow(SW_SHOW);
    done = true;
    DeleteTemporaryObjects();
    m_waiting.PostMessage(WM_NULL);
    return 0;
  }

  CDialog& m_waiting;
  DWORD m_userThread;
  CWinThread* m_thread;
};

class WaitingDialog : public CDialog {
 public:
  const std::atomic<bool>* done = nullptr;
  BOOL ContinueModal() override { return !*done; }
};

}  // namespace

TEST_F(Threads, WorkersDialogWhileTheUsersThreadWaits) {
  CWinApp app("threads");
  StepDialog main(DialogTemplate("Main").Button("B", 7));
  main.Then([&] {
    app.m_pMainWnd = &main;
    WaitingDialog waiting;
    waiting.CreateIndirect(DialogTemplate("Waiting").Button("Stop", IDCANCEL), &main);
    main.EnableWindow(FALSE);
    {
      Worker worker(waiting);
      waiting.done = &worker.done;
      waiting.RunModalLoop(MLF_SHOWONIDLE);
      EXPECT_EQ(worker.answer, IDOK);
      EXPECT_TRUE(worker.ownerWasDisabled);
    }
    main.EnableWindow(TRUE);
    waiting.DestroyWindow();
    app.m_pMainWnd = nullptr;
  });
  EXPECT_EQ(main.DoModal(), StepDialog::kStepsDone);
}
