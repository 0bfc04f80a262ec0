// The list in a real window: what the user sees and does.
#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "lists/ListTest.h"
#include "support/LongRun.h"

namespace {

CString shownText(CListCtrl& list, int row, int column) {
  return list.CListCtrl::GetItemText(row, column);
}

HDITEM headerItem(CListCtrl& list, int column) {
  HDITEM item = {};
  item.mask = HDI_FORMAT | HDI_BITMAP;
  list.GetHeaderCtrl()->GetItem(column, &item);
  return item;
}

void clickHeader(MListCtrl& list, int column) {
  CRect place;
  list.GetHeaderCtrl()->GetItemRect(column, place);
  const LPARAM point = MAKELPARAM(place.CenterPoint().x, place.CenterPoint().y);
  list.GetHeaderCtrl()->PostMessage(WM_LBUTTONDOWN, MK_LBUTTON, point);
  list.GetHeaderCtrl()->PostMessage(WM_LBUTTONUP, 0, point);
  pumpMessages();
}

void press(MListCtrl& list, WPARAM key, bool control = false) {
  BYTE keys[256] = {};
  if (control) keys[VK_CONTROL] = 0x80;
  SetKeyboardState(keys);
  list.SendMessage(WM_KEYDOWN, key, 1);
  keys[VK_CONTROL] = 0;
  SetKeyboardState(keys);
  pumpMessages();
}

}  // namespace

TEST_F(ListWindowTest, ShowsItsTextsWhateverTheOrder) {
  Files list;
  list.SetSortMethod(0, 1);
  Show(list);
  for (int i = 0; i < 100; ++i) {
    CString name;
    name.Format("%02d", (i * 37) % 100);
    list.Add(-1, name, i % 3, 0, static_cast<uint32_t>(i));
  }
  EXPECT_EQ(list.CListCtrl::GetItemCount(), 100) << "the window knows all rows when it is asked";
  clickHeader(list, 0);
  EXPECT_EQ(list.GetSortColumn(), 0);
  for (int row = 0; row < 100; ++row) {
    EXPECT_EQ(atoi(shownText(list, row, 0)), row);
    EXPECT_EQ(shownText(list, row, 3), list.GetItemText(row, 3));
  }
  EXPECT_NE(headerItem(list, 0).fmt & HDF_BITMAP, 0);
  const HBITMAP up = headerItem(list, 0).hbm;
  clickHeader(list, 0);
  EXPECT_EQ(atoi(shownText(list, 0, 0)), 99) << "the other direction";
  EXPECT_NE(headerItem(list, 0).hbm, up);
  clickHeader(list, 2);
  EXPECT_TRUE(list.IsSortDescending()) << "that column's initial direction";
  EXPECT_EQ(headerItem(list, 0).fmt & HDF_BITMAP, 0);
  EXPECT_NE(headerItem(list, 2).fmt & HDF_BITMAP, 0);
}

// Columns that are hidden and dragged: a cell's text is asked for by the column's number.
TEST_F(ListWindowTest, CellsAreReadUnderTheirHeaders) {
  Files list;
  list.SetEnabledColumns(~2ul);
  MListCtrl shown;
  shown.SetEnabledColumns(~2ul);
  shown.AddColumn("Name", MListCtrl::CompareStr);
  shown.AddColumn("Hidden", MListCtrl::CompareStr);
  shown.AddNumericColumn("Size");
  Show(shown);
  shown.AddColumn("Late", MListCtrl::CompareStr);
  const char* const values[] = {"name", "hidden", number(5), "late", "about"};
  shown.AddItem(1, values, 1);
  int order[] = {3, 1, 0, 2};
  shown.SetColumnOrderArray(4, order);
  EXPECT_EQ(shown.FindItem("NAME"), 0) << "in the first column as declared";
  const char* const expected[][2] = {
      {"Name", "name"}, {"Size", "5)"}, {"Late", "late"}, {"Description", "about"}};
  ASSERT_EQ(shown.GetHeaderCtrl()->GetItemCount(), 4);
  for (int column = 0; column < 4; ++column) {
    char title[40];
    HDITEM item = {};
    item.mask = HDI_TEXT;
    item.pszText = title;
    item.cchTextMax = sizeof title;
    shown.GetHeaderCtrl()->GetItem(column, &item);
    EXPECT_STREQ(title, expected[column][0]);
    EXPECT_EQ(str(shownText(shown, 0, column)), expected[column][1]);
  }
}

