// The tree of check boxes, in a window that is told of changes.
#include "controls/COXOptionTreeCtrl.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

#include "dialogs/Driver.h"
#include "support/Allocations.h"

namespace {

class Parent : public CWnd {
 public:
  Parent() {
    CreateEx(0, AfxRegisterWndClass(0), "Parent", WS_POPUP | WS_VISIBLE, 0, 0, 200, 200, nullptr,
             nullptr);
    Open();
  }
  ~Parent() override {
    DestroyWindow();
    DeleteTemporaryObjects();
  }
  void Open() {
    tree->Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 200, 200), this, 5);
    for (const UINT id : {1, 2}) EXPECT_TRUE(tree->AddCheckBox(id, "box", id == 2));
  }
  // As the user does it.
  void Toggle() {
    tree->SelectItem(tree->GetRootItem());
    tree->SendMessage(WM_KEYDOWN, VK_SPACE);
    for (MSG message; PeekMessage(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessage(&message);
  }

  std::unique_ptr<COXOptionTreeCtrl> tree = std::make_unique<COXOptionTreeCtrl>();
  std::vector<int> told;  // ids, and what the box has then
  std::function<void()> act = [] {};

 protected:
  BOOL OnCommand(WPARAM wParam, LPARAM) override {
    told.push_back(LOWORD(wParam));
    told.push_back(tree->GetBox(LOWORD(wParam)));
    act();
    return TRUE;
  }

 private:
  watchdog::ExpectWindows m_windows;
};

}  // namespace

TEST(OptionTree, TellsItsParentOfTheUsersChanges) {
  Parent parent;
  EXPECT_EQ(parent.tree->GetBox(2), 1);
  EXPECT_EQ(parent.tree->GetBox(3), -1);
  EXPECT_FALSE(parent.tree->SetBox(3, 1));
  EXPECT_TRUE(parent.tree->SetBox(2, 0));
  parent.Toggle();
  parent.Toggle();
  EXPECT_EQ(parent.told, (std::vector<int>{1, 1, 1, 0}));
}

TEST(OptionTree, TheParentMayChangeOrEndIt) {
  Parent parent;
  parent.act = [&] {
    for (UINT id = 10; id < 100; ++id) EXPECT_TRUE(parent.tree->AddCheckBox(id, "more", 1));
    parent.tree->SetBox(2, 0);
  };
  parent.Toggle();
  EXPECT_EQ(parent.tree->GetBox(99), 1);
  parent.act = [&] { parent.tree->DestroyWindow(); };
  parent.Toggle();
  EXPECT_EQ(parent.told, (std::vector<int>{1, 1, 1, 0}));
  // The next window has its own boxes.
  parent.act = [] {};
  parent.Open();
  EXPECT_EQ(parent.tree->GetBox(99), -1);
  EXPECT_EQ(parent.tree->GetBox(2), 1);
  const allocations::GuardPages guard;
  parent.tree->DestroyWindow();
  parent.tree = std::make_unique<COXOptionTreeCtrl>();
  parent.Open();
  parent.act = [&] { parent.tree.reset(); };
  parent.Toggle();
}
