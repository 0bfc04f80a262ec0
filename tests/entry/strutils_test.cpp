#include "entry/strutils.h"

#include <gtest/gtest.h>

#include <mbctype.h>

#include "entry/PathUtils.h"
#include "support/AssertionLog.h"

TEST(SplitAtLastBackslash, Table) {
  const struct {
    const char* text;
    const char* left;
    const char* right;
  } kCases[] = {
      {"name.log", "name.log", ""}, {"C:\\dir\\name.log", "C:\\dir", "name.log"},
      {"C:\\dir\\", "C:\\dir", ""}, {"\\name", "", "name"},
      {"a/b", "a/b", ""},
  };
  for (const auto& c : kCases) {
    CString left(c.text);
    CString right("old");
    SplitAtLastBackslash(left, left, right);  // a result may be the text itself
    EXPECT_STREQ(left, c.left) << c.text;
    EXPECT_STREQ(right, c.right) << c.text;
  }
  const AssertionLog log;
  CString left, right;
  SplitAtLastBackslash("", left, right);
  EXPECT_STREQ(left, "");
  EXPECT_TRUE(log.Names("strutils")) << log.Text();
}

TEST(TextAfter, FindsTheFirst) {
  const AssertionLog log;
  const char* const text = "a=1;a=2";
  EXPECT_EQ(TextAfter(text, "a="), text + 2);
  EXPECT_EQ(TextAfter("", "a"), nullptr);
  EXPECT_EQ(TextAfter(nullptr, "a"), nullptr);
  EXPECT_TRUE(log.Empty()) << log.Text();
}

TEST(TextAfter, MissingPrefixIsAnAssertion) {
  for (const char* prefix : {"x", "abcd", static_cast<const char*>(nullptr)}) {
    const AssertionLog log;
    EXPECT_EQ(TextAfter("abc", prefix), nullptr);
    EXPECT_TRUE(log.Names("strutils")) << log.Text();
  }
}

// The second byte of a Japanese character may be that of a backslash or a letter.
TEST(DoubleByteTexts, AreCutBetweenCharacters) {
  ASSERT_EQ(_setmbcp(932), 0);
  CString left, right;
  SplitAtLastBackslash("C:\\dir\\\x95\x5c", left, right);
  EXPECT_STREQ(left, "C:\\dir");
  EXPECT_STREQ(right, "\x95\x5c");
  const char* const text = "\x83\x41 A";
  EXPECT_EQ(TextAfter(text, "A"), text + 4);
  _setmbcp(_MB_CP_ANSI);
}

TEST(FullPath, AtTheirLimits) {
  EXPECT_STREQ(FullFolderOf("C:\\a\\.."), "C:");
  EXPECT_STREQ(FullFolderOf("C:/a//b/"), "C:\\a\\b");
  char full[MAX_PATH];
  const std::string longest = "C:\\" + std::string(MAX_PATH - 4, 'n');
  EXPECT_TRUE(GetFullPath(longest.c_str(), full));
  EXPECT_FALSE(GetFullPath((longest + "n").c_str(), full));
  EXPECT_EQ(GetLastError(), ERROR_FILENAME_EXCED_RANGE);
}
