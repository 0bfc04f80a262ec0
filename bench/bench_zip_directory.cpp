// Opens an archive of 65,535 entries and visits them all in random order, by index and by name.
//
// Floor: one linear pass over the directory by the plainest code: the end record, then every
// central record and, where it points, the entry's local header (a record's times stand there),
// each with ReadFile. Two rows tell what the parts cost: local headers picked out of a pass over
// the file in large blocks, and the directory alone, in memory.
#include <afxwin.h>

#include <cstdint>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "Measure.h"
#include "entry/Handles.h"
#include "zip/XUnzip.h"
#include "zip/ZipWriter.h"

namespace {

constexpr int kEntries = 65535;
constexpr int kRounds = 5;
constexpr size_t kBlock = 64 * 1024;
constexpr size_t kCentralSize = 46;
constexpr size_t kLocalSize = 30;
constexpr size_t kEndSize = 22;

uint32_t Number(const uint8_t* at, int width) {
  uint32_t value = 0;
  for (int i = 0; i < width; ++i) value |= static_cast<uint32_t>(at[i]) << (8 * i);
  return value;
}

std::string NameOf(int entry) {
  return "folder" + std::to_string(entry / 300) + "/a file of that folder " +
         std::to_string(entry) + ".txt";
}

void WriteArchive(std::string path) {
  HZIP zip = CreateZipZ(path.data(), 0, kZipFileName);
  bench::Require(zip != nullptr, "the archive can't be created");
  for (int i = 0; i < kEntries; ++i) {
    std::string text = "the text of file " + std::to_string(i);
    bench::Require(ZipAdd(zip, NameOf(i).c_str(), text.data(), static_cast<unsigned>(text.size()),
                          kZipMemory) == kZipOk,
                   "an entry can't be added");
  }
  bench::Require(CloseZipZ(zip) == kZipOk, "the archive can't be closed");
}

HZIP Open(std::string path) {
  HZIP zip = OpenZipU(path.data(), 0, kZipFileName, nullptr);
  bench::Require(zip != nullptr, "the archive can't be opened");
  return zip;
}

void VisitByIndex(const std::string& path, const std::vector<int>& order) {
  HZIP zip = Open(path);
  ZIPENTRY record;
  for (const int index : order) {
    bench::Require(GetZipItemA(zip, index, &record) == kZipOk, "an entry is not to be had");
  }
  CloseZipU(zip);
}

void VisitByName(const std::string& path, const std::vector<std::string>& names, bool ignoreCase) {
  HZIP zip = Open(path);
  ZIPENTRY record;
  for (const std::string& name : names) {
    bench::Require(FindZipItemA(zip, name.c_str(), ignoreCase, nullptr, &record) == kZipOk,
                   "an entry is not found");
  }
  CloseZipU(zip);
}

// The floors' view of the archive.
class PlainFile {
 public:
  explicit PlainFile(const std::string& path)
      : m_file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0,
                           nullptr)) {
    m_size = GetFileSize(m_file.get(), nullptr);
  }

  void Read(uint32_t position, uint8_t* to, size_t size) const {
    DWORD got = 0;
    SetFilePointer(m_file.get(), static_cast<LONG>(position), nullptr, FILE_BEGIN);
    bench::Require(
        ReadFile(m_file.get(), to, static_cast<DWORD>(size), &got, nullptr) && got == size,
        "the archive can't be read");
  }

  std::vector<uint8_t> Directory() const {
    uint8_t end[kEndSize];
    Read(m_size - kEndSize, end, kEndSize);
    std::vector<uint8_t> directory(Number(end + 12, 4));
    const uint32_t start = Number(end + 16, 4);
    for (size_t at = 0; at < directory.size(); at += kBlock) {
      Read(static_cast<uint32_t>(start + at), &directory[at],
           std::min(kBlock, directory.size() - at));
    }
    return directory;
  }

 private:
  unique_file m_file;
  uint32_t m_size;
};

// Calls visit with every central record and gives their number.
template <class Visit>
int Walk(const std::vector<uint8_t>& directory, Visit visit) {
  int records = 0;
  for (size_t at = 0; at + kCentralSize <= directory.size(); ++records) {
    const uint8_t* record = &directory[at];
    visit(record);
    at += kCentralSize + Number(record + 28, 2) + Number(record + 30, 2) + Number(record + 32, 2);
  }
  return records;
}

volatile uint32_t g_sink;  // keeps the floors' work from being left out

void PassWithReadFile(const std::string& path) {
  const PlainFile file(path);
  uint32_t sum = 0;
  const int records = Walk(file.Directory(), [&](const uint8_t* record) {
    uint8_t local[kLocalSize];
    file.Read(Number(record + 42, 4), local, sizeof local);
    sum += Number(record + 24, 4) + Number(local + 28, 2);
  });
  bench::Require(records == kEntries, "the floor sees other entries");
  g_sink = sum;
}

void PassInBlocks(const std::string& path) {
  const PlainFile file(path);
  std::vector<uint8_t> block(kBlock);
  uint32_t blockStart = 0xFFFFFFFF - kBlock;
  uint32_t sum = 0;
  Walk(file.Directory(), [&](const uint8_t* record) {
    const uint32_t offset = Number(record + 42, 4);
    if (offset < blockStart || offset + kLocalSize > blockStart + kBlock) {
      blockStart = offset;
      file.Read(offset, block.data(), kBlock);
    }
    sum += Number(record + 24, 4) + Number(&block[offset - blockStart] + 28, 2);
  });
  g_sink = sum;
}

void PassInMemory(const std::vector<uint8_t>& directory) {
  uint32_t sum = 0;
  Walk(directory, [&](const uint8_t* record) { sum += Number(record + 24, 4); });
  g_sink = sum;
}

}  // namespace

int main() {
  char folder[MAX_PATH] = "";
  GetTempPathA(MAX_PATH, folder);
  const std::string path =
      std::string(folder) + "orvane-bench-" + std::to_string(GetCurrentProcessId()) + ".zip";
  WriteArchive(path);

  std::vector<int> order(kEntries);
  std::iota(order.begin(), order.end(), 0);
  std::shuffle(order.begin(), order.end(), std::mt19937(1));
  std::vector<std::string> names;
  for (const int index : order) names.push_back(NameOf(index));
  const std::vector<uint8_t> directory = PlainFile(path).Directory();
  const auto floor = [&] { PassWithReadFile(path); };

  bench::PrintHeader();
  bench::PrintRow("65,535 entries: open",
                  bench::Compare(
                      kRounds, [&] { CloseZipU(Open(path)); }, floor),
                  2);
  bench::PrintRow("65,535 entries: open, visit by index",
                  bench::Compare(
                      kRounds, [&] { VisitByIndex(path, order); }, floor),
                  2);
  bench::PrintRow("65,535 entries: open, visit by name",
                  bench::Compare(
                      kRounds, [&] { VisitByName(path, names, false); }, floor),
                  2);
  bench::PrintRow("65,535 entries: the same, ignoring case",
                  bench::Compare(
                      kRounds, [&] { VisitByName(path, names, true); }, floor),
                  0);
  bench::PrintRow("(a pass over the file in 64 KB blocks)",
                  bench::Compare(
                      kRounds, [&] { PassInBlocks(path); }, floor),
                  0);
  bench::PrintRow("(a pass over the directory in memory)",
                  bench::Compare(
                      kRounds, [&] { PassInMemory(directory); }, floor),
                  0);
  DeleteFileA(path.c_str());
  return 0;
}
