// Dialogs: their life, their keys, and what they leave behind.
#include <afxwin.h>

#include <gtest/gtest.h>

#include "support/Watchdog.h"
#include "windows/DialogTemplate.h"

namespace {

constexpr UINT kGo = 101;

class ButtonDialog : public CDialog {
 public:
  int Run(LPCDLGTEMPLATE contents, CWnd* owner = nullptr) {
    InitModalIndirect(contents, owner);
    return static_cast<int>(DoModal());
  }
  int clicks = 0;

 protected:
  BOOL OnInitDialog() override {
    CDialog::OnInitDialog();
    GetDlgItem(kGo)->PostMessage(BM_CLICK);
    return TRUE;
  }
  afx_msg void OnGo() {
    ++clicks;
    EndDialog(77);
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ButtonDialog, CDialog)
ON_BN_CLICKED(kGo, &ButtonDialog::OnGo)
END_MESSAGE_MAP()

}  // namespace

TEST(Dialog, ButtonEndsModalDialogFromMemory) {
  const watchdog::ExpectWindows windows;
  const DialogTemplate contents = DialogTemplate("Slice").Button("Go", kGo);
  ButtonDialog dialog;
  EXPECT_EQ(dialog.Run(contents), 77);
  EXPECT_EQ(dialog.clicks, 1);
  EXPECT_EQ(dialog.m_hWnd, nullptr);
  CWnd::DeleteTempMap();
}
