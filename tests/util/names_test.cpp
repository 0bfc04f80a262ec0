// Names of temporary folders and files: nobody else has them, and nothing is overwritten.
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <thread>

#include "support/AssertionLog.h"
#include "support/TempFolder.h"
#include "util/pathutils.h"

namespace {

std::string Candidate(const TempFolder& folder, int number) {
  return folder / ("pre" + std::to_string(number));
}

bool Exists(const CString& path) { return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES; }

}  // namespace

TEST(TempFolderNames, GivesUpAfterAHundredTakenOnes) {
  const TempFolder folder;
  constexpr unsigned kSeed = 7;
  srand(kSeed);
  int last = 0;
  for (int i = 0; i < 101; ++i) {
    last = rand();
    // A file takes a name as well as a folder does.
    if (i % 2 == 0) CreateDirectoryA(Candidate(folder, last).c_str(), nullptr);
    if (i % 2 != 0) folder.Write("pre" + std::to_string(last), "");
  }
  srand(kSeed);
  EXPECT_EQ(GetTempFolderNameUnderFolder("pre", folder.path().c_str()), "");
  RemoveDirectoryA(Candidate(folder, last).c_str());
  srand(kSeed);
  EXPECT_EQ(GetTempFolderNameUnderFolder("pre", (folder.path() + "\\").c_str()),
            Candidate(folder, last).c_str());
}

// Random numbers are a thread's own and start the same, so that all threads want the same names.
TEST(TempFolderNames, NobodyElseHasThem) {
  constexpr int kThreads = 4, kNames = 25;
  const TempFolder folder;
  std::vector<std::string> names[kThreads];
  {
    std::vector<std::thread> threads;
    for (auto& found : names) {
      threads.emplace_back([&found, &folder] {
        for (int i = 0; i < kNames; ++i) {
          srand(i);
          found.push_back(static_cast<const char*>(
              GetTempFolderNameUnderFolder("pre", (folder / "new").c_str())));
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
  }
  std::set<std::string> all;
  for (const auto& found : names) all.insert(found.begin(), found.end());
  EXPECT_EQ(all.size(), size_t{kThreads * kNames});
  EXPECT_FALSE(all.contains(""));
}

TEST(TempFolderNames, WhereNoneCanBe) {
  const TempFolder folder;
  folder.Write("file", "");
  EXPECT_EQ(GetTempFolderNameUnderFolder("pre", (folder / "file").c_str()), "");
  EXPECT_EQ(GetTempFolderNameUnderFolder("p?e", folder.path().c_str()), "");
}

TEST(TempFileNames, InTheFolderThatIsGiven) {
  const TempFolder folder;
  const CString system = GetSystemTempFolder();
  EXPECT_EQ(system.Right(1), "\\");
  EXPECT_TRUE(IsFolder(system.Left(system.GetLength() - 1)));
  const std::pair<CString, CString> cases[] = {
      {GetTempName("abc", folder.path().c_str()), CString((folder / "abc").c_str())},
      {GetTempName("abc", nullptr), system + "abc"},
      {GetTempName("abc", ""), system + "abc"},
      {GetTempFileNameA(nullptr), system + "bwt"},
      {GetTempFileNameA(""), system + "bwt"},
  };
  for (const auto& [name, start] : cases) {
    EXPECT_EQ(name.Left(start.GetLength()), start);
    EXPECT_TRUE(Exists(name)) << name;
    EXPECT_FALSE(IsFolder(name));
    DeleteFileA(name);
  }
  EXPECT_EQ(GetTempFileNameA("a name.txt"), system + "a name.txt");
  const CString made = GetTempFolderName("abc");
  EXPECT_EQ(made.Left(system.GetLength() + 3), system + "abc");
  EXPECT_TRUE(RemoveDirectoryA(made));
  EXPECT_EQ(GetTempName("abc", (folder / "none").c_str()), "");
}

TEST(TempFileNames, WithExtensionNoFileHasThem) {
  const AssertionLog log;
  const TempFolder folder;
  CString first, name;
  GetTempName(folder.path().c_str(), "fzs", first, "zip");
  EXPECT_EQ(first.Right(4), ".zip");
  // The names that would come next are taken.
  const auto start = std::string(first).rfind("fzs") + 3;
  const unsigned number = strtoul(static_cast<const char*>(first) + start, nullptr, 16);
  char taken[20];
  for (unsigned i = 0; i < 5; ++i) {
    snprintf(taken, sizeof taken, "fzs%x.zip", (number + i) & 0xFFFF);
    folder.Write(taken, "mine");
  }
  GetTempName(folder.path().c_str(), "fzs", name, "zip");
  EXPECT_FALSE(Exists(name)) << name;
  EXPECT_EQ(name.Right(4), ".zip");
  EXPECT_TRUE(log.Empty()) << log.Text();

  GetTempName(folder.path().c_str(), "fz", name, "");
  EXPECT_TRUE(Exists(name)) << name;
  EXPECT_TRUE(log.Names("trace")) << log.Text();
  GetTempName((folder / "none").c_str(), "fzs", name, "zip");
  EXPECT_EQ(name, "");
  GetNameInSystemTempFolder("fzs", name, "zip");
  EXPECT_EQ(name.Left(name.ReverseFind('\\') + 1), GetSystemTempFolder());
  EXPECT_FALSE(Exists(name));
}
