#include <afxcmn.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/ControlTest.h"

namespace {

using List = ControlTest;

constexpr int kRows = 100000;

// Rows whose texts are made when they are asked for.
class VirtualList : public CListCtrl {
 public:
  int asked = 0;
  std::string longText = std::string(3000, 'x');

 protected:
  afx_msg void OnGetDispInfo(NMHDR* header, LRESULT*) {
    ++asked;
    LVITEM& item = reinterpret_cast<NMLVDISPINFO*>(header)->item;
    if ((item.mask & LVIF_TEXT) == 0) return;
    if (item.iSubItem == 2)
      lstrcpyn(item.pszText, longText.c_str(), item.cchTextMax);
    else
      snprintf(item.pszText, static_cast<size_t>(item.cchTextMax), "%d.%d", item.iItem,
               item.iSubItem);
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(VirtualList, CListCtrl)
ON_NOTIFY_REFLECT(LVN_GETDISPINFO, OnGetDispInfo)
END_MESSAGE_MAP()

TEST_F(List, AHundredThousandVirtualRows) {
  VirtualList list;
  ASSERT_TRUE(Make(list, LVS_REPORT | LVS_OWNERDATA));
  list.InsertColumn(0, "Row", LVCFMT_LEFT, 100);
  list.InsertColumn(1, "Half", LVCFMT_RIGHT, 100, 1);
  list.InsertColumn(2, "Long", LVCFMT_LEFT, 100, 2);
  EXPECT_TRUE(list.SetItemCountEx(kRows, LVSICF_NOSCROLL));
  EXPECT_EQ(list.GetItemCount(), kRows);
  EXPECT_EQ(text(list.GetItemText(kRows - 1, 1)), "99999.1");
  EXPECT_EQ(text(list.GetItemText(7, 2)), list.longText);

  EXPECT_TRUE(list.EnsureVisible(kRows - 1, FALSE));
  list.asked = 0;
  list.RedrawWindow();
  EXPECT_GT(list.asked, 0);
  EXPECT_LT(list.asked, 500) << "only what is shown is asked for";
  EXPECT_GT(list.GetTopIndex(), kRows - 100);

  for (const int row : {5, 40000, 99999}) {
    list.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
  }
  EXPECT_EQ(list.GetSelectedCount(), 3u);
  std::vector<int> selected;
  for (POSITION pos = list.GetFirstSelectedItemPosition(); pos != nullptr;)
    selected.push_back(list.GetNextSelectedItem(pos));
  EXPECT_EQ(selected, std::vector<int>({5, 40000, 99999}));
  list.SetItemState(-1, 0, LVIS_SELECTED);
  EXPECT_EQ(list.GetSelectedCount(), 0u);
  EXPECT_EQ(list.GetFirstSelectedItemPosition(), nullptr);
}

TEST_F(List, ItemsKeepTextsOfAnyLengthAndData) {
  CListCtrl list;
  ASSERT_TRUE(Make(list, LVS_REPORT));
  list.InsertColumn(0, "Text", LVCFMT_LEFT, 100);
  list.InsertColumn(1, "Sub", LVCFMT_LEFT, 100, 1);
  for (const size_t length : {0, 1, 253, 254, 255, 256, 257, 511, 512, 10000}) {
    const std::string expected(length, 'y');
    const int item = list.InsertItem(list.GetItemCount(), "item");
    EXPECT_TRUE(list.SetItemText(item, 1, expected.c_str()));
    EXPECT_TRUE(list.SetItemData(item, 77 + length));
    EXPECT_EQ(text(list.GetItemText(item, 1)), expected);
    EXPECT_EQ(text(list.GetItemText(item, 0)), "item");
    EXPECT_EQ(list.GetItemData(item), 77 + length);
  }
  EXPECT_EQ(text(list.GetItemText(1000, 0)), "");
  char buffer[5] = "";
  list.SetItemText(0, 0, "0123456789");
  EXPECT_EQ(list.GetItemText(0, 0, buffer, sizeof buffer), 4);
  EXPECT_STREQ(buffer, "0123");
  EXPECT_FALSE(list.DeleteItem(1000));
}

// Accepts labels that are not empty.
class Labels : public CListCtrl {
 public:
  std::string accepted;

 protected:
  afx_msg void OnEndLabelEdit(NMHDR* header, LRESULT* result) {
    const LVITEM& item = reinterpret_cast<NMLVDISPINFO*>(header)->item;
    *result = item.pszText != nullptr && *item.pszText != '\0';
    if (*result != 0) accepted = item.pszText;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Labels, CListCtrl)
ON_NOTIFY_REFLECT(LVN_ENDLABELEDIT, OnEndLabelEdit)
END_MESSAGE_MAP()

TEST_F(List, LabelsAreEdited) {
  Labels list;
  ASSERT_TRUE(Make(list, LVS_REPORT | LVS_EDITLABELS));
  list.InsertColumn(0, "Name", LVCFMT_LEFT, 100);
  list.InsertItem(0, "old name");
  const struct {
    const char* typed;
    WPARAM key;
    const char* after;
  } edits[] = {{"new name", VK_RETURN, "new name"},
               {"", VK_RETURN, "new name"},
               {"x", VK_ESCAPE, "new name"}};
  for (const auto& edit : edits) {
    list.SetFocus();
    CEdit* const control = list.EditLabel(0);
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(list.GetEditControl(), control);
    control->SetWindowText(edit.typed);
    control->SendMessage(WM_KEYDOWN, edit.key);
    EXPECT_EQ(text(list.GetItemText(0, 0)), edit.after);
    EXPECT_EQ(list.GetEditControl(), nullptr);
  }
  EXPECT_EQ(list.accepted, "new name");
}

}  // namespace
