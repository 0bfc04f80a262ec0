// foldercmp: compares two folders document by document, and shows the differences of two documents.
#include <afxwin.h>

#include <objbase.h>

#include "foldercmp/CommandLine.h"
#include "foldercmp/HostSettings.h"
#include "foldercmp/MainFrame.h"
#include "foldercmp/diff/DiffWindow.h"
#include "foldercmp/resource.h"
#include "messages/message.h"
#include "settings/RegistryUtil.h"

namespace {

class FolderCompareApp : public CWinApp {
 public:
  BOOL InitInstance() override {
    // The shell's tree of folders and its completion of paths are COM objects.
    m_hasCom = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    MRegistry::InitProductRegistry(kProductKey, 1);
    Message::SetTitle(AfxGetAppName());
    const CommandLine command = ReadCommandLine(m_lpCmdLine);
    switch (command.kind) {
      case CommandLine::kDiff:
        m_exitCode = RunDiffWindow(command.diff);
        return FALSE;
      case CommandLine::kWrong:
        m_exitCode = kWrongUsage;
        Message::DisplayMessage(Message::MSG_INFO, IDS_USAGE);
        return FALSE;
      default:
        return OpenMainFrame({command.base, command.revised});
    }
  }

  int ExitInstance() override {
    CWinApp::ExitInstance();
    MRegistry::FreeProductRegistry();
    if (m_hasCom) CoUninitialize();
    return m_exitCode;
  }

 private:
  static constexpr int kFailed = 1, kWrongUsage = 2;

  BOOL OpenMainFrame(const FolderPair& pair) {
    auto* const frame = new MainFrame;  // deletes itself
    if (!frame->Open()) {
      m_exitCode = kFailed;
      return FALSE;
    }
    m_pMainWnd = frame;
    frame->Show(m_nCmdShow);
    if (!pair.base.IsEmpty()) frame->CompareLater(pair);
    return TRUE;
  }

  bool m_hasCom = false;
  int m_exitCode = 0;
} theApp;

}  // namespace