// The whole life of a list by chance, against a plain model: which rows there are and in which
// order, what is selected and what has the focus.
TEST_F(ListWindowTest, SelectionAndFocusStayWithTheirItems) {
  const int kSteps = IsLongRun() ? 10000 : 1000;
  Files list;
  Show(list);
  struct Item {
    std::string name;
    uint32_t size;
  };
  std::map<unsigned long, Item> items;
  std::vector<unsigned long> rows;
  std::set<unsigned long> selected;
  long focused = -1;
  std::string filter;
  int sortColumn = -1;
  bool descending = false;
  std::mt19937 random(7);

  const auto passes = [&](unsigned long id) {
    return items[id].name.find(filter) != std::string::npos;
  };
  const auto sortRows = [&] {
    if (sortColumn < 0) return;
    std::stable_sort(rows.begin(), rows.end(), [&](unsigned long one, unsigned long two) {
      if (descending) std::swap(one, two);
      return sortColumn == Files::kName ? items[one].name < items[two].name
                                        : items[one].size < items[two].size;
    });
  };
  const auto leaveRow = [&](size_t row) {
    const unsigned long id = rows[row];
    rows.erase(rows.begin() + static_cast<int>(row));
    selected.erase(id);
    if (focused != static_cast<long>(id)) return;
    focused = rows.empty() ? -1 : static_cast<long>(rows[std::min(row, rows.size() - 1)]);
  };
  const auto refilter = [&] {
    rows.clear();
    for (unsigned long bucket = 0; bucket < 17; ++bucket) {
      std::vector<unsigned long> inBucket;  // identifiers grow: the newest has the highest
      for (const auto& [id, item] : items)
        if ((id >> 4) % 17 == bucket && passes(id)) inBucket.insert(inBucket.begin(), id);
      rows.insert(rows.end(), inBucket.begin(), inBucket.end());
    }
    sortRows();
    std::erase_if(selected, [&](unsigned long id) { return !passes(id); });
    if (focused >= 0 && !passes(static_cast<unsigned long>(focused))) focused = -1;
  };

  for (int step = 0; step < kSteps; ++step) {
    const int kind = static_cast<int>(random() % 100);
    const size_t row = rows.empty() ? 0 : random() % rows.size();
    if (kind < 30 && items.size() < 120) {
      const std::string name{static_cast<char>('a' + random() % 6),
                             static_cast<char>('a' + random() % 6)};
      const uint32_t size = random() % 50;
      const unsigned long id = list.Add(-1, name.c_str(), 0, 0, size);
      items[id] = {name, size};
      if (passes(id)) rows.push_back(id);
    } else if (kind < 45 && !rows.empty()) {
      const unsigned long id = rows[row];
      ASSERT_TRUE(list.DeleteItemId(id));
      leaveRow(row);
      items.erase(id);
    } else if (kind < 48 && !rows.empty()) {
      list.DeleteItem(static_cast<int>(row));
      leaveRow(row);
    } else if (kind < 65 && !rows.empty()) {
      list.SelectItem(static_cast<int>(row));
      selected.insert(rows[row]);
      focused = static_cast<long>(rows[row]);
    } else if (kind < 72 && !rows.empty()) {
      list.SelectItem(static_cast<int>(row), 0);
      selected.erase(rows[row]);
    } else if (kind < 75) {
      list.InvertSelection();
      for (const unsigned long id : rows)
        if (!selected.erase(id)) selected.insert(id);
    } else if (kind < 77) {
      list.SelectAll();
      selected.insert(rows.begin(), rows.end());
    } else if (kind < 88) {
      sortColumn = random() % 2 ? Files::kName : Files::kSize;
      const bool other = sortColumn != list.GetSortColumn() ||
                         (random() % 2 != 0) != (list.IsSortDescending() != 0);
      descending = sortColumn != list.GetSortColumn() ? random() % 2 != 0
                   : other                            ? !list.IsSortDescending()
                                                      : list.IsSortDescending() != 0;
      const bool changes =
          sortColumn != list.GetSortColumn() || descending != (list.IsSortDescending() != 0);
      list.SetSortKey(sortColumn, 0, descending);
      if (changes) sortRows();
    } else if (kind < 98) {
      const std::string pattern =
          random() % 3 == 0 ? "" : std::string(1, static_cast<char>('a' + random() % 6));
      if (pattern == filter) continue;
      filter = pattern;
      list.SetFilter(0, filter.c_str(), MListCtrl::FilterContains);
      refilter();
    } else {
      pumpMessages();
    }
    ASSERT_EQ(list.Ids(), rows) << step << " " << kind;
    const std::vector<unsigned long> now = list.Selected();
    ASSERT_EQ(std::set<unsigned long>(now.begin(), now.end()), selected) << step << " " << kind;
    const int focusRow = list.GetNextItem(-1, LVNI_FOCUSED);
    ASSERT_EQ(focusRow < 0 ? -1 : static_cast<long>(list.GetItemData(focusRow)), focused)
        << step << " " << kind;
  }
}

