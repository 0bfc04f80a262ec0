// Names of temporary folders and files: nobody else has them, and nothing is overwritten.
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <thread>

#include "support/AssertionLog.h"
#include "support/TempFolder.h"
#include "util/pathutils.h"

namespace {

bool Exists(const char* path) { return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES; }

}  // namespace

TEST(TempNames, FolderAfterAHundredTakenOnes) {
  const TempFolder folder;
  srand(7);
  std::string last;
  for (int i = 0; i < 101; ++i) {
    last = folder / ("pre" + std::to_string(rand()));
    CreateDirectoryA(last.c_str(), nullptr);
  }
  srand(7);
  EXPECT_EQ(GetTempFolderNameUnderFolder("pre", folder.path().c_str()), "");
  RemoveDirectoryA(last.c_str());
  srand(7);
  EXPECT_EQ(GetTempFolderNameUnderFolder("pre", (folder.path() + "\\").c_str()), last.c_str());
}

// Random numbers are a thread's own and start the same, so that all threads want the same names.
TEST(TempNames, FoldersOfManyThreads) {
  const TempFolder folder;
  std::vector<CString> names(100);
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([&names, &folder, thread] {
      for (int i = 0; i < 25; ++i) {
        srand(i);
        names[25 * thread + i] = GetTempFolderNameUnderFolder("pre", (folder / "new").c_str());
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  std::set<std::string> all(names.begin(), names.end());
  EXPECT_EQ(all.size(), names.size());
  EXPECT_FALSE(all.contains(""));
}

TEST(TempNames, FilesAndWhereTheyAre) {
  const TempFolder folder;
  const CString system = GetSystemTempFolder();
  for (const CString& name : {GetTempName("abc", nullptr), GetTempFileNameA("")}) {
    EXPECT_EQ(name.Left(system.GetLength()), system);
    EXPECT_TRUE(Exists(name) && !IsFolder(name)) << name;
    DeleteFileA(name);
  }
  CString name;
  GetTempName(nullptr, "fzs", name, "zip");
  EXPECT_EQ(name.Left(system.GetLength()), system);
  name = GetTempName("abc", folder.path().c_str());
  EXPECT_EQ(name.Left(name.ReverseFind('\\')), folder.path().c_str());
  EXPECT_EQ(GetTempFileNameA("a name.txt"), system + "a name.txt");
  EXPECT_EQ(GetTempName("abc", (folder / "none").c_str()), "");
}

TEST(TempNames, FilesWithAnExtension) {
  const AssertionLog log;
  const TempFolder folder;
  CString name;
  GetTempName(folder.path().c_str(), "fzs", name, "zip");
  // The names that would come next are taken.
  const int start = name.ReverseFind('\\') + 4;
  const unsigned number = strtoul(name.Mid(start), nullptr, 16);
  for (unsigned i = 0; i < 5; ++i) {
    CString taken;
    taken.Format("fzs%x.zip", (number + i) & 0xFFFF);
    folder.Write(std::string(taken), "mine");
  }
  GetTempName(folder.path().c_str(), "fzs", name, "zip");
  EXPECT_FALSE(Exists(name)) << name;
  EXPECT_EQ(name.Right(4), ".zip");
  EXPECT_TRUE(log.Empty()) << log.Text();
  GetTempName((folder / "none").c_str(), "fz", name, "zip");
  EXPECT_EQ(name, "");
  EXPECT_TRUE(log.Names("trace")) << log.Text();
}
