// The program: its object, its message boxes, its resources, and its life from WinMain on.
#include <afxwin.h>

#include <string>

#include "support/RunProgram.h"
#include "windows/BoxAnswer.h"
#include "windows/Steps.h"
#include "windows/resource.h"

namespace {

class Program : public WindowTest {};

// The exit code of the program app_host, run beside the tests.
DWORD exitCodeOfHost(const char* arguments) {
  char path[MAX_PATH] = "";
  ::GetModuleFileName(nullptr, path, MAX_PATH);
  *strrchr(path, '\\') = '\0';
  const std::string command = "\"" + std::string(path) + "\\app_host.exe\" " + arguments;
  return RunProgram(command);
}

}  // namespace

TEST_F(Program, LivesFromWinMainToTheEndOfItsWindow) {
  EXPECT_EQ(exitCodeOfHost(""), 20u);
  EXPECT_EQ(exitCodeOfHost("refuse"), 10u);
  EXPECT_EQ(exitCodeOfHost("windowless"), 10u);
}

TEST_F(Program, ObjectIsKnownWhileItLives) {
  EXPECT_EQ(AfxGetApp(), nullptr);
  EXPECT_EQ(AfxGetThread(), nullptr);
  EXPECT_EQ(AfxGetMainWnd(), nullptr);
  EXPECT_STREQ(AfxGetAppName(), "test_windows");
  {
    CWinApp app("A name");
    EXPECT_EQ(AfxGetApp(), &app);
    EXPECT_EQ(AfxGetThread(), &app);
    EXPECT_STREQ(AfxGetAppName(), "A name");
    EXPECT_STREQ(app.m_pszExeName, "test_windows");
    char line[] = "the line";
    AfxWinInit(::GetModuleHandle(nullptr), nullptr, line, SW_SHOWMINIMIZED);
    EXPECT_STREQ(app.m_lpCmdLine, "the line");
    EXPECT_EQ(app.m_nCmdShow, SW_SHOWMINIMIZED);
  }
  EXPECT_EQ(AfxGetApp(), nullptr);
  EXPECT_EQ(AfxGetThread(), nullptr);
}

// The way of a program that is one dialog: the latest message says nothing about its exit code.
TEST_F(Program, ExitCodeIsNobodyElsesNumber) {
  CWinApp app("exit code");
  StepDialog dialog(DialogTemplate("Main").Button("OK", IDOK));
  dialog.Then([&] { dialog.PostMessage(WM_COMMAND, IDOK); });
  EXPECT_EQ(dialog.DoModal(), IDOK);
  EXPECT_EQ(app.ExitInstance(), 0);
}

TEST_F(Program, MessageBoxes) {
  BoxAnswer box(IDNO);
  EXPECT_EQ(AfxMessageBox("Really?", MB_YESNO), IDNO);
  EXPECT_EQ(box.count, 1);
  EXPECT_EQ(box.text, "Really?");
  EXPECT_EQ(box.title, "test_windows");
  EXPECT_TRUE(box.hasIcon);

  BoxAnswer ok(IDOK);
  EXPECT_EQ(AfxMessageBox(UINT(ID_HANDLED)), IDOK);
  EXPECT_EQ(ok.text, "Handles it\nHandled");
}

TEST_F(Program, MayShowMessagesItsOwnWay) {
  class Quiet : public CWinApp {
   public:
    Quiet() : CWinApp("Quiet") {}
    int DoMessageBox(LPCTSTR prompt, UINT type, UINT help) override {
      text = prompt;
      lastType = type;
      lastHelp = help;
      return IDRETRY;
    }
    std::string text;
    UINT lastType = 0, lastHelp = 0;
  } app;
  EXPECT_EQ(AfxMessageBox("text", MB_RETRYCANCEL, 7), IDRETRY);
  EXPECT_EQ(app.text, "text");
  EXPECT_EQ(app.lastType, UINT(MB_RETRYCANCEL));
  EXPECT_EQ(app.lastHelp, 7u);
}

TEST_F(Program, HourglassNestsAndComesBack) {
  const HCURSOR arrow = ::LoadCursor(nullptr, IDC_ARROW);
  const HCURSOR hourglass = ::LoadCursor(nullptr, IDC_WAIT);
  ::SetCursor(arrow);
  {
    CWaitCursor outer;
    EXPECT_EQ(::GetCursor(), hourglass);
    {
      CWaitCursor inner;
      ::SetCursor(arrow);
      inner.Restore();
      EXPECT_EQ(::GetCursor(), hourglass);
    }
    EXPECT_EQ(::GetCursor(), hourglass);
  }
  EXPECT_EQ(::GetCursor(), arrow);
}
