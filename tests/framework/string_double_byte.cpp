// CString in a code page whose characters take up to two bytes: the second byte may look like "\"
// or a letter, and must not be taken for it.

#include <afx.h>

#include <gtest/gtest.h>

#include <mbctype.h>

namespace {

class StringDoubleByte : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(_setmbcp(932), 0); }
  void TearDown() override { _setmbcp(_MB_CP_ANSI); }
};

constexpr char kHyou[] = "\x95\x5c";    // a character that ends in the byte of "\"
constexpr char kMi[] = "\x83\x7e";      // ends in "~"
constexpr char kChi[] = "\x83\x60";     // ends in "`"
constexpr char kLowerA[] = "\x82\x81";  // a full-width a, and A
constexpr char kUpperA[] = "\x82\x60";
constexpr char kSo[] = "\x83\x5c";

TEST_F(StringDoubleByte, SearchSeesWholeCharacters) {
  const CString s = CString("c:\\") + kHyou + "\\a" + kHyou;
  EXPECT_EQ(s.Find('\\'), 2);
  EXPECT_EQ(s.Find('\\', 3), 5);
  EXPECT_EQ(s.ReverseFind('\\'), 5);
  EXPECT_EQ(s.Find(kHyou), 3);
  EXPECT_EQ(s.Find("\\a"), 5);
  EXPECT_EQ(s.Find("\x5c\\"), -1);
  EXPECT_EQ(s.FindOneOf("\\"), 2);
  EXPECT_EQ(CString(kHyou).FindOneOf("\\"), -1);
  EXPECT_STREQ((CString(kMi) + kChi + "x").SpanIncluding(CString(kChi) + kMi), CString(kMi) + kChi);
  EXPECT_STREQ((CString("x") + kHyou + "\\").SpanExcluding("\\"), CString("x") + kHyou);
}

TEST_F(StringDoubleByte, EditsKeepCharactersWhole) {
  CString s = CString(kHyou) + "\\";
  s.TrimRight('\\');
  EXPECT_STREQ(s, kHyou);
  s.TrimRight("\\");
  EXPECT_STREQ(s, kHyou);
  EXPECT_EQ(s.Replace('\\', '/'), 0);
  EXPECT_EQ(s.Remove('\\'), 0);
  EXPECT_EQ(s.Replace("\\", "/"), 0);
  s = CString("a") + kHyou + "b" + kMi;
  s.MakeReverse();
  EXPECT_STREQ(s, CString(kMi) + "b" + kHyou + "a");
}

TEST_F(StringDoubleByte, CaseIsFoldedByCharacter) {
  CString s = CString("a") + kLowerA + kSo + kChi;
  s.MakeUpper();
  EXPECT_STREQ(s, CString("A") + kUpperA + kSo + kChi);
  s.MakeLower();
  EXPECT_STREQ(s, CString("a") + kLowerA + kSo + kChi);
  EXPECT_EQ(CString(kLowerA).CompareNoCase(kUpperA), 0);
  // The two differ in the case of their second bytes' letters only.
  EXPECT_NE(CString("\x83\x41").CompareNoCase("\x83\x61"), 0);
}

TEST_F(StringDoubleByte, AHalfCharacterAtTheEndIsLeftAlone) {
  CString s("ab\x95");
  s.MakeUpper();
  s.TrimRight();
  EXPECT_EQ(s.Find('\\'), -1);
  s.MakeReverse();
  EXPECT_STREQ(s,
               "\x95"
               "BA");
}

}  // namespace
