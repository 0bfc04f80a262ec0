// What a list does without a window: items, texts, filter, order.
#include <climits>
#include <map>
#include <random>
#include <stdexcept>

#include "lists/ListTest.h"
#include "support/AssertionLog.h"
#include "support/CodePage.h"

TEST(ListItems, AutomaticIdentifiersSkipThoseThatAreTaken) {
  Files list;
  EXPECT_EQ(list.Add(-1, "a"), 0u);
  EXPECT_EQ(list.Add(1, "b"), 1u);
  EXPECT_EQ(list.Add(-1, "c"), 2u);
  AssertionLog log;
  EXPECT_EQ(list.Add(1, "again"), MListCtrl::kAutomaticId);
  EXPECT_TRUE(log.Names("MListCtrlItems"));
  EXPECT_EQ(list.GetItemCount(), 3);
  EXPECT_EQ(str(list.GetItemIdText(1, 0)), "b");
  EXPECT_EQ(list.FindItem(0), 0) << "an identifier, not a null text";
}

TEST(ListItems, CellTexts) {
  Files list;
  list.Add(7, "one\rtwo", 5, 0, 7);
  list.Add(8, "", 2, 86400 * 365, static_cast<uint32_t>(-3));
  list.StoreMultiLine(1);
  list.Add(9, "one\r\ntwo");
  const struct {
    unsigned long id;
    int column;
    const char* text;
  } cases[] = {{7, 0, "one"}, {7, 1, " Error (0x5)"}, {7, 2, "{N/A}"}, {7, 3, "7)"},
               {8, 0, ""},    {8, 1, "New"},          {8, 3, "-3)"},   {6, 0, " Error"},
               {9, 0, "one"}, {7, 17, " Error"}};
  for (const auto& c : cases)
    EXPECT_EQ(str(list.GetItemIdText(c.id, c.column)), c.text) << c.id << " " << c.column;
  EXPECT_EQ(str(list.GetItemIdText(7, 0, 1)), "one") << "the rest was not kept";
  EXPECT_EQ(str(list.GetItemIdText(9, 0, 1)), "one\r\ntwo");
  list.SetDisplayTz(0);
  list.SetDisplayTimeFormat("yyyy-MM-dd|HH:mm");
  EXPECT_EQ(str(list.GetItemIdText(8, 2)).substr(0, 5), "1971-");
  EXPECT_EQ(list.GetItemIdTime(8, 3), -1) << "of another kind";
  EXPECT_EQ(list.GetItemIdNum(6, 3), -1) << "unknown";
}

TEST(ListItems, DescriptionsAreAColumnOfTheirOwn) {
  Files list;
  list.Add(1, "a");
  EXPECT_EQ(list.GetVisibleColNum(), 4);
  EXPECT_TRUE(list.SetTooltip(1, "first\rsecond"));
  EXPECT_FALSE(list.SetTooltip(2, "x"));
  EXPECT_EQ(list.GetVisibleColNum(), 5);
  EXPECT_EQ(str(list.GetItemIdText(1, 4, 1)), "first\rsecond");
  EXPECT_TRUE(list.SetTooltip(1, ""));
  EXPECT_EQ(str(list.GetItemIdText(1, MListCtrl::kDescription, 1, 1)), "");
  EXPECT_EQ(list.GetVisibleColNum(), 5) << "it stays";
}

