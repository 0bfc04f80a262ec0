// The filters' dialogs, as the user sees and uses them.
#include "dialogs/Driver.h"
#include "lists/EnumFilterDialog.h"
#include "lists/ListTest.h"
#include "lists/filter_dialogs_ids.h"
#include "settings/RegistryUtil.h"
#include "support/RegistrySubtree.h"

namespace {

void choose(HWND window, int id, int entry) {
  SendDlgItemMessage(window, id, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
  SendMessage(window, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
              reinterpret_cast<LPARAM>(GetDlgItem(window, id)));
}

bool enabled(HWND window, int id) { return IsWindowEnabled(GetDlgItem(window, id)); }

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

// Temporary objects, which live until their thread is idle, end with the test.
class FilterDialogs : public testing::Test {
 protected:
  void TearDown() override {
    CWnd::DeleteTempMap();
    CGdiObject::DeleteTempMap();
    CDC::DeleteTempMap();
    CMenu::DeleteTempMap();
  }
};

}  // namespace

TEST_F(FilterDialogs, TextConditions) {
  const RegistrySubtree key;
  MRegistry::InitProductRegistry(key.c_str(), 1);
  StringFilter filter(MListCtrl::CompareStr, key.c_str());
  {
    Driver driver({[](HWND window) {
                     EXPECT_EQ(Driver::TextOf(window), "String Filter");
                     EXPECT_EQ(entries(window, IDC_FIRST_CONDITION).size(), 11u);
                     EXPECT_EQ(entries(window, IDC_FIRST_CONDITION)[0], "include all");
                     EXPECT_EQ(entries(window, IDC_SECOND_CONDITION)[0], "not activated");
                     EXPECT_EQ(entries(window, IDC_SECOND_CONDITION)[9], "contains");
                     EXPECT_FALSE(enabled(window, IDC_FIRST_TEXT));
                     EXPECT_FALSE(enabled(window, IDC_OR));
                     choose(window, IDC_FIRST_CONDITION, 3);
                     EXPECT_TRUE(enabled(window, IDC_FIRST_TEXT));
                     EXPECT_FALSE(enabled(window, IDC_SECOND_TEXT));
                     choose(window, IDC_SECOND_CONDITION, 9);
                     EXPECT_TRUE(enabled(window, IDC_SECOND_TEXT));
                     SetDlgItemText(window, IDC_FIRST_TEXT, "first");
                     SetDlgItemText(window, IDC_SECOND_TEXT, "second");
                   },
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
    Driver driver({[](HWND window) { SetDlgItemText(window, IDC_FIRST_TEXT, "other"); },
                   Driver::Press(VK_ESCAPE)});
    EXPECT_FALSE(saved.Edit());
  }
  EXPECT_EQ(str(saved.Get().firstText), "first") << "cancelled";

  StringFilter withoutComparison(nullptr, nullptr);
  withoutComparison.Set({StringFilter::Contains, 0, "x", "", 1});
  Driver driver(
      {[](HWND window) {
         EXPECT_EQ(entries(window, IDC_FIRST_CONDITION),
                   (std::vector<std::string>{"include all", "begins with", "does not begin with",
                                             "contains", "does not contain"}));
         choose(window, IDC_FIRST_CONDITION, 1);
       },
       Driver::Press(VK_RETURN)});
  EXPECT_TRUE(withoutComparison.Edit());
  EXPECT_EQ(withoutComparison.Get().firstCondition, StringFilter::BeginsWith);
  MRegistry::FreeProductRegistry();
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
  {
    Driver driver({[&](HWND window) {
                     EXPECT_EQ(Driver::TextOf(window), "Enumeration Filter");
                     click(window, 1);
                   },
                   [&](HWND window) { click(window, 0); }, [](HWND) {}, Driver::Click(IDOK)});
    EXPECT_TRUE(filter.Edit());
  }
  EXPECT_EQ(filter.GetMask() & 7, 6u);
  {
    Driver driver({Driver::Click(IDC_INVERT_VALUES), Driver::Click(IDOK)});
    EXPECT_TRUE(filter.Edit());
  }
  EXPECT_EQ(filter.GetMask() & 7, 1u);
  {
    Driver driver({Driver::Click(IDC_SELECT_ALL_VALUES), Driver::Click(IDOK)});
    EXPECT_TRUE(filter.Edit());
  }
  EXPECT_EQ(filter.GetMask() & 7, 7u);
}

TEST_F(FilterDialogs, RangesMustNotBeReversed) {
  NumericFilter numbers(nullptr);
  const auto isMessage = [](const char* part) {
    return [part](HWND window) {
      std::string all;
      for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
           child = GetWindow(child, GW_HWNDNEXT))
        all += Driver::TextOf(child);
      EXPECT_NE(all.find(part), std::string::npos) << all;
    };
  };
  {
    Driver driver({[](HWND window) {
                     EXPECT_EQ(Driver::TextOf(window), "Numeric Filter");
                     EXPECT_EQ(IsDlgButtonChecked(window, IDC_EXCLUDE), 1u) << "a new filter";
                     CheckRadioButton(window, IDC_INCLUDE, IDC_EXCLUDE, IDC_INCLUDE);
                     SetDlgItemText(window, IDC_FROM_NUMBER, "7");
                     SetDlgItemText(window, IDC_TO_NUMBER, "-7");
                   },
                   Driver::Click(IDOK), isMessage("Starting number is greater than ending number"),
                   Driver::Press(VK_RETURN),
                   [](HWND window) {
                     EXPECT_EQ(GetFocus(), GetDlgItem(window, IDC_FROM_NUMBER));
                     SetDlgItemText(window, IDC_FROM_NUMBER, "-9");
                   },
                   Driver::Click(IDOK)});
    EXPECT_TRUE(numbers.Edit());
  }
  EXPECT_EQ(numbers.GetFrom(), -9);
  EXPECT_EQ(numbers.GetTo(), -7);
  EXPECT_FALSE(numbers.GetInvert());

  TimeFilter times(nullptr);
  const CTime day(2020, 5, 17, 13, 14, 15), nextDay(2020, 5, 18, 1, 2, 3);
  times.Set(nextDay, day);
  {
    Driver driver({Driver::Click(IDOK), isMessage("Starting (From) date is greater"),
                   Driver::Press(VK_RETURN),
                   [&](HWND window) {
                     SYSTEMTIME time;
                     day.GetAsSystemTime(time);
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
