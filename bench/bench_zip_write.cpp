// Writes files from a folder into an archive in another file.
//
// Floor: the same files opened, read with ReadFile in pieces, summed with zlib's crc32, deflated at
// level 8 (one stream, reset for every file) and written with WriteFile in the same pieces to one
// file. No headers, no directory, no times or attributes.
#include <afxwin.h>

#include <vector>
#include <zlib.h>

#include "Measure.h"
#include "ZipArchive.h"
#include "entry/Handles.h"

namespace {

constexpr int kRounds = 5;
constexpr int kLevel = 8;
constexpr double kAim = 1.10;
constexpr DWORD kPiece = 64 * 1024;

unique_file OpenToRead(const std::string& path) {
  return unique_file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                 OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

unique_file OpenToWrite(const std::string& path) {
  return unique_file(CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                 FILE_ATTRIBUTE_NORMAL, nullptr));
}

class BareDeflate {
 public:
  BareDeflate() : m_in(kPiece), m_out(kPiece) {
    bench::Require(
        deflateInit2(&m_stream, kLevel, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) == Z_OK,
        "zlib can't start");
  }
  ~BareDeflate() { deflateEnd(&m_stream); }
  BareDeflate(const BareDeflate&) = delete;
  BareDeflate& operator=(const BareDeflate&) = delete;

  void Write(const bench::Files& files, const std::string& target) {
    const unique_file output = OpenToWrite(target);
    m_filled = 0;
    for (const std::string& path : files.paths) Append(path, output.get());
    Flush(output.get());
  }

 private:
  void Append(const std::string& path, HANDLE output) {
    const unique_file input = OpenToRead(path);
    bench::Require(static_cast<bool>(input), "a file can't be opened");
    deflateReset(&m_stream);
    uLong crc = 0;
    DWORD got = 0;
    do {
      ReadFile(input.get(), m_in.data(), kPiece, &got, nullptr);
      crc = crc32(crc, m_in.data(), got);
      m_stream.next_in = m_in.data();
      m_stream.avail_in = got;
      do {
        m_stream.next_out = &m_out[m_filled];
        m_stream.avail_out = kPiece - m_filled;
        deflate(&m_stream, got == 0 ? Z_FINISH : Z_NO_FLUSH);
        m_filled = kPiece - m_stream.avail_out;
        if (m_filled < kPiece) break;
        Flush(output);
      } while (true);
    } while (got > 0);
    m_sums += crc;
  }

  void Flush(HANDLE output) {
    DWORD written = 0;
    WriteFile(output, m_out.data(), m_filled, &written, nullptr);
    bench::Require(written == m_filled, "the floor's output can't be written");
    m_filled = 0;
  }

  z_stream m_stream = {};
  std::vector<Bytef> m_in, m_out;
  DWORD m_filled = 0;
  uLong m_sums = 0;
};

}  // namespace

int main(int argc, char** argv) {
  const bench::Folder folder;
  const bench::Files text = bench::Text(folder, bench::HeaderFolder(argc, argv), 12'000'000);
  const bench::Files noise = bench::Noise(folder, "noise", 12, 1'000'000);
  const bench::Files small = bench::Noise(folder, "small", 1000, 1'000);

  BareDeflate bare;
  bench::PrintHeader();
  const auto measure = [&](const bench::Files& files, double aim) {
    bench::PrintRow("write " + files.title,
                    bench::Compare(
                        kRounds, [&] { bench::WriteArchive(files, folder / "subject.zip"); },
                        [&] { bare.Write(files, folder / "floor.bin"); }),
                    aim);
  };
  measure(text, kAim);
  measure(noise, kAim);
  measure(bench::Together("text and noise", text, noise), kAim);
  measure(small, 0);
  return 0;
}
