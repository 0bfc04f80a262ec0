// What is done to, or said of, every file; names and paths at their limits.
#include "Trees.h"
#include "support/LongRun.h"

TEST(CalculateDirectorySize, CountsAndGivesUpAt4GiB) {
  const AssertionLog log;
  const TempFolder folder;
  folder.Write("a", std::string(1000, 'x'));
  folder.Write("sub\\b", std::string(234, 'x'));
  unsigned long size = 7, count = 7;
  EXPECT_EQ(CalculateDirectorySize(folder.path().c_str(), size, count, 0), 1);
  EXPECT_EQ(size, 1000u);
  EXPECT_EQ(count, 1u);
  EXPECT_EQ(CalculateDirectorySize(folder.path().c_str(), size, count, 1), 1);
  EXPECT_EQ(size, 1234u);
  EXPECT_EQ(count, 2u);
  EXPECT_EQ(CalculateDirectorySize((folder / "none").c_str(), size, count, 1), 0);
  EXPECT_EQ(size, 0u);
  EXPECT_EQ(count, 0u);
  for (const uint64_t large : {uint64_t{5} << 30, (uint64_t{1} << 32) - 1000}) {
    std::filesystem::resize_file(folder.Write("sub\\large", ""), large);
    EXPECT_EQ(CalculateDirectorySize(folder.path().c_str(), size, count, 1), 0) << large;
    EXPECT_EQ(size, 0xFFFFFFFFu) << large;
    EXPECT_EQ(count, 0xFFFFFFFFu) << large;
  }
}

TEST(SetReadOnlyDir, FilesButNotFolders) {
  const TempFolder folder;
  folder.Write("a", "x");
  folder.Write("sub\\b", "x");
  EXPECT_EQ(SetReadOnlyDir(folder.path().c_str(), 1, 0), 1);
  EXPECT_TRUE(IsReadOnly(folder / "a"));
  EXPECT_FALSE(IsReadOnly(folder / "sub\\b"));
  EXPECT_EQ(SetReadOnlyDir(folder.path().c_str(), 1, 1), 1);
  EXPECT_TRUE(IsReadOnly(folder / "sub\\b"));
  EXPECT_FALSE(IsReadOnly(folder / "sub"));
  EXPECT_EQ(SetReadOnlyDir(folder.path().c_str(), 0, 1), 1);
  EXPECT_FALSE(IsReadOnly(folder / "a"));
  EXPECT_FALSE(IsReadOnly(folder / "sub\\b"));
  EXPECT_EQ(SetReadOnlyDir((folder / "none").c_str(), 0, 1), 0);
}

TEST(GetDirectoryFiles, LeavesOutTheExcluded) {
  const TempFolder folder;
  for (const char* name : {"A.txt", "Sub\\B.txt", "Sub\\C.txt"}) folder.Write(name, "x");
  CStrMap<int> excluded;
  DirectoryOp::AddToDirMap(excluded, (folder / "SUB\\b.txt").c_str());
  CArray<CString, const char*> files;
  files.Add("before");
  EXPECT_EQ(GetDirectoryFiles(files, folder.path().c_str(), excluded), 1);
  CString base(folder.path().c_str());
  base.MakeLower();
  Names names;
  for (int i = 0; i < files.GetSize(); ++i) names.push_back(files[i].GetBuffer(0));
  const std::string begin = base.GetBuffer(0);
  EXPECT_EQ(Sorted(names), (Sorted({"before", begin + "\\a.txt", begin + "\\sub\\c.txt"})));
  EXPECT_EQ(GetDirectoryFiles(files, (folder / "none").c_str(), excluded), 0);
  EXPECT_EQ(files.GetSize(), 3);
}

namespace {

// Whether a tree survives a copy, a move and the marking of its files, and can be removed whole.
void PutThroughEverything(const TempFolder& folder, const char* top) {
  const AssertionLog log;
  const std::string tree = folder / top, copy = folder / "c", moved = folder / "m";
  const Names before = Tree(tree);
  EXPECT_EQ(SetReadOnlyDir(tree.c_str(), 1, 1), 1);
  EXPECT_EQ(DirectoryCopy(tree.c_str(), copy.c_str(), 0, 1, 1), 1);
  EXPECT_EQ(Tree(copy), before);
  EXPECT_EQ(DirectoryRename(copy.c_str(), moved.c_str()), 1);
  EXPECT_EQ(Tree(moved), before);
  EXPECT_EQ(RemoveDirectoryA(moved.c_str(), 1), 1);
  EXPECT_FALSE(folder.Has("m"));
  EXPECT_TRUE(log.Empty()) << log.Text();
}

// Whether a name of a single byte's character is one in the code page.
bool IsCharacter(char byte) {
  const char text[] = {byte, 'y'};
  wchar_t wide[4];
  return MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, text, 2, wide, 4) > 0;
}

}  // namespace

// Names with every ANSI character that the file system takes.
TEST(Limits, EveryCharacter) {
  const TempFolder folder;
  int taken = 0;
  for (int code = 1; code < 256; ++code) {
    const std::string name = std::string("t\\x") + static_cast<char>(code) + "y";
    if (strchr("\\/:*?\"<>|", code) != nullptr || code < 32) continue;
    if (!IsCharacter(static_cast<char>(code))) continue;
    if (!CreateDirectoryA((folder / name).c_str())) continue;
    const unique_file file(CreateFileA((folder / (name + "\\f" + static_cast<char>(code))).c_str(),
                                       GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    taken += static_cast<bool>(file);
  }
  // Of those that differ in letter case, one stands for both.
  EXPECT_GT(taken, GetACP() == CP_UTF8 ? 50 : 120);
  PutThroughEverything(folder, "t");
}

TEST(Limits, LongPaths) {
  const TempFolder folder;
  std::string path = folder / "t";
  CreateDirectoryA(path.c_str());
  while (path.size() < 240) {
    path += "\\" + std::string(std::min<size_t>(10, 246 - path.size()), 'd');
    ASSERT_EQ(CreateDirectoryA(path.c_str()), 1) << path.size();
  }
  const std::string longest = path + "\\" + std::string(259 - path.size() - 1, 'f');
  unique_file(CreateFileA(longest.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
  unsigned long size, count;
  EXPECT_EQ(CalculateDirectorySize(folder.path().c_str(), size, count, 1), 1);
  EXPECT_EQ(count, 1u);
  PutThroughEverything(folder, "t");

  // There is no room for the longer name of the copy.
  const AssertionLog log;
  EXPECT_EQ(DirectoryCopy((folder / "t").c_str(), (folder / std::string(20, 't')).c_str(), 0, 1, 1),
            0);
  EXPECT_FALSE(log.Empty());
  EXPECT_EQ(RemoveDirectoryA((folder / "t").c_str(), 1), 1);
}

// 100,000 files in 5,000 folders; of them a hundredth in a short run.
TEST(Limits, ManyFiles) {
  const TempFolder folder;
  const int folders = IsLongRun() ? 5000 : 50;
  for (int i = 0; i < folders; ++i) {
    const std::string sub = "t\\" + std::to_string(i % 50) + "\\" + std::to_string(i) + "\\";
    for (int file = 0; file < 20; ++file) folder.Write(sub + std::to_string(file), "x");
  }
  unsigned long size, count;
  EXPECT_EQ(CalculateDirectorySize(folder.path().c_str(), size, count, 1), 1);
  EXPECT_EQ(count, folders * 20u);
  PutThroughEverything(folder, "t");
}
