// Texts of the library and of hosts, with their inserts.
#include "strings_test.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "resources/resource.h"
#include "settings/MString.h"

namespace {

// The texts with inserts, as the code that shows them fills them.
const std::map<int, std::string> kInserts = {
    {IDS_PERCENT_COMPLETED, "%d%%"},  {IDS_UPLOADING_FILES, "%1!d!"},
    {IDS_INTERNET_FAILED, "%d%s"},    {IDS_FILE_TOO_LARGE, "%1"},
    {IDS_CREATE_FOLDER, "%1"},        {IDS_FOLDER_NOT_CREATED, "%1"},
    {IDS_FOLDER_MISSING, "%1"},       {IDS_NO_DRIVE_ACCESS, "%1"},
    {IDS_FILE_NOT_OPENED, "%1%2"},    {IDS_DELETE_ITEM, "%1"},
    {IDS_REPORT_COMMAND_ERROR, "%1"}, {IDS_REPORT_NOT_WRITTEN, "%1%2"},
    {IDS_REPORT_ITEMS, "%1!d!"},      {IDS_REPORT_WRITTEN, "%1"},
    {IDS_FILTER_FROM_TO, "%1%2"},     {IDS_FILTER_ALL_BUT, "%1"},
    {IDS_COMPARISON_TITLE, "%1%2"},   {IDS_PAGE_EQUAL_LINES, "%1"},
    {IDS_PAGES_PROBLEMS, "%1"},       {IDS_PAGES_OCCUPIED, "%1"},
    {IDS_PAGES_NOT_WRITTEN, "%1"},    {IDS_DOCUMENT_NOT_OPENED, "%1"},
};

HINSTANCE Library() { return GetModuleHandleA("orvane.dll"); }

// The inserts of a text, one after the other.
std::string InsertsOf(const CString& text) {
  std::string inserts;
  for (int i = text.Find('%'); i >= 0; i = text.Find('%', i)) {
    int end = i + 2;
    if (text.Mid(end, 1) == "!") end = text.Find('!', end + 1) + 1;
    inserts += text.Mid(i, end - i);
    i = end;
  }
  return inserts;
}

}  // namespace

TEST(StringTable, AHostFindsEveryTextWithItsInserts) {
  int texts = 0;
  for (int id = IDS_REPORT_COMMAND_ERROR; id <= IDS_DOCUMENT_NOT_OPENED; ++id) {
    CString loaded;
    const auto known = kInserts.find(id);
    const std::string inserts = known == kInserts.end() ? "" : known->second;
    texts += loaded.LoadString(id);
    EXPECT_EQ(InsertsOf(loaded), inserts) << id;
  }
  EXPECT_GT(texts, 100);
}

TEST(StringTable, OddSpellingsStand) {
  MString text;
  text.LoadString(IDS_FILE_STATES);
  EXPECT_STREQ(text, "Same\tModified\tNew\tDeleted\tUnknown");
  text.LoadString(IDS_BUTTON_CANCEL);
  EXPECT_STREQ(text, " Cancel ");
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
  EXPECT_TRUE(text.FormatMessage(IDS_FOLDER_NOT_CREATED, "X", "Y", Library()));
  EXPECT_TRUE(text.FormatMessage(IDS_FOLDER_NOT_CREATED, "X", "Y", 1, Library()));
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
