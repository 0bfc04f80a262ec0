// Commands and notifications: who is asked, in which order, and what a control may keep to itself.
#include <afxwin.h>
#include <commctrl.h>

#include <string>

#include "windows/Steps.h"

namespace {

constexpr UINT kByDialog = 0x8001, kByOwner = 0x8002, kByApp = 0x8003, kByNobody = 0x8004,
               kByAll = 0x8005, kDisabled = 0x8006, kRangeFirst = 0x8010, kRangeLast = 0x8012;
constexpr WORD kButton = 200, kEdit = 201, kList = 202;
constexpr UINT kCode = static_cast<UINT>(-150);  // of a notification

std::string events;

void note(const std::string& event) { events += (events.empty() ? "" : " ") + event; }

std::string take() { return std::exchange(events, {}); }

class App : public CWinApp {
 public:
  App() : CWinApp("commands") {}

 protected:
  afx_msg void OnApp() { note("app"); }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(App, CWinApp)
ON_COMMAND(kByApp, &App::OnApp)
ON_COMMAND(kByAll, &App::OnApp)
END_MESSAGE_MAP()

class Owner : public CWnd {
 public:
  Owner() { CreateEx(0, nullptr, "Owner", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0); }
  ~Owner() override { DestroyWindow(); }

 protected:
  afx_msg void OnOwner() { note("owner"); }
  afx_msg void OnUpdate(CCmdUI* ui) {
    note("owner update");
    ui->Enable(FALSE);
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Owner, CWnd)
ON_COMMAND(kByOwner, &Owner::OnOwner)
ON_COMMAND(kByAll, &Owner::OnOwner)
ON_COMMAND(kButton, &Owner::OnOwner)
ON_COMMAND(kDisabled, &Owner::OnOwner)
ON_UPDATE_COMMAND_UI(kDisabled, &Owner::OnUpdate)
END_MESSAGE_MAP()

class Dialog : public CDialog {
 public:
  explicit Dialog(CWnd* owner = nullptr) {
    CreateIndirect(DialogTemplate().Button("B", kButton).Edit("", kEdit), owner);
  }
  std::string Command(UINT id) {
    SendMessage(WM_COMMAND, id);
    return take();
  }

 protected:
  afx_msg void OnDialog() { note("dialog"); }
  afx_msg void OnRange(UINT id) { note("range " + std::to_string(id - kRangeFirst)); }
  afx_msg void OnPassedUpdate(CCmdUI* ui) {
    note("dialog update");
    ui->ContinueRouting();
  }
  afx_msg void OnButton() { note("button"); }
  afx_msg void OnEditChange() { note("change"); }
  afx_msg void OnAnyFocus(UINT id) { note("focus of " + std::to_string(id)); }
  afx_msg void OnNotification(NMHDR* header, LRESULT* result) {
    note("notified by " + std::to_string(header->idFrom));
    *result = 12;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Dialog, CDialog)
ON_COMMAND(kByDialog, &Dialog::OnDialog)
ON_COMMAND(kByAll, &Dialog::OnDialog)
ON_COMMAND_RANGE(kRangeFirst, kRangeLast, &Dialog::OnRange)
ON_UPDATE_COMMAND_UI(kDisabled, &Dialog::OnPassedUpdate)
ON_BN_CLICKED(kButton, &Dialog::OnButton)
ON_EN_CHANGE(kEdit, &Dialog::OnEditChange)
ON_CONTROL_RANGE(EN_SETFOCUS, kEdit, kEdit + 5, &Dialog::OnAnyFocus)
ON_NOTIFY(kCode, kList, &Dialog::OnNotification)
END_MESSAGE_MAP()

class Commands : public WindowTest {
 protected:
  void SetUp() override { events.clear(); }
};

}  // namespace

TEST_F(Commands, GoFromDialogToOwnerToApp) {
  const App app;
  Owner owner;
  Dialog dialog(&owner);
  const struct {
    UINT id;
    const char* expected;
  } cases[] = {
      {kByDialog, "dialog"},   {kByOwner, "owner"},  {kByApp, "app"},
      {kByNobody, ""},         {kByAll, "dialog"},   {kRangeFirst, "range 0"},
      {kRangeLast, "range 2"}, {kRangeLast + 1, ""}, {kDisabled, "dialog update owner update"},
  };
  for (const auto& c : cases) EXPECT_EQ(dialog.Command(c.id), c.expected) << c.id;
}

// The owner's numbers mean something else than the dialog's.
TEST_F(Commands, NotificationsOfControlsStayInTheDialog) {
  Owner owner;
  class Silent : public CDialog {
  } dialog;
  ASSERT_TRUE(dialog.CreateIndirect(DialogTemplate().Button("B", kButton), &owner));
  dialog.GetDlgItem(kButton)->SendMessage(BM_CLICK);
  EXPECT_EQ(take(), "");
}

TEST_F(Commands, NotificationsReachTheDialogByCodeAndId) {
  Dialog dialog;
  take();
  dialog.GetDlgItem(kButton)->SendMessage(BM_CLICK);
  EXPECT_EQ(take(), "button");
  dialog.SetDlgItemText(kEdit, "x");
  EXPECT_EQ(take(), "change");
  dialog.SendMessage(WM_COMMAND, MAKEWPARAM(kEdit, EN_SETFOCUS),
                     reinterpret_cast<LPARAM>(::GetDlgItem(dialog.m_hWnd, kEdit)));
  EXPECT_EQ(take(), "focus of 201");

  NMHDR header = {::GetDlgItem(dialog.m_hWnd, kButton), kList, kCode};
  EXPECT_EQ(dialog.SendMessage(WM_NOTIFY, kList, reinterpret_cast<LPARAM>(&header)), 12);
  EXPECT_EQ(take(), "notified by 202");
  header.code = kCode + 1;
  dialog.SendMessage(WM_NOTIFY, kList, reinterpret_cast<LPARAM>(&header));
  EXPECT_EQ(take(), "");
}

namespace {

// Handles some of its notifications itself.
class SelfContained : public CWnd {
 public:
  BOOL keep = TRUE;
  HBRUSH brush = nullptr;

