// The list in a real window: what the user sees and does.
#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "lists/DialogSteps.h"
#include "support/LongRun.h"

namespace {

void pumpMessages() {
  MSG message;
  while (PeekMessage(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessage(&message);
  }
}

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

class ListWindowTest : public TestWithWindows {
 protected:
  ListWindowTest() {
    m_parent.CreateEx(0, AfxRegisterWndClass(0), "Lists", WS_POPUP | WS_VISIBLE, 0, 0, 500, 400,
                      nullptr, nullptr);
    Show(m_list);
    m_list.SetFocus();
  }
  ~ListWindowTest() override { m_parent.DestroyWindow(); }

  void Show(MListCtrl& list) {
    EXPECT_TRUE(list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 480, 300), &m_parent, 1000));
    pumpMessages();
  }
  // Whether the list takes Enter from the dialog that it is in.
  bool WantsEnter() {
    MSG enter = {m_list, WM_KEYDOWN, VK_RETURN, 1, 0, {0, 0}};
    return (m_list.SendMessage(WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&enter)) &
            DLGC_WANTMESSAGE) != 0;
  }

  const watchdog::ExpectWindows m_windows;
  CWnd m_parent;
  Files m_list;
};

}  // namespace

TEST_F(ListWindowTest, ShowsItsTextsWhateverTheOrder) {
  m_list.SetSortMethod(0, 1);
  for (uint32_t i = 0; i < 100; ++i)
    m_list.Add(-1, std::to_string(1000 + (i * 37) % 100).c_str(), i % 3, 0, i);
  EXPECT_EQ(m_list.CListCtrl::GetItemCount(), 100) << "the window knows all rows when it is asked";
  clickHeader(m_list, 0);
  for (int row = 0; row < 100; ++row) {
    EXPECT_EQ(atoi(shownText(m_list, row, 0)), 1000 + row);
    EXPECT_EQ(shownText(m_list, row, 3), m_list.GetItemText(row, 3));
  }
  EXPECT_NE(headerItem(m_list, 0).fmt & HDF_BITMAP, 0);
  const HBITMAP up = headerItem(m_list, 0).hbm;
  clickHeader(m_list, 0);
  EXPECT_EQ(atoi(shownText(m_list, 0, 0)), 1099) << "the other direction";
  EXPECT_NE(headerItem(m_list, 0).hbm, up);
  clickHeader(m_list, 2);
  EXPECT_TRUE(m_list.IsSortDescending()) << "that column's initial direction";
  EXPECT_EQ(headerItem(m_list, 0).fmt & HDF_BITMAP, 0);
  EXPECT_NE(headerItem(m_list, 2).fmt & HDF_BITMAP, 0);
}

