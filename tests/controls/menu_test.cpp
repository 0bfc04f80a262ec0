#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/ControlTest.h"
#include "controls/Pixels.h"

namespace {

using Menus = ControlTest;

constexpr UINT kOpen = 100;
constexpr UINT kCheck = 101;

TEST_F(Menus, TextsComeBackWhole) {
  CMenu menu;
  ASSERT_TRUE(menu.CreatePopupMenu());
  const std::string longText(1000, 'x');
  menu.AppendMenu(MF_STRING, kOpen, longText.c_str());
  menu.AppendMenu(MF_SEPARATOR);
  CString string("left over");
  EXPECT_EQ(menu.GetMenuString(kOpen, string, MF_BYCOMMAND), 1000);
  EXPECT_EQ(text(string), longText);
  EXPECT_EQ(menu.GetMenuString(1, string, MF_BYPOSITION), 0) << "of a separator";
  EXPECT_TRUE(string.IsEmpty());
}

TEST_F(Menus, PopupMenusAreFoundAgainAndGoWithTheirMenu) {
  HMENU handle;
  {
    CMenu bar;
    ASSERT_TRUE(bar.CreateMenu());
    CMenu popup;
    ASSERT_TRUE(popup.CreatePopupMenu());
    popup.AppendMenu(MF_STRING, kOpen, "Open");
    handle = popup;
    bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(handle), "File");
    EXPECT_EQ(bar.GetSubMenu(0), &popup);
    EXPECT_EQ(bar.GetMenuItemID(0), static_cast<UINT>(-1));
    popup.Detach();
    CMenu* const temporary = bar.GetSubMenu(0);
    ASSERT_NE(temporary, nullptr);
    EXPECT_EQ(temporary->GetMenuItemID(0), kOpen);
    CMenu::DeleteTempMap();
    EXPECT_TRUE(::IsMenu(handle)) << "a temporary object destroys nothing";
  }
  EXPECT_FALSE(::IsMenu(handle));
}

// Measures and draws its items itself.
class ColouredMenu : public CMenu {
 public:
  std::vector<UINT> measured, drawn;

  void MeasureItem(LPMEASUREITEMSTRUCT item) override {
    measured.push_back(item->itemID);
    item->itemWidth = 60;
    item->itemHeight = 20;
  }
  void DrawItem(LPDRAWITEMSTRUCT item) override {
    drawn.push_back(item->itemID);
    CDC* const dc = CDC::FromHandle(item->hDC);
    dc->FillSolidRect(&item->rcItem, static_cast<COLORREF>(item->itemData));
    colour = dc->GetPixel(item->rcItem.left + 5, item->rcItem.top + 5);
  }
  COLORREF colour = 0;
};

// Chooses the first item of the menu that it shows.
class Chooser : public CWnd {
 public:
  UINT command = 0;

 protected:
  afx_msg void OnEnterIdle(UINT why, CWnd* who) {
    CWnd::OnEnterIdle(why, who);
    if (why != MSGF_MENU || m_chosen) return;
    m_chosen = true;
    PostMessage(WM_KEYDOWN, VK_DOWN);
    PostMessage(WM_KEYDOWN, VK_RETURN);
  }
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
    command = LOWORD(wParam);
    return CWnd::OnCommand(wParam, lParam);
  }
  DECLARE_MESSAGE_MAP()

 private:
  bool m_chosen = false;
};

BEGIN_MESSAGE_MAP(Chooser, CWnd)
ON_WM_ENTERIDLE()
END_MESSAGE_MAP()

TEST_F(Menus, OwnerDrawnItemsAreMeasuredDrawnAndChosen) {
  Chooser owner;
  ASSERT_TRUE(owner.CreateEx(0, AfxRegisterWndClass(0), "Owner", WS_POPUP | WS_VISIBLE, 0, 0, 100,
                             100, nullptr, nullptr));
  ColouredMenu menu;
  ASSERT_TRUE(menu.CreatePopupMenu());
  menu.AppendMenu(MF_OWNERDRAW, kOpen, reinterpret_cast<LPCTSTR>(static_cast<UINT_PTR>(kGreen)));
  menu.AppendMenu(MF_OWNERDRAW, kCheck, reinterpret_cast<LPCTSTR>(static_cast<UINT_PTR>(kGreen)));
  EXPECT_TRUE(menu.TrackPopupMenu(TPM_LEFTALIGN, 20, 20, &owner));
  pumpMessages();
  EXPECT_EQ(owner.command, kOpen);
  EXPECT_EQ(menu.measured, std::vector<UINT>({kOpen, kCheck}));
  EXPECT_GE(menu.drawn.size(), 2u);
  EXPECT_EQ(menu.colour, kGreen);
}

}  // namespace
