// DirectoryRename: everything arrives, or stays where it was.
#include "Trees.h"

namespace {

void SetTime(const std::string& path, const FILETIME& time) {
  const unique_file file(CreateFileA(path.c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ, nullptr,
                                     OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  EXPECT_TRUE(SetFileTime(file.get(), nullptr, nullptr, &time)) << path;
}

// The last write, in units of some seven minutes.
DWORD TimeOf(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA data = {};
  GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data);
  return data.ftLastWriteTime.dwHighDateTime;
}

class RenameTest : public testing::Test {
 protected:
  RenameTest() {
    m_folder.Write("old\\a.txt", "a");
    m_folder.Write("old\\sub\\b.txt", "b");
    std::filesystem::create_directories(m_folder / "old\\sub\\empty");
    SetReadOnly(m_folder / "old\\a.txt");
  }

  int Rename(const std::string& from, const std::string& to) const {
    return DirectoryRename((m_folder / from).c_str(), (m_folder / to).c_str());
  }

  const AssertionLog m_log;
  const TempFolder m_folder;
  const Names m_tree = {"a.txt", "sub\\", "sub\\b.txt", "sub\\empty\\"};
};

}  // namespace

TEST_F(RenameTest, TakesThePlaceOfATree) {
  m_folder.Write("new\\was\\here", "x");
  SetReadOnly(m_folder / "new\\was\\here");
  const FILETIME time = {0x12345678, 0x01C00000};
  SetTime(m_folder / "old\\sub", time);
  SetTime(m_folder / "old\\sub\\b.txt", time);
  EXPECT_EQ(Rename("old", "new"), 1);
  EXPECT_FALSE(m_folder.Has("old"));
  EXPECT_EQ(Tree(m_folder / "new"), m_tree);
  EXPECT_EQ(m_folder.Read("new\\sub\\b.txt"), "b");
  EXPECT_TRUE(IsReadOnly(m_folder / "new\\a.txt"));
  EXPECT_FALSE(IsReadOnly(m_folder / "new\\sub\\b.txt"));
  for (const char* name : {"new\\sub", "new\\sub\\b.txt"})
    EXPECT_EQ(TimeOf(m_folder / name), time.dwHighDateTime) << name;
  EXPECT_EQ(Rename("new", "other\\place"), 1);
  EXPECT_EQ(Tree(m_folder / "other\\place"), m_tree);
  EXPECT_TRUE(m_log.Empty()) << m_log.Text();
}

TEST_F(RenameTest, OntoItself) {
  for (const char* name : {"old", "old\\", ".\\old", "sub\\..\\old", "\\old"}) {
    EXPECT_EQ(Rename("old", name), 1) << name;
    EXPECT_EQ(Tree(m_folder / "old"), m_tree) << name;
  }
  EXPECT_EQ(Rename("old", "OLD"), 1);
  EXPECT_EQ(Tree(m_folder.path()).size(), m_tree.size() + 1);
  EXPECT_EQ(Tree(m_folder / "old"), m_tree);
  EXPECT_TRUE(m_log.Empty()) << m_log.Text();
}

TEST_F(RenameTest, RefusedBeforeAnythingIsTouched) {
  m_folder.Write("new\\x", "x");
  m_folder.Write("file", "x");
  const Names before = Tree(m_folder.path());
  const struct {
    const char* from;
    const char* to;
  } kCases[] = {{"old", "old\\sub"},   {"old", "OLD\\in\\it"}, {"old\\sub", "old"},
                {"missing", "new"},    {"file", "new"},        {"old", "file"},
                {"old", "file\\below"}};
  for (const auto& c : kCases) {
    const AssertionLog log;
    EXPECT_EQ(Rename(c.from, c.to), 0) << c.from << " to " << c.to;
    EXPECT_EQ(Tree(m_folder.path()), before) << c.from << " to " << c.to;
    EXPECT_FALSE(log.Empty()) << c.from << " to " << c.to;
  }
  EXPECT_EQ(DirectoryRename("", m_folder.path().c_str()), 0);
  EXPECT_EQ(DirectoryRename((m_folder / "old").c_str(), ""), 0);
}

TEST_F(RenameTest, WhatIsHeldStays) {
  {
    const unique_file held = Hold(m_folder / "old\\sub\\b.txt");
    EXPECT_EQ(Rename("old", "new"), 0);
  }
  EXPECT_EQ(Tree(m_folder / "old"), (Names{"sub\\", "sub\\b.txt"}));
  EXPECT_EQ(Tree(m_folder / "new"), (Names{"a.txt", "sub\\", "sub\\empty\\"}));
  EXPECT_NE(m_log.Text().find("File not moved: " + (m_folder / "old\\sub\\b.txt")),
            std::string::npos)
      << m_log.Text();
}