TEST(ListItems, Updates) {
  Files list;
  list.Add(1, "a", 0, 0, 5);
  char data[] = "b\tModified\t12\t-9\tabout it";
  EXPECT_TRUE(list.UpdateItem(1, data, 1));
  EXPECT_EQ(str(list.GetItemIdText(1, 0)), "b");
  EXPECT_EQ(list.GetItemIdEnum(1, 1), 1);
  EXPECT_EQ(list.GetItemIdTime(1, 2), 12);
  EXPECT_EQ(list.GetItemIdNum(1, 3), -9);
  EXPECT_EQ(str(list.GetRowTip(0)), "about it");
  list.SetFilter(0, "c", MListCtrl::FilterEqual);
  EXPECT_EQ(list.GetItemCount(), 0);
  EXPECT_TRUE(list.UpdateItemField(1, 0, "c", 1));
  EXPECT_EQ(list.GetItemCount(), 1);
  EXPECT_TRUE(list.UpdateItemField(1, 0, "d", 0));
  EXPECT_EQ(list.GetItemCount(), 1) << "stays until it is decided anew";
  list.Refilter();
  EXPECT_EQ(list.GetItemCount(), 0);
  EXPECT_FALSE(list.UpdateItemField(2, 0, "x", 1));
}

TEST(ListColumns, TwentyFiveAndNoMore) {
  MListCtrl list;
  list.SetEnabledColumns(~4ul);
  for (int i = 0; i < 25; ++i)
    EXPECT_TRUE(list.AddColumn(std::to_string(i).c_str(), MListCtrl::CompareStr));
  AssertionLog log;
  EXPECT_FALSE(list.AddNumericColumn("26"));
  EXPECT_FALSE(log.Empty());
  EXPECT_EQ(list.GetColumnCount(), 25);
  EXPECT_EQ(list.GetVisibleColNum(), 24);
  EXPECT_EQ(list.CalcColIdx(2), 3) << "data column 2 is not shown";
  EXPECT_EQ(list.CalcColIdx("2"), 2);
  EXPECT_EQ(list.CalcColIdx(24), -1);
}

TEST(ListColumns, AddedWhenThereAreItems) {
  Files list;
  for (int i = 0; i < 5000; ++i) list.Add(-1, "x", 1, 2, static_cast<uint32_t>(i));
  list.AddColumn("Late", MListCtrl::CompareStr);
  EXPECT_EQ(str(list.GetItemIdText(4999, 4)), "");
  EXPECT_TRUE(list.UpdateItemField(4999, 4, "now", 0));
  EXPECT_EQ(str(list.GetItemIdText(4999, 4)), "now");
  EXPECT_EQ(list.GetItemIdNum(4999, 3), 4999);
}

TEST(ListColumns, DataStrings) {
  char text[] = "a\t\tc\td";
  const char* pieces[3];
  MListCtrl::BreakDataStr(text, 3, pieces);
  EXPECT_STREQ(pieces[1], "");
  EXPECT_STREQ(pieces[2], "c") << "what is left over is no piece's";
  char few[] = "a";
  MListCtrl::BreakDataStr(few, 3, pieces);
  EXPECT_STREQ(pieces[0], "a");
  EXPECT_STREQ(pieces[2], "");

  Files list;
  list.Add(1, "a", 1);
  EXPECT_TRUE(list.UpdateEnumColumnValues(Files::kState, 2, "Gleich\tAnders"));
  EXPECT_EQ(str(list.GetItemIdText(1, 1)), "Anders");
  EXPECT_FALSE(list.UpdateEnumColumnValues(Files::kName, 1, "x"));
  EXPECT_FALSE(list.UpdateEnumColumnValues(Files::kState, INT_MAX, "x")) << "too many";
  list.Add(2, "b", 1);
  CStrMap<unsigned> counts;
  EXPECT_TRUE(list.GetItemCnt(Files::kState, counts));
  EXPECT_EQ(counts["Anders"], 2u);
  AssertionLog log;
  EXPECT_FALSE(list.GetItemCnt(9, counts));
  EXPECT_TRUE(log.Names("MListCtrlItems"));
}

