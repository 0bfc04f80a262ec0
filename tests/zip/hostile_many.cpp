// As many entries as an archive can hold, made to be slow: nothing takes time that grows with the
// square of their number.
#include <gtest/gtest.h>

#include <windows.h>

#include <functional>

#include "hostile_builder.h"
#include "support/Allocations.h"
#include "zip/XUnzip.h"

namespace hostile {
namespace {

constexpr int kMost = 65535;
constexpr ULONGLONG kMilliseconds = 20'000;  // a quadratic reader takes minutes
constexpr int kStride = 40'503;              // prime to 65535: jumps through all indexes

// An archive of entries with given names, either with a local header each or with one for all.
std::string Many(const std::function<std::string(int)>& name, bool sharesHeader = false) {
  Archive archive;
  archive.count = archive.countHere = kMost;
  for (int i = 0; i < kMost; ++i) {
    const Entry entry = Stored(name(i), "x");
    archive.insideDirectory +=
        CentralPart(entry, sharesHeader ? 0 : archive.beforeDirectory.size());
    if (!sharesHeader || i == 0) archive.beforeDirectory += LocalPart(entry);
  }
  return archive.Bytes();
}

// Looks up, finds and extracts all entries of an archive, in jumps. Extracting must give expected.
void VisitAll(const std::string& archive, unsigned long expected) {
  const ULONGLONG start = GetTickCount64();
  HZIP zip = OpenZipU(const_cast<char*>(archive.data()), static_cast<unsigned>(archive.size()),
                      kZipMemory, nullptr);
  ASSERT_NE(zip, nullptr);
  ZIPENTRY record = {};
  ASSERT_EQ(GetZipItemA(zip, -1, &record), kZipOk);
  ASSERT_EQ(record.index, kMost);
  int wrong = 0;
  for (int i = 0; i < kMost; ++i) {
    const int index = static_cast<int>(static_cast<unsigned>(i) * kStride % kMost);
    char byte = 0;
    wrong += GetZipItemA(zip, index, &record) != kZipOk || record.index != index;
    wrong += UnzipItem(zip, index, &byte, 1, kZipMemory) != expected;
    const std::string name = record.name;
    wrong += FindZipItemA(zip, name.c_str(), false, nullptr, &record) != kZipOk;
    wrong += FindZipItemA(zip, name.c_str(), true, nullptr, &record) != kZipOk;
    wrong += FindZipItemA(zip, (name + "?").c_str(), true, nullptr, nullptr) != kZipNotFound;
  }
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(CloseZipU(zip), kZipOk);
  EXPECT_LT(GetTickCount64() - start, kMilliseconds);
}

TEST(ZipMany, NamesAllDiffer) {
  VisitAll(Many([](int i) { return "folder/file" + std::to_string(i); }), kZipMore);
}

TEST(ZipMany, NamesAllTheSame) {
  VisitAll(Many([](int) { return "name"; }), kZipMore);
}

TEST(ZipMany, NamesDifferInCaseOnly) {
  const auto name = [](int number) {
    std::string text = "abcdefghijklmnop";
    for (int bit = 0; bit < 16; ++bit) text[bit] ^= number >> bit & 1 ? 0x20 : 0;
    return text;
  };
  VisitAll(Many(name), kZipMore);
}

TEST(ZipMany, AllShareOneLocalHeader) {
  VisitAll(Many([](int) { return "name"; }, true), kZipCorrupt);
}

// What an end record announces is not believed before the directory has shown it.
TEST(ZipMany, AnnouncedOnlyTakesNoMemory) {
  Archive archive = GoodArchive();
  archive.count = archive.countHere = kMost;
  const std::string bytes = archive.Bytes();
  const size_t before = allocations::Count().bytes;
  allocations::ResetPeak();
  HZIP zip = OpenZipU(const_cast<char*>(bytes.data()), static_cast<unsigned>(bytes.size()),
                      kZipMemory, nullptr);
  if (zip != nullptr) CloseZipU(zip);
  EXPECT_LT(allocations::Peak() - before, 512u * 1024);
}

// Sixteen thousand end records one behind the other, each of which must be judged.
TEST(ZipMany, EndRecordsInComment) {
  Archive archive = GoodArchive();
  while (archive.comment.size() + 4 < 65500) archive.comment += "PK\5\6";
  const std::string bytes = archive.Bytes();
  const ULONGLONG start = GetTickCount64();
  HZIP zip = OpenZipU(const_cast<char*>(bytes.data()), static_cast<unsigned>(bytes.size()),
                      kZipMemory, nullptr);
  EXPECT_NE(zip, nullptr);
  if (zip != nullptr) CloseZipU(zip);
  EXPECT_LT(GetTickCount64() - start, kMilliseconds);
}

}  // namespace
}  // namespace hostile
