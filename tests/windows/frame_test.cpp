// The main window of a program: its menu and keys, its layout, and the loop that it keeps going.
#include <afxpriv.h>

#include <functional>
#include <string>

#include "windows/Steps.h"
#include "windows/resource.h"

namespace {

// A program that takes a step each time it is idle, and then closes its window.
class StepApp : public CWinApp {
 public:
  StepApp() : CWinApp("Step app") {}
  using Step = std::function<void()>;
  StepApp& Then(Step step) {
    m_steps.push_back(std::move(step));
    return *this;
  }
  BOOL OnIdle(LONG count) override {
    if (CWinApp::OnIdle(count)) return TRUE;
    if (m_next < m_steps.size()) {
      m_steps[m_next++]();
      return TRUE;
    }
    if (m_pMainWnd != nullptr) m_pMainWnd->PostMessage(WM_CLOSE);
    return FALSE;
  }
  int ExitInstance() override { return CWinApp::ExitInstance() + 5; }

 private:
  std::vector<Step> m_steps;
  size_t m_next = 0;
};

class TestFrame : public CFrameWnd {
 public:
  static inline int alive = 0;
  static inline int handled = 0;
  static inline int disabled = 0;
  static inline int idleUpdates = 0;

  TestFrame() { ++alive; }
  ~TestFrame() override { --alive; }

 protected:
  afx_msg void OnHandled() { ++handled; }
  afx_msg void OnDisabled() { ++disabled; }
  afx_msg void OnUpdateChecked(CCmdUI* ui) { ui->SetCheck(), ui->Enable(); }
  afx_msg void OnUpdateRadio(CCmdUI* ui) { ui->SetRadio(), ui->Enable(); }
  afx_msg void OnUpdateRenamed(CCmdUI* ui) { ui->SetText("Another text"), ui->Enable(); }
  afx_msg void OnUpdateDisabled(CCmdUI* ui) { ui->Enable(FALSE); }
  afx_msg void OnUpdatePassedOn(CCmdUI* ui) { ui->ContinueRouting(); }
  afx_msg LRESULT OnIdleUpdate(WPARAM, LPARAM) { return ++idleUpdates; }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(TestFrame, CFrameWnd)
ON_COMMAND(ID_HANDLED, &TestFrame::OnHandled)
ON_COMMAND(ID_DISABLED, &TestFrame::OnDisabled)
ON_UPDATE_COMMAND_UI(ID_CHECKED, &TestFrame::OnUpdateChecked)
ON_UPDATE_COMMAND_UI_RANGE(ID_RADIO, ID_RADIO, &TestFrame::OnUpdateRadio)
ON_UPDATE_COMMAND_UI(ID_RENAMED, &TestFrame::OnUpdateRenamed)
ON_UPDATE_COMMAND_UI(ID_DISABLED, &TestFrame::OnUpdateDisabled)
ON_UPDATE_COMMAND_UI(ID_PASSED_ON, &TestFrame::OnUpdatePassedOn)
ON_MESSAGE(WM_IDLEUPDATECMDUI, &TestFrame::OnIdleUpdate)
END_MESSAGE_MAP()

class Frame : public WindowTest {
 protected:
  void SetUp() override {
    TestFrame::handled = TestFrame::disabled = TestFrame::idleUpdates = 0;
    m_frame = new TestFrame;
    ASSERT_TRUE(m_frame->LoadFrame(IDR_FRAME));
    m_app.m_pMainWnd = m_frame;
  }
  void TearDown() override {
    if (TestFrame::alive > 0) m_frame->DestroyWindow();
    MSG quit;
    ::PeekMessage(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    WindowTest::TearDown();
  }

  void ExpectRunClosesIt() {
    EXPECT_EQ(m_app.Run(), 5);
    EXPECT_EQ(TestFrame::alive, 0);
    EXPECT_EQ(m_app.m_pMainWnd, nullptr);
  }

  StepApp m_app;
  TestFrame* m_frame = nullptr;
};

}  // namespace

TEST_F(Frame, LoadsWhatHasItsId) {
  CString title;
  m_frame->GetWindowText(title);
  EXPECT_STREQ(title, "Title of the frame");
  ASSERT_NE(m_frame->GetMenu(), nullptr);
  EXPECT_EQ(m_frame->GetMenu()->GetMenuItemCount(), 1u);
  EXPECT_FALSE(m_frame->LoadAccelTable(MAKEINTRESOURCE(IDR_FRAME))) << "it has one already";
}

TEST_F(Frame, KeepsTheProgramRunningAndTakesKeys) {
  m_frame->ShowWindow(SW_SHOW);
  m_app.Then([&] { m_frame->PostMessage(WM_KEYDOWN, VK_F5, 1); })
      .Then([&] { EXPECT_EQ(TestFrame::handled, 1); })
      .Then([&] { m_frame->PostMessage(WM_KEYDOWN, VK_F6, 1); })
      .Then([&] { EXPECT_EQ(TestFrame::disabled, 0) << "its update handler disables it"; });
  ExpectRunClosesIt();
  EXPECT_GT(TestFrame::idleUpdates, 0);
}

TEST_F(Frame, MenuShowsHowCommandsStand) {
  CMenu* const menu = m_frame->GetMenu()->GetSubMenu(0);
  m_frame->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu->m_hMenu), 0);
  const struct {
    UINT id;
    bool enabled, checked;
    const char* text;
  } cases[] = {
      {ID_HANDLED, true, false, "&Handled"},      {ID_UNHANDLED, false, false, "&Unhandled"},
      {ID_CHECKED, true, true, "&Checked"},       {ID_RADIO, true, true, "&Radio"},
      {ID_RENAMED, true, false, "Another text"},  {ID_DISABLED, false, false, "&Disabled"},
      {ID_PASSED_ON, false, false, "&Passed on"},
  };
  for (const auto& c : cases) {
    const UINT state = menu->GetMenuState(c.id, MF_BYCOMMAND);
    EXPECT_EQ((state & MF_GRAYED) == 0, c.enabled) << c.text;
    EXPECT_EQ((state & MF_CHECKED) != 0, c.checked) << c.text;
    CString text;
    menu->GetMenuString(c.id, text, MF_BYCOMMAND);
    EXPECT_STREQ(text, c.text);
  }
  MENUITEMINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = MIIM_FTYPE;
  ::GetMenuItemInfo(*menu, ID_RADIO, FALSE, &info);
  EXPECT_NE(info.fType & MFT_RADIOCHECK, 0u);
  // An item that opens a menu is never greyed.
  EXPECT_EQ(menu->GetMenuState(menu->GetMenuItemCount() - 1, MF_BYPOSITION) & MF_GRAYED, 0u);
}

