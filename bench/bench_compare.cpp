// Compares one pair of large files and many pairs of small ones, in every mode.
//
// Floor: ReadFile of both files in blocks of the same size, and memcmp.
#include <afxwin.h>

#include <cstring>
#include <functional>
#include <memory>
#include <string>

#include "Measure.h"
#include "dircmp/ContentCompare.h"
#include "entry/Handles.h"

namespace {

constexpr double kBinaryAim = 1.2;
constexpr double kTextAim = 4;
constexpr int64_t kLargeSize = 1024 * 1024 * 1024;
constexpr int kPairs = 20000;
constexpr char kFolder[] = "bench_compare.tmp";

// Lines of an ordinary source text.
std::string TextBlock(const char* lineEnd, const char* indentation) {
  std::string text;
  for (int line = 0; text.size() < 1000 * 1000; ++line) {
    text += std::string(indentation) + "if (record[" + std::to_string(line * 7919 % 10007) +
            "].state != previous) Report(record, previous);" + lineEnd;
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

class Measuring {
 public:
  // Pairs of files: the numbers follow the names. same: what comparing is to find; the floor reads
  // the left file twice, so that it reads to the end.
  void Row(const std::string& what, const std::string& left, const std::string& right, int pairs,
           const CompareOptions& options, int rounds) {
    ContentCompare comparison(options);
    const auto each = [&](const std::function<bool(const char*, const char*)>& compare) {
      for (int i = 0; i < pairs; ++i) {
        const std::string number = pairs > 1 ? std::to_string(i) : std::string();
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

 private:
  std::unique_ptr<char[]> m_leftBlock{new char[ContentCompare::kBlockSize]};
  std::unique_ptr<char[]> m_rightBlock{new char[ContentCompare::kBlockSize]};
};

std::string UpperCase(std::string text) {
  CharUpperBuffA(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

void RemoveFiles() {
  WIN32_FIND_DATAA found;
  {
    const unique_find search(FindFirstFileA(PathOf("*.*").c_str(), &found));
    if (!search) return;
    do {
      DeleteFileA(PathOf(found.cFileName).c_str());
    } while (FindNextFileA(search.get(), &found));
  }
  RemoveDirectoryA(kFolder);
}

}  // namespace

int main() {
  RemoveFiles();
  bench::Require(CreateDirectoryA(kFolder, nullptr), "no folder for the files");
  bench::PrintHeader();
  Measuring measuring;
  const std::string text = TextBlock("\r\n", "  ");

  WriteRepeated(PathOf("large"), text, kLargeSize);
  WriteRepeated(PathOf("other"), text, kLargeSize);
  measuring.Row("1 GB, binary", "large", "other", 1, {}, 3);
  measuring.Row("1 GB, runs of white space", "large", "other", 1, {.whiteSpaceMode = 1}, 3);
  measuring.Row("1 GB, without case", "large", "other", 1, {.ignoreCase = true}, 3);
  WriteRepeated(PathOf("other"), UpperCase(text), kLargeSize);
  measuring.Row("1 GB, all in the other case", "large", "other", 1, {.ignoreCase = true}, 3);
  const int64_t blocks =
      (kLargeSize + static_cast<int64_t>(text.size()) - 1) / static_cast<int64_t>(text.size());
  const auto writeOther = [&](const char* lineEnd, const char* indentation) {
    // The same lines as often.
    const std::string other = TextBlock("\r\n", "  ");
    std::string changed;
    for (size_t i = 0, end; i < other.size(); i = end + 2) {
      end = other.find("\r\n", i);
      changed += indentation + other.substr(i + 2, end - i - 2) + lineEnd;
    }
    WriteRepeated(PathOf("other"), changed, blocks * static_cast<int64_t>(changed.size()));
  };
  writeOther("\n", "  ");
  measuring.Row("1 GB, other line ends, runs", "large", "other", 1, {.whiteSpaceMode = 1}, 3);
  writeOther("\n", "\t");
  measuring.Row("1 GB, other indentation, ignored", "large", "other", 1, {.whiteSpaceMode = 2}, 3);
  DeleteFileA(PathOf("large").c_str());
  DeleteFileA(PathOf("other").c_str());

  for (int i = 0; i < kPairs; ++i) {
    const std::string contents = text.substr(static_cast<size_t>(i), 500 + i * 97 % 8000);
    WriteRepeated(PathOf("a" + std::to_string(i)), contents, 1);
    WriteRepeated(PathOf("b" + std::to_string(i)), contents, 1);
  }
  measuring.Row("20,000 pairs, binary", "a", "b", kPairs, {}, 3);
  measuring.Row("20,000 pairs, runs of white space", "a", "b", kPairs, {.whiteSpaceMode = 1}, 3);
  RemoveFiles();
}
