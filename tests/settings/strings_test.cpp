// Texts of the library and of hosts, with their inserts.
#include "strings_test.h"

#include <gtest/gtest.h>

#include <string>

#include "resources/resource.h"
#include "settings/MString.h"

namespace {

HINSTANCE Library() { return GetModuleHandleA("orvane.dll"); }

}  // namespace

TEST(StringTable, AHostFindsEveryText) {
  int texts = 0;
  for (int id = IDS_REPORT_COMMAND_ERROR; id <= IDS_DOCUMENT_NOT_OPENED; ++id) {
    texts += CString().LoadString(id);
  }
  EXPECT_GT(texts, 100);
}

TEST(StringTable, OddSpellingsStand) {
  MString text;
  text.LoadString(IDS_FILE_STATES);
  EXPECT_STREQ(text, "Same\tModified\tNew\tDeleted\tUnknown");
  text.LoadString(IDS_BUTTON_CANCEL);
  EXPECT_STREQ(text, " Cancel ");
  text.LoadString(IDS_INTERNET_FAILED);  // printf's
  EXPECT_STREQ(text, "Internet connection failed! (Error code = %d)\nError: %s");
  text.LoadString(IDS_SPECIFY_ABSOLUTE_PATH);
  EXPECT_STREQ(text,
               "Please specify an absolute path.\n"
               "(Examples: D:\\projects or \\\\Moon\\projects.) ");
  text.FormatMessage(IDS_FOLDER_MISSING, "C:\\a%1b");
  EXPECT_STREQ(text, "The folder 'C:\\a%1b'  does not exist.");
  text.FormatMessage(IDS_DELETE_ITEM, "x");
  EXPECT_STREQ(text, "Do you wish to delete item \"x\"?");
  text.FormatMessage(IDS_UPLOADING_FILES, 3);
  EXPECT_STREQ(text, "Uploading 3 file(s)...");
}

TEST(MString, LooksInTheGivenModuleFirst) {
  const HINSTANCE before = AfxGetResourceHandle();
  MString text;
  EXPECT_TRUE(text.LoadString(IDS_FOLDER_NOT_CREATED));
  EXPECT_STREQ(text, "The host's own: %1");
  EXPECT_TRUE(text.LoadString(IDS_FOLDER_NOT_CREATED, Library()));
  EXPECT_EQ(text.Find("The folder"), 0);
  EXPECT_TRUE(text.FormatMessage(IDS_FOLDER_NOT_CREATED, 5));
  EXPECT_STREQ(text, "The host's own: 5");
  EXPECT_TRUE(text.FormatMessage(IDS_FOLDER_NOT_CREATED, "X", Library()));
  EXPECT_EQ(text.Find("The folder 'X' could"), 0);
  EXPECT_FALSE(text.LoadString(9, Library()));
  EXPECT_STREQ(text, "");
  text = "old";
  EXPECT_FALSE(text.FormatMessage(9, "x"));
  EXPECT_STREQ(text, "");
  EXPECT_EQ(AfxGetResourceHandle(), before);
}

TEST(MString, TakesTextsAndNumbersInAnyPlace) {
  MString text;
  const CString string("a string");
  text.FormatMessage(IDS_TEST_PLAIN, string, 4000000000u, -1);
  EXPECT_STREQ(text, "a string, 4000000000 and -1");
  text.FormatMessage(IDS_TEST_PLAIN, 0, 0u, nullptr);
  EXPECT_STREQ(text, "0, 0 and ");
  text.FormatMessage(IDS_TEST_PLAIN, "one");
  EXPECT_STREQ(text, "one,  and ");
  text.FormatMessage(IDS_TEST_PLAIN, text, text);
  EXPECT_STREQ(text, "one,  and , one,  and  and ");
  text.FormatMessage(IDS_TEST_NUMBER, 255, 7ul);
  EXPECT_STREQ(text, "255 of 00007 is ff%");
  text.FormatMessage(IDS_TEST_NUMBER, "many", "all");
  EXPECT_STREQ(text, "many of all is many%");
  text.FormatMessage(IDS_TEST_ONLY_INSERT, "");
  EXPECT_STREQ(text, "");
}

TEST(MString, FormatsThatAskForTooMuch) {
  MString text;
  text.FormatMessage(IDS_TEST_SPECIAL, "a", 2);
  EXPECT_STREQ(text, "a    |2|2|||100%|\r\n|!|50 off");
  const std::string endless(100000, 'x');
  text.FormatMessage(IDS_TEST_PLAIN, endless.c_str(), endless.c_str(), endless.c_str());
  EXPECT_EQ(text.GetLength(), 3 * 9000 + 7);
}
