// Reads a text of 200 MB byte by byte, as 8-bit characters and as UTF-16.
//
// Floor: getc of the runtime on the same bytes of the same file. For UTF-16 that is two of its
// calls for a character of ours.
#include <afxwin.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "Measure.h"
#include "entry/Handles.h"
#include "util/MFile.h"

namespace {

constexpr char kFile[] = "bench_text_read.txt";
constexpr size_t kSize = 200 * 1000 * 1000;
constexpr double kAim = 0.5;
constexpr int kRounds = 5;

// Lines of letters; with a mark, each letter followed by a null.
void MakeFile(const std::string& mark) {
  std::string piece;
  for (unsigned i = 0; piece.size() < 1'000'000; ++i) {
    const char c = i % 73 == 72 ? '\n' : static_cast<char>(' ' + i * 7 % 95);
    piece += c;
    if (!mark.empty()) piece += '\0';
  }
  const unique_file file(
      CreateFileA(kFile, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD written = 0;
  bool good = WriteFile(file.get(), mark.data(), mark.size(), &written, nullptr);
  for (size_t size = 0; good && size < kSize; size += piece.size()) {
    good = WriteFile(file.get(), piece.data(), piece.size(), &written, nullptr) &&
           written == piece.size();
  }
  bench::Require(good, "the file can't be written");
}

// What was read, so that both have read the same and none of it is left out.
struct Sum {
  uint32_t bytes = 0;
  uint32_t count = 0;
  void Add(unsigned byte) {
    bytes = bytes * 31 + byte;
    ++count;
  }
  bool operator==(const Sum&) const = default;
};

Sum ReadByOurs() {
  MFile file;
  bench::Require(file.Open(kFile, CFile::modeRead | CFile::shareDenyWrite, nullptr, 1),
                 "the file can't be opened");
  Sum sum;
  int ok;
  for (uint8_t byte = file.ReadByte(ok); ok; byte = file.ReadByte(ok)) sum.Add(byte);
  bench::Require(!file.HasFailed(), "the file can't be read");
  return sum;
}

Sum ReadByRuntime(size_t markSize, bool everySecond) {
  FILE* const file = fopen(kFile, "rb");
  bench::Require(file != nullptr, "the file can't be opened");
  for (size_t i = 0; i < markSize; ++i) getc(file);
  Sum sum;
  for (int byte = getc(file); byte != EOF; byte = getc(file)) {
    sum.Add(byte);
    if (everySecond) getc(file);
  }
  fclose(file);
  return sum;
}

void Measure(const char* name, const std::string& mark) {
  MakeFile(mark);
  Sum ours, floor;
  const bench::Times times = bench::Compare(
      kRounds, [&] { ours = ReadByOurs(); },
      [&] { floor = ReadByRuntime(mark.size(), !mark.empty()); });
  bench::Require(ours == floor && ours.count > kSize / 2 - 1, "the two have not read the same");
  bench::PrintRow(name, times, kAim);
  printf("  %.1f times faster than getc; %.2f ns a character\n", times.floor / times.subject,
         times.subject * 1e6 / ours.count);
  DeleteFileA(kFile);
}

}  // namespace

int main() {
  bench::PrintHeader();
  Measure("200 MB, 8-bit", "");
  Measure("200 MB, UTF-16", "\xFF\xFE");
}
