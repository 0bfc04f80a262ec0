// Nothing is left behind by windows that come and go.
#include <afxwin.h>

#include "windows/GuiObjects.h"
#include "windows/Steps.h"

namespace {

class Balance : public WindowTest {};

// A dialog that uses what dialogs use: subclassed controls, fonts, menus, drawing.
class BusyDialog : public StepDialog {
 public:
  BusyDialog() : StepDialog(DialogTemplate("Busy").Edit("text", 1).Button("Go", 2)) {}

 protected:
  BOOL OnInitDialog() override {
    StepDialog::OnInitDialog();
    m_edit.SubclassDlgItem(1, this);
    m_font.CreatePointFont(90, "Tahoma");
    m_edit.SetFont(&m_font);
    CClientDC dc(this);
    dc.TextOut(0, 0, "x");
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, 9, "Item");
    return TRUE;
  }

 private:
  CFont m_font;
  CWnd m_edit;
};

}  // namespace

TEST_F(Balance, ThousandDialogsLeaveNothing) {
  const auto run = [](int times) {
    while (times-- > 0) {
      BusyDialog dialog;
      EXPECT_EQ(dialog.DoModal(), StepDialog::kStepsDone);
      DeleteTemporaryObjects();
    }
  };
  run(20);  // the system's own caches
  const int gdi = GdiObjects();
  run(1000);
  EXPECT_LE(GdiObjects(), gdi);
}
