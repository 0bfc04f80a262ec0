// What the writer writes, byte for byte.
#include "zip_tools.h"

namespace {

using namespace hostile;

constexpr uint16_t kTimes = 0x5455;  // "UT"
constexpr uint32_t kPlain = 0x80000000;
const std::string kLines = "one line and another line and another line and another line\n";

Entry With(uint32_t external, Entry entry) {
  entry.external = external;
  return entry;
}

uint32_t NumberAt(const std::string& bytes, size_t at, int width) {
  uint32_t number = 0;
  while (width-- > 0) number = number << 8 | static_cast<uint8_t>(bytes.at(at + width));
  return number;
}

// The archive is these entries and no other byte. Their times are its own, but agree.
void ExpectWritten(const std::string& bytes, const std::vector<Entry>& entries) {
  Archive expected;
  for (Entry entry : entries) {
    const size_t header = expected.LayOut().directory;
    const size_t extra = header + kLocalSize + entry.local.name.size();
    ASSERT_LE(extra + 17, bytes.size());
    entry.Both(&Header::time, NumberAt(bytes, header + 10, 2));
    entry.Both(&Header::date, NumberAt(bytes, header + 12, 2));
    entry.local.extra = ExtraBlock(kTimes, "\7" + bytes.substr(extra + 5, 12));
    entry.central.extra = ExtraBlock(kTimes, "\7" + bytes.substr(extra + 5, 4));
    WORD date = 0, time = 0;
    const FILETIME local = LocalTimeOf(FileTimeOf(NumberAt(bytes, extra + 5, 4)));
    FileTimeToDosDateTime(&local, &date, &time);
    EXPECT_EQ(std::make_pair(entry.local.date, entry.local.time), std::make_pair(date, time));
    expected.entries.push_back(entry);
  }
  const std::string whole = expected.Bytes();
  const auto differ = std::mismatch(bytes.begin(), bytes.end(), whole.begin(), whole.end()).first;
  EXPECT_TRUE(bytes == whole) << "at byte " << differ - bytes.begin();
}

TEST(Writer, EveryByte) {
  const TempFolder folder;
  const std::string file = folder.Write("file", kLines);
  SetTimes(file, FileTimeOf(2022, 12, 31, 23, 59, 58), FileTimeOf(2021, 7, 3, 11, 22, 34));
  std::vector<Entry> entries = {With(kPlain, Deflated("a.txt", kLines)),
                                With(kPlain, Stored("dir/b.zip", kLines)),
                                Folder("dir/sub/"),
                                Folder("has one/"),
                                Folder("packed.zip/"),
                                With(0x81800020, Deflated("file", kLines))};
  const auto write = [&](HZIP zip) {
    EXPECT_EQ(AddText(zip, "a.txt", kLines), kZipOk);
    EXPECT_EQ(AddText(zip, "dir\\b.zip", kLines), kZipOk);
    for (const char* name : {"dir\\sub", "has one\\", "packed.zip"})
      EXPECT_EQ(ZipAdd(zip, name, nullptr, 0, kZipFolder), kZipOk);
    EXPECT_EQ(AddFile(zip, "file", file), kZipOk);
  };
  MemoryZip zip;
  write(zip);
  const std::string bytes = zip.Bytes();
  ExpectWritten(bytes, entries);
  EXPECT_NE(bytes.find(std::string("UT\15\0\7", 5) + U32(1625311354) + U32(1672531198)),
            std::string::npos);

  Pipe pipe;
  HZIP piped = CreateZipZ(pipe.writeEnd.get(), 0, kZipHandle);
  write(piped);
  EXPECT_EQ(CloseZipZ(piped), kZipOk);
  for (Entry& entry : entries) entry = Piped(entry);
  ExpectWritten(pipe.TakeAll(), entries);

  ExpectWritten(MemoryZip().Bytes(), {});
}

TEST(Writer, MethodByName) {
  MemoryZip zip;
  std::vector<Entry> entries;
  for (const char* name : {"a.txt", "zip", "a.zip.txt", "a.zip/b", "a.7z", "noending", "a.gzip"})
    entries.push_back(Deflated(name, kLines));
  for (const char* name : {"archive.ZIP", "a.Z", "a.z", "a.zoo", "a.arc", "a.LZH", "a.arj", "a.gz",
                           "a.tar.gz", "a.tgz", ".zip"})
    entries.push_back(Stored(name, kLines));
  for (Entry& entry : entries) {
    entry.external = kPlain;
    ASSERT_EQ(AddText(zip, entry.local.name, kLines), kZipOk);
  }
  ExpectWritten(zip.Bytes(), entries);
}

// Only files that begin with AD 54 are marked as programs; real ones, which begin with "MZ", are
// not.
TEST(Writer, AttributesOfDiskFiles) {
  const auto program = [](const std::string& begin, const std::string& signature, size_t size) {
    std::string bytes(size, 0);
    bytes.replace(0, begin.size(), begin);
    bytes.replace(36, 4, U32(64));
    return bytes.replace(64, signature.size(), signature);
  };
  constexpr DWORD kHidden = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
  const struct {
    const char* name;
    DWORD windows;
    std::string bytes;
    uint32_t external;
  } cases[] = {
      {"normal", FILE_ATTRIBUTE_NORMAL, kLines, 0x81800000},
      {"read-only", FILE_ATTRIBUTE_READONLY, kLines, 0x81000001},
      {"hidden", kHidden, kLines, 0x81800006},
      {"archive", FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_TEMPORARY, kLines, 0x81800020},
      {"marked", FILE_ATTRIBUTE_NORMAL, program("\xAD\x54", "PE", 200), 0x81C00000},
      {"real", FILE_ATTRIBUTE_NORMAL, program("MZ", "PE", 200), 0x81800000},
      {"other signature", FILE_ATTRIBUTE_NORMAL, program("\xAD\x54", "XX", 200), 0x81800000},
      {"ends too early", FILE_ATTRIBUTE_NORMAL, program("\xAD\x54", "NE", 116), 0x81800000},
      {"just long enough", FILE_ATTRIBUTE_NORMAL, program("\xAD\x54", "LE", 117), 0x81C00000},
      {"short", FILE_ATTRIBUTE_NORMAL, "\xAD\x54", 0x81800000},
  };
  const TempFolder folder;
  MemoryZip zip;
  std::vector<Entry> entries;
  for (const auto& c : cases) {
    const std::string path = folder.Write(c.name, c.bytes);
    ASSERT_TRUE(SetFileAttributesA(path.c_str(), c.windows));
    // What the file system doesn't keep can't be expected.
    const DWORD kept = GetFileAttributesA(path.c_str()) & 0x27;
    ASSERT_EQ(AddFile(zip, c.name, path), kZipOk);
    entries.push_back(With((c.external & ~0x27u) | kept, Deflated(c.name, c.bytes)));
  }
  const unique_file opened(CreateFileA(folder.path().c_str(), GENERIC_READ, FILE_SHARE_READ,
                                       nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                                       nullptr));
  EXPECT_EQ(ZipAdd(zip, "opened folder", opened.get(), 0, kZipHandle), kZipOk);
  entries.push_back(With(0x41800010, Deflated("opened folder", "")));
  ExpectWritten(zip.Bytes(), entries);
}

TEST(Writer, TimesOutsideTheRangeAreItsEnds) {
  const struct {
    FILETIME modified;
    uint32_t dos, unix;
  } cases[] = {
      {FileTimeOf(1975, 6, 1, 12, 0, 0), 0x00210000, 170856000},
      {FileTimeOf(2109, 6, 1, 12, 0, 0), 0xFF9FBF7D, 0x7FFFFFFF},
  };
  const TempFolder folder;
  for (const auto& c : cases) {
    const std::string path = folder.Write("file", kLines);
    SetTimes(path, c.modified, c.modified);
    MemoryZip zip;
    ASSERT_EQ(AddFile(zip, "file", path), kZipOk);
    const std::string bytes = zip.Bytes();
    EXPECT_EQ(NumberAt(bytes, 10, 4), c.dos);
    EXPECT_EQ(NumberAt(bytes, kLocalSize + 4 + 5, 4), c.unix);
  }
}

}  // namespace
