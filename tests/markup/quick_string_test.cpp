#include <gtest/gtest.h>

#include <functional>

#include "markup/OXQuickString.h"
#include "support/Allocations.h"

namespace {

// Shows what a derived class sees.
class String : public COXQuickString {
 public:
  using COXQuickString::COXQuickString;
  unsigned Capacity() const { return m_capacity; }
  const void* Block() const { return m_buffer; }
};

TEST(QuickString, GrowsInFourWays) {
  using S = String&;
  struct {
    std::function<int(S)> change;
    const char* text;
    unsigned capacity;
    bool newBlock;
  } const steps[] = {
      {[](S s) { return s.Append('a'); }, "a", 10, true},
      {[](S s) { return s.Append('b') && s.Append('c') && s.AddString("defghi"); }, "abcdefghi", 10,
       false},
      {[](S s) { return s.Append('j'); }, "abcdefghij", 19, true},
      {[](S s) { return s.AddString("klm"); }, "abcdefghijklm", 19, false},
      {[](S s) { return s.AddString("nopqrstuv"); }, "abcdefghijklmnopqrstuv", 14, true},
      // Nothing is added, above the understated capacity.
      {[](S s) { return s.AddString(""); }, "abcdefghijklmnopqrstuv", 23, true},
      {[](S s) { return s.AddString("wxyz", 2); }, "abcdefghijklmnopqrstuvwx", 25, true},
      {[](S s) { return s.AddString("yz", 99); }, "abcdefghijklmnopqrstuvwxyz", 27, true},
      {[](S s) { return s.AddString("yz", -1); }, "abcdefghijklmnopqrstuvwxyz", 27, false},
      {[](S s) { return s.SetLength(100); }, "abcdefghijklmnopqrstuvwxyz", 100, true},
      {[](S s) { return s.SetLength(100); }, "abcdefghijklmnopqrstuvwxyz", 100, false},
      {[](S s) { return s.SetLength(3); }, "abc", 100, false},
      {[](S s) { return s.SetString("12345"); }, "12345", 6, true},
      {[](S s) { return s.SetString("12345", 2); }, "12", 3, true},
      {[](S s) { return s.SetString(s.GetString() + 1); }, "2", 2, true},
      {[](S s) { return s.AddString(s.GetString()); }, "22", 2, true},
      {[](S s) { return s.SetString("12345", 0); }, "", 0, true},
  };
  String text;
  for (const auto& step : steps) {
    SCOPED_TRACE(&step - steps);
    const void* const block = text.Block();
    EXPECT_EQ(step.change(text), 1);
    EXPECT_STREQ(text.GetString(), step.text);
    EXPECT_EQ(text.GetLength(), strlen(step.text));
    EXPECT_EQ(text.Capacity(), step.capacity);
    // A new block may come at the same place: only staying is certain.
    EXPECT_TRUE(step.newBlock || text.Block() == block);
  }
}

TEST(QuickString, GrowsByAnyNumber) {
  const allocations::GuardPages guard;
  String text;
  for (const unsigned growBy : {0u, 1u, 5u}) {
    text.Empty();
    text.SetGrowBy(growBy);
    for (int i = 0; i < 20; ++i) EXPECT_EQ(text.Append('x'), 1);
    EXPECT_STREQ(text.GetString(), "xxxxxxxxxxxxxxxxxxxx");
  }
  text.SetGrowBy(0xFFFFFFFF);
  text.SetLength(21);
  EXPECT_EQ(text.Append('x'), 0);  // no such block; the text stays
  EXPECT_EQ(text.GetLength(), 20u);
  text.SetString("a");
  EXPECT_EQ(text.GetGrowBy(), 10u);
  // A capacity that states less than the text has doesn't cut it.
  text.AddString("bcdefghijklmnopqrstuvwxyz");
  EXPECT_EQ(text.SetLength(5), 1);
  EXPECT_STREQ(text.GetString(), "abcdefghijklmnopqrstuvwxyz");
}

TEST(QuickString, Compares) {
  struct {
    const char* text;
    const char* other;
    int withCase;
    int withoutCase;
  } const cases[] = {{"abc", "abc", 1, 1}, {"abc", "ABC", 0, 1},   {"abc", "ab", 0, 0},
                     {"", "", 0, 0},       {"abc", nullptr, 0, 0}, {"\xE4", "\xC4", 0, 0}};
  for (const auto& each : cases) {
    const COXQuickString text(each.text);
    EXPECT_EQ(text.Compare(each.other, TRUE), each.withCase) << each.text;
    EXPECT_EQ(text.Compare(each.other, FALSE), each.withoutCase) << each.text;
    EXPECT_EQ(text == each.other, each.withCase != 0);
    EXPECT_EQ(text != COXQuickString(each.other), each.withCase == 0);
  }
}

TEST(QuickString, WhiteSpace) {
  struct {
    const char* text;
    const char* left;
    const char* right;
    const char* trimmed;
    const char* stripped;
  } const cases[] = {
      {"  ab", "  ", "  ab", "  ", "ab"},
      {"  ab  ", "  ab", "  ab", "  ", "ab"},
      {"ab \t\r\n\v\f", "ab \t\r\n\v\f", "ab", "ab", "ab"},
      {"   ", "", "", "", ""},
      {"", "", "", "", ""},
      {"  a  b  ", "  a  b", "  a  b", "  a ", "a b"},
      {"a\xA0 \xA0 b", "a\xA0 \xA0 b", "a\xA0 \xA0 b", "a\xA0 \xA0 b", "a\xA0 \xA0 b"},
      {"\xA0", "\xA0", "\xA0", "\xA0", "\xA0"},
      {"\n\na\nb", "\n\na", "\n\na\nb", "\n\na", "a b"},
  };
  const allocations::GuardPages guard;
  for (const auto& each : cases) {
    SCOPED_TRACE(each.text);
    const auto after = [&](int (COXQuickString::*change)()) {
      COXQuickString text(each.text);
      EXPECT_EQ((text.*change)(), 1);
      EXPECT_EQ(text.GetLength(), strlen(text.GetString()));
      return std::string(text.GetString());
    };
    EXPECT_EQ(after(&COXQuickString::TrimLeft), each.left);
    EXPECT_EQ(after(&COXQuickString::TrimRight), each.right);
    EXPECT_EQ(after(&COXQuickString::Trim), each.trimmed);
    EXPECT_EQ(after(&COXQuickString::Strip), each.stripped);
  }
}

TEST(QuickString, Fields) {
  struct {
    const char* text;
    int count;
    std::vector<const char*> fields;
  } const cases[] = {{"a,b,c", 3, {"a", "b", "c", ""}}, {"abc", 1, {"abc", ""}},
                     {"a,", 2, {"a", "", ""}},          {",a", 2, {"", "a"}},
                     {"a,,b", 3, {"a", "", "b"}},       {"", 0, {"", ""}}};
  for (const auto& each : cases) {
    const COXQuickString text(each.text);
    EXPECT_EQ(text.NumTokens(','), each.count) << each.text;
    EXPECT_STREQ(text.GetToken(-1, ','), "");
    for (size_t i = 0; i < each.fields.size(); ++i) {
      EXPECT_STREQ(text.GetToken(static_cast<int>(i), ','), each.fields[i]) << each.text;
    }
  }
}

TEST(QuickString, CopiesAreTheirOwn) {
  COXQuickString text("abc");
  COXQuickString copy(text);
  copy += copy;
  text = text;
  EXPECT_STREQ(text, "abc");
  text = copy;
  copy.Empty();
  EXPECT_STREQ(text, "abcabc");
  EXPECT_EQ(text.AddString(nullptr), 0);
  EXPECT_EQ(text.AddString(nullptr, 3), 0);
  EXPECT_EQ(text.SetString(nullptr), 1);
  EXPECT_TRUE(text.IsEmpty());
}

}  // namespace
