// Objects and windows: finding one by the other, and windows that change hands.
#include <afxwin.h>

#include "windows/Steps.h"

namespace {

constexpr WORD kBox = 300, kOther = 301;

// Counts what it sees of a check box.
class Watched : public CWnd {
 public:
  int checks = 0;
  int ends = 0;

 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == BM_SETCHECK) ++checks;
    return CWnd::WindowProc(message, wParam, lParam);
  }
  void PostNcDestroy() override { ++ends; }
};

class Windows : public WindowTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(m_dialog.CreateIndirect(DialogTemplate()
                                            .Button("Box", kBox, BS_AUTOCHECKBOX)
                                            .Button("Other", kOther, BS_AUTOCHECKBOX)));
    m_box = ::GetDlgItem(m_dialog.m_hWnd, kBox);
    m_procedure = Procedure();
  }
  void TearDown() override {
    m_dialog.DestroyWindow();
    WindowTest::TearDown();
  }

  LONG Procedure() const { return ::GetWindowLong(m_box, GWL_WNDPROC); }
  bool Works() const {
    ::SendMessage(m_box, BM_SETCHECK, BST_CHECKED, 0);
    const bool checked = ::SendMessage(m_box, BM_GETCHECK, 0, 0) == BST_CHECKED;
    ::SendMessage(m_box, BM_SETCHECK, BST_UNCHECKED, 0);
    return checked && ::SendMessage(m_box, BM_GETCHECK, 0, 0) == BST_UNCHECKED;
  }

  class Parent : public CDialog {
  } m_dialog;
  HWND m_box = nullptr;
  LONG m_procedure = 0;
};

}  // namespace

TEST_F(Windows, SubclassedAndGivenBack) {
  Watched watched;
  EXPECT_FALSE(watched.SubclassWindow(nullptr));
  ASSERT_TRUE(watched.SubclassDlgItem(kBox, &m_dialog));
  EXPECT_NE(Procedure(), m_procedure);
  EXPECT_EQ(CWnd::FromHandle(m_box), &watched);
  EXPECT_TRUE(Works());
  EXPECT_EQ(watched.checks, 2);

  EXPECT_EQ(watched.UnsubclassWindow(), m_box);
  EXPECT_EQ(Procedure(), m_procedure);
  EXPECT_EQ(watched.m_hWnd, nullptr);
  EXPECT_NE(CWnd::FromHandle(m_box), &watched);
  EXPECT_TRUE(Works());
  EXPECT_EQ(watched.checks, 2);
}

// A window whose object lets go of it does what it did before, and can have another object.
TEST_F(Windows, DetachedWindowsGoOn) {
  Watched first, second;
  first.SubclassWindow(m_box);
  EXPECT_EQ(first.Detach(), m_box);
  EXPECT_TRUE(Works());
  EXPECT_EQ(first.checks, 0);

  ASSERT_TRUE(second.Attach(m_box));
  EXPECT_TRUE(Works());
  EXPECT_EQ(second.checks, 2);
  EXPECT_EQ(second.UnsubclassWindow(), m_box);
  EXPECT_EQ(Procedure(), m_procedure);

  // Destroyed without an object.
  second.SubclassWindow(m_box);
  second.Detach();
  ::DestroyWindow(m_box);
  EXPECT_EQ(second.ends, 0);
}

namespace {

WNDPROC below;
int seen;

LRESULT CALLBACK anothersProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == BM_SETCHECK) ++seen;
  return ::CallWindowProc(below, window, message, wParam, lParam);
}

}  // namespace

TEST_F(Windows, SubclassingCanStandInLine) {
  seen = 0;
  Watched watched;
  watched.SubclassWindow(m_box);
  below = reinterpret_cast<WNDPROC>(
      ::SetWindowLong(m_box, GWL_WNDPROC, reinterpret_cast<LONG>(&anothersProcedure)));
  EXPECT_TRUE(Works());
  EXPECT_EQ(seen, 2);
  EXPECT_EQ(watched.checks, 2);
  // Giving up the place in the middle must not cut off the one above.
  watched.UnsubclassWindow();
  EXPECT_TRUE(Works());
  EXPECT_EQ(seen, 4);
  EXPECT_EQ(watched.checks, 2);
}

TEST_F(Windows, EndWithTheirParent) {
  Watched watched;
  watched.SubclassWindow(m_box);
  m_dialog.DestroyWindow();
  EXPECT_EQ(watched.ends, 1);
  EXPECT_EQ(watched.m_hWnd, nullptr);
}

TEST_F(Windows, PermanentAndTemporaryObjects) {
  EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
  EXPECT_EQ(CWnd::FromHandlePermanent(m_dialog.m_hWnd), &m_dialog);
  EXPECT_EQ(CWnd::FromHandlePermanent(m_box), nullptr);
  CWnd* const temporary = m_dialog.GetDlgItem(kBox);
  EXPECT_EQ(temporary->m_hWnd, m_box);
  EXPECT_EQ(CWnd::FromHandle(m_box), temporary);
  EXPECT_EQ(CWnd::FromHandlePermanent(m_box), nullptr);

  Watched watched;
  watched.Attach(m_box);
  EXPECT_EQ(m_dialog.GetDlgItem(kBox), &watched);
  EXPECT_EQ(m_dialog.GetDescendantWindow(kBox, TRUE), &watched);
  EXPECT_EQ(m_dialog.GetDescendantWindow(kOther, TRUE), nullptr);
  EXPECT_NE(m_dialog.GetDescendantWindow(kOther), nullptr);
  watched.Detach();

  EXPECT_EQ(temporary->GetParent(), &m_dialog);
  EXPECT_EQ(temporary->GetTopLevelParent(), &m_dialog);
  EXPECT_EQ(temporary->GetParentOwner(), &m_dialog);
  EXPECT_EQ(temporary->GetParentFrame(), nullptr);

  // Ending temporary objects leaves their windows alone.
  CWnd::DeleteTempMap();
  EXPECT_TRUE(::IsWindow(m_box));

  // Attached without being subclassed: destroyed through its object all the same.
  watched.Attach(m_box);
  EXPECT_TRUE(watched.DestroyWindow());
  EXPECT_EQ(watched.m_hWnd, nullptr);
  EXPECT_EQ(watched.ends, 0);
  EXPECT_FALSE(::IsWindow(m_box));
}
