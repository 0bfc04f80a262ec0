// Walks 100,000 files in 5,000 folders.
//
// Floor: a bare recursion with FindFirstFile that forms every path and calls a function for it. The
// set of visited folders is measured by itself: its growth from 5,000 folders to 50,000 against ten
// times the smaller one; and as part of a walk that begins with 50,000 folders in it.
#include <memory>
#include <string>
#include <vector>

#include "TreeData.h"
#include "ops/DirectoryOp.h"

namespace {

constexpr int kTops = 50;
constexpr int kFilesPerFolder = 20;
constexpr int kFiles = kTops * 100 * kFilesPerFolder;
constexpr int kRounds = 5;
constexpr int kManyFolders = 50000;

int CountFile(void* count, const char* path) {
  *static_cast<int*>(count) += *path != 0;
  return 1;
}

void WalkBare(const std::string& folder, int* count) {
  WIN32_FIND_DATAA found;
  const unique_find search(FindFirstFileA((folder + "\\*.*").c_str(), &found));
  if (!search) return;
  do {
    const std::string path = folder + "\\" + found.cFileName;
    if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
      CountFile(count, path.c_str());
    else if (strcmp(found.cFileName, ".") != 0 && strcmp(found.cFileName, "..") != 0)
      WalkBare(path, count);
  } while (FindNextFileA(search.get(), &found));
}

class Walk : public DirectoryOp {
 public:
  // Others are folders elsewhere that the walk is to keep out of.
  Walk(const std::string& folder, const std::vector<std::string>& others)
      : DirectoryOp(folder.c_str(), 1, &CountFile, &m_count) {
    SetNoGui(1);
    for (const std::string& other : others) ExcludeDir(other.c_str());
  }

  void Run() {
    DoOperation(0);
    bench::Require(m_count == kFiles, "the walk misses files");
  }

 private:
  int m_count = 0;
};

// An object walks a folder once, so each round has its own, made before.
template <class Floor>
bench::Times CompareWalk(const std::string& folder, const std::vector<std::string>& others,
                         Floor floor) {
  std::vector<std::unique_ptr<Walk>> walks;
  for (int i = 0; i < kRounds; ++i) walks.push_back(std::make_unique<Walk>(folder, others));
  auto next = walks.begin();
  return bench::Compare(
      kRounds, [&] { (*next++)->Run(); }, floor);
}

std::vector<std::string> FolderNames(int count) {
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i)
    names.push_back("C:\\Some Folder\\" + std::to_string(i % 100) + "\\Sub-Folder " +
                    std::to_string(i));
  return names;
}

void Visit(const std::vector<std::string>& folders, int times) {
  for (int i = 0; i < times; ++i) {
    CStrMap<int> visited;
    for (const std::string& folder : folders) DirectoryOp::AddToDirMap(visited, folder.c_str());
    bench::Require(visited.GetCount() == static_cast<int>(folders.size()), "folders are missing");
  }
}

}  // namespace

int main() {
  const std::vector<std::string> few = FolderNames(kManyFolders / 10);
  const std::vector<std::string> many = FolderNames(kManyFolders);
  bench::PrintHeader();
  bench::PrintRow("visited set: 50,000 folders, 10 times 5,000",
                  bench::Compare(
                      kRounds, [&] { Visit(many, 1); }, [&] { Visit(few, 10); }),
                  1.5);
  const bench::TempTree tree;
  tree.Fill("tree", kTops, kFilesPerFolder, "");
  const std::string folder = tree / "tree";
  const auto floor = [&] {
    int count = 0;
    WalkBare(folder, &count);
    bench::Require(count == kFiles, "the floor misses files");
  };
  bench::PrintRow("walk of 100,000 files in 5,000 folders", CompareWalk(folder, {}, floor), 1.15);
  bench::PrintRow("the same, 50,000 folders visited before", CompareWalk(folder, many, floor),
                  1.15);
  return 0;
}
