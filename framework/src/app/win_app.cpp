// CWinApp: the program's object.

#include <afxwin.h>

#include "app/program_name.h"
#include "windows/thread_state.h"

IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

BEGIN_MESSAGE_MAP(CWinApp, CCmdTarget)
ON_COMMAND(ID_APP_EXIT, &CWinApp::OnAppExit)
END_MESSAGE_MAP()

CWinApp::CWinApp(LPCTSTR lpszAppName)
    : m_hInstance(GetModuleHandle(nullptr)),
      m_hPrevInstance(nullptr),
      m_lpCmdLine(const_cast<LPTSTR>("")),
      m_nCmdShow(SW_SHOWNORMAL),
      m_pszAppName(nullptr),
      m_exeName(ProgramName()) {
  m_pszExeName = m_exeName;
  if (lpszAppName != nullptr) {
    m_appName = lpszAppName;
  } else if (!m_appName.LoadString(AFX_IDS_APP_TITLE)) {
    m_appName = m_exeName;
  }
  m_pszAppName = m_appName;
  m_hThread = GetCurrentThread();
  m_nThreadID = GetCurrentThreadId();
  m_bAutoDelete = FALSE;
  State().thread = this;
  AFX_MODULE_STATE* const module = AfxGetModuleState();
  module->m_pCurrentWinApp = this;
  module->m_lpszCurrentAppName = m_pszAppName;
}

CWinApp::~CWinApp() {
  AFX_MODULE_STATE* const module = AfxGetModuleState();
  if (module->m_pCurrentWinApp != this) return;
  module->m_pCurrentWinApp = nullptr;
  module->m_lpszCurrentAppName = nullptr;
}

BOOL CWinApp::InitApplication() { return TRUE; }
BOOL CWinApp::InitInstance() { return TRUE; }

int CWinApp::Run() {
  // A program without a window ends at once.
  if (m_pMainWnd == nullptr) AfxPostQuitMessage(0);
  return CWinThread::Run();
}

int CWinApp::ExitInstance() { return CWinThread::ExitInstance(); }
BOOL CWinApp::OnIdle(LONG lCount) { return CWinThread::OnIdle(lCount); }
LRESULT CWinApp::ProcessWndProcException(CException* e, const MSG* pMsg) {
  return CWinThread::ProcessWndProcException(e, pMsg);
}

void CWinApp::OnAppExit() {
  if (m_pMainWnd != nullptr) m_pMainWnd->SendMessage(WM_CLOSE);
}

HCURSOR CWinApp::LoadCursor(LPCTSTR lpszResourceName) const {
  return ::LoadCursor(AfxFindResourceHandle(lpszResourceName, RT_GROUP_CURSOR), lpszResourceName);
}
HCURSOR CWinApp::LoadCursor(UINT nIDResource) const {
  return LoadCursor(MAKEINTRESOURCE(nIDResource));
}
HICON CWinApp::LoadIcon(LPCTSTR lpszResourceName) const {
  return ::LoadIcon(AfxFindResourceHandle(lpszResourceName, RT_GROUP_ICON), lpszResourceName);
}
HICON CWinApp::LoadIcon(UINT nIDResource) const { return LoadIcon(MAKEINTRESOURCE(nIDResource)); }
HCURSOR CWinApp::LoadStandardCursor(LPCTSTR lpszCursorName) const {
  return ::LoadCursor(nullptr, lpszCursorName);
}
HICON CWinApp::LoadStandardIcon(LPCTSTR lpszIconName) const {
  return ::LoadIcon(nullptr, lpszIconName);
}

CWinApp* AFXAPI AfxGetApp() { return AfxGetModuleState()->m_pCurrentWinApp; }

LPCTSTR AFXAPI AfxGetAppName() {
  const LPCTSTR name = AfxGetModuleState()->m_lpszCurrentAppName;
  return name != nullptr ? name : ProgramName();
}