// Columns that are hidden and dragged: a cell's text is asked for by the column's number.
TEST_F(ListWindowTest, CellsAreReadUnderTheirHeaders) {
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

namespace {

// What a list is to be like, done plainly.
struct Model {
  struct Item {
    std::string name;
    uint32_t size;
  };
  std::map<unsigned long, Item> items;
  Ids rows;
  std::set<unsigned long> selected;
  long focused = -1;
  std::string filter;
  int sortColumn = -1;
  bool descending = false;

  bool Passes(unsigned long id) { return items[id].name.find(filter) != std::string::npos; }
  void Sort() {
    if (sortColumn < 0) return;
    std::stable_sort(rows.begin(), rows.end(), [&](unsigned long one, unsigned long two) {
      if (descending) std::swap(one, two);
      return sortColumn == Files::kName ? items[one].name < items[two].name
                                        : items[one].size < items[two].size;
    });
  }
  void LeaveRow(size_t row) {
    const unsigned long id = rows[row];
    rows.erase(rows.begin() + static_cast<int>(row));
    selected.erase(id);
    if (focused != static_cast<long>(id)) return;
    focused = rows.empty() ? -1 : static_cast<long>(rows[std::min(row, rows.size() - 1)]);
  }
  // Unsorted rows stand in the order of 17 buckets by identifier / 16, the newest first in each;
  // identifiers grow here, so that is the highest.
  void Refilter() {
    rows.clear();
    for (unsigned long bucket = 0; bucket < 17; ++bucket)
      for (auto item = items.rbegin(); item != items.rend(); ++item)
        if ((item->first >> 4) % 17 == bucket && Passes(item->first)) rows.push_back(item->first);
    Sort();
    std::erase_if(selected, [&](unsigned long id) { return !Passes(id); });
    if (focused >= 0 && !Passes(static_cast<unsigned long>(focused))) focused = -1;
  }
};

}  // namespace

// The whole life of a list by chance: which rows there are and in which order, what is selected and
// what has the focus.
TEST_F(ListWindowTest, SelectionAndFocusStayWithTheirItems) {
  const int steps = IsLongRun() ? 10000 : 1000;
  m_parent.ShowWindow(SW_HIDE);  // painting takes most of the time
  Model model;
  std::mt19937 random(7);
  for (int step = 0; step < steps; ++step) {
    const int kind = static_cast<int>(random() % 100);
    const int row =
        m_list.GetItemCount() == 0 ? -1 : static_cast<int>(random() % model.rows.size());
    const unsigned long id = row < 0 ? 0 : model.rows[row];
    if (kind < 30 && model.items.size() < 120) {
      const std::string name{static_cast<char>('a' + random() % 6),
                             static_cast<char>('a' + random() % 6)};
      const uint32_t size = random() % 50;
      const unsigned long added = m_list.Add(-1, name.c_str(), 0, 0, size);
      model.items[added] = {name, size};
      if (model.Passes(added)) model.rows.push_back(added);
    } else if (kind < 72 && row < 0) {
      continue;
    } else if (kind < 45) {
      ASSERT_TRUE(m_list.DeleteItemId(id));
      model.LeaveRow(row);
      model.items.erase(id);
    } else if (kind < 48) {
      m_list.DeleteItem(row);
      model.LeaveRow(row);
    } else if (kind < 65) {
      m_list.SelectItem(row);
      model.selected.insert(id);
      model.focused = static_cast<long>(id);
    } else if (kind < 72) {
      m_list.SelectItem(row, 0);
      model.selected.erase(id);
    } else if (kind < 75) {
      m_list.InvertSelection();
      for (const unsigned long shown : model.rows)
        if (!model.selected.erase(shown)) model.selected.insert(shown);
    } else if (kind < 77) {
      m_list.SelectAll();
      model.selected.insert(model.rows.begin(), model.rows.end());
    } else if (kind < 88) {
      const int column = random() % 2 ? Files::kName : Files::kSize;
      const bool descending = random() % 2 != 0;
      const bool changes = column != model.sortColumn || descending != model.descending;
      model.sortColumn = column;
      model.descending = descending;
      m_list.SetSortKey(column, 0, descending);
      if (changes) model.Sort();
    } else if (kind < 98) {
      const std::string pattern =
          random() % 3 == 0 ? "" : std::string(1, static_cast<char>('a' + random() % 6));
      if (pattern == model.filter) continue;
      model.filter = pattern;
      m_list.SetFilter(0, pattern.c_str(), MListCtrl::FilterContains);
      model.Refilter();
    } else {
      pumpMessages();
    }
    SCOPED_TRACE(std::to_string(step) + " " + std::to_string(kind));
    ASSERT_EQ(m_list.Ids(), model.rows);
    const Ids now = m_list.Selected();
    ASSERT_EQ(std::set<unsigned long>(now.begin(), now.end()), model.selected);
    const int focusRow = m_list.GetNextItem(-1, LVNI_FOCUSED);
    ASSERT_EQ(focusRow < 0 ? -1 : static_cast<long>(m_list.GetItemData(focusRow)), model.focused);
  }
}

namespace {

struct Seen {
  std::vector<int> commands;
  std::vector<std::string> edits, menu;
  int menuRow = -2;
};

Seen& seenBy(void* client) { return *static_cast<Seen*>(client); }
int noteEdit(void* seen, const char* oldText, const char* newText) {
  seenBy(seen).edits.push_back(std::string(oldText) + ">" + newText);
  return strcmp(newText, "bad") != 0;
}
// Adds an entry, and has the user choose it by its letter.
void noteMenu(void* seen, int row, unsigned long, MPopupMenu& menu) {
  menu.AppendItem(MListCtrl::FirstUserCommand() + 3, "&Zip");
  seenBy(seen).menuRow = row;
  seenBy(seen).menu.clear();
  for (int i = 0; i < menu.GetCount(); ++i) seenBy(seen).menu.push_back(str(menu.GetText(i)));
  PostMessage(GetFocus(), WM_KEYDOWN, 'Z', 1);
  PostMessage(GetFocus(), WM_CHAR, 'z', 1);
}

}  // namespace

TEST_F(ListWindowTest, CallbacksTellWhatTheUserDoes) {
  const auto note = [](void* ids, unsigned long id) { static_cast<Ids*>(ids)->push_back(id); };
  Ids selected, opened;
  m_list.OnSelect(note, &selected);
  for (const char* const name : {"anna", "berta", "bertram", "Carl"}) m_list.Add(-1, name);
  m_list.SelectItem(0);
  EXPECT_FALSE(WantsEnter()) << "the dialog's default button gets it";
  m_list.OnDblClk(note, &opened);
  EXPECT_TRUE(WantsEnter());
  press(m_list, VK_DOWN);
  EXPECT_EQ(selected, (Ids{0, 1}));
  press(m_list, VK_RETURN);
  EXPECT_EQ(opened, Ids{1});
  press(m_list, 'A', true);
  EXPECT_EQ(m_list.GetSelectedCnt(), 4);
  EXPECT_EQ(m_list.GetSelectedItem(), 0u) << "more than one";
  EXPECT_EQ(m_list.GetSelectedItem(1), 1u);
  m_list.SetSortKey(0, 0, 1);
  EXPECT_EQ(selected, (Ids{0, 1})) << "sorting is no choice of the user";
  m_list.DeselectAll();
  m_list.SelectItemId(0);
  for (const char key : {'b', 'e', 'r', 't', 'a'}) m_list.SendMessage(WM_CHAR, key, 1);
  EXPECT_EQ(m_list.Selected(), Ids{1}) << "found by typing, though another b stands before it";
  EXPECT_EQ(m_list.FindItem("CARL"), 3);
  EXPECT_EQ(m_list.FindItem("car"), -1);
  m_list.SelectItem(2);
  m_list.OnSelect([](void* list, unsigned long) { static_cast<Files*>(list)->DeleteAll(); },
                  &m_list);
  EXPECT_TRUE(m_list.DeleteItemId(1)) << "one row is left selected, and the client fills anew";
  EXPECT_EQ(m_list.GetStoredCount(), 0);
}

TEST_F(ListWindowTest, TheContextMenuTakesEntriesOfTheClient) {
  Seen seen;
  m_list.MListCtrl::OnContextMenu(noteMenu, &seen);
  m_list.OnUserCommand([](void* client, int index) { seenBy(client).commands.push_back(index); },
                       &seen);
  m_list.OnLabelEdit(noteEdit, &seen);
  m_list.Add(-1, "a");
  m_list.SelectItem(0);
  const auto open = [&](LPARAM place) {
    m_list.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_list.m_hWnd), place);
  };
  const std::vector<std::string> always = {
      "Select All\tCtrl+A", "Invert Selection", "", "Sort By", "Reverse Order", "&Zip"};
  std::vector<std::string> onRow = {"Rename\tF2", ""};
  onRow.insert(onRow.end(), always.begin(), always.end());
  open(-1);
  EXPECT_EQ(seen.menuRow, 0) << "by a key";
  EXPECT_EQ(seen.menu, onRow);
  open(MAKELPARAM(300, 250));
  EXPECT_EQ(seen.menuRow, -1) << "below the rows";
  EXPECT_EQ(seen.menu, always);
  EXPECT_EQ(seen.commands, (std::vector<int>{3, 3}));
}

