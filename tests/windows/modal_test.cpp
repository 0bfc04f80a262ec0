// Modal loops: what keeps them going, what they do when idle, and what ends them.
#include <afxpriv.h>

#include <string>

#include "windows/Steps.h"

namespace {

class ModalLoop : public WindowTest {};

// A plain window with a log of what its loop asks and tells.
class LoopWindow : public CWnd {
 public:
  explicit LoopWindow(CWnd* owner = nullptr) {
    CreateEx(0, nullptr, "Loop", WS_POPUP, CRect(0, 0, 50, 50), owner, 0);
  }
  BOOL ContinueModal() override {
    ++asked;
    return goesOn && CWnd::ContinueModal();
  }

  int asked = 0;
  bool goesOn = true;
  int idle = 0;
  int entered = 0;

 protected:
  afx_msg LRESULT OnKickIdle(WPARAM reason, LPARAM count) {
    EXPECT_EQ(reason, WPARAM(MSGF_DIALOGBOX));
    EXPECT_EQ(count, idle);
    if (++idle < 3) return TRUE;
    EndModalLoop(99);
    return FALSE;
  }
  afx_msg void OnEnterIdle(UINT why, CWnd* who) {
    EXPECT_EQ(why, UINT(MSGF_DIALOGBOX));
    EXPECT_NE(who, nullptr);
    ++entered;
  }
  afx_msg void OnTimer(UINT_PTR) { goesOn = false; }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(LoopWindow, CWnd)
ON_MESSAGE(WM_KICKIDLE, &LoopWindow::OnKickIdle)
ON_WM_ENTERIDLE()
ON_WM_TIMER()
END_MESSAGE_MAP()

}  // namespace

// The way a window waits for work that another thread does: nobody calls EndModalLoop.
TEST_F(ModalLoop, ContinueModalIsAskedAfterEveryMessage) {
  LoopWindow window;
  window.SetTimer(1, 10);
  window.RunModalLoop(MLF_NOKICKIDLE);
  EXPECT_FALSE(window.goesOn);
  EXPECT_GE(window.asked, 2);
  EXPECT_EQ(window.idle, 0);
}

TEST_F(ModalLoop, OptionsSayWhatHappensWhenIdle) {
  const struct {
    DWORD flags;
    bool shown, told, kicked;
  } cases[] = {
      {0, false, true, true},
      {MLF_SHOWONIDLE, true, true, true},
      {MLF_NOIDLEMSG, false, false, true},
      {MLF_NOKICKIDLE, false, true, false},
      {MLF_SHOWONIDLE | MLF_NOIDLEMSG | MLF_NOKICKIDLE, true, false, false},
  };
  for (const auto& c : cases) {
    LoopWindow owner, window(&owner);
    if (!c.kicked) window.SetTimer(1, 10);
    EXPECT_EQ(window.RunModalLoop(c.flags) == 99, c.kicked) << c.flags;
    EXPECT_EQ(window.IsWindowVisible() != FALSE, c.shown) << c.flags;
    EXPECT_EQ(owner.entered > 0, c.told) << c.flags;
    EXPECT_EQ(window.idle, c.kicked ? 3 : 0) << c.flags;
  }
}

TEST_F(ModalLoop, QuitEndsAllLoopsAndStaysForTheNext) {
  const DialogTemplate contents = DialogTemplate("Quit");
  StepDialog outer(contents), inner(contents);
  outer.Then([&] {
    inner.Then([] { ::PostQuitMessage(3); });
    EXPECT_EQ(inner.DoModal(), -1);
  });
  EXPECT_EQ(outer.DoModal(), -1);
  MSG message;
  ASSERT_TRUE(::PeekMessage(&message, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(message.message, UINT(WM_QUIT));
  EXPECT_EQ(message.wParam, 3u);
}

// Objects from before the loop may be in use by the handler that runs it.
TEST_F(ModalLoop, TemporaryObjectsFromBeforeTheLoopSurviveIt) {
  const DialogTemplate contents = DialogTemplate().Button("A", 1001).Button("B", 1002);
  StepDialog outer(contents);
  outer.Then([&] {
    CWnd* const before = outer.GetDlgItem(1001);
    StepDialog inner(contents, &outer);
    // A temporary object is known by what it remembers.
    inner
        .Then([&] {
          CWnd::GetDesktopWindow()->SetOwner(&inner);
          EXPECT_EQ(CWnd::GetDesktopWindow()->GetOwner(), &inner);
          inner.PostMessage(WM_NULL);
        })
        .Then([&] { EXPECT_EQ(CWnd::GetDesktopWindow()->GetOwner(), nullptr); });
    inner.DoModal();
    EXPECT_EQ(CWnd::FromHandle(before->m_hWnd), before);
    EXPECT_EQ(before->GetDlgCtrlID(), 1001);
  });
  outer.DoModal();
}
