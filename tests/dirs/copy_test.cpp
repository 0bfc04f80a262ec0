// DirectoryCopy: what arrives, and what a failure leaves.
#include "Trees.h"

namespace {

class CopyTest : public testing::Test {
 protected:
  CopyTest() {
    m_folder.Write("from\\c.txt", "c");
    m_folder.Write("from\\a\\b.txt", "b");
    m_folder.Write("from\\a\\deep\\d.txt", "d");
    std::filesystem::create_directories(m_folder / "from\\empty");
  }

  int Copy(const std::string& from, const std::string& to, int subfoldersOnly = 0,
           int recurse = 1) const {
    return DirectoryCopy((m_folder / from).c_str(), (m_folder / to).c_str(), subfoldersOnly, 1,
                         recurse);
  }

  const AssertionLog m_log;
  const TempFolder m_folder;
};

}  // namespace

TEST_F(CopyTest, WhichFiles) {
  EXPECT_EQ(Copy("from", "all"), 1);
  EXPECT_EQ(Tree(m_folder / "all"),
            (Names{"a\\", "a\\b.txt", "a\\deep\\", "a\\deep\\d.txt", "c.txt"}));
  EXPECT_EQ(m_folder.Read("all\\a\\deep\\d.txt"), "d");
  EXPECT_EQ(Copy("from", "subfolders", 1), 1);
  EXPECT_EQ(Tree(m_folder / "subfolders"),
            (Names{"a\\", "a\\b.txt", "a\\deep\\", "a\\deep\\d.txt"}));
  EXPECT_EQ(Copy("from", "flat", 0, 0), 1);
  EXPECT_EQ(Tree(m_folder / "flat"), Names{"c.txt"});
  EXPECT_EQ(Copy("from", "new/with\\slashes"), 1);
  EXPECT_TRUE(m_folder.Has("new\\with\\slashes\\a\\b.txt"));
  EXPECT_TRUE(m_log.Empty()) << m_log.Text();
}

TEST_F(CopyTest, ReplacesAndKeepsPermissionAndTime) {
  m_folder.Write("to\\c.txt", "old and longer");
  SetReadOnly(m_folder / "to\\c.txt");
  SetReadOnly(m_folder / "from\\a\\b.txt");
  EXPECT_EQ(Copy("from", "to"), 1);
  EXPECT_EQ(Copy("from", "to"), 1) << "over read-only copies";
  EXPECT_EQ(m_folder.Read("to\\c.txt"), "c");
  EXPECT_FALSE(IsReadOnly(m_folder / "to\\c.txt"));
  EXPECT_TRUE(IsReadOnly(m_folder / "to\\a\\b.txt"));
  EXPECT_EQ(std::filesystem::last_write_time(m_folder / "to\\c.txt"),
            std::filesystem::last_write_time(m_folder / "from\\c.txt"));
  EXPECT_EQ(Tree(m_folder / "to").size(), 5u) << "nothing is left of the work";
  EXPECT_TRUE(m_log.Empty()) << m_log.Text();
}

TEST_F(CopyTest, OntoAndIntoItself) {
  const Names before = Tree(m_folder / "from");
  EXPECT_EQ(Copy("from", "from"), 1);
  EXPECT_EQ(Copy("from", "FROM\\"), 1);
  EXPECT_EQ(Tree(m_folder / "from"), before);
  EXPECT_EQ(m_folder.Read("from\\c.txt"), "c");
  for (int i = 0; i < 2; ++i) EXPECT_EQ(Copy("from", "from\\a\\Backup"), 1);
  EXPECT_EQ(Tree(m_folder / "from\\a\\Backup"),
            (Names{"a\\", "a\\b.txt", "a\\deep\\", "a\\deep\\d.txt", "c.txt"}));
}

TEST_F(CopyTest, WhatCannotBeCopied) {
  struct {
    const char* what;
    std::string path;
    DWORD sharing;
  } const kCases[] = {
      {"a source that nobody else may read", m_folder / "from\\c.txt", 0},
      {"a target that somebody reads", m_folder.Write("to\\c.txt", "old"), FILE_SHARE_READ},
  };
  for (const auto& c : kCases) {
    const AssertionLog log;
    const unique_file held(
        CreateFileA(c.path.c_str(), GENERIC_READ, c.sharing, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(Copy("from", "to", 0, 0), 0) << c.what;
    EXPECT_TRUE(log.Names("DirOp")) << c.what << log.Text();
    EXPECT_EQ(m_folder.Read("to\\c.txt"), "old") << c.what;
    EXPECT_EQ(Tree(m_folder / "to"), Names{"c.txt"}) << c.what;
  }
  std::filesystem::create_directories(m_folder / "taken\\c.txt");
  EXPECT_EQ(Copy("from", "taken"), 0) << "a folder of the file's name";
  EXPECT_EQ(Copy("missing", "to"), 0);
  EXPECT_EQ(DirectoryCopy((m_folder / "from").c_str(), "", 0, 1, 0), 0) << "not the drive's root";
  m_folder.Write("file", "x");
  EXPECT_EQ(Copy("from", "file"), 0);
  EXPECT_EQ(m_folder.Read("file"), "x");
}