TEST(ListFilter, EachTest) {
  const std::string upper = Ansi(UpperLetter()), lower = Ansi(LowerLetter());
  const struct {
    int type;
    const char* pattern;
    const char* text;
    bool matches;
  } cases[] = {
      {0, "Abc", "Abc", true},
      {0, "Abc", "abc", false},
      {1, "b", "abc", true},
      {1, "B", "abc", false},
      {2, "ab", "abc", true},
      {2, "AB", "abc", false},
      {3, "aBC", "Abc", true},
      {4, "AB", "abc", true},
      {4, "abcd", "abc", false},
      {5, "aBC", "Abc", true},
      {6, "C:\\dir", "c:\\DIR", true},
      {6, "C:\\dir", "C:\\dir\\x", true},
      {6, "C:\\dir", "C:\\dir2", false},
      {7, "a", "a", false},
      {3, upper.c_str(), lower.c_str(), true},
  };
  for (const auto& c : cases)
    for (const bool negate : {false, true}) {
      Files list;
      list.Add(1, c.text);
      ASSERT_TRUE(list.SetFilter(0, c.pattern, c.type, negate));
      EXPECT_EQ(list.GetItemCount() == 1, c.matches != negate)
          << c.type << " " << c.pattern << " " << c.text << " " << negate;
    }
}

// A list that counts how often it decides about an item, and cannot decide about one.
class Counting : public Files {
 public:
  mutable int decisions = 0;
  unsigned long undecided = 99;

 protected:
  int FilterMatch(unsigned long id) const override {
    ++decisions;
    if (id == undecided) throw std::runtime_error("no decision");
    return Files::FilterMatch(id);
  }
};

TEST(ListFilter, DecidesOnlyWhenItChanges) {
  Counting list;
  list.Add(1, "a");
  list.Add(2, "b");
  list.decisions = 0;
  EXPECT_TRUE(list.SetFilter(0, "a", 0));
  EXPECT_TRUE(list.SetFilter(0, "a", 0));
  EXPECT_EQ(list.decisions, 2);
  EXPECT_TRUE(list.IsFiltered());
  EXPECT_EQ(str(list.GetFilterDscr()), "Name Filter: a");
  EXPECT_TRUE(list.SetFilter(0, "a", MListCtrl::FilterContains, 1));
  EXPECT_EQ(str(list.GetFilterDscr()), "Name Filter:  NOT *a*");
  EXPECT_EQ(list.Ids(), Ids{2});
  EXPECT_FALSE(list.SetFilter(Files::kSize, "1", 0)) << "a column of numbers";
  list.ResetFilter();
  EXPECT_EQ(list.GetItemCount(), 2);
  EXPECT_EQ(str(list.GetFilterDscr()), "");
  EXPECT_TRUE(list.SetFilter(0, "", MListCtrl::FilterNever, 1));
  EXPECT_EQ(list.GetItemCount(), 0) << "never, negated or not";
  EXPECT_EQ(str(list.GetFilterDscr()), "Never Match");
  list.ResetFilter();
  EXPECT_EQ(list.GetItemCount(), 0) << "there was no pattern to be cleared";
  list.undecided = 2;
  EXPECT_TRUE(list.SetFilter(0, "x", 0, 1));
  EXPECT_EQ(list.Ids(), Ids{1});
}

int compareLastDigits(unsigned long one, unsigned long two) {
  return static_cast<int>(one % 10) - static_cast<int>(two % 10);
}
int huge(const char*, const char*) { return INT_MIN; }
int failing(const char*, const char*) { throw std::runtime_error("no comparison"); }

