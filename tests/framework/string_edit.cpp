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
  CString s("a.b.c");
  EXPECT_EQ(s.Replace(".", ""), 2);
  EXPECT_STREQ(s, "abc");
  EXPECT_EQ(s.Replace("b", "<b>"), 1);
  EXPECT_STREQ(s, "a<b>c");
  EXPECT_EQ(s.Replace("x", "y"), 0);
  EXPECT_EQ(s.Replace("", "y"), 0);
  EXPECT_EQ(s.Replace('<', '('), 1);
  EXPECT_EQ(s.Replace('b', 'b'), 0);
  EXPECT_STREQ(s, "a(b>c");
  EXPECT_EQ(edited("aaa", [](CString& t) { t.Replace("aa", "b"); }), "ba");
  CString withNull("a\0a", 3);
  EXPECT_EQ(withNull.Replace("a", "bb"), 2);
  EXPECT_EQ(withNull.GetLength(), 5);

  CString r("banana");
  EXPECT_EQ(r.Remove('a'), 3);
  EXPECT_EQ(r.Remove('x'), 0);
  EXPECT_STREQ(r, "bnn");

  CString i("ad");
  EXPECT_EQ(i.Insert(1, "bc"), 4);
  EXPECT_EQ(i.Insert(-5, '<'), 5);
  EXPECT_EQ(i.Insert(99, '>'), 6);
  EXPECT_STREQ(i, "<abcd>");
  EXPECT_EQ(i.Delete(0), 5);
  EXPECT_EQ(i.Delete(3, 99), 3);
  EXPECT_EQ(i.Delete(3), 3);
  EXPECT_EQ(i.Delete(0, -1), 3);
  EXPECT_STREQ(i, "abc");
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
