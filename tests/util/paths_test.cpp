// Folders that the user names: what is asked, what is said, and what is left behind.
#include <gtest/gtest.h>
#include <mbctype.h>

#include <set>

#include "support/AssertionLog.h"
#include "support/TempFolder.h"
#include "util/Boxes.h"
#include "util/pathutils.h"

namespace {

enum Option { kMustExist = 1, kLongNames = 2, kWritable = 4, kAsk = 8, kFail = 16 };

struct Answer {
  int result;
  std::string texts;  // of the message boxes, each followed by "|"
  std::string path;   // the buffer afterwards
  bool operator==(const Answer&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Answer& answer) {
  return out << answer.result << ", \"" << answer.texts << "\", " << answer.path;
}

Answer Validate(const std::string& path, int options, std::vector<Boxes::Answer> answers) {
  std::string buffer = path;
  Boxes boxes(answers);
  const int result = ValidatePath(buffer.data(), options & kMustExist, options & kLongNames,
                                  options & kWritable, options & kAsk, options & kFail);
  return {result, boxes.Texts(), buffer.c_str()};
}

std::string Missing(const std::string& path) {
  return "The folder '" + path + "'  does not exist.";
}

std::string Question(const std::string& path) {
  return Missing(path) + "\nDo you wish to create a new folder?|";
}

constexpr char kNone[] = "Please specify a valid path. |";
constexpr char kRelative[] =
    "Please specify an absolute path.\n(Examples: D:\\projects or \\\\Moon\\projects.) |";
constexpr char kSlash[] = "Last character in path must not be a slash.|";
constexpr char kReadOnly[] = "You must have write access on the specified folder.|";
constexpr char kShortNames[] =
    "Please verify the selected drive supports long file names.\nDo you want to continue?|";

std::string NoDrive(const std::string& root) { return "Cannot access drive '" + root + "'.|"; }

std::string NotCreated(const std::string& path) {
  return "The folder '" + path +
         "' could not be created.\nPlease verify that you have the required permissions on the "
         "destination drive or select a different folder name.|";
}

std::set<std::string> EntriesOf(const std::string& path) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
    names.insert(entry.path().string());
  }
  return names;
}

}  // namespace

TEST(ValidatePath, WhatIsRefusedWhateverIsOnTheDisk) {
  const struct {
    std::string path, message, changed;
  } cases[] = {
      {"", kNone, ""},
      {"work", kRelative, "work"},
      {"/work", kRelative, "\\work"},
      {"D:/work/", kSlash, "D:\\work\\"},
      {"C:\\", kSlash, "C:\\"},
      {"\\\\", kSlash, "\\\\"},
      {"C:\\work.", kSlash, "C:\\work."},
      {"C:\\..", kSlash, "C:\\.."},
      {"Q:\\work", NoDrive("Q:\\"), "Q:\\work"},
      {"::", NoDrive("::\\"), "::"},
      {"//moon/projects", NoDrive("\\\\moon\\projects\\"), "\\\\moon\\projects"},
      {"\\\\moon\\projects\\a\\b", NoDrive("\\\\moon\\projects\\"), "\\\\moon\\projects\\a\\b"},
      {"\\\\moon", NoDrive("\\\\moon\\"), "\\\\moon"},
      {"\\\\.\\pipe\\x", NoDrive("\\\\.\\pipe\\"), "\\\\.\\pipe\\x"},
      {"C:\\a?b", NotCreated("C:\\a?b"), "C:\\a?b"},
      {"Z:\\proc\\%1!s!%n", NotCreated("Z:\\proc\\%1!s!%n"), "Z:\\proc\\%1!s!%n"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Validate(c.path, 0, {Boxes::Yes}), (Answer{0, c.message, c.changed})) << c.path;
  }
  Boxes boxes({Boxes::Yes});
  EXPECT_EQ(ValidatePath(static_cast<char*>(nullptr), 0, 0, 0, 0, 0), 0);
}

TEST(ValidatePath, PathLongerThanAnyFolders) {
  std::string path = "C:\\" + std::string(5000, 'a');
  Boxes boxes({Boxes::Yes, Boxes::Yes});
  EXPECT_EQ(ValidatePath(path.data(), 0, 1, 1, 0, 0), 0);
  EXPECT_EQ(ValidatePath(path.data(), 1, 1, 1, 0, 0), 0);
  EXPECT_TRUE(boxes.Texts().starts_with("The folder 'C:\\aaa"));
}

TEST(ValidatePath, MissingFolder) {
  const TempFolder folder;
  const std::string path = folder / "new\\folder";
  const struct {
    int options;
    std::vector<Boxes::Answer> answers;
    Answer expected;
    bool created;
  } cases[] = {
      {kMustExist | kAsk, {Boxes::Yes}, {0, Missing(path) + "|", path}, false},
      {kAsk, {Boxes::No}, {1, Question(path), path}, false},
      {kAsk | kFail, {Boxes::No}, {0, Question(path), path}, false},
      {kAsk | kFail | kWritable | kLongNames, {Boxes::Yes}, {1, Question(path), path}, true},
      {kFail, {}, {1, "", path}, true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Validate(path, c.options, c.answers), c.expected) << c.options;
    EXPECT_EQ(IsFolder(path.c_str()), c.created) << c.options;
    std::filesystem::remove_all(folder / "new");
  }
}

