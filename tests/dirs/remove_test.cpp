// RemoveDirectoryA, DirectoryCleanup and DirectoryCleanupMask: what goes, and only that.
#include "Trees.h"

namespace {

class RemoveTest : public testing::Test {
 protected:
  RemoveTest() {
    for (const char* name : {"t\\Bin\\x\\1", "t\\a\\BIN\\2", "t\\a\\b\\bin", "t\\a\\keep.txt",
                             "t\\a.tmp", "t\\b.TMP", "t\\dir.tmp\\c.tmp", "outside"})
      m_folder.Write(name, "x");
    SetReadOnly(m_folder / "t\\a\\b\\bin");
    SetReadOnly(m_folder / "t\\a.tmp");
    m_top = m_folder / "t";
  }
  ~RemoveTest() override { EXPECT_TRUE(m_folder.Has("outside")); }

  const AssertionLog m_log;
  const TempFolder m_folder;
  std::string m_top;
};

}  // namespace

TEST_F(RemoveTest, WholeTree) {
  EXPECT_EQ(RemoveDirectoryA((m_top + "\\a\\b").c_str(), 0), 1);
  EXPECT_TRUE(m_log.Empty()) << m_log.Text();
  EXPECT_EQ(RemoveDirectoryA(m_top.c_str(), 0), 0);
  EXPECT_FALSE(m_folder.Has("t\\a.tmp")) << "the files go all the same";
  EXPECT_TRUE(m_folder.Has("t\\a\\keep.txt"));
  EXPECT_TRUE(m_log.Names("pathutils"));
  EXPECT_EQ(RemoveDirectoryA(m_top.c_str(), 1), 1);
  EXPECT_FALSE(m_folder.Has("t"));
  EXPECT_EQ(RemoveDirectoryA(m_top.c_str(), 1), 0) << "not there";
  EXPECT_EQ(RemoveDirectoryA((m_folder / "outside").c_str(), 1), 0) << "a file";
  EXPECT_EQ(RemoveDirectoryA("", 1), 0) << "not the root of the drive";
}

TEST_F(RemoveTest, HeldFileStaysWithItsFolders) {
  const unique_file held = Hold(m_top + "\\a\\keep.txt");
  EXPECT_EQ(RemoveDirectoryA(m_top.c_str(), 1), 0);
  EXPECT_EQ(Tree(m_top), (Names{"a\\", "a\\keep.txt"}));
  EXPECT_TRUE(m_log.Names("pathutils"));
  EXPECT_NE(m_log.Text().find("a\\keep.txt"), std::string::npos) << m_log.Text();
}

TEST_F(RemoveTest, ByName) {
  EXPECT_EQ(DirectoryCleanup(m_top.c_str(), "", 1, 0), 0);
  EXPECT_EQ(DirectoryCleanup((m_top + "\\none").c_str(), "bin", 1, 0), 0);
  EXPECT_EQ(DirectoryCleanup((m_top + "\\a").c_str(), "bin", 0, 0), 1);
  EXPECT_TRUE(m_folder.Has("t\\a\\b\\bin"));
  EXPECT_FALSE(m_folder.Has("t\\a\\BIN"));
  EXPECT_EQ(DirectoryCleanup(m_top.c_str(), "biN", 1, 7), 1);
  EXPECT_EQ(Tree(m_top), (Names{"a.tmp", "a\\", "a\\b\\", "a\\keep.txt", "b.TMP", "dir.tmp\\",
                                "dir.tmp\\c.tmp"}));
  EXPECT_TRUE(m_log.Empty()) << m_log.Text();
  const unique_file held = Hold(m_top + "\\a\\keep.txt");
  EXPECT_EQ(DirectoryCleanup(m_top.c_str(), "keep.txt", 1, 0), 0);
  EXPECT_TRUE(m_log.Names("pathutils"));
}

TEST_F(RemoveTest, ByMask) {
  for (const char* mask : {"", "*.none", "a\\*.txt", "..\\*", "dir.tmp/*"})
    EXPECT_EQ(DirectoryCleanupMask(m_top.c_str(), mask), 0) << mask;
  EXPECT_TRUE(m_folder.Has("t\\a\\keep.txt"));
  {
    const unique_file held = Hold(m_top + "\\b.TMP");
    EXPECT_EQ(DirectoryCleanupMask(m_top.c_str(), "*.tmp"), 0);
  }
  EXPECT_FALSE(m_folder.Has("t\\a.tmp"));
  EXPECT_EQ(DirectoryCleanupMask(m_top.c_str(), "?.tmp"), 1);
  EXPECT_FALSE(m_folder.Has("t\\b.TMP"));
  EXPECT_TRUE(m_folder.Has("t\\dir.tmp\\c.tmp"));
}
