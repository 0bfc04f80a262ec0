// The filters' dialogs, as the user sees and uses them.
#include "lists/DialogSteps.h"
#include "lists/filter_dialogs_ids.h"

namespace {

using FilterDialogs = TestWithWindows;

// The entries of a combo box.
std::vector<std::string> entries(HWND window, int id) {
  std::vector<std::string> texts;
  for (LRESULT i = 0; i < SendDlgItemMessage(window, id, CB_GETCOUNT, 0, 0); ++i) {
    char text[100];
    SendDlgItemMessage(window, id, CB_GETLBTEXT, static_cast<WPARAM>(i),
                       reinterpret_cast<LPARAM>(text));
    texts.push_back(text);
  }
  return texts;
}

}  // namespace

TEST_F(FilterDialogs, TextConditions) {
  const UserKey key;
  StringFilter filter(MListCtrl::CompareStr, key.c_str());
  const std::vector<int> edits = {IDC_FIRST_TEXT, IDC_SECOND_TEXT, IDC_AND, IDC_OR};
  {
    Driver driver({expectTitle("String Filter"), expectEnabled(edits, "0000"),
                   [](HWND window) {
                     EXPECT_EQ(entries(window, IDC_FIRST_CONDITION).size(), 11u);
                     EXPECT_EQ(entries(window, IDC_FIRST_CONDITION)[0], "include all");
                     EXPECT_EQ(entries(window, IDC_SECOND_CONDITION)[0], "not activated");
                     EXPECT_EQ(entries(window, IDC_SECOND_CONDITION)[9], "contains");
                   },
                   choose(IDC_FIRST_CONDITION, 3), expectEnabled(edits, "1000"),
                   choose(IDC_SECOND_CONDITION, 9), expectEnabled(edits, "1111"),
                   type(IDC_FIRST_TEXT, "first"), type(IDC_SECOND_TEXT, "second"),
                   Driver::Click(IDC_OR), Driver::Click(IDOK)});
    EXPECT_TRUE(filter.Edit());
  }
  StringFilter saved(MListCtrl::CompareStr, key.c_str());
  saved.Reset(1);
  EXPECT_EQ(saved.Get().firstCondition, 3);
  EXPECT_EQ(saved.Get().secondCondition, 9);
  EXPECT_EQ(str(saved.Get().secondText), "second");
  EXPECT_FALSE(saved.Get().bothConditions);
  {
    Driver driver({type(IDC_FIRST_TEXT, "other"), Driver::Press(VK_ESCAPE)});
    EXPECT_FALSE(saved.Edit());
  }
  EXPECT_EQ(str(saved.Get().firstText), "first") << "cancelled";
}

TEST_F(FilterDialogs, ValuesAreBoxesInATree) {
  EnumFilter filter({"Same", "Modified", "New"}, nullptr);
  filter.SetMask(5);
  const auto click = [](HWND window, int box) {
    const HWND tree = GetDlgItem(window, IDC_VALUES);
    HTREEITEM item = TreeView_GetRoot(tree);
    for (int i = 0; i < box; ++i) item = TreeView_GetNextSibling(tree, item);
    RECT place;
    TreeView_GetItemRect(tree, item, &place, TRUE);
    const LPARAM point = MAKELPARAM(place.left - 10, (place.top + place.bottom) / 2);
    PostMessage(tree, WM_LBUTTONDOWN, MK_LBUTTON, point);
    PostMessage(tree, WM_LBUTTONUP, 0, point);
  };
  const auto edited = [&](std::vector<Driver::Step> steps) {
    steps.push_back(Driver::Click(IDOK));
    Driver driver(std::move(steps));
    EXPECT_TRUE(filter.Edit());
    return filter.GetMask() & 7;
  };
  EXPECT_EQ(edited({expectTitle("Enumeration Filter"), [&](HWND window) { click(window, 1); },
                    [&](HWND window) { click(window, 0); }, [](HWND) {}}),
            6u);
  EXPECT_EQ(edited({Driver::Click(IDC_INVERT_VALUES)}), 1u);
  EXPECT_EQ(edited({Driver::Click(IDC_SELECT_ALL_VALUES)}), 7u);
}

TEST_F(FilterDialogs, RangesMustNotBeReversed) {
  NumericFilter numbers(nullptr);
  {
    Driver driver({expectTitle("Numeric Filter"),
                   [](HWND window) {
                     EXPECT_TRUE(IsDlgButtonChecked(window, IDC_EXCLUDE)) << "a new filter";
                   },
                   Driver::Click(IDC_INCLUDE), type(IDC_FROM_NUMBER, "7"),
                   type(IDC_TO_NUMBER, "-7"), Driver::Click(IDOK),
                   Driver::UntilShown("Starting number is greater than ending number"),
                   Driver::Press(VK_RETURN),
                   [](HWND window) { EXPECT_EQ(GetFocus(), GetDlgItem(window, IDC_FROM_NUMBER)); },
                   type(IDC_FROM_NUMBER, "-9"), Driver::Click(IDOK)});
    EXPECT_TRUE(numbers.Edit());
  }
  EXPECT_EQ(numbers.GetFrom(), -9);
  EXPECT_EQ(numbers.GetTo(), -7);
  EXPECT_FALSE(numbers.GetInvert());

  TimeFilter times(nullptr);
  const CTime day(2020, 5, 17, 13, 14, 15), nextDay(2020, 5, 18, 1, 2, 3);
  times.Set(0, day);
  {
    Driver driver({Driver::Click(IDOK)});
    EXPECT_TRUE(times.Edit());
  }
  EXPECT_EQ(times.GetStart(), CTime(86400)) << "the first that is offered";
  times.Set(nextDay, day);
  {
    Driver driver({Driver::Click(IDOK),
                   Driver::UntilShown("Starting (From) date is greater than Ending (To) date"),
                   Driver::Press(VK_RETURN),
                   [&](HWND window) {
                     EXPECT_EQ(GetFocus(), GetDlgItem(window, IDC_FROM_DATE));
                     SYSTEMTIME time;
                     const HWND to = GetDlgItem(window, IDC_TO_DATE);
                     day.GetAsSystemTime(time);
                     time.wYear = 2050;
                     DateTime_SetSystemtime(to, GDT_VALID, &time);
                     DateTime_GetSystemtime(to, &time);
                     EXPECT_EQ(time.wYear, 2020) << "a time cannot be in that year";
                     SendDlgItemMessage(window, IDC_FROM_DATE, DTM_SETSYSTEMTIME, GDT_VALID,
                                        reinterpret_cast<LPARAM>(&time));
                   },
                   Driver::Click(IDOK)});
    EXPECT_TRUE(times.Edit());
  }
  EXPECT_EQ(times.GetStart(), CTime(2020, 5, 17, 1, 2, 3)) << "that day, at the time of the other";
  EXPECT_EQ(times.GetEnd(), day);
  EXPECT_TRUE(times.GetInvert());
}
