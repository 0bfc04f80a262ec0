// The functions that do a whole archive in one call, and the names they let into a folder.
#include "zip_tools.h"

#include "parsed_zip.h"
#include "support/AssertionLog.h"
#include "support/CodePage.h"
#include "support/TempFolder.h"
#include "zip/EntryPath.h"
#include "zip/ZipFiles.h"

namespace {

using Names = std::vector<std::string>;

Names Sorted(Names names) {
  std::sort(names.begin(), names.end());
  return names;
}

std::string CurrentFolder() {
  char folder[MAX_PATH] = "";
  GetCurrentDirectoryA(sizeof folder, folder);
  return folder;
}

Names NamesIn(const TempFolder& folder, const std::string& archive) {
  return Sorted(ParseZip(folder.Read(archive)).Names());
}

class ZipFilesTest : public testing::Test {
 protected:
  ~ZipFilesTest() override { EXPECT_EQ(CurrentFolder(), m_before); }

  const std::string m_before = CurrentFolder();
  const TempFolder m_folder;
};

TEST_F(ZipFilesTest, WholeFolder) {
  m_folder.Write("tree\\a.txt", "a");
  m_folder.Write("tree\\sub\\b.txt", "b");
  const std::string letter = Ansi(LowerLetter());
  m_folder.Write("tree\\sub\\deep er\\" + letter + ".c", "c");
  std::filesystem::create_directories(m_folder / "tree\\empty");
  EXPECT_EQ(ZipDir((m_folder / "all.zip").c_str(), (m_folder / "tree").c_str(), "*.*"), 1);
  EXPECT_EQ(NamesIn(m_folder, "all.zip"),
            (Names{"a.txt", "sub/b.txt", "sub/deep er/" + letter + ".c"}));
  // The pattern holds for folders too: "sub" does not match.
  EXPECT_EQ(ZipDir((m_folder / "txt.zip").c_str(), (m_folder / "tree").c_str(), "*.txt"), 1);
  EXPECT_EQ(NamesIn(m_folder, "txt.zip"), Names{"a.txt"});
  // A relative archive stands in the folder, and isn't taken into itself.
  EXPECT_EQ(ZipDir("inside.zip", (m_folder / "tree\\sub").c_str(), "*"), 1);
  EXPECT_EQ(NamesIn(m_folder, "tree\\sub\\inside.zip"),
            (Names{"b.txt", "deep er/" + letter + ".c"}));
}

TEST_F(ZipFilesTest, FolderOfNothingGivesAnEmptyArchive) {
  std::filesystem::create_directories(m_folder / "tree\\empty");
  EXPECT_EQ(ZipDir((m_folder / "a.zip").c_str(), (m_folder / "tree").c_str(), "*.*"), 1);
  EXPECT_EQ(NamesIn(m_folder, "a.zip"), Names{});
  EXPECT_EQ(ZipDir((m_folder / "b.zip").c_str(), (m_folder / "tree").c_str(), "*.none"), 0);
}

TEST_F(ZipFilesTest, ListOfFiles) {
  CArray<CString, const char*> files;
  for (const char* name : {"a.txt", "sub\\b.txt"}) files.Add(m_folder.Write(name, name).c_str());
  files.Add((m_folder / "missing").c_str());
  EXPECT_EQ(ZipFiles("new/folder\\list.zip", m_folder.path().c_str(), files), 1);
  EXPECT_EQ(NamesIn(m_folder, "new\\folder\\list.zip"), (Names{"a.txt", "sub/b.txt"}));
  EXPECT_EQ(ZipFiles((m_folder / "a.txt\\no.zip").c_str(), m_folder.path().c_str(), files), 0);
}

TEST_F(ZipFilesTest, OneFile) {
  const std::string file = m_folder.Write("sub\\b.txt", "b");
  EXPECT_EQ(ZipFile((m_folder / "one.zip").c_str(), file.c_str()), 1);
  EXPECT_EQ(NamesIn(m_folder, "one.zip"), Names{"b.txt"});

  // Without a folder the first character is lost, by the rule that a backslash stands there.
  m_folder.Write("bc", "2");
  SetCurrentDirectoryA(m_folder.path().c_str());
  EXPECT_EQ(ZipFile("bare.zip", "abc"), 1);
  SetCurrentDirectoryA(m_before.c_str());
  EXPECT_EQ(NamesIn(m_folder, "bare.zip"), Names{"bc"});
}

TEST_F(ZipFilesTest, ExtractsOverWhatIsThere) {
  const std::string path = m_folder / "a.zip";
  HZIP zip = CreateZipZ(Arg(path), 0, kZipFileName);
  AddText(zip, "top.txt", "new");
  ZipAdd(zip, "empty/folder", nullptr, 0, kZipFolder);
  AddText(zip, "sub/deep/b.txt", "b");
  CloseZipZ(zip);
  const std::string old = m_folder.Write("out\\top.txt", "old and longer");
  SetFileAttributesA(old.c_str(), FILE_ATTRIBUTE_READONLY);
  CString last;
  EXPECT_EQ(OpenZipFile(path.c_str(), (m_folder / "out").c_str(), last), 1);
  EXPECT_EQ(m_folder.Read("out\\top.txt"), "new");
  EXPECT_EQ(m_folder.Read("out\\sub\\deep\\b.txt"), "b");
  EXPECT_TRUE(m_folder.Has("out\\empty\\folder"));
  EXPECT_STREQ(last, (m_folder / "out\\sub/deep/b.txt").c_str());

  // Relative to the current folder, nothing but the files and their folders is made there.
  SetCurrentDirectoryA(m_folder.path().c_str());
  EXPECT_EQ(OpenZipFile("a.zip", "rel", last), 1);
  SetCurrentDirectoryA(m_before.c_str());
  EXPECT_EQ(m_folder.Read("rel\\sub\\deep\\b.txt"), "b");
  EXPECT_FALSE(m_folder.Has("rel\\rel"));

  EXPECT_EQ(OpenZipFile((m_folder / "out\\top.txt").c_str(), "", last), 0) << "no archive";
}

TEST_F(ZipFilesTest, EntriesThatLeaveTheFolderAreSkippedAndReported) {
  const std::string path = m_folder / "a.zip";
  HZIP zip = CreateZipZ(Arg(path), 0, kZipFileName);
  AddText(zip, "../evil.txt", "evil");
  AddText(zip, "good.txt", "good");
  CloseZipZ(zip);
  const AssertionLog log;
  CString last;
  EXPECT_EQ(OpenZipFile(path.c_str(), (m_folder / "out").c_str(), last), 1);
  EXPECT_EQ(m_folder.Read("out\\good.txt"), "good");
  EXPECT_FALSE(m_folder.Has("evil.txt"));
  EXPECT_TRUE(log.Names("EntryPath"));
  EXPECT_NE(log.Text().find("../evil.txt"), std::string::npos);
}

TEST_F(ZipFilesTest, ListsNames) {
  const std::string path = m_folder / "a.zip";
  HZIP zip = CreateZipZ(Arg(path), 0, kZipFileName);
  AddText(zip, "sub/b.txt", "b");
  CloseZipZ(zip);
  CArray<CString, const char*> names;
  EXPECT_EQ(UnZipFileList(path.c_str(), "C:\\to", names), 1);
  EXPECT_EQ(UnZipFileList(path.c_str(), "", names), 1);
  EXPECT_EQ(UnZipFileList((m_folder / "none.zip").c_str(), "", names), 0);
  ASSERT_EQ(names.GetSize(), 2);
  EXPECT_STREQ(names[0], "C:\\to\\sub/b.txt");
  EXPECT_STREQ(names[1], "\\sub/b.txt");
}

// What the tests of hostile archives don't reach by extracting.
TEST(EntryPath, TellsWhichNamesStayBelow) {
  const std::string longest(258, 'n'), cut(259, 'n');
  for (const char* name : {"a", "a/b\\c/", "a//b", "./a", "a. ", "a..b", "com0", "com", "lpt10",
                           "xcon", "con x", longest.c_str()})
    EXPECT_TRUE(StaysBelowTarget(name)) << name;
  const std::string one = Ansi(L"a/coM\u00B9"), three = Ansi(L"lpt\u00B3 .txt/b");
  for (const char* name : {"", "/", "a/.. ", "a/. .", "a/....\\b", "a:b", "Clock$", one.c_str(),
                           three.c_str(), "nul  ..x", cut.c_str()})
    EXPECT_FALSE(StaysBelowTarget(name)) << name;
}

}  // namespace