namespace {

struct Seen {
  Ids selected, opened;
  std::vector<int> commands;
  std::vector<std::string> edits;
  std::vector<std::string> menu;
  int menuRow = -2;
};

void noteSelected(void* seen, unsigned long id) {
  static_cast<Seen*>(seen)->selected.push_back(id);
}
void noteOpened(void* seen, unsigned long id) { static_cast<Seen*>(seen)->opened.push_back(id); }
void noteCommand(void* seen, int index) { static_cast<Seen*>(seen)->commands.push_back(index); }
int noteEdit(void* seen, const char* oldText, const char* newText) {
  static_cast<Seen*>(seen)->edits.push_back(std::string(oldText) + ">" + newText);
  return strcmp(newText, "bad") != 0;
}
// Adds an entry, and has the user choose it by its letter.
void noteMenu(void* seen, int row, unsigned long, MPopupMenu& menu) {
  static_cast<Seen*>(seen)->menuRow = row;
  menu.AppendItem(MListCtrl::FirstUserCommand() + 3, "&Zip");
  for (int i = 0; i < menu.GetCount(); ++i)
    static_cast<Seen*>(seen)->menu.push_back(str(menu.GetText(i)));
  PostMessage(GetFocus(), WM_KEYDOWN, 'Z', 1);
  PostMessage(GetFocus(), WM_CHAR, 'z', 1);
}

}  // namespace

TEST_F(ListWindowTest, CallbacksTellWhatTheUserDoes) {
  Files list;
  Seen seen;
  list.OnSelect(noteSelected, &seen);
  list.OnDblClk(noteOpened, &seen);
  Show(list);
  list.SetFocus();
  for (const char* const name : {"anna", "berta", "bertram", "Carl"}) list.Add(-1, name);
  list.SelectItem(0);
  press(list, VK_DOWN);
  EXPECT_EQ(seen.selected, (Ids{0, 1}));
  press(list, VK_RETURN);
  EXPECT_EQ(seen.opened, Ids{1});
  press(list, 'A', true);
  EXPECT_EQ(list.GetSelectedCnt(), 4);
  EXPECT_EQ(list.GetSelectedItem(), 0u) << "more than one";
  EXPECT_EQ(list.GetSelectedItem(1), 1u);
  list.SetSortKey(0, 0, 1);
  EXPECT_EQ(seen.selected, (Ids{0, 1})) << "sorting is no choice of the user";
  list.DeselectAll();
  list.SelectItemId(0);
  for (const char key : {'b', 'e', 'r', 't', 'a'}) list.SendMessage(WM_CHAR, key, 1);
  EXPECT_EQ(list.Selected(), Ids{1}) << "found by typing, though another b stands before it";
  EXPECT_EQ(list.FindItem("CARL"), 3);
  EXPECT_EQ(list.FindItem("car"), -1);
}

TEST_F(ListWindowTest, TheContextMenuOpensByKeyAndTakesEntriesOfTheClient) {
  Files list;
  Seen seen;
  list.MListCtrl::OnContextMenu(noteMenu, &seen);
  list.OnUserCommand(noteCommand, &seen);
  list.OnLabelEdit(noteEdit, &seen);
  Show(list);
  list.Add(-1, "a");
  list.SelectItem(0);
  list.SetFocus();
  list.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list.m_hWnd), -1);
  EXPECT_EQ(seen.menuRow, 0);
  EXPECT_EQ(seen.commands, std::vector<int>{3});
  EXPECT_EQ(seen.menu,
            (std::vector<std::string>{"Rename\tF2", "", "Select All\tCtrl+A", "Invert Selection",
                                      "", "Sort By", "Reverse Order", "&Zip"}));
}

