// A program with windows and no main of its own: an application object and a frame. Its command
// line says what it does; its exit code, what came of it.
#include <afxwin.h>

#include <cstring>

namespace {

class HostApp : public CWinApp {
 public:
  HostApp() : CWinApp("App host") {}

  BOOL InitInstance() override {
    if (strcmp(m_lpCmdLine, "refuse") == 0) return FALSE;
    if (strcmp(m_lpCmdLine, "windowless") == 0) return TRUE;
    auto* const frame = new CFrameWnd;
    if (!frame->Create(nullptr, AfxGetAppName())) return FALSE;
    m_pMainWnd = frame;
    frame->ShowWindow(m_nCmdShow);
    frame->PostMessage(WM_COMMAND, ID_APP_EXIT);
    m_framed = true;
    return TRUE;
  }

  int ExitInstance() override { return CWinApp::ExitInstance() + (m_framed ? 20 : 10); }

 private:
  bool m_framed = false;
} theApp;

}  // namespace