TEST_F(ListWindowTest, CommandsAndTheirHelp) {
  for (const char* const name : {"b", "a"}) m_list.Add(-1, name);
  const struct {
    UINT code;
    const char* text;  // empty: none
  } texts[] = {{10000, "Open"},         {10001, ""},
               {10003, "Select All"},   {10005, "Reverse Order"},
               {10008, "Sort By Time"}, {10010, ""}};
  for (const auto& c : texts) {
    char help[260] = "";
    EXPECT_EQ(m_list.GetCmdHelpMsg(c.code, help), *c.text != 0) << c.code;
    EXPECT_STREQ(help, c.text);
  }

  EXPECT_FALSE(m_list.ExecuteCode(MListCtrl::CommandReverseOrder)) << "not sorted";
  EXPECT_TRUE(m_list.ExecuteCode(10006));
  EXPECT_TRUE(m_list.ExecuteCode(10006));
  EXPECT_EQ(m_list.Ids(), (Ids{1, 0})) << "the current column stays as it is";
  m_list.SendMessage(WM_COMMAND, MListCtrl::CommandReverseOrder);
  EXPECT_EQ(m_list.Ids(), (Ids{0, 1}));
  EXPECT_FALSE(m_list.ExecuteCode(MListCtrl::CommandOpen)) << "there is no file";

  MPopupMenu menu;
  m_list.AttachSortMenu(menu);
  CMenu* const sort = menu.GetSubMenu(0);
  EXPECT_EQ(sort->GetMenuItemID(3), 10009u);
  EXPECT_NE(sort->GetMenuState(0, MF_BYPOSITION) & MF_CHECKED, 0u);
}

