// What the writer writes, field by field.
#include "zip_tools.h"

#include "parsed_zip.h"
#include "support/TempFolder.h"

namespace {

const std::string kText = "one line and another line and another line and another line\n";

std::string Le32(uint32_t value) {
  return std::string(reinterpret_cast<const char*>(&value), sizeof value);
}

// The DOS date and time that the system shows for a file time in local time.
std::pair<unsigned, unsigned> DosDateTimeOf(const FILETIME& time) {
  SYSTEMTIME utc, local;
  FILETIME localTime;
  WORD date = 0, clock = 0;
  FileTimeToSystemTime(&time, &utc);
  SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local);
  SystemTimeToFileTime(&local, &localTime);
  FileTimeToDosDateTime(&localTime, &date, &clock);
  return {date, clock};
}

void SetTimes(const std::string& path, const FILETIME& created, const FILETIME& accessed,
              const FILETIME& modified) {
  const unique_file file(
      CreateFileA(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_TRUE(SetFileTime(file.get(), &created, &accessed, &modified));
}

TEST(Writer, FieldsWhereItCanSeek) {
  MemoryZip zip;
  ASSERT_EQ(AddText(zip, "a.txt", kText), kZipOk);
  ASSERT_EQ(AddText(zip, "dir\\b.zip", kText), kZipOk);
  const ParsedZip parsed = ParseZip(zip.Bytes());
  ASSERT_EQ(parsed.Names(), (std::vector<std::string>{"a.txt", "dir/b.zip"}));
  for (const ParsedEntry& entry : parsed.entries) {
    SCOPED_TRACE(entry.central.name);
    EXPECT_EQ(entry.bytes, kText);
    EXPECT_EQ(entry.central.madeBy, 0x0B17u);
    EXPECT_EQ(entry.central.commentLength, 0u);
    EXPECT_EQ(entry.central.disk, 0u);
    EXPECT_EQ(entry.central.internal, 0u);
    EXPECT_EQ(entry.central.external, 0x80000000u);
    const ParsedHeader& central = entry.central;
    const ParsedHeader& local = entry.local;
    for (const ParsedHeader* header : {&central, &local}) {
      EXPECT_EQ(header->needed, 20u);
      EXPECT_EQ(header->flags, 0u);
    }
    EXPECT_EQ(local.method, central.method);
    EXPECT_EQ(local.time, central.time);
    EXPECT_EQ(local.date, central.date);
    EXPECT_EQ(local.crc, central.crc);
    EXPECT_EQ(local.compressed, central.compressed);
    EXPECT_EQ(local.size, central.size);
    EXPECT_EQ(local.name, central.name);
    EXPECT_EQ(local.extra.size(), 17u);
    EXPECT_EQ(central.extra.size(), 9u);
  }
  EXPECT_EQ(parsed.disk, 0u);
  EXPECT_EQ(parsed.directoryDisk, 0u);
  EXPECT_EQ(parsed.countHere, 2u);
  EXPECT_EQ(parsed.commentLength, 0u);
}

TEST(Writer, FieldsInAPipe) {
  Pipe pipe;
  HZIP zip = CreateZipZ(pipe.writeEnd.get(), 0, kZipHandle);
  ASSERT_EQ(AddText(zip, "a.txt", kText), kZipOk);
  ASSERT_EQ(AddText(zip, "b.gz", kText), kZipOk);
  ASSERT_EQ(ZipAdd(zip, "c", nullptr, 0, kZipFolder), kZipOk);
  ASSERT_EQ(CloseZipZ(zip), kZipOk);
  const ParsedZip parsed = ParseZip(pipe.TakeAll());
  ASSERT_EQ(parsed.Names(), (std::vector<std::string>{"a.txt", "b.gz", "c/"}));
  for (const ParsedEntry& entry : parsed.entries) {
    SCOPED_TRACE(entry.central.name);
    EXPECT_EQ(entry.local.flags, 8u);
    EXPECT_EQ(entry.central.flags, 8u);
    EXPECT_EQ(entry.local.crc | entry.local.compressed | entry.local.size, 0u);
    EXPECT_EQ(entry.behind, "PK\7\10" + Le32(entry.central.crc) + Le32(entry.central.compressed) +
                                Le32(entry.central.size));
  }
}

TEST(Writer, EmptyArchiveIsAnEndRecord) {
  MemoryZip zip;
  EXPECT_EQ(zip.Bytes(), std::string("PK\5\6", 4) + std::string(18, 0));
}

TEST(Writer, FolderEntryGetsSlash) {
  MemoryZip zip;
  EXPECT_EQ(ZipAdd(zip, "dir\\sub", nullptr, 0, kZipFolder), kZipOk);
  EXPECT_EQ(ZipAdd(zip, "has one\\", nullptr, 0, kZipFolder), kZipOk);
  EXPECT_EQ(ZipAdd(zip, "packed.zip", nullptr, 0, kZipFolder), kZipOk);
  const ParsedZip parsed = ParseZip(zip.Bytes());
  EXPECT_EQ(parsed.Names(), (std::vector<std::string>{"dir/sub/", "has one/", "packed.zip/"}));
  for (const ParsedEntry& entry : parsed.entries) {
    EXPECT_EQ(entry.central.method, 0u);
    EXPECT_EQ(entry.central.external, 0x41C00010u);
    EXPECT_EQ(entry.central.size, 0u);
  }
}

TEST(Writer, MethodByName) {
  const struct {
    const char* name;
    unsigned method;
  } cases[] = {
      {"a.txt", 8},    {"archive.ZIP", 0}, {"a.Z", 0},       {"a.z", 0},     {"a.zoo", 0},
      {"a.arc", 0},    {"a.LZH", 0},       {"a.arj", 0},     {"a.gz", 0},    {"a.tar.gz", 0},
      {"a.tgz", 0},    {"zip", 8},         {"a.zip.txt", 8}, {"a.zip/b", 8}, {"a.7z", 8},
      {"noending", 8}, {".zip", 0},        {"a.gzip", 8},
  };
  MemoryZip zip;
  for (const auto& c : cases) ASSERT_EQ(AddText(zip, c.name, kText), kZipOk) << c.name;
  const ParsedZip parsed = ParseZip(zip.Bytes());
  ASSERT_EQ(parsed.entries.size(), std::size(cases));
  for (size_t i = 0; i < std::size(cases); ++i)
    EXPECT_EQ(parsed.entries[i].central.method, cases[i].method) << cases[i].name;
}

TEST(Writer, AttributesOfDiskFiles) {
  const struct {
    DWORD windows;
    uint32_t external;
  } cases[] = {
      {FILE_ATTRIBUTE_NORMAL, 0x81800000},
      {FILE_ATTRIBUTE_READONLY, 0x81000001},
      {FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM, 0x81800006},
      {FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED, 0x81800020},
  };
  const TempFolder folder;
  for (const auto& c : cases) {
    const std::string path = folder.Write("file", kText);
    ASSERT_TRUE(SetFileAttributesA(path.c_str(), c.windows));
    // What the file system doesn't keep can't be expected.
    const DWORD kept = GetFileAttributesA(path.c_str()) & 0x27;
    MemoryZip zip;
    EXPECT_EQ(AddFile(zip, "file", path), kZipOk);
    const ParsedZip parsed = ParseZip(zip.Bytes());
    ASSERT_EQ(parsed.entries.size(), 1u);
    EXPECT_EQ(parsed.entries[0].central.external, (c.external & ~0x27u) | kept) << c.windows;
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  }
}

// Only files that begin with AD 54 are looked at; real programs, which begin with "MZ", are not.
TEST(Writer, ProgramsAreMarkedByTheirHeader) {
  const auto program = [](const std::string& begin, const std::string& signature, size_t size) {
    std::string bytes(size, 0);
    bytes.replace(0, begin.size(), begin);
    bytes.replace(36, 4, Le32(64));
    bytes.replace(64, signature.size(), signature);
    return bytes;
  };
  const struct {
    const char* name;
    std::string bytes;
    bool isMarked;
  } cases[] = {
      {"marked", program("\xAD\x54", "PE", 200), true},
      {"real", program("MZ", "PE", 200), false},
      {"other signature", program("\xAD\x54", "XX", 200), false},
      {"ends too early", program("\xAD\x54", "NE", 116), false},
      {"just long enough", program("\xAD\x54", "LE", 117), true},
      {"short", "\xAD\x54", false},
  };
  const TempFolder folder;
  MemoryZip zip;
  for (const auto& c : cases)
    ASSERT_EQ(AddFile(zip, c.name, folder.Write(c.name, c.bytes)), kZipOk) << c.name;
  const ParsedZip parsed = ParseZip(zip.Bytes());
  ASSERT_EQ(parsed.entries.size(), std::size(cases));
  for (size_t i = 0; i < std::size(cases); ++i) {
    EXPECT_EQ(parsed.entries[i].bytes, cases[i].bytes) << cases[i].name;
    EXPECT_EQ((parsed.entries[i].central.external & 0x00400000) != 0, cases[i].isMarked)
        << cases[i].name;
  }
}

TEST(Writer, TimesOfDiskFile) {
  const TempFolder folder;
  const std::string path = folder.Write("file", kText);
  const FILETIME modified = FileTimeOf(2021, 7, 3, 11, 22, 34);
  SetTimes(path, FileTimeOf(2019, 1, 2, 3, 4, 5), FileTimeOf(2022, 12, 31, 23, 59, 58), modified);
  MemoryZip zip;
  ASSERT_EQ(AddFile(zip, "file", path), kZipOk);
  const ParsedEntry entry = ParseZip(zip.Bytes()).entries.at(0);
  EXPECT_EQ(std::make_pair(entry.central.date, entry.central.time), DosDateTimeOf(modified));
  const std::string modifiedSeconds = Le32(1625311354);
  EXPECT_EQ(entry.central.extra, std::string("UT\5\0\7", 5) + modifiedSeconds);
  // The third time, of the creation, is one that Unix file systems don't keep.
  EXPECT_EQ(entry.local.extra.substr(0, 13),
            std::string("UT\15\0\7", 5) + modifiedSeconds + Le32(1672531198));
}

TEST(Writer, TimesOutsideTheRangeAreItsEnds) {
  const struct {
    FILETIME modified;
    unsigned date, time;
    uint32_t unix;
  } cases[] = {
      {FileTimeOf(1975, 6, 1, 12, 0, 0), 0x0021, 0, 170856000},
      {FileTimeOf(2109, 6, 1, 12, 0, 0), 0xFF9F, 0xBF7D, 0x7FFFFFFF},
  };
  const TempFolder folder;
  for (const auto& c : cases) {
    const std::string path = folder.Write("file", kText);
    SetTimes(path, c.modified, c.modified, c.modified);
    MemoryZip zip;
    ASSERT_EQ(AddFile(zip, "file", path), kZipOk);
    const ParsedEntry entry = ParseZip(zip.Bytes()).entries.at(0);
    EXPECT_EQ(entry.central.date, c.date);
    EXPECT_EQ(entry.central.time, c.time);
    EXPECT_EQ(entry.central.extra.substr(5), Le32(c.unix));
  }
}

}  // namespace
