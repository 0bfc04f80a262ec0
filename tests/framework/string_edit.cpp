// CString: changing texts, and formatting them.

#include <afx.h>

#include <gtest/gtest.h>

#include "support/CodePage.h"

#include "framework/test_strings.h"

namespace {

CString edited(const char* text, void (*edit)(CString&)) {
  CString s(text);
  edit(s);
  return s;
}

TEST(StringEdit, TrimsEnds) {
  EXPECT_STREQ(edited(" \t\r\n x y \v\f ", [](CString& s) { s.TrimLeft(); }), "x y \v\f ");
  EXPECT_STREQ(edited(" x y \t\r\n ", [](CString& s) { s.TrimRight(); }), " x y");
  EXPECT_STREQ(edited("   ", [](CString& s) { s.TrimRight(); }), "");
  EXPECT_STREQ(edited("   ", [](CString& s) { s.TrimLeft(); }), "");
  EXPECT_STREQ(edited("0010", [](CString& s) { s.TrimLeft('0'); }), "10");
  EXPECT_STREQ(edited("c:\\\\", [](CString& s) { s.TrimRight('\\'); }), "c:");
  EXPECT_STREQ(edited("+-1-+", [](CString& s) { s.TrimLeft("-+"), s.TrimRight("-+"); }), "1");
}

TEST(StringEdit, ReplacesRemovesInsertsAndDeletes) {
  const struct {
    const char* text;
    int (*edit)(CString&);
    int result;
    const char* expected;
  } cases[] = {
      {"a.b.c", [](CString& s) { return s.Replace(".", ""); }, 2, "abc"},
      {"abc", [](CString& s) { return s.Replace("b", "<b>"); }, 1, "a<b>c"},
      {"abc", [](CString& s) { return s.Replace("x", "y"); }, 0, "abc"},
      {"abc", [](CString& s) { return s.Replace("", "y"); }, 0, "abc"},
      {"aaa", [](CString& s) { return s.Replace("aa", "b"); }, 1, "ba"},
      {"a<b", [](CString& s) { return s.Replace('<', '('); }, 1, "a(b"},
      {"abc", [](CString& s) { return s.Replace('b', 'b'); }, 0, "abc"},
      {"banana", [](CString& s) { return s.Remove('a'); }, 3, "bnn"},
      {"banana", [](CString& s) { return s.Remove('x'); }, 0, "banana"},
      {"ad", [](CString& s) { return s.Insert(1, "bc"); }, 4, "abcd"},
      {"ab", [](CString& s) { return s.Insert(-5, '<'); }, 3, "<ab"},
      {"ab", [](CString& s) { return s.Insert(99, '>'); }, 3, "ab>"},
      {"abc", [](CString& s) { return s.Delete(0); }, 2, "bc"},
      {"abc", [](CString& s) { return s.Delete(2, 99); }, 2, "ab"},
      {"abc", [](CString& s) { return s.Delete(3); }, 3, "abc"},
      {"abc", [](CString& s) { return s.Delete(0, -1); }, 3, "abc"},
  };
  for (const auto& c : cases) {
    CString s(c.text);
    EXPECT_EQ(c.edit(s), c.result) << &c - cases;
    EXPECT_STREQ(s, c.expected) << &c - cases;
  }
  CString withNull("a\0a", 3);
  EXPECT_EQ(withNull.Replace("a", "bb"), 2);
  EXPECT_EQ(withNull.GetLength(), 5);
}

TEST(StringEdit, JoinsTextsOfEveryKind) {
  const CString s("b");
  EXPECT_STREQ('a' + s + 'c' + "d" + s, "abcdb");
  EXPECT_STREQ("a" + s, "ab");
  EXPECT_STREQ(s + static_cast<LPCTSTR>(nullptr), "b");
  CString sum(s);
  sum += 'c';
  sum += "d";
  sum += static_cast<LPCTSTR>(nullptr);
  EXPECT_STREQ(sum, "bcd");
}

TEST(StringEdit, FoldsCaseOfTheCodePage) {
  const std::string upper = "D" + Ansi(UpperLetter()) + "J VU";
  const std::string lower = "d" + Ansi(LowerLetter()) + "j vu";
  EXPECT_STREQ(edited(lower.c_str(), [](CString& s) { s.MakeUpper(); }), upper.c_str());
  EXPECT_STREQ(edited(upper.c_str(), [](CString& s) { s.MakeLower(); }), lower.c_str());
}

TEST(StringFormat, FollowsTheRuntime) {
  CString s("old");
  s.Format("%s|%5d|%-5s|%#x|%I64d|%S", static_cast<LPCTSTR>(s), 42, "ab", 255, 1LL << 40, L"wide");
  EXPECT_STREQ(s, "old|   42|ab   |0xff|1099511627776|wide");
  s.Format("%s%s", static_cast<LPCTSTR>(CString('x', 511)), "");
  EXPECT_EQ(s, CString('x', 511));
  s.Format("%s%s", static_cast<LPCTSTR>(CString('x', 511)), "y");
  EXPECT_EQ(s, CString('x', 511) + "y");
  s.Format("%s%s", static_cast<LPCTSTR>(s), static_cast<LPCTSTR>(CString('z', 5000)));
  EXPECT_EQ(s, CString('x', 511) + "y" + CString('z', 5000));
  s.Format(kFormatId, "text", 7);
  EXPECT_STREQ(s, "text and 7");
  EXPECT_THROW(s.Format(kMissingId, 1), CResourceException*);
  EXPECT_STREQ(s, "text and 7");
}

TEST(StringFormatMessage, PutsInsertsInOrder) {
  CString s("old");
  s.FormatMessage("%2 before %1!s!, %3!d! times%n%%1", static_cast<LPCTSTR>(s), "new", 3);
  EXPECT_STREQ(s, "new before old, 3 times\r\n%1");
  s.FormatMessage(kMessageId, "A", "B");
  EXPECT_STREQ(s, "B follows A");
  const CString large('x', 20000);
  s.FormatMessage("<%1>", static_cast<LPCTSTR>(large));
  EXPECT_EQ(s, "<" + large + ">");
  EXPECT_THROW(s.FormatMessage(kMissingId, 1), CResourceException*);
}

}  // namespace
