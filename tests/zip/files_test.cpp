// The functions that do a whole archive in one call, and the names they let into a folder.
#include "zip_tools.h"

#include <algorithm>

#include "support/AssertionLog.h"
#include "support/CodePage.h"
#include "zip/ZipFiles.h"

namespace {

std::string CurrentFolder() {
  char folder[MAX_PATH] = "";
  GetCurrentDirectoryA(sizeof folder, folder);
  return folder;
}

class ZipFilesTest : public testing::Test {
 protected:
  ~ZipFilesTest() override { EXPECT_EQ(CurrentFolder(), m_before); }

  Contents SortedContents(const std::string& archive) const {
    Contents contents = ContentsOf(m_folder.Read(archive));
    std::sort(contents.begin(), contents.end());
    return contents;
  }

  // An archive of an empty folder and two files.
  std::string MakeArchive() const {
    const MemoryZip zip;
    AddText(zip, "top.txt", "new");
    ZipAdd(zip, "empty/folder", nullptr, 0, kZipFolder);
    AddText(zip, "sub/deep/b.txt", "b");
    return m_folder.Write("a.zip", zip.Bytes());
  }

  const std::string m_before = CurrentFolder();
  const TempFolder m_folder;
  const std::string m_tree = m_folder / "tree";
};

TEST_F(ZipFilesTest, WholeFolder) {
  m_folder.Write("tree\\a.txt", "a");
  m_folder.Write("tree\\sub\\b.txt", "b");
  const std::string letter = Ansi(LowerLetter());
  m_folder.Write("tree\\sub\\deep er\\" + letter + ".c", "c");
  std::filesystem::create_directories(m_tree + "\\empty");
  const std::string deep = "deep er/" + letter + ".c";
  EXPECT_EQ(ZipDir((m_folder / "all.zip").c_str(), m_tree.c_str(), "*.*"), 1);
  EXPECT_EQ(SortedContents("all.zip"),
            (Contents{{"a.txt", "a"}, {"sub/b.txt", "b"}, {"sub/" + deep, "c"}}));
  // The pattern holds for folders too: "sub" does not match.
  EXPECT_EQ(ZipDir((m_folder / "txt.zip").c_str(), m_tree.c_str(), "*.txt"), 1);
  EXPECT_EQ(SortedContents("txt.zip"), (Contents{{"a.txt", "a"}}));
  // A relative archive stands in the folder, and isn't taken into itself.
  EXPECT_EQ(ZipDir("inside.zip", (m_tree + "\\sub").c_str(), "*"), 1);
  EXPECT_EQ(SortedContents("tree\\sub\\inside.zip"), (Contents{{"b.txt", "b"}, {deep, "c"}}));

  const std::string empty = m_folder / "empty.zip", none = m_folder / "none.zip";
  EXPECT_EQ(ZipDir(empty.c_str(), (m_tree + "\\empty").c_str(), "*.*"), 1);
  EXPECT_EQ(SortedContents("empty.zip"), Contents{});
  EXPECT_EQ(ZipDir(none.c_str(), m_tree.c_str(), "*.none"), 0);
  EXPECT_EQ(ZipDir(none.c_str(), "", "*.*"), 0);
  EXPECT_FALSE(m_folder.Has("none.zip"));
}

TEST_F(ZipFilesTest, ListOfFiles) {
  CArray<CString, const char*> files;
  for (const char* name : {"a.txt", "sub\\b.txt"}) files.Add(m_folder.Write(name, name).c_str());
  files.Add((m_folder / "missing").c_str());
  EXPECT_EQ(ZipFiles("new/folder\\list.zip", m_folder.path().c_str(), files), 1);
  EXPECT_EQ(SortedContents("new\\folder\\list.zip"),
            (Contents{{"a.txt", "a.txt"}, {"sub/b.txt", "sub\\b.txt"}}));
  EXPECT_EQ(ZipFiles((m_folder / "a.txt\\no.zip").c_str(), m_folder.path().c_str(), files), 0);
}

TEST_F(ZipFilesTest, OneFile) {
  const std::string file = m_folder.Write("sub\\b.txt", "b");
  EXPECT_EQ(ZipFile((m_folder / "one.zip").c_str(), file.c_str()), 1);
  EXPECT_EQ(SortedContents("one.zip"), (Contents{{"b.txt", "b"}}));

  // Without a folder the first character is lost, by the rule that a backslash stands there.
  m_folder.Write("bc", "2");
  SetCurrentDirectoryA(m_folder.path().c_str());
  EXPECT_EQ(ZipFile("bare.zip", "abc"), 1);
  EXPECT_EQ(SortedContents("bare.zip"), (Contents{{"bc", "2"}}));

  // In the root of the drive whose current folder is another one.
  const std::string name = "orvane-test-" + std::to_string(GetCurrentProcessId());
  const std::string inRoot = m_folder.path().substr(0, 3) + name;
  ASSERT_TRUE(CopyFileA(file.c_str(), inRoot.c_str(), TRUE));
  EXPECT_EQ(ZipFile((m_folder / "root.zip").c_str(), inRoot.c_str()), 1);
  EXPECT_TRUE(DeleteFileA(inRoot.c_str()));
  EXPECT_EQ(SortedContents("root.zip"), (Contents{{name, "b"}}));
  SetCurrentDirectoryA(m_before.c_str());
}

TEST_F(ZipFilesTest, ExtractsOverWhatIsThere) {
  const std::string path = MakeArchive();
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

TEST_F(ZipFilesTest, ListsNames) {
  const std::string path = MakeArchive();
  CArray<CString, const char*> names;
  for (const char* folder : {"C:\\to", ""})
    EXPECT_EQ(UnZipFileList(path.c_str(), folder, names), 1);
  EXPECT_EQ(UnZipFileList((m_folder / "none.zip").c_str(), "", names), 0);
  ASSERT_EQ(names.GetSize(), 6);
  EXPECT_STREQ(names[2], "C:\\to\\sub/deep/b.txt");
  EXPECT_STREQ(names[3], "\\top.txt");
}

}  // namespace
