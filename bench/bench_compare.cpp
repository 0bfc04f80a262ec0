// bench_compare [PAIRS]: compares one pair of large files, many pairs of small ones (20,000), the
// trees that they stand in, and trees of 100,000 files, with and without the list that shows them.
//
// Floor: ReadFile of both files in blocks of the same size, and memcmp; for trees, with a bare
// FindFirstFile recursion of both before it.
#include <afxwin.h>

#include <psapi.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Measure.h"
#include "dircmp/ContentCompare.h"
#include "dircmp/DirCmpCtrl.h"
#include "entry/Handles.h"

namespace {

constexpr double kBinaryAim = 1.2;
constexpr double kTextAim = 4;
constexpr int64_t kLargeSize = 1024 * 1024 * 1024;
constexpr int kPairs = 20000;
constexpr int kTreePairs = 50000;
constexpr char kFolder[] = "bench_compare.tmp";

// Lines of an ordinary source text.
std::string TextBlock() {
  std::string text;
  for (int line = 0; text.size() < 1000 * 1000; ++line) {
    text += "  if (record[" + std::to_string(line * 7919 % 10007) +
            "].state != previous) Report(record, previous);\r\n";
  }
  return text;
}

void WriteRepeated(const std::string& path, const std::string& text, int64_t size) {
  const unique_file file(
      CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  for (int64_t written = 0; written < size; written += static_cast<int64_t>(text.size())) {
    DWORD count = 0;
    bench::Require(
        WriteFile(file.get(), text.data(), static_cast<DWORD>(text.size()), &count, nullptr),
        "a file can't be written");
  }
}

std::string PathOf(const std::string& name) { return std::string(kFolder) + "\\" + name; }

// True when the files are the same.
bool CompareBare(const char* left, const char* right, char* leftBlock, char* rightBlock) {
  const auto open = [](const char* path) {
    return unique_file(CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                   FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  };
  const unique_file leftFile = open(left), rightFile = open(right);
  DWORD leftRead = 0, rightRead = 0;
  do {
    ReadFile(leftFile.get(), leftBlock, ContentCompare::kBlockSize, &leftRead, nullptr);
    ReadFile(rightFile.get(), rightBlock, ContentCompare::kBlockSize, &rightRead, nullptr);
    const DWORD common = leftRead < rightRead ? leftRead : rightRead;
    if (memcmp(leftBlock, rightBlock, common) != 0) return false;
  } while (leftRead > 0 && rightRead > 0);
  return leftRead == rightRead;
}

std::string UpperCase(std::string text) {
  CharUpperBuffA(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

// A thousand documents a folder.
std::string NameOf(int number) {
  return std::to_string(number / 1000) + "\\document " + std::to_string(number) + ".txt";
}

void WritePairs(int begin, int end, const std::string& text) {
  for (const char* side : {"base", "revised"}) {
    CreateDirectoryA(PathOf(side).c_str(), nullptr);
    for (int i = begin; i < end; ++i) {
      const std::string path = PathOf(std::string(side) + "\\" + NameOf(i));
      if (i % 1000 == 0) CreateDirectoryA(path.substr(0, path.rfind('\\')).c_str(), nullptr);
      WriteRepeated(path, text.substr(static_cast<size_t>(i), 500 + i * 97 % 8000), 1);
    }
  }
}

template <class Visit>
void ForEachFile(const std::string& folder, Visit visit) {
  WIN32_FIND_DATAA found;
  const unique_find search(FindFirstFileA((folder + "\\*.*").c_str(), &found));
  if (!search) return;
  do {
    const std::string name = found.cFileName;
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
      visit(folder + "\\" + name);
    } else if (name != "." && name != "..") {
      ForEachFile(folder + "\\" + name, visit);
    }
  } while (FindNextFileA(search.get(), &found));
}

size_t UsedMemory() {
  PROCESS_MEMORY_COUNTERS counters = {};
  K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.WorkingSetSize;
}

class Measuring {
 public:
  // Pairs of files: the numbers follow the names. same: what comparing is to find; the floor reads
  // the left file twice, so that it reads to the end.
  void Row(const std::string& what, const std::string& left, const std::string& right, int pairs,
           const CompareOptions& options, int rounds) {
    ContentCompare comparison(options);
    const auto each = [&](const std::function<bool(const char*, const char*)>& compare) {
      for (int i = 0; i < pairs; ++i) {
        const std::string number = pairs > 1 ? NameOf(i) : std::string();
        bench::Require(compare(PathOf(left + number).c_str(), PathOf(right + number).c_str()),
                       "equal files are found different");
      }
    };
    const bench::Times times = bench::Compare(
        rounds,
        [&] {
          each([&](const char* l, const char* r) {
            return comparison.Files(l, r) == ContentCompare::Result::Equal;
          });
        },
        [&] {
          each([&](const char* l, const char*) {
            return CompareBare(l, l, m_leftBlock.get(), m_rightBlock.get());
          });
        });
    bench::PrintRow(what, times, options.isBinary() ? kBinaryAim : kTextAim);
    if (pairs == 1) {
      printf("  %.2f GB a second of each file\n", 1000.0 / times.subject * kLargeSize / 1e9);
    } else {
      printf("  %.1f us a pair\n", 1000 * times.subject / pairs);
    }
  }

  // The scan of both trees and the evaluation of all pairs.
  void Trees(const std::string& what, int pairs, int rounds) {
    TreeRow(what, pairs, rounds, [&] {
      FolderComparison comparison(PathOf("base").c_str(), PathOf("revised").c_str(), TreePrm());
      bench::Require(comparison.Scan() && comparison.EvaluateAll() &&
                         comparison.records().size() == static_cast<size_t>(pairs),
                     "the trees are not compared");
      return UsedMemory();
    });
  }

  // The same, with the list.
  void List(const std::string& what, int pairs, int rounds) {
    TreeRow(what, pairs, rounds, [&] {
      DirCmpCtrl list;
      bench::Require(list.InitList(PathOf("base").c_str(), PathOf("revised").c_str(), TreePrm()) &&
                         list.CountOf(FileState::Same) == pairs,
                     "the trees are not listed");
      return UsedMemory();
    });
  }

 private:
  static DirCmpPrm TreePrm() {
    DirCmpPrm prm;
    prm.m_scanFlags = kScanSubFolders;
    prm.m_excludeListedTypes = 0;
    prm.m_whiteSpaceMode = kWhiteSpaceExact;
    prm.m_noGui = 1;
    return prm;
  }

  // compare: gives the memory that is in use at its end.
  void TreeRow(const std::string& what, int pairs, int rounds,
               const std::function<size_t()>& compare) {
    const std::string base = PathOf("base"), revised = PathOf("revised");
    const size_t before = UsedMemory();
    size_t used = before;
    const bench::Times times = bench::Compare(
        rounds, [&] { used = std::max(used, compare()); },
        [&] {
          std::vector<std::string> paths;
          ForEachFile(base, [&](const std::string& path) { paths.push_back(path); });
          size_t others = 0;
          ForEachFile(revised, [&](const std::string&) { ++others; });
          bench::Require(others == paths.size(), "a file is missing");
          for (const std::string& path : paths) {
            CompareBare(path.c_str(), path.c_str(), m_leftBlock.get(), m_rightBlock.get());
          }
        });
    bench::PrintRow(what, times, 0);
    printf("  %.1f us and %zu bytes of memory a file\n", 1000 * times.subject / pairs / 2,
           (used - before) / static_cast<size_t>(pairs) / 2);
  }

  std::unique_ptr<char[]> m_leftBlock{new char[ContentCompare::kBlockSize]};
  std::unique_ptr<char[]> m_rightBlock{new char[ContentCompare::kBlockSize]};
};

// The text with other line ends and other indentation; its own are CR LF and two blanks.
std::string Restyled(const std::string& text, const char* lineEnd, const char* indentation) {
  std::string restyled;
  for (size_t i = 0, end; i < text.size(); i = end + 2) {
    end = text.find("\r\n", i);
    restyled += indentation + text.substr(i + 2, end - i - 2) + lineEnd;
  }
  return restyled;
}

void MeasureLargeFiles(Measuring& measuring, const std::string& text) {
  // A whole number of times.
  const int64_t times = (kLargeSize + text.size() - 1) / text.size();
  const auto write = [&](const char* name, const std::string& contents) {
    WriteRepeated(PathOf(name), contents, times * static_cast<int64_t>(contents.size()));
  };
  write("large", text);
  write("other", text);
  measuring.Row("1 GB, binary", "large", "other", 1, {}, 3);
  measuring.Row("1 GB, runs of white space", "large", "other", 1, {.whiteSpaceMode = 1}, 3);
  measuring.Row("1 GB, without case", "large", "other", 1, {.ignoreCase = true}, 3);
  write("other", UpperCase(text));
  measuring.Row("1 GB, all in the other case", "large", "other", 1, {.ignoreCase = true}, 3);
  write("other", Restyled(text, "\n", "  "));
  measuring.Row("1 GB, other line ends, runs", "large", "other", 1, {.whiteSpaceMode = 1}, 3);
  write("other", Restyled(text, "\n", "\t"));
  measuring.Row("1 GB, other indentation, ignored", "large", "other", 1, {.whiteSpaceMode = 2}, 3);
  DeleteFileA(PathOf("large").c_str());
  DeleteFileA(PathOf("other").c_str());
}

void MeasurePairs(Measuring& measuring, const std::string& text, int pairs) {
  WritePairs(0, pairs, text);
  const std::string count = std::to_string(pairs) + " pairs";
  measuring.Row(count + ", binary", "base\\", "revised\\", pairs, {}, 3);
  measuring.Row(count + ", runs of white space", "base\\", "revised\\", pairs,
                {.whiteSpaceMode = 1}, 3);
  measuring.Trees(count + " in trees, binary", pairs, 3);
}

// After MeasurePairs.
void MeasureTrees(Measuring& measuring, const std::string& text, int pairs) {
  if (pairs < kTreePairs) WritePairs(pairs, kTreePairs, text);
  const int all = std::max(pairs, kTreePairs);
  const std::string count = std::to_string(2 * all) + " files";
  measuring.Trees(count + " in trees, binary", all, 2);
  measuring.List(count + " in a list, binary", all, 2);
}

}  // namespace

int main(int argc, char** argv) {
  std::filesystem::remove_all(kFolder);
  bench::Require(CreateDirectoryA(kFolder, nullptr), "no folder for the files");
  bench::PrintHeader();
  Measuring measuring;
  const std::string text = TextBlock();
  MeasureLargeFiles(measuring, text);
  const int pairs = argc > 1 ? atoi(argv[1]) : kPairs;
  MeasurePairs(measuring, text, pairs);
  MeasureTrees(measuring, text, pairs);
  std::filesystem::remove_all(kFolder);
}
