// The n-th allocation fails, for every n, while an archive is read: each function gives a result
// that says so, nothing leaks, and the next call works. What is written is looked at in
// tests/faults.
#include "zip_tools.h"

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

// Whether there was such an allocation.
bool ReadWithFailure(unsigned n, void* source, unsigned size, ZipKind kind, const char* output) {
  unsigned long codes[5] = {};
  char text[100] = "", message[100] = "";
  bool happened = false;
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
      codes[4] = UnzipItem(zip, 1, const_cast<char*>(output), 0, kZipFileName);
    }
    happened = fail.Happened();
    if (zip != nullptr && happened) {
      EXPECT_EQ(Extract(zip, 0, text), kZipOk) << "the second time";
      EXPECT_STREQ(text, kPlain);
    }
  }
  if (zip == nullptr) {
    EXPECT_STREQ(message, "Failed to allocate memory");
    EXPECT_TRUE(happened);
    return happened;
  }
  EXPECT_EQ(CloseZipU(zip), kZipOk);
  for (const unsigned long code : codes)
    EXPECT_TRUE(code == kZipOk || (happened && (code == kZipNoMemory || code == kZipNoFile)))
        << std::hex << code;
  return happened;
}

TEST(ZipAllocation, Reading) {
  const TempFolder folder;
  Archive archive;
  archive.entries = {Deflated("first.txt", kPlain), Stored("second.txt", kPlain)};
  const std::string bytes = archive.Bytes(), path = folder.Write("archive.zip", bytes);
  const std::string output = folder / "output.txt";
  for (const ZipKind kind : {kZipMemory, kZipFileName}) {
    const std::string& source = kind == kZipMemory ? bytes : path;
    bool happened = true;
    for (unsigned n = 1; happened && !HasFailure(); ++n) {
      SCOPED_TRACE(n);
      ASSERT_LT(n, 5000u) << "the allocations don't end";
      happened = ReadWithFailure(n, Arg(source), static_cast<unsigned>(source.size()), kind,
                                 output.c_str());
    }
  }
}

}  // namespace