TEST_F(ListWindowTest, CommandsAndTheirHelp) {
  Files list;
  Show(list);
  for (const char* const name : {"b", "a"}) list.Add(-1, name);
  char help[260];
  const struct {
    UINT code;
    const char* text;
  } texts[] = {{10000, "Open"},          {10001, nullptr},        {10003, "Select All"},
               {10005, "Reverse Order"}, {10008, "Sort By Time"}, {10010, nullptr}};
  for (const auto& c : texts) {
    EXPECT_EQ(list.GetCmdHelpMsg(c.code, help), c.text != nullptr) << c.code;
    if (c.text != nullptr) {
      EXPECT_STREQ(help, c.text);
    }
  }
  EXPECT_TRUE(MListCtrl::MenuCodeFound(10051));
  EXPECT_FALSE(MListCtrl::MenuCodeFound(10052));

  EXPECT_FALSE(list.ExecuteCode(MListCtrl::CommandReverseOrder)) << "not sorted";
  EXPECT_TRUE(list.ExecuteCode(10006));
  EXPECT_EQ(list.Ids(), (Ids{1, 0}));
  EXPECT_TRUE(list.ExecuteCode(10006));
  EXPECT_EQ(list.Ids(), (Ids{1, 0})) << "the current column stays as it is";
  list.SendMessage(WM_COMMAND, MListCtrl::CommandReverseOrder);
  EXPECT_EQ(list.Ids(), (Ids{0, 1}));
  list.SelectItem(0);
  list.ExecuteCode(MListCtrl::CommandInvertSelection);
  EXPECT_EQ(list.Selected(), Ids{1});
  EXPECT_FALSE(list.ExecuteCode(MListCtrl::CommandOpen)) << "there is no file";

  MPopupMenu menu;
  list.AttachSortMenu(menu);
  CMenu* const sort = menu.GetSubMenu(0);
  ASSERT_EQ(sort->GetMenuItemCount(), 4u);
  EXPECT_EQ(sort->GetMenuItemID(3), 10009u);
  EXPECT_NE(sort->GetMenuState(0, MF_BYPOSITION) & MF_CHECKED, 0u);
}

TEST_F(ListWindowTest, LabelsAreEditedWhenTheClientAccepts) {
  Files list(1);
  Seen seen;
  Show(list);
  list.OnLabelEdit(noteEdit, &seen);
  list.SetFocus();
  list.Add(-1, "old");
  list.Add(-1, "several\r\nlines");
  const auto edit = [&](int row, const char* text) {
    list.DeselectAll();
    list.SelectItem(row);
    press(list, VK_F2);
    CEdit* const control = list.GetEditControl();
    if (control == nullptr) return false;
    control->SetWindowText(text);
    control->SendMessage(WM_KEYDOWN, VK_RETURN, 1);
    pumpMessages();
    return true;
  };
  EXPECT_TRUE(edit(0, "bad"));
  EXPECT_EQ(str(list.GetItemText(0, 0)), "old");
  EXPECT_TRUE(edit(0, "new"));
  EXPECT_EQ(str(list.GetItemText(0, 0)), "new");
  EXPECT_EQ(seen.edits, (std::vector<std::string>{"old>bad", "old>new"}));
  EXPECT_FALSE(edit(1, "x")) << "a line of it would be lost";
}

TEST_F(ListWindowTest, SelectedRowsAreCopiedAsText) {
  Files list;
  Show(list);
  list.Add(-1, "a", 1, 0, 7);
  list.Add(-1, "b", 2, 0, 8);
  list.Add(-1, "c", 0, 0, 9);
  int order[] = {3, 0, 1, 2};
  list.SetColumnOrderArray(4, order);
  list.SelectItem(0);
  list.SelectItem(2);
  list.SetFocus();
  press(list, 'C', true);
  ASSERT_TRUE(OpenClipboard(list));
  const HANDLE data = GetClipboardData(CF_TEXT);
  EXPECT_STREQ(static_cast<const char*>(GlobalLock(data)),
               "7)\ta\tModified\t{N/A}\r\n9)\tc\tSame\t{N/A}\r\n");
  GlobalUnlock(data);
  EmptyClipboard();
  CloseClipboard();
}

