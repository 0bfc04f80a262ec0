// Copies a tree of 2,000 files in 200 folders, small ones and larger ones.
//
// Floor: CopyFile in a loop over the known paths, into folders that are there already.
#include <string>
#include <vector>

#include "TreeData.h"
#include "ops/DirOp.h"

namespace {

constexpr int kTops = 2;
constexpr int kFilesPerFolder = 10;
constexpr int kRounds = 4;

struct Paths {
  std::vector<std::string> folders, files;  // below the tree
};

void ListTree(const std::string& folder, size_t prefix, Paths& paths) {
  WIN32_FIND_DATAA found;
  const unique_find search(FindFirstFileA((folder + "\\*.*").c_str(), &found));
  bench::Require(static_cast<bool>(search), "the tree can't be listed");
  do {
    const std::string path = folder + "\\" + found.cFileName;
    if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) {
      paths.files.push_back(path.substr(prefix));
    } else if (strcmp(found.cFileName, ".") != 0 && strcmp(found.cFileName, "..") != 0) {
      paths.folders.push_back(path.substr(prefix));
      ListTree(path, prefix, paths);
    }
  } while (FindNextFileA(search.get(), &found));
}

void Measure(const bench::TempTree& tree, const char* subject, size_t bytes) {
  const std::string from = tree / "from", to = tree / "to", plain = tree / "plain";
  tree.Fill("from", kTops, kFilesPerFolder, std::string(bytes, 'x'));
  Paths paths;
  ListTree(from, from.size(), paths);

  bench::Best best, bestFloor;
  for (int round = 0; round < kRounds; ++round) {
    CreateDirectoryA(plain.c_str(), nullptr);
    for (const std::string& folder : paths.folders)
      CreateDirectoryA((plain + folder).c_str(), nullptr);
    const auto copy = [&] {
      bench::Require(DirectoryCopy(from.c_str(), to.c_str(), 0, 1, 1) != 0, "the copy fails");
    };
    const auto floor = [&] {
      for (const std::string& file : paths.files)
        bench::Require(CopyFileA((from + file).c_str(), (plain + file).c_str(), FALSE),
                       "the floor fails");
    };
    if (round % 2 == 0) best.Run(copy);
    bestFloor.Run(floor);
    if (round % 2 != 0) best.Run(copy);
    bench::Require(RemoveDirectoryA(to.c_str(), 1) && RemoveDirectoryA(plain.c_str(), 1),
                   "the copies can't be removed");
  }
  bench::PrintRow(subject, {best.Milliseconds(), bestFloor.Milliseconds()}, 1.25);
  bench::Require(RemoveDirectoryA(from.c_str(), 1), "the tree can't be removed");
}

}  // namespace

int main() {
  bench::PrintHeader();
  const bench::TempTree tree;
  Measure(tree, "copy of 2,000 files of 4 KB", 4096);
  Measure(tree, "copy of 2,000 files of 64 KB", 65536);
  return 0;
}