TEST_F(ListWindowTest, LabelsAreEditedWhenTheClientAccepts) {
  Seen seen;
  m_list.StoreMultiLine(1);
  m_list.OnLabelEdit(noteEdit, &seen);
  m_list.Add(-1, "old");
  m_list.Add(-1, "several\r\nlines");
  const auto edit = [&](int row, const char* text) {
    m_list.DeselectAll();
    m_list.SelectItem(row);
    press(m_list, VK_F2);
    CEdit* const control = m_list.GetEditControl();
    if (control == nullptr) return false;
    control->SetWindowText(text);
    control->SendMessage(WM_KEYDOWN, VK_RETURN, 1);
    pumpMessages();
    return true;
  };
  EXPECT_TRUE(edit(0, "bad"));
  EXPECT_EQ(str(m_list.GetItemText(0, 0)), "old");
  EXPECT_TRUE(edit(0, "new"));
  EXPECT_EQ(str(m_list.GetItemText(0, 0)), "new");
  EXPECT_EQ(seen.edits, (std::vector<std::string>{"old>bad", "old>new"}));
  EXPECT_FALSE(edit(1, "x")) << "a line of it would be lost";
}

TEST_F(ListWindowTest, SelectedRowsAreCopiedAsText) {
  m_list.Add(-1, "a", 1, 0, 7);
  m_list.Add(-1, "b", 2, 0, 8);
  m_list.Add(-1, "c", 0, 0, 9);
  int order[] = {3, 0, 1, 2};
  m_list.SetColumnOrderArray(4, order);
  m_list.SelectItem(0);
  m_list.SelectItem(2);
  press(m_list, 'C', true);
  ASSERT_TRUE(OpenClipboard(m_list));
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

TEST_F(ListWindowTest, WorkOnTheSelectedRowsMayChangeTheList) {
  for (int i = 0; i < 200; ++i) m_list.Add(-1, "x");
  m_list.SelectAll();
  m_list.SelectItem(5, 0);
  MListCtrl::IdArray ids;
  EXPECT_EQ(m_list.InitSelectedArray(ids), 199);
  std::set<DWORD> threads;
  const auto deleteItem = [](MListCtrl& list, unsigned long id, void* client) {
    static_cast<std::set<DWORD>*>(client)->insert(GetCurrentThreadId());
    return list.DeleteItemId(id) ? OperationDone : OperationFailed;
  };
  EXPECT_TRUE(m_list.DoForSelected(ids, deleteItem, &threads));
  EXPECT_EQ(m_list.Ids(), Ids{5});
  EXPECT_EQ(threads, std::set<DWORD>{GetCurrentThreadId()});
  EXPECT_FALSE(m_list.DoForSelected(ids, deleteItem, &threads, 0)) << "they are gone";
  const auto fail = [](MListCtrl&, unsigned long, void*) -> OperationReturnState { throw 1; };
  EXPECT_FALSE(m_list.DoForSelected(ids, fail, nullptr));
}

TEST_F(ListWindowTest, TipsShowCutTextsAndDescriptions) {
  m_list.Add(-1, "a name that is much longer than its column");
  m_list.Add(-1, "b");
  m_list.SetTooltip(1, "about b");
  m_list.SetColumnWidth(0, 60);
  pumpMessages();
  const auto move = [&](int row) {
    CRect cell;
    m_list.GetSubItemRect(row, 0, LVIR_LABEL, cell);
    const LPARAM point = MAKELPARAM(cell.CenterPoint().x, cell.CenterPoint().y);
    m_list.SendMessage(WM_MOUSEMOVE, 0, point);
    return point;
  };
  move(0);
  EXPECT_NE(m_list.ShownTip(), nullptr);
  // A double click on its divider makes the column fit its texts.
  m_list.GetHeaderCtrl()->SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(60, 8));
  const LPARAM point = move(1);
  EXPECT_EQ(m_list.ShownTip(), nullptr) << "the text is to be seen";
  m_list.SendMessage(WM_MOUSEHOVER, 0, point);
  EXPECT_NE(m_list.ShownTip(), nullptr);
  m_list.SendMessage(WM_MOUSELEAVE);
  EXPECT_EQ(m_list.ShownTip(), nullptr);
  move(0);
  EXPECT_EQ(m_list.ShownTip(), nullptr) << "the column fits its texts";
  EXPECT_LT(m_list.GetColumnWidth(0), m_list.GetStringWidth(m_list.GetItemText(0, 0)) + 30);
}