namespace {

// A bar at the upper edge.
class Bar : public CWnd {
 protected:
  afx_msg LRESULT OnSizeParent(WPARAM, LPARAM lParam) {
    auto* const layout = reinterpret_cast<AFX_SIZEPARENTPARAMS*>(lParam);
    CRect place(layout->rect);
    place.bottom = place.top + 20;
    layout->rect.top += 20;
    layout->sizeTotal.cy += 20;
    if (layout->hDWP != nullptr)
      layout->hDWP = ::DeferWindowPos(layout->hDWP, m_hWnd, nullptr, place.left, place.top,
                                      place.Width(), place.Height(), SWP_NOZORDER);
    return 0;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Bar, CWnd)
ON_MESSAGE(WM_SIZEPARENT, &Bar::OnSizeParent)
END_MESSAGE_MAP()

}  // namespace

TEST_F(Frame, LaysOutBarsAndPane) {
  Bar bar;
  CWnd pane;
  const CRect anywhere(0, 0, 5, 5);
  bar.Create("STATIC", "", WS_VISIBLE, anywhere, m_frame, AFX_IDW_STATUS_BAR);
  pane.Create(nullptr, "", WS_VISIBLE, anywhere, m_frame, AFX_IDW_PANE_FIRST);
  m_frame->SetWindowPos(nullptr, 0, 0, 400, 300, SWP_NOMOVE | SWP_NOZORDER);
  CRect client, barPlace, panePlace;
  m_frame->GetClientRect(client);
  bar.GetWindowRect(barPlace);
  m_frame->ScreenToClient(barPlace);
  pane.GetWindowRect(panePlace);
  m_frame->ScreenToClient(panePlace);
  EXPECT_EQ(barPlace, CRect(0, 0, client.right, 20));
  EXPECT_EQ(panePlace, CRect(0, 20, client.right, client.bottom));
  CRect rest;
  m_frame->RepositionBars(0, 0xFFFF, AFX_IDW_PANE_FIRST, reposQuery, rest);
  EXPECT_EQ(rest, panePlace);

  // The bar also says what a command does.
  m_frame->SendMessage(WM_MENUSELECT, MAKEWPARAM(ID_HANDLED, 0));
  CString text;
  bar.GetWindowText(text);
  EXPECT_STREQ(text, "Handles it");
  m_frame->SetMessageText("Something");
  bar.GetWindowText(text);
  EXPECT_STREQ(text, "Something");
}
