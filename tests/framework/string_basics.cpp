// CString: sharing, growth, and arguments that lie in the string itself.

#include <afxwin.h>
#include <afxtempl.h>

#include <gtest/gtest.h>

TEST(String, CopiesShareUntilOneIsWrittenTo) {
  CString a("abc");
  CString b = a;
  EXPECT_EQ(static_cast<LPCTSTR>(a), static_cast<LPCTSTR>(b));
  b.SetAt(0, 'x');
  EXPECT_STREQ(a, "abc");
  EXPECT_STREQ(b, "xbc");
}

TEST(String, ArgumentsMayLieInTheStringItself) {
  CString s("abc");
  s += s;
  EXPECT_STREQ(s, "abcabc");
  s = s.Mid(2);
  EXPECT_STREQ(s, "cabc");
  s.Format("[%s]", static_cast<LPCTSTR>(s));
  EXPECT_STREQ(s, "[cabc]");
  s.Insert(1, s);
  EXPECT_STREQ(s, "[[cabc]cabc]");
  EXPECT_EQ(s.Replace(s.Mid(2, 4), s), 2);
  EXPECT_STREQ(s, "[[[[cabc]cabc]][[cabc]cabc]]");
  s.FormatMessage("<%1!s!>%n", "x");
  EXPECT_STREQ(s, "<x>\r\n");
}

TEST(Array, OfStringsTakesTexts) {
  CArray<CString, const char*> a;
  for (int i = 0; i < 100; ++i) a.Add("text");
  a.InsertAt(0, a[5]);
  EXPECT_EQ(a.GetSize(), 101);
  EXPECT_STREQ(a[0], "text");
}
