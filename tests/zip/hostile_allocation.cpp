// The n-th allocation fails, for every n: each function gives a documented result, nothing leaks,
// and what was there before is still good.
#include <afxtempl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <initializer_list>

#include "hostile_builder.h"
#include "support/Allocations.h"
#include "support/TempFolder.h"
#include "zip/XUnzip.h"
#include "zip/ZipFiles.h"
#include "zip/ZipWriter.h"

namespace hostile {
namespace {

bool IsDocumented(unsigned long code) {
  static constexpr unsigned long kCodes[] = {
      kZipOk,        kZipNoDuplicate, kZipNoFile,       kZipNoMemory,       kZipWriteError,
      kZipNotFound,  kZipMore,        kZipCorrupt,      kZipReadError,      kZipBadArguments,
      kZipNotMemory, kZipMemoryFull,  kZipEarlierError, kZipEnded,          kZipSizeDiffers,
      kZipNoSeek,    kZipNoChange,    kZipFlateError,   kZipNotInitialised, kZipWrongKind};
  return std::find(std::begin(kCodes), std::end(kCodes), code) != std::end(kCodes);
}

// Runs something with its first, second, third... allocation failing, until it makes no more.
template <class Run>
void FailEach(Run run) {
  for (unsigned n = 1;; ++n) {
    ASSERT_LT(n, 5000u) << "the allocations don't end";
    SCOPED_TRACE(testing::Message() << "allocation " << n << " fails");
    bool happened = false;
    run(n, &happened);
    if (!happened || testing::Test::HasFailure()) break;
  }
}

constexpr char kPlain[] = "the text of an entry, the text of an entry, the text of an entry";
constexpr unsigned kPlainSize = sizeof kPlain - 1;

// Extracts an entry into memory; on the way nothing is allocated by this function.
unsigned long Extract(HZIP zip, int index, char (&text)[100]) {
  memset(text, 0, sizeof text);
  unsigned long result = kZipMore;
  for (unsigned at = 0; result == kZipMore && at < sizeof text - 1; at += 10) {
    result = UnzipItem(zip, index, text + at, 10, kZipMemory);
  }
  return result;
}

std::string SmallArchive() {
  Archive archive;
  archive.entries = {Deflated("first.txt", kPlain), Stored("second.txt", kPlain)};
  return archive.Bytes();
}

class ZipAllocation : public testing::Test {
 protected:
  // The first exceptions make the runtime sort its tables of every module, and keep them: not while
  // a test's blocks are counted.
  static void SetUpTestSuite() {
    std::string archive = SmallArchive();
    for (unsigned n = 1; n < 10; ++n) {
      const allocations::FailNth fail(n);
      HZIP zip =
          OpenZipU(archive.data(), static_cast<unsigned>(archive.size()), kZipMemory, nullptr);
      if (zip != nullptr) CloseZipU(zip);
    }
  }
};

void ReadWithFailure(void* source, unsigned size, ZipKind kind, const std::string& output) {
  FailEach([&](unsigned n, bool* happened) {
    unsigned long codes[7] = {};
    char text[100] = "";
    char message[100] = "";
    unsigned long again = kZipOk;
    HZIP zip = nullptr;
    {
      const allocations::FailNth fail(n);
      zip = OpenZipU(source, size, kind, nullptr);
      FormatZipMessageU(kZipRecent, message, sizeof message);
      if (zip != nullptr) {
        ZIPENTRY record = {};
        codes[0] = GetZipItemA(zip, 0, &record);
        codes[1] = FindZipItemA(zip, "SECOND.TXT", true, nullptr, &record);
        codes[2] = FindZipItemA(zip, "first.txt", false, nullptr, &record);
        codes[3] = Extract(zip, 0, text);
        codes[4] = UnzipItem(zip, 0, const_cast<char*>(output.c_str()), 0, kZipFileName);
        codes[5] = UnzipItem(zip, 1, const_cast<char*>(output.c_str()), 0, kZipFileName);
        // It failed once, and works the second time.
        again = Extract(zip, 0, text);
        codes[6] = CloseZipU(zip);
      }
      *happened = fail.Happened();
    }
    for (const unsigned long code : codes) EXPECT_TRUE(IsDocumented(code)) << std::hex << code;
    if (zip == nullptr) {
      EXPECT_STREQ(message, "Failed to allocate memory");
      EXPECT_TRUE(*happened);
      return;
    }
    EXPECT_EQ(codes[6], kZipOk);
    if (again == kZipOk) {
      EXPECT_STREQ(text, kPlain);
    }
    const bool allGood =
        std::all_of(std::begin(codes), std::end(codes), [](unsigned long code) { return !code; });
    EXPECT_TRUE(allGood || *happened);
  });
}

TEST_F(ZipAllocation, ReadingFromMemory) {
  const TempFolder folder;
  std::string archive = SmallArchive();
  ReadWithFailure(archive.data(), static_cast<unsigned>(archive.size()), kZipMemory,
                  folder / "output.txt");
}

TEST_F(ZipAllocation, ReadingFromFile) {
  const TempFolder folder;
  std::string path = folder.Write("archive.zip", SmallArchive());
  ReadWithFailure(path.data(), 0, kZipFileName, folder / "output.txt");
}

// The entries of an archive are just those whose ZipAdd gave kZipOk.
void ExpectEntries(const std::string& path, std::initializer_list<const char*> names,
                   const unsigned long* added) {
  HZIP zip = OpenZipU(const_cast<char*>(path.c_str()), 0, kZipFileName, nullptr);
  ASSERT_NE(zip, nullptr);
  int expected = 0;
  for (const char* name : names) {
    int index = -1;
    const unsigned long found = FindZipItemA(zip, name, false, &index, nullptr);
    EXPECT_EQ(found, *added == kZipOk ? unsigned{kZipOk} : unsigned{kZipNotFound}) << name;
    if (*added++ != kZipOk) continue;
    ++expected;
    char text[100];
    EXPECT_EQ(Extract(zip, index, text), kZipOk) << name;
    EXPECT_STREQ(text, kPlain) << name;
  }
  ZIPENTRY record = {};
  EXPECT_EQ(GetZipItemA(zip, -1, &record), kZipOk);
  EXPECT_EQ(record.index, expected);
  EXPECT_EQ(CloseZipU(zip), kZipOk);
}

TEST_F(ZipAllocation, Writing) {
  const TempFolder folder;
  std::string path = folder / "archive.zip";
  std::string source = folder.Write("source.txt", kPlain);
  FailEach([&](unsigned n, bool* happened) {
    unsigned long added[3] = {};
    unsigned long closed = kZipOk;
    char message[100] = "";
    HZIP zip = nullptr;
    {
      const allocations::FailNth fail(n);
      zip = CreateZipZ(path.data(), 0, kZipFileName);
      FormatZipMessageZ(kZipRecent, message, sizeof message);
      if (zip != nullptr) {
        added[0] = ZipAdd(zip, "memory.txt", const_cast<char*>(kPlain), kPlainSize, kZipMemory);
        added[1] = ZipAdd(zip, "file.txt", source.data(), 0, kZipFileName);
        added[2] = ZipAdd(zip, "stored.zip", source.data(), 0, kZipFileName);
        closed = CloseZipZ(zip);
      }
      *happened = fail.Happened();
    }
    for (const unsigned long code : added) EXPECT_TRUE(IsDocumented(code)) << std::hex << code;
    EXPECT_TRUE(IsDocumented(closed)) << std::hex << closed;
    if (zip == nullptr) {
      EXPECT_STREQ(message, "Failed to allocate memory");
    } else if (closed == kZipOk) {
      ExpectEntries(path, {"memory.txt", "file.txt", "stored.zip"}, added);
    }
  });
}

std::string CurrentFolder() {
  char path[MAX_PATH] = "";
  GetCurrentDirectoryA(MAX_PATH, path);
  return path;
}

// The functions for whole folders give 0 or 1 and put the current folder back.
TEST_F(ZipAllocation, WholeFolders) {
  const TempFolder folder;
  folder.Write("tree\\first.txt", kPlain);
  folder.Write("tree\\sub\\second.txt", kPlain);
  const std::string archive = folder.Write("archive.zip", SmallArchive());
  const std::string written = folder / "written.zip";
  const std::string tree = folder / "tree";
  const std::string file = tree + "\\first.txt";
  const std::string target = folder / "target";
  const std::string current = CurrentFolder();
  FailEach([&](unsigned n, bool* happened) {
    int results[4] = {};
    {
      const allocations::FailNth fail(n);
      results[0] = ZipDir(written.c_str(), tree.c_str(), "*.*");
      results[1] = ZipFile(written.c_str(), file.c_str());
      CString last;
      results[2] = OpenZipFile(archive.c_str(), target.c_str(), last);
      CArray<CString, const char*> files;
      results[3] = UnZipFileList(archive.c_str(), target.c_str(), files);
      *happened = fail.Happened();
    }
    for (const int result : results) EXPECT_TRUE(result == 0 || result == 1) << result;
    if (!*happened) {
      for (const int result : results) EXPECT_EQ(result, 1);
    }
    EXPECT_EQ(CurrentFolder(), current);
  });
}

}  // namespace
}  // namespace hostile