TEST_F(ListWindowTest, TakesTheControlOfADialog) {
  CListCtrl plain;
  ASSERT_TRUE(plain.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | LVS_LIST | LVS_SORTASCENDING,
                           CRect(10, 20, 200, 100), &m_parent, 55));
  plain.Detach();
  Files list;
  list.Add(-1, "before");
  EXPECT_FALSE(list.Subclass(&m_parent, 56));
  ASSERT_TRUE(list.Subclass(&m_parent, 55));
  EXPECT_EQ(GetDlgItem(m_parent, 55), list.m_hWnd);
  CRect place;
  list.GetWindowRect(place);
  m_parent.ScreenToClient(place);
  EXPECT_EQ(place, CRect(10, 20, 200, 100));
  EXPECT_EQ(str(shownText(list, 0, 0)), "before");
  EXPECT_EQ(list.GetHeaderCtrl()->GetItemCount(), 4);
}

namespace {

OperationReturnState deleteItem(MListCtrl& list, unsigned long id, void* threads) {
  static_cast<std::set<DWORD>*>(threads)->insert(GetCurrentThreadId());
  return list.DeleteItemId(id) ? OperationDone : OperationFailed;
}

}  // namespace

TEST_F(ListWindowTest, WorkOnTheSelectedRowsMayChangeTheList) {
  Files list;
  Show(list);
  for (int i = 0; i < 200; ++i) list.Add(-1, "x");
  list.SelectAll();
  list.SelectItem(5, 0);
  MListCtrl::IdArray ids;
  EXPECT_EQ(list.InitSelectedArray(ids), 199);
  std::set<DWORD> threads;
  EXPECT_TRUE(list.DoForSelected(ids, deleteItem, &threads));
  EXPECT_EQ(list.Ids(), Ids{5});
  EXPECT_EQ(threads, std::set<DWORD>{GetCurrentThreadId()});
}

TEST_F(ListWindowTest, AColumnFitsItsTextsAtADoubleClickOnItsDivider) {
  Files list;
  Show(list);
  for (int i = 0; i < 50; ++i) list.Add(-1, i == 40 ? "the longest name of all of them" : "short");
  list.SetColumnWidth(0, 30);
  const LPARAM divider = MAKELPARAM(30, 8);
  list.GetHeaderCtrl()->SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, divider);
  const int needed = list.GetStringWidth(list.GetItemText(40, 0));
  EXPECT_GT(list.GetColumnWidth(0), needed) << "a row out of sight counts, too";
  EXPECT_LT(list.GetColumnWidth(0), needed + 30);
}

TEST_F(ListWindowTest, EnterIsTheListsOnlyWhenItHasAUseForIt) {
  Files list;
  Seen seen;
  Show(list);
  list.Add(-1, "a");
  MSG enter = {list, WM_KEYDOWN, VK_RETURN, 1, 0, {0, 0}};
  const auto wants = [&] {
    return (list.SendMessage(WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&enter)) &
            DLGC_WANTMESSAGE) != 0;
  };
  list.SelectItem(0);
  EXPECT_FALSE(wants()) << "the dialog's default button gets it";
  list.OnDblClk(noteOpened, &seen);
  EXPECT_TRUE(wants());
}

TEST_F(ListWindowTest, TipsShowCutTextsAndDescriptions) {
  Files list;
  Show(list);
  list.Add(-1, "a name that is much longer than its column");
  list.Add(-1, "b");
  list.SetTooltip(1, "about b");
  list.SetColumnWidth(0, 60);
  pumpMessages();
  const auto move = [&](int row) {
    CRect cell;
    list.GetSubItemRect(row, 0, LVIR_LABEL, cell);
    const LPARAM point = MAKELPARAM(cell.CenterPoint().x, cell.CenterPoint().y);
    list.SendMessage(WM_MOUSEMOVE, 0, point);
    return point;
  };
  move(0);
  EXPECT_NE(list.ShownTip(), nullptr);
  list.SetColumnWidth(0, 400);
  const LPARAM point = move(1);
  EXPECT_EQ(list.ShownTip(), nullptr) << "the text is to be seen";
  list.SendMessage(WM_MOUSEHOVER, 0, point);
  EXPECT_NE(list.ShownTip(), nullptr);
  list.SendMessage(WM_MOUSELEAVE);
  EXPECT_EQ(list.ShownTip(), nullptr);

  list.FitColumn(0);
  EXPECT_GT(list.GetColumnWidth(0), list.GetStringWidth(list.GetItemText(0, 0)));
  move(0);
  EXPECT_EQ(list.ShownTip(), nullptr) << "the column fits its texts";
}
