// The n-th allocation fails, for every n, while an archive is read: each function gives a result
// that says so, nothing leaks, and the next call works. What is written is looked at in
// tests/faults.
#include "zip_tools.h"

#include <algorithm>

#include "support/Allocations.h"

namespace {

using namespace hostile;

constexpr char kPlain[] = "the text of an entry, the text of an entry, the text of an entry";

// Extracts an entry into memory; on the way nothing is allocated here.
unsigned long Extract(HZIP zip, int index, char (&text)[100]) {
  memset(text, 0, sizeof text);
  unsigned long result = kZipMore;
  for (unsigned at = 0; result == kZipMore && at < sizeof text - 1; at += 10)
    result = UnzipItem(zip, index, text + at, 10, kZipMemory);
  return result;
}

TEST(ZipAllocation, Reading) {
  const TempFolder folder;
  Archive archive;
  archive.entries = {Deflated("first.txt", kPlain), Stored("second.txt", kPlain)};
  std::string bytes = archive.Bytes(), output = folder / "output.txt";
  bool happened = true;
  for (unsigned n = 1; happened && !HasFailure(); ++n) {
    SCOPED_TRACE(n);
    unsigned long codes[5] = {};
    char text[100] = "";
    HZIP zip = nullptr;
    {
      const allocations::FailNth fail(n);
      zip = OpenZipU(bytes.data(), static_cast<unsigned>(bytes.size()), kZipMemory, nullptr);
      if (zip != nullptr) {
        ZIPENTRY record = {};
        codes[0] = GetZipItemA(zip, 0, &record);
        codes[1] = FindZipItemA(zip, "SECOND.TXT", true, nullptr, &record);
        codes[2] = FindZipItemA(zip, "first.txt", false, nullptr, &record);
        codes[3] = Extract(zip, 0, text);
        codes[4] = UnzipItem(zip, 1, output.data(), 0, kZipFileName);
      }
      happened = fail.Happened();
    }
    const auto failed = std::count(std::begin(codes), std::end(codes), kZipNoMemory);
    const auto good = std::count(std::begin(codes), std::end(codes), kZipOk);
    if (zip == nullptr) {
      EXPECT_EQ(MessageU(kZipRecent), "Failed to allocate memory");
      continue;
    }
    EXPECT_EQ(good + failed, 5);
    EXPECT_EQ(failed, happened ? 1 : 0);
    EXPECT_EQ(Extract(zip, 0, text), kZipOk) << "the second time";
    EXPECT_STREQ(text, kPlain);
    EXPECT_EQ(CloseZipU(zip), kZipOk);
  }
}

}  // namespace
