// Creating folders, the current-directory guard and forced deletion.
#include <afxwin.h>

#include <gtest/gtest.h>

#include "entry/PathUtils.h"
#include "entry/SetGetCurrentDir.h"
#include "ops/DirOp.h"
#include "support/AssertionLog.h"

TEST(CreateDirectory, MakesWhatIsMissing) {
  const TempFolder folder;
  const auto before = std::filesystem::current_path();
  folder.Write("here\\file", "");
  const struct {
    const char* path;
    int result;
    const char* made;
  } kCases[] = {
      {"here\\b\\c", 1, "here\\b\\c"},
      {"here\\b\\c", 1, "here\\b\\c"},
      {"x/y/z/", 1, "x\\y\\z"},
      {"doubled\\\\inside", 1, "doubled\\inside"},
      {"blank in name\\\xE9\xFC", 1, "blank in name\\\xE9\xFC"},
      {"here\\file\\below", 0, nullptr},
      {"bad\\a?b", 0, nullptr},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(CreateDirectoryA((folder / c.path).c_str()), c.result) << c.path;
    if (c.made != nullptr) {
      EXPECT_TRUE(folder.Has(c.made)) << c.path;
    }
  }
  EXPECT_EQ(CreateDirectoryA(""), 0);
  EXPECT_EQ(CreateDirectoryA("C:\\"), 1);
  EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST(CreateDirectory, RelativePaths) {
  const TempFolder folder;
  const SetGetCurrentDir guard(folder.path().c_str());
  EXPECT_EQ(CreateDirectoryA("plain\\sub"), 1);
  EXPECT_EQ(CreateDirectoryA(".\\dot\\sub"), 1);
  EXPECT_TRUE(folder.Has("plain\\sub"));
  EXPECT_TRUE(folder.Has("dot\\sub"));
  // The part before the first backslash of a path that begins with a dot is taken to be there.
  EXPECT_EQ(CreateDirectoryA(".hidden\\sub"), 0);
  EXPECT_EQ(CreateDirectoryA(".hidden"), 1);
  EXPECT_EQ(CreateDirectoryA(".hidden\\sub"), 1);
}

TEST(CreateDirectory, NeverMakesAServerOrShare) {
  EXPECT_EQ(CreateDirectoryA("\\\\no-such-server\\share\\a"), 0);
  EXPECT_EQ(CreateDirectoryA("\\\\no-such-server\\share"), 0);
  EXPECT_EQ(CreateDirectoryA("\\\\no-such-server"), 0);
}

TEST(SetGetCurrentDir, MakesAndRestores) {
  const AssertionLog log;
  const TempFolder folder;
  const auto before = std::filesystem::current_path();
  const std::string sub = folder / "new\\sub";
  {
    const SetGetCurrentDir guard(sub.c_str());
    const SetGetCurrentDir stays("");
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), sub));
  }
  EXPECT_EQ(std::filesystem::current_path(), before);
  EXPECT_TRUE(log.Empty()) << log.Text();
  { const SetGetCurrentDir guard("C:\\a?b"); }
  EXPECT_TRUE(log.Names("SetGetCurrentDir")) << log.Text();
  EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST(ForceDeleteFile, ReadOnlyMissingAndHeld) {
  const AssertionLog log;
  const TempFolder folder;
  const std::string path = folder.Write("locked", "x");
  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
  ForceDeleteFile(path.c_str());
  EXPECT_FALSE(folder.Has("locked"));
  ForceDeleteFile(path.c_str());
  EXPECT_TRUE(log.Empty()) << log.Text();

  folder.Write("held", "x");
  const HANDLE held = CreateFileA((folder / "held").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  ForceDeleteFile((folder / "held").c_str());
  CloseHandle(held);
  EXPECT_TRUE(folder.Has("held"));
  EXPECT_TRUE(log.Names("PathUtils")) << log.Text();
}

TEST(EnsureFileFolder, BothSlashesAndNone) {
  const TempFolder folder;
  EnsureFileFolder((folder / "a/b\\c/file.log").c_str());
  EXPECT_TRUE(folder.Has("a\\b\\c"));
  EXPECT_FALSE(folder.Has("a\\b\\c\\file.log"));
  EnsureFileFolder("file.log");
}
