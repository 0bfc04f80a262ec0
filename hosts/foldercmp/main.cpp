// foldercmp: compares two folders document by document, and shows the differences of two documents.
#include <afxwin.h>

#include "foldercmp/CommandLine.h"
#include "foldercmp/MainFrame.h"
#include "foldercmp/diff/DiffWindow.h"

namespace {

class FolderCompareApp : public CWinApp {
 public:
  BOOL InitInstance() override {
    const CommandLine command = ReadCommandLine(m_lpCmdLine);
    if (command.kind == CommandLine::kDiff) {
      m_exitCode = RunDiffWindow(command.diff);
      return FALSE;
    }
    auto* const frame = new MainFrame;
    m_pMainWnd = frame;
    if (!frame->Open()) {
      m_pMainWnd = nullptr;
      m_exitCode = 1;
      return FALSE;
    }
    frame->ShowWindow(m_nCmdShow);
    return TRUE;
  }

  int ExitInstance() override {
    CWinApp::ExitInstance();
    return m_exitCode;
  }

 private:
  int m_exitCode = 0;
} theApp;

}  // namespace
