// CString: comparing, finding, and taking parts.

#include <afx.h>

#include <gtest/gtest.h>

#include "support/CodePage.h"

namespace {

int sign(int value) { return value < 0 ? -1 : value > 0; }

TEST(StringCompare, OrdersTexts) {
  const std::string upper = Ansi(UpperLetter()), lower = Ansi(LowerLetter());
  struct Case {
    const char *left, *right;
    int exact, noCase;
  } const cases[] = {
      {"", "", 0, 0},
      {"", "a", -1, -1},
      {"abc", "abc", 0, 0},
      {"abc", "ABC", 1, 0},
      {"abc", "abd", -1, -1},
      {"abcd", "abc", 1, 1},
      // by the value of the byte, not as a signed one
      {lower.c_str(), "z", 1, 1},
      {lower.c_str(), upper.c_str(), 1, 0},  // letters beyond ASCII have case
      {"_", "a", -1, -1},
      {"_", "A", 1, -1},  // compared as lower-case letters
  };
  CPINFO page;
  GetCPInfo(CP_ACP, &page);
  const bool isDoubleByte = page.MaxCharSize == 2;
  for (const Case& c : cases) {
    const CString left(c.left), right(c.right);
    EXPECT_EQ(sign(left.Compare(right)), c.exact) << c.left << " " << c.right;
    EXPECT_EQ(sign(left.CompareNoCase(right)), c.noCase) << c.left << " " << c.right;
    // Double-byte code pages have a dictionary's order.
    if (!isDoubleByte) {
      EXPECT_EQ(sign(left.Collate(right)), c.exact) << c.left << " " << c.right;
    }

    EXPECT_EQ(left == right, c.exact == 0);
    EXPECT_EQ(left != c.right, c.exact != 0);
    EXPECT_EQ(left < c.right, c.exact < 0);
    EXPECT_EQ(c.left < right, c.exact < 0);
    EXPECT_EQ(c.left > right, c.exact > 0);
    EXPECT_EQ(c.left <= right, c.exact <= 0);
    EXPECT_EQ(c.left >= right, c.exact >= 0);
  }
}

TEST(StringFind, GivesPositionsFromTheBeginning) {
  const CString s("abcabc");
  EXPECT_EQ(s.Find('c'), 2);
  EXPECT_EQ(s.Find('x'), -1);
  EXPECT_EQ(s.Find('c', 3), 5);
  EXPECT_EQ(s.Find('c', 6), -1);
  EXPECT_EQ(s.Find('a', -1), -1);
  EXPECT_EQ(s.Find("bc"), 1);
  EXPECT_EQ(s.Find("bc", 2), 4);
  EXPECT_EQ(s.Find("bcd"), -1);
  EXPECT_EQ(s.Find("bc", 7), -1);
  EXPECT_EQ(s.ReverseFind('a'), 3);
  EXPECT_EQ(s.ReverseFind('x'), -1);
  EXPECT_EQ(s.FindOneOf("xcb"), 1);
  EXPECT_EQ(s.FindOneOf("xyz"), -1);
  EXPECT_EQ(s.FindOneOf(""), -1);
  EXPECT_EQ(CString("a\xe9").Find('\xe9'), 1);
}

TEST(StringParts, StayInsideOfTheString) {
  const CString s("abcdef");
  struct Case {
    CString part;
    const char* expected;
  } const cases[] = {
      {s.Left(2), "ab"},
      {s.Left(99), "abcdef"},
      {s.Left(-1), ""},
      {s.Right(2), "ef"},
      {s.Right(99), "abcdef"},
      {s.Right(-1), ""},
      {s.Mid(2), "cdef"},
      {s.Mid(6), ""},
      {s.Mid(99), ""},
      {s.Mid(-1), "abcdef"},
      {s.Mid(2, 2), "cd"},
      {s.Mid(4, 99), "ef"},
      {s.Mid(2, -1), ""},
      {s.SpanIncluding("cba"), "abc"},
      {s.SpanIncluding("xyz"), ""},
      {s.SpanIncluding(""), ""},
      {s.SpanExcluding("ed"), "abc"},
      {s.SpanExcluding("xyz"), "abcdef"},
  };
  for (const Case& c : cases) EXPECT_STREQ(c.part, c.expected);
}

}  // namespace
