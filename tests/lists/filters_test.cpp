// The filters on single columns, and what they keep.
#include <memory>

#include "lists/FilterWords.h"
#include "lists/ListTest.h"
#include "support/AssertionLog.h"
#include "util/TimeUtil.h"

namespace {

int twice(const char* one, const char* two) { return 2 * MListCtrl::CompareStr(one, two); }

StringFilter::Settings conditions(int first, const char* firstText, int second = 0,
                                  const char* secondText = "", int both = 1) {
  return {first, second, firstText, secondText, both};
}

}  // namespace

TEST(StringFilters, EachCondition) {
  const struct {
    ListOrder::CompareTexts compare;
    StringFilter::Settings settings;
    const char *accepted, *rejected;  // null: none
  } cases[] = {
      {MListCtrl::CompareStr, conditions(0, ""), "anything", nullptr},
      {MListCtrl::CompareStr, conditions(1, "b"), "b", "B"},
      {MListCtrl::CompareStrNocase, conditions(1, "b"), "B", "c"},
      {MListCtrl::CompareStr, conditions(2, "b"), "c", "b"},
      {MListCtrl::CompareStr, conditions(3, "b"), "c", "b"},
      {MListCtrl::CompareStr, conditions(4, "b"), "b", "a"},
      {MListCtrl::CompareStr, conditions(5, "b"), "a", "b"},
      {MListCtrl::CompareStr, conditions(6, "b"), "b", "c"},
      {MListCtrl::CompareStrNocase, conditions(7, "Be"), "Berta", "berta"},
      {MListCtrl::CompareStr, conditions(8, "Be"), "berta", "Berta"},
      {MListCtrl::CompareStr, conditions(9, "rt"), "Berta", "BeRTa"},
      {MListCtrl::CompareStr, conditions(10, "rt"), "BeRTa", "Berta"},
      {MListCtrl::CompareStr, conditions(11, ""), nullptr, "anything"},
      {MListCtrl::CompareStr, conditions(-1, ""), nullptr, "anything"},
      {MListCtrl::CompareStr, conditions(3, "b", 5, "d"), "c", "b"},
      {MListCtrl::CompareStr, conditions(3, "b", 5, "d"), nullptr, "d"},
      {MListCtrl::CompareStr, conditions(1, "b", 1, "d", 0), "d", "c"},
      {MListCtrl::CompareStr, conditions(1, "b", 0, "", 0), "c", nullptr},  // one is always true
      // Neither greater nor less.
      {twice, conditions(6, "b"), "c", nullptr},
      {twice, conditions(3, "b"), nullptr, "c"},
      // Without a comparison.
      {nullptr, conditions(1, "b"), nullptr, "b"},
      {nullptr, conditions(7, "b"), "bc", "cb"},
  };
  int number = 0;
  for (const auto& c : cases) {
    StringFilter filter(c.compare, nullptr);
    filter.Set(c.settings);
    EXPECT_TRUE(c.accepted == nullptr || filter.IsMatch(c.accepted)) << number;
    EXPECT_FALSE(c.rejected != nullptr && filter.IsMatch(c.rejected)) << number;
    ++number;
  }
}

TEST(NumberFilters, Bounds) {
  NumericFilter numbers(nullptr);
  EXPECT_TRUE(numbers.IsMatch(5)) << "a new one excludes 0 alone";
  EXPECT_FALSE(numbers.IsMatch(0));
  numbers.SetInvert(0);
  const struct {
    long from, to;
    uint32_t value;
    bool matches;
  } cases[] = {{-5, 10, 0, true},
               {-5, 10, 10, true},
               {-5, 10, 11, false},
               {0, -1, 5, false},
               {-5, 10, 0xFFFFFFFF, false},
               {-5, -1, 0xFFFFFFFE, false},
               {7, 0x7FFFFFFF, 0x7FFFFFFF, true}};
  for (const auto& c : cases) {
    numbers.Set(c.from, c.to);
    EXPECT_EQ(numbers.IsMatch(c.value), c.matches) << c.from << " " << c.to;
  }

  EnumFilter values({"a", "b", "c"}, nullptr);
  EXPECT_TRUE(values.IsMatch(31));
  EXPECT_FALSE(values.IsMatch(32));
  values.SetMask(5);
  for (uint32_t value = 0; value < 4; ++value)
    EXPECT_EQ(values.IsMatch(value), value == 0 || value == 2);

  TimeFilter times(nullptr);
  times.SetInvert(0);
  times.Set(1000, 1000);
  EXPECT_TRUE(times.IsMatch(1000));
  EXPECT_FALSE(times.IsMatch(1001));
  times.SetInvert(1);
  EXPECT_TRUE(times.IsMatch(1001));
  const CTime noon = 86400 * 400 + 43200;
  EXPECT_EQ(TimeFilter::StartOfDay(noon, 1).GetTime(), 86400 * 400);
  EXPECT_EQ((TimeFilter::StartOfDay(noon).GetTime() - GetZoneBias(0)) % 86400, 0);
}

TEST(SavedFilters, AreReadByTheNextOneOfTheirColumn) {
  const UserKey key;
  Files list;
  {
    AssertionLog log;
    EXPECT_EQ(list.GetFilter(0), nullptr) << "no key";
    EXPECT_FALSE(log.Empty());
  }
  list.SetRegistryKey(key.c_str());
  const auto newFilter = [&](int column) {
    return std::shared_ptr<DataFilter>(list.GetFilter(column, "Second"));
  };
  const auto words = [&](int column, const std::shared_ptr<DataFilter>& filter) {
    return str(FilterInWords(list, {column, filter, true}, true));
  };
  const auto texts = newFilter(Files::kName), values = newFilter(Files::kState),
             times = newFilter(Files::kTime), numbers = newFilter(Files::kSize);
  static_cast<StringFilter&>(*texts).Set(conditions(3, "from", 9, "part", 0));
  static_cast<EnumFilter&>(*values).SetMask(5);
  static_cast<TimeFilter&>(*times).Set(1'000'000, 2'000'000);
  static_cast<NumericFilter&>(*numbers).Set(-7, 9);
  values->SetInvert(1);
  times->SetInvert(0);
  numbers->SetInvert(0);
  int column = 0;
  for (const auto& filter : {texts, values, times, numbers}) {
    EXPECT_TRUE(filter->Save());
    const auto saved = newFilter(column);
    EXPECT_NE(words(column, saved), words(column, filter)) << "until it is asked to read";
    saved->Reset(1);
    EXPECT_EQ(words(column, saved), words(column, filter));
    ++column;
  }

  // A condition that there is not.
  EXPECT_EQ(str(texts->GetKey()), key / "NameSecond");
  const MRegistry damaged(texts->GetKey());
  damaged.SetUserKey("FirstCondition", 77ul);
  damaged.SetUserKey("SecondCondition", 0ul);
  texts->Reset(1);
  EXPECT_EQ(words(0, texts), "Primary filter on column Name: include all");
}
