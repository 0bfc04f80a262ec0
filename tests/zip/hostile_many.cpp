// As many entries as an archive can hold, made to be slow: nothing takes time that grows with the
// square of their number.
#include "zip_tools.h"

#include <functional>

#include "support/Allocations.h"

namespace {

using namespace hostile;

constexpr int kMost = 65535;
constexpr ULONGLONG kMilliseconds = 20'000;  // a quadratic reader takes minutes
constexpr int kStride = 40'503;              // prime to 65535: jumps through all indexes

// An archive of entries with given names, either with a local header each or with one for all.
std::string Many(const std::function<std::string(int)>& name, bool sharesHeader = false) {
  Archive archive;
  archive.count = kMost;
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
  const OpenZip zip(archive);
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
  EXPECT_LT(GetTickCount64() - start, kMilliseconds);
}

TEST(ZipMany, Entries) {
  const auto differentCase = [](int number) {
    std::string text = "abcdefghijklmnop";
    for (int bit = 0; bit < 16; ++bit) text[bit] ^= number >> bit & 1 ? 0x20 : 0;
    return text;
  };
  const auto same = [](int) { return "name"; };
  VisitAll(Many([](int i) { return "folder/file" + std::to_string(i); }), kZipMore);
  VisitAll(Many(differentCase), kZipMore);
  VisitAll(Many(same), kZipMore);
  VisitAll(Many(same, true), kZipCorrupt);
}

// What an end record announces is not believed before the directory has shown it. In front of it
// stand sixteen thousand others, each of which must be judged.
TEST(ZipMany, EndRecords) {
  Archive archive = GoodArchive();
  archive.count = kMost;
  const std::string announced = archive.Bytes();
  archive.count = std::nullopt;
  while (archive.comment.size() + 4 < 65500) archive.comment += "PK\5\6";
  const std::string judged = archive.Bytes();
  const ULONGLONG start = GetTickCount64();
  for (const std::string& bytes : {announced, judged}) {
    const size_t before = allocations::Count().bytes;
    allocations::ResetPeak();
    const OpenZip zip(bytes);
    EXPECT_NE(static_cast<HZIP>(zip), nullptr);
    EXPECT_LT(allocations::Peak() - before, bytes.size() + 512u * 1024);
  }
  EXPECT_LT(GetTickCount64() - start, kMilliseconds);
}

}  // namespace
