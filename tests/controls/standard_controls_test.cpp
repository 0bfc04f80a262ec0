#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/ControlTest.h"
#include "controls/Pixels.h"

namespace {

using Controls = ControlTest;

TEST_F(Controls, TextsOfAnyLengthComeBackWhole) {
  CEdit edit;
  ASSERT_TRUE(Make(edit, ES_MULTILINE | ES_AUTOHSCROLL));
  edit.SetLimitText(0);
  CListBox list;
  ASSERT_TRUE(Make(list, 0, kControl + 1));
  CComboBox combo;
  ASSERT_TRUE(Make(combo, CBS_DROPDOWN, kControl + 2));
  // Around the places where buffers grow, and more than a buffer on a stack holds.
  for (const int length : {0, 1, 2, 254, 255, 256, 257, 511, 512, 5000, 50000}) {
    const std::string expected(static_cast<size_t>(length), 'y');
    CString read("left over");
    edit.SetWindowText(expected.c_str());
    edit.GetWindowText(read);
    EXPECT_EQ(text(read), expected);
    m_parent.GetDlgItemText(kControl, read);
    EXPECT_EQ(text(read), expected);
    list.GetText(list.AddString(expected.c_str()), read);
    EXPECT_EQ(text(read), expected);
    combo.GetLBText(combo.AddString(expected.c_str()), read);
    EXPECT_EQ(text(read), expected);
  }
  CString none("left over");
  list.GetText(100, none);
  EXPECT_TRUE(none.IsEmpty());
  none = "left over";
  combo.GetLBText(-1, none);
  EXPECT_TRUE(none.IsEmpty());
}

// Sorts its items by their data, from the largest to the smallest, and draws them.
class NumberList : public CListBox {
 public:
  int measured = 0, deleted = 0;
  std::vector<ULONG_PTR> drawn;

  void MeasureItem(LPMEASUREITEMSTRUCT item) override {
    ++measured;
    item->itemHeight = 30;
  }
  int CompareItem(LPCOMPAREITEMSTRUCT items) override {
    return items->itemData1 < items->itemData2 ? 1 : items->itemData1 > items->itemData2 ? -1 : 0;
  }
  void DrawItem(LPDRAWITEMSTRUCT item) override {
    if (item->itemID != static_cast<UINT>(-1)) drawn.push_back(item->itemData);
  }
  void DeleteItem(LPDELETEITEMSTRUCT) override { ++deleted; }
  int VKeyToItem(UINT key, UINT) override { return key == 'X' ? 2 : -1; }
};

TEST_F(Controls, OwnerDrawnListsAnswerForThemselves) {
  NumberList list;
  ASSERT_TRUE(Make(list, LBS_OWNERDRAWFIXED | LBS_SORT | LBS_WANTKEYBOARDINPUT));
  EXPECT_EQ(list.measured, 1);
  EXPECT_EQ(list.GetItemHeight(0), 30);
  for (const int number : {5, 9, 7}) {
    list.AddString(reinterpret_cast<LPCTSTR>(static_cast<UINT_PTR>(number)));
  }
  list.drawn.clear();
  list.RedrawWindow();
  EXPECT_EQ(list.drawn, std::vector<ULONG_PTR>({9, 7, 5}));
  const LPARAM sender = reinterpret_cast<LPARAM>(list.m_hWnd);
  EXPECT_EQ(m_parent.SendMessage(WM_VKEYTOITEM, MAKEWPARAM('X', 0), sender), 2);
  EXPECT_EQ(m_parent.SendMessage(WM_VKEYTOITEM, MAKEWPARAM('Y', 0), sender), -1);
  list.DeleteString(0);
  EXPECT_EQ(list.deleted, 1);
  list.ResetContent();
  EXPECT_EQ(list.deleted, 3);
}

}  // namespace
