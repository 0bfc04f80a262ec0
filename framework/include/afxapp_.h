// CWinApp: the program. A program with windows has one global object of a derived class.
#pragma once

#include "afxthrd_.h"

// The program links the object library that holds WinMain, which calls InitInstance and Run. A
// program that has a main of its own may do without the object.
class AFX_CORE_DATA CWinApp : public CWinThread {
  DECLARE_DYNAMIC(CWinApp)
 public:
  // lpszAppName: what message boxes are titled with; null for the name of the program file, or the
  // string resource AFX_IDS_APP_TITLE where there is one.
  explicit CWinApp(LPCTSTR lpszAppName = nullptr);
  ~CWinApp() override;

  HINSTANCE m_hInstance;
  HINSTANCE m_hPrevInstance;  // null
  LPTSTR m_lpCmdLine;         // without the program's name
  int m_nCmdShow;             // for the first ShowWindow of the main window
  LPCTSTR m_pszAppName;
  LPCTSTR m_pszExeName;  // the program file's name without folder and extension

  virtual BOOL InitApplication();
  BOOL InitInstance() override;
  int Run() override;
  int ExitInstance() override;
  BOOL OnIdle(LONG lCount) override;
  LRESULT ProcessWndProcException(CException* e, const MSG* pMsg) override;

  // Looked for in the program and its extension modules. Null when not found. Cursors and icons are
  // shared and not to be destroyed.
  HCURSOR LoadCursor(LPCTSTR lpszResourceName) const;
  HCURSOR LoadCursor(UINT nIDResource) const;
  HICON LoadIcon(LPCTSTR lpszResourceName) const;
  HICON LoadIcon(UINT nIDResource) const;
  // The system's own: IDC_... and IDI_...
  HCURSOR LoadStandardCursor(LPCTSTR lpszCursorName) const;
  HICON LoadStandardIcon(LPCTSTR lpszIconName) const;

  // What AfxMessageBox shows: the button pressed, 0 when it could not be shown.
  virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt);
  // nCode: 1 begins, -1 ends, 0 restores the hourglass.
  virtual void DoWaitCursor(int nCode);

 protected:
  afx_msg void OnAppExit();  // for ID_APP_EXIT: closes the main window
  DECLARE_MESSAGE_MAP()

 private:
  CString m_appName;
  CString m_exeName;
};

// The program's object; null when it has none.
AFX_CORE_DATA CWinApp* AFXAPI AfxGetApp();
AFX_CORE_DATA LPCTSTR AFXAPI AfxGetAppName();

// Prepares the framework: WinMain does it; a program with a main of its own may.
AFX_CORE_DATA BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine,
                                     int nCmdShow);
AFX_CORE_DATA void AFXAPI AfxWinTerm();
// The whole life of a program with windows; returns its exit code.
AFX_CORE_DATA int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine,
                                    int nCmdShow);

// A message box titled with the program's name, with an icon that suits the buttons unless nType
// names one. Returns the button pressed.
AFX_CORE_DATA int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
// With a text from the string table.
AFX_CORE_DATA int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK,
                                       UINT nIDHelp = static_cast<UINT>(-1));

// A class of windows with these properties: the name, for Create, which stands until the thread's
// next call. The same properties give the same name; the class lasts as long as the program.
// hbrBackground: null for none. Throws CResourceException.
AFX_CORE_DATA LPCTSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = nullptr,
                                                 HBRUSH hbrBackground = nullptr,
                                                 HICON hIcon = nullptr);
// FALSE: the system has refused. TRUE for a class that is registered already.
AFX_CORE_DATA BOOL AFXAPI AfxRegisterClass(WNDCLASS* lpWndClass);

// The procedure of every window that the framework has created or subclassed.
AFX_CORE_DATA LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);
AFX_CORE_DATA WNDPROC AFXAPI AfxGetAfxWndProc();
