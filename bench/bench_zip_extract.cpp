// Extracts an archive in a file into files of a folder.
//
// Floor: for every entry, its packed bytes read with one ReadFile, inflated and written with
// WriteFile, 256 KB at a time, into a file made by CreateFile. The places of the entries are known
// beforehand; no header is read, no CRC is checked, no time is set.
#include <afxwin.h>

#include <algorithm>
#include <cstring>
#include <vector>
#include <zlib.h>

#include "Measure.h"
#include "ZipArchive.h"
#include "entry/Handles.h"
#include "zip/XUnzip.h"

namespace {

constexpr int kRounds = 7;
constexpr double kAim = 1.10;
constexpr DWORD kPiece = 256 * 1024;

void ExtractArchive(std::string archive, const std::string& folder) {
  HZIP zip = OpenZipU(archive.data(), 0, kZipFileName, folder.c_str());
  bench::Require(zip != nullptr, "the archive can't be opened");
  ZIPENTRY entry;
  GetZipItemA(zip, -1, &entry);
  const int count = entry.index;
  for (int i = 0; i < count; ++i) {
    GetZipItemA(zip, i, &entry);
    std::string path = folder + "\\" + entry.name;
    bench::Require(UnzipItem(zip, i, path.data(), 0, kZipFileName) == kZipOk,
                   "an entry can't be extracted");
  }
  CloseZipU(zip);
}

class BareInflate {
 public:
  explicit BareInflate(const std::string& archive)
      : m_archive(CreateFileA(archive.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                              OPEN_EXISTING, 0, nullptr)) {
    bench::Require(inflateInit2(&m_stream, -MAX_WBITS) == Z_OK, "zlib can't start");
    FindEntries(archive);
  }
  ~BareInflate() { inflateEnd(&m_stream); }
  BareInflate(const BareInflate&) = delete;
  BareInflate& operator=(const BareInflate&) = delete;

  void Extract(const std::string& folder) {
    for (const Entry& entry : m_entries) {
      DWORD size = 0;
      SetFilePointer(m_archive.get(), entry.data, nullptr, FILE_BEGIN);
      ReadFile(m_archive.get(), m_packed.data(), entry.packed, &size, nullptr);
      inflateReset(&m_stream);
      m_stream.next_in = m_packed.data();
      m_stream.avail_in = size;
      const unique_file file(CreateFileA((folder + "\\" + entry.name).c_str(), GENERIC_WRITE, 0,
                                         nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
      InflateInto(file.get(), entry.size);
    }
  }

 private:
  struct Entry {
    std::string name;
    LONG data;
    DWORD packed;
    DWORD size;
  };

  void InflateInto(HANDLE file, DWORD size) {
    // A block with room for all lets zlib do without its window.
    const int flush = size < kPiece ? Z_FINISH : Z_NO_FLUSH;
    int status = Z_OK;
    while (status == Z_OK) {
      m_stream.next_out = m_plain.data();
      m_stream.avail_out = kPiece;
      status = inflate(&m_stream, flush);
      DWORD written = 0;
      WriteFile(file, m_plain.data(), kPiece - m_stream.avail_out, &written, nullptr);
    }
    bench::Require(status == Z_STREAM_END && m_stream.total_out == size, "the floor can't inflate");
  }

  void FindEntries(const std::string& archive) {
    std::ifstream file(archive, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    const auto number = [&](size_t at, unsigned width) {
      uint32_t value = 0;
      memcpy(&value, &bytes[at], width);
      return value;
    };
    const size_t end = bytes.size() - 22;
    for (size_t at = number(end + 16, 4); at < end;) {
      const size_t local = number(at + 42, 4);
      const size_t data = local + 30 + number(local + 26, 2) + number(local + 28, 2);
      m_entries.push_back({bytes.substr(at + 46, number(at + 28, 2)), static_cast<LONG>(data),
                           number(at + 20, 4), number(at + 24, 4)});
      at += 46 + number(at + 28, 2) + number(at + 30, 2) + number(at + 32, 2);
      m_packed.resize(std::max<size_t>(m_packed.size(), m_entries.back().packed));
    }
  }

  unique_file m_archive;
  z_stream m_stream = {};
  std::vector<Entry> m_entries;
  std::vector<Bytef> m_packed;
  std::vector<Bytef> m_plain = std::vector<Bytef>(kPiece);
};

}  // namespace

int main(int argc, char** argv) {
  const bench::Folder folder;
  const bench::Files text = bench::Text(folder, bench::HeaderFolder(argc, argv), 40'000'000);
  const bench::Files noise = bench::Noise(folder, "noise", 20, 1'000'000);
  const bench::Files small = bench::Noise(folder, "small", 1000, 1'000);
  const std::string subjectFolder = folder / "subject";
  const std::string floorFolder = folder / "floor";
  std::filesystem::create_directory(subjectFolder);
  std::filesystem::create_directory(floorFolder);

  bench::PrintHeader();
  const auto measure = [&](const bench::Files& files, double aim) {
    const std::string archive = folder / "archive.zip";
    bench::WriteArchive(files, archive);
    BareInflate bare(archive);
    int rounds = 0;
    // A folder of its own for each round.
    const auto fresh = [&](const std::string& name) {
      const std::string path = folder / (name + std::to_string(++rounds));
      std::filesystem::create_directory(path);
      return path;
    };
    bench::PrintRow("extract " + files.title,
                    bench::Compare(
                        kRounds, [&] { ExtractArchive(archive, fresh(files.title.substr(0, 5))); },
                        [&] { bare.Extract(fresh(files.title.substr(0, 5))); }),
                    aim);
    // Over files of the same names: the floor writes into them, which a failure would cost.
    ExtractArchive(archive, subjectFolder);
    bare.Extract(floorFolder);
    bench::PrintRow(
        "  the same over existing files",
        bench::Compare(
            1, [&] { ExtractArchive(archive, subjectFolder); }, [&] { bare.Extract(floorFolder); }),
        0);
  };
  measure(text, kAim);
  measure(noise, kAim);
  measure(bench::Together("text and noise", text, noise), kAim);
  measure(small, 0);
  return 0;
}
