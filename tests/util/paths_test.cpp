// Folders that the user names: what is asked, what is said, and what is left behind.
#include <gtest/gtest.h>
#include <mbctype.h>

#include "settings/RegistryUtil.h"
#include "support/AssertionLog.h"
#include "support/RegistrySubtree.h"
#include "support/TempFolder.h"
#include "util/Boxes.h"
#include "util/pathutils.h"

namespace {

enum Option { kMustExist = 1, kLongNames = 2, kWritable = 4, kAsk = 8, kFail = 16 };

constexpr char kNone[] = "Please specify a valid path. |";
constexpr char kRelative[] =
    "Please specify an absolute path.\n(Examples: D:\\projects or \\\\Moon\\projects.) |";
constexpr char kSlash[] = "Last character in path must not be a slash.|";
constexpr char kReadOnly[] = "You must have write access on the specified folder.|";
constexpr char kShortNames[] =
    "Please verify the selected drive supports long file names.\nDo you want to continue?|";

std::string Missing(const std::string& path) {
  return "The folder '" + path + "'  does not exist.";
}
std::string Question(const std::string& path) {
  return Missing(path) + "\nDo you wish to create a new folder?|";
}
std::string NoDrive(const std::string& root) { return "Cannot access drive '" + root + "'.|"; }
std::string NotCreated(const std::string& path) {
  return "The folder '" + path +
         "' could not be created.\nPlease verify that you have the required permissions on the "
         "destination drive or select a different folder name.|";
}

// The result and what was said, with the answers given.
std::string Validate(std::string path, int options, const std::vector<Boxes::Answer>& answers) {
  const Boxes boxes(answers);
  const int result = ValidatePath(path.data(), options & kMustExist, options & kLongNames,
                                  options & kWritable, options & kAsk, options & kFail);
  return std::to_string(result) + " " + boxes.Texts();
}

// With a product registry messages are shown in the library's own box.
class PathChecks : public testing::Test {
 protected:
  void SetUp() override { MRegistry::InitProductRegistry(m_key.c_str(), 1); }
  void TearDown() override { MRegistry::FreeProductRegistry(); }

 private:
  RegistrySubtree m_key;
};

}  // namespace

TEST_F(PathChecks, Refused) {
  const std::string tooLong = "C:\\" + std::string(900, 'a'), percent = "Z:\\proc\\%1!s!%n";
  const std::pair<std::string, std::string> cases[] = {
      {"", kNone},
      {"work", kRelative},
      {"/work", kRelative},
      {"D:/projects/", kSlash},
      {"\\\\", kSlash},
      {"C:\\..", kSlash},
      {"Q:\\work", NoDrive("Q:\\")},
      {"::", NoDrive("::\\")},
      {"//moon/projects", NoDrive("\\\\moon\\projects\\")},
      {"\\\\moon\\projects\\a\\b", NoDrive("\\\\moon\\projects\\")},
      {"\\\\.\\pipe\\x", NoDrive("\\\\.\\pipe\\")},
      {"C:\\a?b", NotCreated("C:\\a?b")},
      {percent, NotCreated(percent)},
      {tooLong, NotCreated(tooLong)},
      {"Z:\\proc", kReadOnly},
  };
  for (const auto& [path, message] : cases) {
    EXPECT_EQ(Validate(path, kWritable, {Boxes::Yes}), "0 " + message);
    const Boxes boxes({Boxes::Yes});
    std::string buffer = path;
    CString text;
    EXPECT_EQ(ValidatePathServer(buffer.data(), text), 0) << path;
    text.Remove('\r');
    EXPECT_EQ(std::string(text) + "|", message);
    EXPECT_EQ(buffer.find('/'), std::string::npos);
  }
}

TEST_F(PathChecks, MissingFolder) {
  const TempFolder folder;
  const std::string path = folder / "new\\folder";
  const struct {
    int options;
    std::vector<Boxes::Answer> answers;
    std::string expected;
    bool created;
  } cases[] = {
      {kMustExist | kAsk, {Boxes::Yes}, "0 " + Missing(path) + "|", false},
      {kAsk, {Boxes::No}, "1 " + Question(path), false},
      {kAsk | kFail, {Boxes::No}, "0 " + Question(path), false},
      {kAsk | kWritable | kLongNames, {Boxes::Yes}, "1 " + Question(path), true},
      {kFail, {}, "1 ", true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Validate(path, c.options, c.answers), c.expected) << c.options;
    EXPECT_EQ(IsFolder(path.c_str()), c.created) << c.options;
    std::filesystem::remove_all(folder / "new");
  }
}

TEST_F(PathChecks, ExistingFolder) {
  const AssertionLog log;
  const TempFolder folder;
  const auto before = std::filesystem::current_path();
  const int all = kMustExist | kLongNames | kWritable | kAsk | kFail;
  EXPECT_EQ(Validate(folder.path(), all, {}), "1 ");
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
  EXPECT_EQ(std::filesystem::current_path(), before);
  folder.Write("dummy.tst", "the user's own");
  EXPECT_EQ(Validate(folder.path(), all, {}), "1 ");
  EXPECT_EQ(folder.Read("dummy.tst"), "the user's own");
  // A folder in the place of the file that tries a long name.
  std::filesystem::create_directory(folder / "Long Name Test.tst,v");
  EXPECT_EQ(Validate(folder.path(), all, {Boxes::Yes}), std::string("1 ") + kShortNames);
  EXPECT_EQ(Validate(folder.path(), all, {Boxes::No}), std::string("0 ") + kShortNames);
  EXPECT_TRUE(log.Empty()) << log.Text();
  // In a double-byte code page the second byte of a character can be a backslash's code.
  ASSERT_EQ(_setmbcp(932), 0);
  const std::string said = Validate("C:\\\x83\x5C", kMustExist, {Boxes::Yes});
  _setmbcp(_MB_CP_ANSI);
  EXPECT_TRUE(said.starts_with("0 The folder ")) << said;
}

TEST_F(PathChecks, InADialog) {
  constexpr int kEdit = 101;
  CWnd window;
  CEdit edit;
  window.CreateEx(0, "STATIC", "", WS_POPUP, CRect(0, 0, 300, 100), nullptr, 0);
  edit.Create(WS_CHILD, CRect(0, 0, 200, 20), &window, kEdit);
  const auto exchange = [&](const char* path, BOOL saves) {
    edit.SetWindowText(path);
    CDataExchange dx(&window, saves);
    ValidatePath(&dx, kEdit, 1, 0, 0, 0, 0);
  };
  exchange("work", FALSE);
  exchange("C:\\windows", TRUE);
  const Boxes boxes({Boxes::Yes});
  try {
    exchange("work", TRUE);
    ADD_FAILURE() << "the exchange has not failed";
  } catch (CUserException* failed) {
    failed->Delete();
  }
  window.DestroyWindow();
}
