// CWinThread: a thread of the program, with or without windows.
#pragma once

#include "afxcmdt_.h"

typedef UINT(AFX_CDECL* AFX_THREADPROC)(LPVOID);

// One object a thread. A thread that AfxBeginThread started is represented by the object that it
// returns, the program's first thread by its application object.
class AFX_CORE_DATA CWinThread : public CCmdTarget {
  DECLARE_DYNAMIC(CWinThread)
 public:
  // For a thread with windows: a derived class overrides InitInstance and is started with
  // CreateThread or AfxBeginThread.
  CWinThread();
  CWinThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam);
  ~CWinThread() override;

  // Returns when the thread is ready to run, so it is not for a DllMain, whose end new threads wait
  // for. FALSE: there was no memory, or the system has refused. nStackSize 0: as the program's
  // first thread.
  BOOL CreateThread(DWORD dwCreateFlags = 0, UINT nStackSize = 0,
                    LPSECURITY_ATTRIBUTES lpSecurityAttrs = nullptr);

  operator HANDLE() const { return m_hThread; }
  int GetThreadPriority() { return ::GetThreadPriority(m_hThread); }
  BOOL SetThreadPriority(int nPriority) { return ::SetThreadPriority(m_hThread, nPriority); }
  DWORD SuspendThread() { return ::SuspendThread(m_hThread); }
  DWORD ResumeThread() { return ::ResumeThread(m_hThread); }
  BOOL PostThreadMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::PostThreadMessage(m_nThreadID, message, wParam, lParam);
  }

  // A thread with windows: FALSE from InitInstance ends it before Run. ExitInstance returns the
  // thread's exit code: what PostQuitMessage was given, 0 when nobody called it.
  virtual BOOL InitInstance();
  virtual int Run();
  virtual int ExitInstance();

  // One message. FALSE: it was WM_QUIT.
  virtual BOOL PumpMessage();
  // Before a message is translated and dispatched: TRUE when it needs no more.
  virtual BOOL PreTranslateMessage(MSG* pMsg);
  // The queue is empty. lCount: how often it was asked since the last message. FALSE: nothing more
  // to do until the next.
  virtual BOOL OnIdle(LONG lCount);
  // FALSE for messages after which idle work would be wasted.
  virtual BOOL IsIdleMessage(MSG* pMsg);
  // A handler has let an exception out. Tells the user and returns the message's result.
  virtual LRESULT ProcessWndProcException(CException* e, const MSG* pMsg);

  virtual CWnd* GetMainWnd();

  CWnd* m_pMainWnd;    // when it is destroyed the thread's message loop ends
  BOOL m_bAutoDelete;  // the object deletes itself at the thread's end; TRUE unless set
  HANDLE m_hThread;    // closed by the destructor
  DWORD m_nThreadID;

 protected:
  // Calls the handler of ON_THREAD_MESSAGE, if there is one.
  BOOL DispatchThreadMessage(MSG* pMsg);
  virtual void Delete();

  MSG m_msgCur;

 private:
  LPVOID m_pThreadParams;
  AFX_THREADPROC m_pfnThreadProc;

  friend struct _AfxThreadAccess;
  friend AFX_CORE_DATA void AFXAPI AfxEndThread(UINT nExitCode, BOOL bDelete);
};

// Starts a thread that runs a function; its result is the exit code. Null when the thread could not
// be started, see CreateThread. The object deletes itself when the thread ends: who wants to use it
// afterwards starts the thread with CREATE_SUSPENDED and clears m_bAutoDelete.
AFX_CORE_DATA CWinThread* AFXAPI AfxBeginThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam,
                                                int nPriority = THREAD_PRIORITY_NORMAL,
                                                UINT nStackSize = 0, DWORD dwCreateFlags = 0,
                                                LPSECURITY_ATTRIBUTES lpSecurityAttrs = nullptr);
// Starts a thread with windows, whose object is of a class derived from CWinThread.
AFX_CORE_DATA CWinThread* AFXAPI AfxBeginThread(CRuntimeClass* pThreadClass,
                                                int nPriority = THREAD_PRIORITY_NORMAL,
                                                UINT nStackSize = 0, DWORD dwCreateFlags = 0,
                                                LPSECURITY_ATTRIBUTES lpSecurityAttrs = nullptr);
// Ends the calling thread at once; objects on its stack are not destroyed. bDelete: deletes the
// thread's object if it is to delete itself.
AFX_CORE_DATA void AFXAPI AfxEndThread(UINT nExitCode, BOOL bDelete = TRUE);

// The object of the calling thread; null when it has none.
AFX_CORE_DATA CWinThread* AFXAPI AfxGetThread();
// The calling thread's main window; null when it has none.
AFX_CORE_DATA CWnd* AFXAPI AfxGetMainWnd();
// Posts WM_QUIT to the calling thread.
AFX_CORE_DATA void AFXAPI AfxPostQuitMessage(int nExitCode);