TEST(ListOrder, EachKindOfColumn) {
  MListCtrl list;
  list.AddColumn("Text", MListCtrl::CompareStr);
  list.AddColumn("No case", MListCtrl::CompareStrNocase, 1);
  list.AddColumn("Id", compareLastDigits);
  list.AddNumericColumn("Number");
  list.AddEnumColumn("Enum", 3, "z\ty\tx");
  list.AddUnsortedColumn("None");
  list.SetAltSortKey(0, 3);
  const struct {
    unsigned long id;
    const char *text, *noCase;
    uint32_t number, state;
  } items[] = {
      {12, "b", "B", 2, 1}, {21, "\xFF", "a", static_cast<uint32_t>(-1), 2}, {13, "b", "c", 1, 0}};
  for (const auto& item : items) {
    const char* const values[] = {item.text,           item.noCase,        "",
                                  number(item.number), number(item.state), ""};
    list.AddItem(item.id, values);
  }
  const auto ids = [&] {
    return Ids{list.GetItemData(0), list.GetItemData(1), list.GetItemData(2)};
  };
  const struct {
    int column;
    Ids ascending, descending;
  } cases[] = {{0, {13, 12, 21}, {21, 12, 13}},  // bytes above 127 come last; then by number
               {1, {21, 12, 13}, {13, 12, 21}},
               {2, {21, 12, 13}, {13, 12, 21}},
               {3, {13, 12, 21}, {21, 12, 13}},   // below 0 is above all
               {4, {13, 12, 21}, {21, 12, 13}}};  // by index
  for (const auto& c : cases) {
    ASSERT_TRUE(list.SetSortKey(c.column, 0, 0));
    EXPECT_EQ(ids(), c.ascending) << c.column;
    ASSERT_TRUE(list.SetSortKey(c.column, 0, 1));
    EXPECT_EQ(ids(), c.descending) << c.column;
    EXPECT_EQ(list.CompareItemsFunc(ids()[0], ids()[1]) < 0, true) << c.column;
    EXPECT_EQ(list.CompareItemsFunc(ids()[0], 99), 0) << "unknown";
  }
  EXPECT_FALSE(list.SetSortKey(5, 1)) << "cannot be sorted";
  EXPECT_EQ(list.GetSortColumn(), 4);
}

// A comparison that contradicts itself makes some order of all rows.
TEST(ListOrder, SurvivesComparisonsThatMakeNoSense) {
  MListCtrl list;
  list.AddColumn("Text", huge);
  const char* const values[] = {"x"};
  for (int i = 0; i < 1000; ++i) list.AddItem(-1, values);
  ASSERT_TRUE(list.SetSortKey(0, 0, 1));
  std::vector<bool> seen(1000);
  for (int row = 0; row < 1000; ++row) seen[list.GetItemData(row)] = true;
  EXPECT_EQ(std::count(seen.begin(), seen.end(), true), 1000);
  EXPECT_GT(list.CompareItemsFunc(0, 1), 0);

  MListCtrl unsorted;
  unsorted.AddColumn("Text", failing);
  for (int i = 0; i < 3; ++i) unsorted.AddItem(-1, values);
  EXPECT_TRUE(unsorted.SetSortKey(0, 0, 1));
  EXPECT_EQ(unsorted.GetItemData(0), 0u) << "the rows stay as they are";
  EXPECT_EQ(unsorted.CompareItemsFunc(0, 1), 0);
}

// Long and short texts come and go; identifiers of all sizes are found, in any order of deletions.
TEST(ListItems, ManyComeAndGo) {
  Files list;
  std::map<unsigned long, std::string> model;
  std::mt19937 random(4);
  for (int step = 0; step < 20000; ++step) {
    const unsigned long id = random() % 3000 * (random() % 2 ? 1 : 0x100008);
    if (model.contains(id)) {
      if (random() % 2) {
        EXPECT_TRUE(list.DeleteItemId(id));
        model.erase(id);
      } else {
        model[id] = std::string(random() % 600, 'y');
        list.UpdateItemField(id, 0, model[id].c_str(), 0);
      }
    } else {
      model[id] = std::string(random() % 40, 'x');
      list.Add(id, model[id].c_str());
    }
  }
  ASSERT_EQ(list.GetItemCount(), static_cast<int>(model.size()));
  for (const auto& [id, text] : model) {
    EXPECT_EQ(str(list.GetItemIdText(id, 0)), text);
    EXPECT_EQ(list.GetItemData(list.FindItem(id)), id);
  }
  list.DeleteAll();
  EXPECT_EQ(list.GetStoredCount(), 0);
  EXPECT_EQ(list.FindItem(model.begin()->first), -1);
}