TEST(ValidatePath, ExistingFolder) {
  const AssertionLog log;
  const TempFolder folder;
  char before[MAX_PATH], after[MAX_PATH];
  GetCurrentDirectoryA(MAX_PATH, before);
  folder.Write("dummy.tst", "the user's own");
  const auto entries = EntriesOf(folder.path());
  const int all = kMustExist | kLongNames | kWritable | kAsk | kFail;
  EXPECT_EQ(Validate(folder.path(), all, {}), (Answer{1, "", folder.path()}));
  EXPECT_EQ(EntriesOf(folder.path()), entries);
  EXPECT_EQ(folder.Read("dummy.tst"), "the user's own");
  GetCurrentDirectoryA(MAX_PATH, after);
  EXPECT_STREQ(after, before);

  EXPECT_EQ(Validate("Z:\\proc", kMustExist, {}), (Answer{1, "", "Z:\\proc"}));
  EXPECT_EQ(Validate("Z:\\proc", all, {Boxes::Yes}), (Answer{0, kReadOnly, "Z:\\proc"}));
  // A folder in the place of the file that tries a long name.
  std::filesystem::create_directory(folder / "Long Name Test.tst,v");
  for (const Boxes::Answer answer : {Boxes::Yes, Boxes::No}) {
    EXPECT_EQ(Validate(folder.path(), all, {answer}),
              (Answer{answer == Boxes::Yes, kShortNames, folder.path()}));
  }
  EXPECT_TRUE(log.Empty()) << log.Text();
}

// In a double-byte code page the second byte of a character can be a backslash's or slash's code.
TEST(ValidatePath, DoubleByteCharacters) {
  const std::string path = "C:\\\x83\x5C";
  ASSERT_EQ(_setmbcp(932), 0);
  const Answer answer = Validate(path, kMustExist, {Boxes::Yes});
  _setmbcp(_MB_CP_ANSI);
  EXPECT_EQ(answer.texts.substr(0, 11), "The folder ") << answer;
}

TEST(ValidatePath, ForServers) {
  const TempFolder folder;
  std::string path = folder / "new/folder";
  CString text = "old";
  EXPECT_EQ(ValidatePathServer(path.data(), text), 1);
  EXPECT_EQ(text, "");
  EXPECT_TRUE(IsFolder(path.c_str()));
  for (const auto& [bad, message] : {std::pair<std::string, std::string>{"work", kRelative},
                                     {"Q:\\work", NoDrive("Q:\\")},
                                     {"Z:\\proc", kReadOnly},
                                     {"Z:\\proc\\new", NotCreated("Z:\\proc\\new")}}) {
    Boxes boxes({Boxes::Yes});
    path = bad;
    EXPECT_EQ(ValidatePathServer(path.data(), text), 0) << bad;
    EXPECT_EQ(boxes.Texts(), message);
    text.Remove('\r');
    EXPECT_EQ(std::string(text) + "|", message);
  }
}

TEST(ValidatePath, InADialog) {
  constexpr int kEdit = 101;
  const TempFolder folder;
  CWnd window;
  CEdit edit;
  window.CreateEx(0, "STATIC", "", WS_POPUP, CRect(0, 0, 300, 100), nullptr, 0);
  edit.Create(WS_CHILD, CRect(0, 0, 200, 20), &window, kEdit);
  const auto exchange = [&](const std::string& path, BOOL saves) {
    edit.SetWindowText(path.c_str());
    CDataExchange dx(&window, saves);
    try {
      ValidatePath(&dx, kEdit, 1, 0, 0, 0, 0);
    } catch (CUserException* failed) {
      failed->Delete();
      return dx.m_hWndLastControl == edit.m_hWnd ? "failed there" : "failed elsewhere";
    }
    return "passed";
  };
  EXPECT_STREQ(exchange("work", FALSE), "passed");
  EXPECT_STREQ(exchange(folder.path(), TRUE), "passed");
  Boxes boxes({Boxes::Yes});
  EXPECT_STREQ(exchange("work", TRUE), "failed there");
  window.DestroyWindow();
}

TEST(IsFolder, FileFolderAndNeither) {
  const TempFolder folder;
  EXPECT_EQ(IsFolder(folder.path().c_str()), 1);
  EXPECT_EQ(IsFolder(folder.Write("file", "").c_str()), 0);
  EXPECT_EQ(IsFolder((folder / "none").c_str()), 0);
  EXPECT_EQ(IsFolder(""), 0);
}