 protected:
  afx_msg BOOL OnClicked() {
    note("own click");
    return keep;
  }
  afx_msg void OnNotification(NMHDR*, LRESULT* result) {
    note("own notification");
    *result = 34;
  }
  afx_msg HBRUSH CtlColor(CDC*, UINT type) {
    note("own colour " + std::to_string(type));
    return brush;
  }
  afx_msg void DrawItem(LPDRAWITEMSTRUCT item) { note("own item " + std::to_string(item->itemID)); }
  afx_msg void HScroll(UINT code, UINT position) {
    note("own scroll " + std::to_string(code) + " " + std::to_string(position));
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(SelfContained, CWnd)
ON_CONTROL_REFLECT_EX(BN_CLICKED, &SelfContained::OnClicked)
ON_NOTIFY_REFLECT(kCode, &SelfContained::OnNotification)
ON_WM_CTLCOLOR_REFLECT()
ON_WM_DRAWITEM_REFLECT()
ON_WM_HSCROLL_REFLECT()
END_MESSAGE_MAP()

class ColouringDialog : public Dialog {
 public:
  HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT type) {
    const HBRUSH brush = CDialog::OnCtlColor(pDC, pWnd, type);
    note("dialog's colour");
    return brush;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ColouringDialog, Dialog)
ON_WM_CTLCOLOR()
END_MESSAGE_MAP()

}  // namespace

TEST_F(Commands, ControlsGetTheirNotificationsFirst) {
  ColouringDialog dialog;
  SelfContained control;
  ASSERT_TRUE(control.SubclassDlgItem(kButton, &dialog));
  take();
  control.SendMessage(BM_CLICK);
  EXPECT_EQ(take(), "own click");
  control.keep = FALSE;
  control.SendMessage(BM_CLICK);
  EXPECT_EQ(take(), "own click button");

  NMHDR header = {control.m_hWnd, kList, kCode};
  EXPECT_EQ(dialog.SendMessage(WM_NOTIFY, kList, reinterpret_cast<LPARAM>(&header)), 34);
  EXPECT_EQ(take(), "own notification");

  // What the parent gives to its base class goes to the control; a control without a brush leaves
  // the choice to the parent.
  const auto self = reinterpret_cast<LPARAM>(control.m_hWnd);
  const HDC dc = ::GetDC(control.m_hWnd);
  control.brush = static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH));
  EXPECT_EQ(dialog.SendMessage(WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(dc), self),
            reinterpret_cast<LRESULT>(control.brush));
  EXPECT_EQ(take(), "own colour 3 dialog's colour");
  control.brush = nullptr;
  EXPECT_NE(dialog.SendMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc), self), 0);
  EXPECT_EQ(take(), "own colour 6 dialog's colour");
  ::ReleaseDC(control.m_hWnd, dc);

  DRAWITEMSTRUCT draw = {};
  draw.CtlType = ODT_BUTTON;
  draw.itemID = 7;
  draw.hwndItem = control.m_hWnd;
  EXPECT_EQ(dialog.SendMessage(WM_DRAWITEM, kButton, reinterpret_cast<LPARAM>(&draw)), TRUE);
  EXPECT_EQ(take(), "own item 7");
  dialog.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 9), self);
  EXPECT_EQ(take(), "own scroll 4 9");
}
