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

TEST_F(Program, DialogFromResource) {
  class ResourceDialog : public CDialog {
   public:
    ResourceDialog() : CDialog(IDD_RESOURCE) {}
    BOOL OnInitDialog() override {
      CDialog::OnInitDialog();
      GetDlgItemText(IDC_ITEM, item);
      GetWindowText(title);
      EndDialog(3);
      return TRUE;
    }
    CString item, title;
  } dialog;
  EXPECT_EQ(dialog.DoModal(), 3);
  EXPECT_STREQ(dialog.item, "Text of the item");
  EXPECT_STREQ(dialog.title, "From a resource");
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
  EXPECT_EQ(AfxMessageBox(UINT(ID_HANDLED)), IDRETRY);
  EXPECT_EQ(app.lastHelp, UINT(ID_HANDLED));
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

namespace {

constexpr WORD kPush = 0x8201, kUnknown = 0x8202, kCheck = 0x8203, kText = 0x8204;

class UpdatedDialog : public StepDialog {
 public:
  UpdatedDialog()
      : StepDialog(DialogTemplate()
                       .Button("Push", kPush)
                       .Button("Unknown", kUnknown)
                       .Button("Check", kCheck, BS_AUTOCHECKBOX)
                       .Edit("", kText)) {}

 protected:
  afx_msg void OnPush() {}
  afx_msg void OnUpdateCheck(CCmdUI* ui) { ui->SetCheck(1); }
  afx_msg void OnUpdateText(CCmdUI* ui) {
    ui->SetText("shown");
    ui->Enable(FALSE);
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(UpdatedDialog, StepDialog)
ON_COMMAND(kPush, &UpdatedDialog::OnPush)
ON_UPDATE_COMMAND_UI(kCheck, &UpdatedDialog::OnUpdateCheck)
ON_UPDATE_COMMAND_UI(kText, &UpdatedDialog::OnUpdateText)
END_MESSAGE_MAP()

}  // namespace

TEST_F(Program, ControlsShowHowCommandsStand) {
  UpdatedDialog dialog;
  dialog.Then([&] {
    dialog.GotoDlgCtrl(dialog.GetDlgItem(kText));
    dialog.UpdateDialogControls(&dialog, TRUE);
    EXPECT_TRUE(dialog.GetDlgItem(kPush)->IsWindowEnabled());
    EXPECT_FALSE(dialog.GetDlgItem(kUnknown)->IsWindowEnabled());
    EXPECT_TRUE(dialog.GetDlgItem(kCheck)->IsWindowEnabled()) << "no push button";
    EXPECT_EQ(dialog.IsDlgButtonChecked(kCheck), UINT(BST_CHECKED));
    EXPECT_FALSE(dialog.GetDlgItem(kText)->IsWindowEnabled());
    EXPECT_EQ(dialog.FocusId(), kPush) << "the focus leaves a control that is disabled";
    CString text;
    dialog.GetDlgItemText(kText, text);
    EXPECT_STREQ(text, "shown");
  });
  EXPECT_EQ(dialog.DoModal(), StepDialog::kStepsDone);
}
