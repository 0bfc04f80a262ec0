// The filters on single columns, and what they keep.
#include <memory>

#include "lists/ListTest.h"
#include "settings/RegistryUtil.h"
#include "support/AssertionLog.h"
#include "support/RegistrySubtree.h"
#include "util/TimeUtil.h"

namespace {

int twice(const char* one, const char* two) { return 2 * MListCtrl::CompareStr(one, two); }

StringFilter::Settings conditions(int first, const char* firstText, int second = 0,
                                  const char* secondText = "", int both = 1) {
  return {first, second, firstText, secondText, both};
}

// A key whose user values are the user's own.
class UserKey : public RegistrySubtree {
 public:
  UserKey() { MRegistry::InitProductRegistry(c_str(), 1); }
  ~UserKey() { MRegistry::FreeProductRegistry(); }
};

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
      {MListCtrl::CompareStr, conditions(3, "b", 5, "d"), "c", "d"},
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

TEST(StringFilters, Ranges) {
  const StringFilter closed(MListCtrl::CompareStr, "a", "m"), open(MListCtrl::CompareStr, "k", "");
  EXPECT_TRUE(closed.IsMatch("m"));
  EXPECT_FALSE(closed.IsMatch("ma"));
  EXPECT_FALSE(closed.IsMatch("A"));
  EXPECT_TRUE(open.IsMatch("z"));
  EXPECT_FALSE(open.IsMatch("a"));
}

TEST(NumberFilters, Bounds) {
  NumericFilter numbers(nullptr);
  EXPECT_TRUE(numbers.IsMatch(number(5))) << "a new one excludes 0 alone";
  EXPECT_FALSE(numbers.IsMatch(number(0)));
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
    EXPECT_EQ(numbers.IsMatch(number(c.value)), c.matches) << c.from << " " << c.to;
  }

  EnumFilter values({"a", "b", "c"}, nullptr);
  EXPECT_TRUE(values.IsMatch(number(31)));
  EXPECT_FALSE(values.IsMatch(number(32)));
  values.SetMask(5);
  for (uint32_t value = 0; value < 4; ++value)
    EXPECT_EQ(values.IsMatch(number(value)), value == 0 || value == 2);

  TimeFilter times(nullptr);
  times.SetInvert(0);
  times.Set(1000, 1000);
  EXPECT_TRUE(times.IsMatch(number(1000)));
  EXPECT_FALSE(times.IsMatch(number(1001)));
  times.SetInvert(1);
  EXPECT_TRUE(times.IsMatch(number(1001)));
  const CTime noon = 86400 * 400 + 43200;
  EXPECT_EQ(TimeFilter::StartOfDay(noon, 1).GetTime(), 86400 * 400);
  EXPECT_EQ((TimeFilter::StartOfDay(noon).GetTime() - GetZoneBias(0)) % 86400, 0);
}

TEST(SavedFilters, AreReadByTheNextOneOfTheirColumn) {
  const UserKey key;
  Files list;
  const auto filter = [&]<class Filter>(Filter*, int column) {
    return std::unique_ptr<Filter>(dynamic_cast<Filter*>(list.GetFilter(column, "Second")));
  };
  {
    AssertionLog log;
    EXPECT_EQ(list.GetFilter(0), nullptr) << "no key";
    EXPECT_FALSE(log.Empty());
  }
  list.SetRegistryKey(key.c_str());
  {
    const auto texts = filter(static_cast<StringFilter*>(nullptr), Files::kName);
    ASSERT_NE(texts, nullptr);
    EXPECT_EQ(str(texts->GetKey()), key / "NameSecond");
    texts->Set(conditions(3, "from", 9, "part", 0));
    EXPECT_TRUE(texts->Save());
    const auto values = filter(static_cast<EnumFilter*>(nullptr), Files::kState);
    values->SetMask(5);
    values->SetInvert(1);
    EXPECT_TRUE(values->Save());
    const auto times = filter(static_cast<TimeFilter*>(nullptr), Files::kTime);
    times->Set(100, 200);
    times->SetInvert(0);
    EXPECT_TRUE(times->Save());
    const auto numbers = filter(static_cast<NumericFilter*>(nullptr), Files::kSize);
    numbers->Set(-7, 9);
    numbers->SetInvert(0);
    EXPECT_TRUE(numbers->Save());
  }
  const auto texts = filter(static_cast<StringFilter*>(nullptr), Files::kName);
  EXPECT_EQ(texts->Get().firstCondition, 0) << "until it is asked to read";
  texts->Reset(1);
  EXPECT_EQ(texts->Get().firstCondition, 3);
  EXPECT_EQ(str(texts->Get().firstText), "from");
  EXPECT_EQ(texts->Get().secondCondition, 9);
  EXPECT_EQ(str(texts->Get().secondText), "part");
  EXPECT_FALSE(texts->Get().bothConditions);
  const auto values = filter(static_cast<EnumFilter*>(nullptr), Files::kState);
  values->Reset(1);
  EXPECT_EQ(values->GetMask(), 5u);
  EXPECT_TRUE(values->GetInvert());
  EXPECT_EQ(values->GetTexts().size(), 3u);
  const auto times = filter(static_cast<TimeFilter*>(nullptr), Files::kTime);
  times->Reset(1);
  EXPECT_EQ(times->GetEnd().GetTime(), 200);
  EXPECT_FALSE(times->GetInvert());
  const auto numbers = filter(static_cast<NumericFilter*>(nullptr), Files::kSize);
  numbers->Reset(1);
  EXPECT_EQ(numbers->GetFrom(), -7);
  numbers->Reset(0);
  EXPECT_EQ(numbers->GetFrom(), 0);
  EXPECT_TRUE(numbers->GetInvert());

  // A condition that there is not, and one that the column's kind of text cannot have.
  const MRegistry damaged((key / "NameSecond").c_str());
  damaged.SetUserKey("FirstCondition", 77ul);
  texts->Reset(1);
  EXPECT_EQ(texts->Get().firstCondition, 0);
  StringFilter withoutComparison(nullptr, (key / "NameSecond").c_str());
  damaged.SetUserKey("FirstCondition", 3ul);
  withoutComparison.Reset(1);
  EXPECT_EQ(withoutComparison.Get().firstCondition, 0);
  EXPECT_EQ(withoutComparison.Get().secondCondition, 9);
}
