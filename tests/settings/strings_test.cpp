// Texts of the library and of hosts, with their inserts.
#include "strings_test.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "resources/resource.h"
#include "settings/MString.h"

namespace {

// The inserts that a text is used with, in order.
struct Text {
  int id;
  const char* inserts = "";
};

constexpr Text kTexts[] = {
    {IDS_PRODUCT_PAGE},
    {IDS_CONNECTION_CHECK},
    {IDS_DOWNLOAD_SERVER},
    {IDS_DONT_SHOW_AGAIN},
    {IDS_BUTTON_OK},
    {IDS_BUTTON_CANCEL},
    {IDS_BUTTON_STOP},
    {IDS_BUTTON_YES},
    {IDS_BUTTON_NO},
    {IDS_BUTTON_RETRY},
    {IDS_PROGRESS},
    {IDS_PERCENT_COMPLETED, "%d%%"},
    {IDS_SCANNING_FOLDERS},
    {IDS_EVALUATING_FILE_STATUS},
    {IDS_DOWNLOADING},
    {IDS_UPLOADING_FILES, "%1!d!"},
    {IDS_INTERNET_FAILED, "%d%s"},
    {IDS_NO_INTERNET},
    {IDS_ABORTED_BY_USER},
    {IDS_SPECIFY_PATH},
    {IDS_SPECIFY_ABSOLUTE_PATH},
    {IDS_CREATE_FOLDER, "%1"},
    {IDS_FOLDER_NOT_CREATED, "%1"},
    {IDS_FOLDER_MISSING, "%1"},
    {IDS_NO_LONG_NAMES},
    {IDS_NO_WRITE_ACCESS},
    {IDS_NO_DRIVE_ACCESS, "%1"},
    {IDS_SLASH_AT_END},
    {IDS_FILE_NOT_OPENED, "%1%2"},
    {IDS_SORT_BY},
    {IDS_DELETE_ITEM, "%1"},
    {IDS_DESCRIPTION},
    {IDS_DESCRIPTION_FALLBACK},
    {IDS_REVERSE_ORDER},
    {IDS_SELECT_ALL},
    {IDS_INVERT_SELECTION},
    {IDS_RENAME},
    {IDS_FILTER_INCLUDE_ALL},
    {IDS_FILTER_EQUALS},
    {IDS_FILTER_DOES_NOT_EQUAL},
    {IDS_FILTER_IS_GREATER},
    {IDS_FILTER_IS_GREATER_OR_EQUAL},
    {IDS_FILTER_IS_LESS},
    {IDS_FILTER_IS_LESS_OR_EQUAL},
    {IDS_FILTER_BEGINS_WITH},
    {IDS_FILTER_DOES_NOT_BEGIN_WITH},
    {IDS_FILTER_CONTAINS},
    {IDS_FILTER_DOES_NOT_CONTAIN},
    {IDS_FILTER_NOT_ACTIVATED},
    {IDS_FILTER_DATES_REVERSED},
    {IDS_FILTER_NUMBERS_REVERSED},
    {IDS_REPORT_COMMAND_ERROR, "%1"},
    {IDS_REPORT_NO_FIELD},
    {IDS_REPORT_NO_HYPERLINKS},
    {IDS_REPORT_GENERATED_BY},
    {IDS_REPORT_ON},
    {IDS_REPORT_PRIMARY_FILTER},
    {IDS_REPORT_SECONDARY_FILTER},
    {IDS_FILE_STATES},
    {IDS_COLUMN_DOCUMENT_NAME},
    {IDS_COLUMN_TYPE},
    {IDS_COLUMN_FOLDER_NAME},
    {IDS_COLUMN_STATUS},
    {IDS_COLUMN_MODIFIED},
    {IDS_COLUMN_BASE_MODIFIED},
    {IDS_COLUMN_REVISED_MODIFIED},
    {IDS_COMPARISON_TITLE, "%1%2"},
    {IDS_ANALYZE},
    {IDS_OPEN},
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
  for (const Text& text : kTexts) {
    CString loaded;
    EXPECT_TRUE(loaded.LoadString(text.id)) << text.id;
    EXPECT_EQ(InsertsOf(loaded), text.inserts) << text.id;
  }
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
