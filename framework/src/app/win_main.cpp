// The life of a program with windows.

#include <afxwin.h>

#include "threads/temporary_objects.h"

BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine,
                       int nCmdShow) {
  AfxGetModuleState()->m_hCurrentInstanceHandle = hInstance;
  if (CWinApp* const app = AfxGetApp()) {
    app->m_hInstance = hInstance;
    app->m_hPrevInstance = hPrevInstance;
    app->m_lpCmdLine = lpCmdLine;
    app->m_nCmdShow = nCmdShow;
  }
  return TRUE;
}

void AFXAPI AfxWinTerm() { DeleteTemporaryObjects(0); }

int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine,
                      int nCmdShow) {
  int exitCode = -1;
  CWinApp* const app = AfxGetApp();
  if (app != nullptr && AfxWinInit(hInstance, hPrevInstance, lpCmdLine, nCmdShow) &&
      app->InitApplication()) {
    if (app->InitInstance()) {
      exitCode = app->Run();
    } else {
      // What InitInstance had made before it gave up.
      if (app->m_pMainWnd != nullptr) app->m_pMainWnd->DestroyWindow();
      exitCode = app->ExitInstance();
    }
  }
  AfxWinTerm();
  return exitCode;
}
