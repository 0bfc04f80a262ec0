// Listing, finding and extracting.
#include "zip_tools.h"

namespace {

// "a.txt" (deflated), "Dir/" and "Dir/b.zip" (stored).
const std::string kText(100'000, 'a');
const std::string kNoise = hostile::Noise(5000, 1);

std::string SmallArchive() {
  MemoryZip zip;
  AddText(zip, "a.txt", kText);
  ZipAdd(zip, "Dir", nullptr, 0, kZipFolder);
  AddText(zip, "Dir/b.zip", kNoise);
  return zip.Bytes();
}

TEST(Reader, RecordsOfEntries) {
  OpenZip zip(SmallArchive());
  ZIPENTRY entry;
  memset(&entry, 0xEE, sizeof entry);
  EXPECT_EQ(GetZipItemA(zip, -1, &entry), kZipOk);
  EXPECT_EQ(entry.index, 3);
  EXPECT_STREQ(entry.name, "");
  EXPECT_EQ(entry.attr | entry.comp_size | entry.unc_size, 0u);

  EXPECT_EQ(GetZipItemA(zip, 0, &entry), kZipOk);
  EXPECT_EQ(entry.index, 0);
  EXPECT_STREQ(entry.name, "a.txt");
  EXPECT_EQ(entry.unc_size, 100'000);
  EXPECT_LT(entry.comp_size, 1000);

  ZIPENTRYW wide;
  EXPECT_EQ(GetZipItemW(zip, 1, &wide), kZipOk);
  EXPECT_STREQ(wide.name, "Dir/");
  EXPECT_EQ(wide.attr, 0x90u);
  EXPECT_EQ(GetZipItemA(zip, 0, nullptr), kZipBadArguments);
}

TEST(Reader, AttributesOfRecords) {
  constexpr std::pair<uint32_t, unsigned long> kExternalAndWindows[] = {
      {0x81800000, 0x80}, {0x81800001, 0x81}, {0x00000000, 0x81},
      {0x00000020, 0xA1}, {0x81800027, 0xA7}, {0x41C00010, 0x90},
      {0x40000000, 0x91}, {0x00000010, 0x91}, {0x00800006, 0x86},
  };
  hostile::Archive archive;
  archive.entries = {hostile::Stored("a", "a")};
  for (const auto& [external, attributes] : kExternalAndWindows) {
    archive.entries[0].external = external;
    ZIPENTRY entry;
    EXPECT_EQ(GetZipItemA(OpenZip(archive.Bytes()), 0, &entry), kZipOk);
    EXPECT_EQ(entry.attr, attributes) << std::hex << external;
  }
}

TEST(Reader, FindsByName) {
  char upper[] = "GR\xD6SSE \xC4.TXT", lower[] = "GR\xD6SSE \xC4.TXT";
  CharLowerA(lower);
  ASSERT_STRNE(upper, lower);
  MemoryZip made;
  for (const char* name : {"a.txt", "Dir/b.zip", "Same", "same", "SAME", "same"})
    AddText(made, name, name);
  AddText(made, upper, upper);
  OpenZip zip(made.Bytes());
  const struct {
    const char* name;
    bool ignoreCase;
    int index;
  } cases[] = {
      {"a.txt", false, 0},      {"A.TXT", false, -1}, {"A.TXT", true, 0},
      {"Dir/b.zip", false, 1},  {"Dir/", false, -1},  {"dir/B.ZIP", true, 1},
      {"Dir\\b.zip", true, -1}, {"", false, -1},      {"same", false, 3},
      {"same", true, 2},        {lower, true, 6},     {lower, false, -1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    ZIPENTRY entry = {};
    int index = 77;
    const unsigned long result = FindZipItemA(zip, c.name, c.ignoreCase, &index, &entry);
    EXPECT_EQ(result, c.index < 0 ? kZipNotFound : kZipOk);
    EXPECT_EQ(index, c.index);
    EXPECT_EQ(entry.index, c.index);
    EXPECT_EQ(FindZipItemA(zip, c.name, c.ignoreCase, nullptr, nullptr), result);
  }
  ZIPENTRYW entry;
  EXPECT_EQ(FindZipItemW(zip, "A.TXT", true, nullptr, &entry), kZipOk);
  EXPECT_STREQ(entry.name, "a.txt");
  EXPECT_EQ(FindZipItemA(zip, nullptr, true, nullptr, nullptr), kZipBadArguments);
}

TEST(Reader, ExtractsIntoMemoryInSteps) {
  OpenZip zip(SmallArchive());
  for (const unsigned step : {1u, 7u, 4096u, 5000u, 100'000u, 100'001u, 300'000u}) {
    unsigned long result;
    EXPECT_EQ(Extracted(zip, 0, step, &result), kText) << step;
    EXPECT_EQ(result, kZipOk);
    EXPECT_EQ(Extracted(zip, 2, step, &result), kNoise) << step;
    EXPECT_EQ(result, kZipOk);
  }
  // A block of the exact size, and nothing left for the last call to take.
  std::string block(kText.size(), 0);
  EXPECT_EQ(UnzipItem(zip, 0, block.data(), 100'000, kZipMemory), kZipMore);
  EXPECT_EQ(block, kText);
  EXPECT_EQ(UnzipItem(zip, 0, nullptr, 0, kZipMemory), kZipOk);
  EXPECT_EQ(UnzipItem(zip, 1, block.data(), 1, kZipMemory), kZipOk) << "a folder has no bytes";

  // Looking up gives an extraction up, and so does another one.
  char first[10], again[10];
  ZIPENTRY entry;
  EXPECT_EQ(UnzipItem(zip, 2, first, 10, kZipMemory), kZipMore);
  EXPECT_EQ(GetZipItemA(zip, 0, &entry), kZipOk);
  EXPECT_EQ(UnzipItem(zip, 2, again, 10, kZipMemory), kZipMore);
  EXPECT_EQ(std::string(first, 10), std::string(again, 10));
  EXPECT_EQ(UnzipItem(zip, 0, again, 10, kZipMemory), kZipMore);
  EXPECT_EQ(UnzipItem(zip, 2, again, 10, kZipMemory), kZipMore);
  EXPECT_EQ(std::string(first, 10), std::string(again, 10));
}

TEST(Reader, ExtractsToHandlesAndFiles) {
  const TempFolder folder;
  OpenZip zip(SmallArchive(), folder.path().c_str());
  const std::string path = folder / "out.bin";
  for (const int index : {0, 2}) {  // the second time it replaces a longer file
    EXPECT_EQ(UnzipItem(zip, index, Arg(path), 0, kZipFileName), kZipOk);
    EXPECT_EQ(folder.Read("out.bin"), index == 0 ? kText : kNoise);
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  }
  EXPECT_EQ(UnzipItem(zip, 1, Arg(folder / "Dir"), 0, kZipFileName), kZipOk);
  EXPECT_FALSE(folder.Has("Dir")) << "nothing is written for a folder";

  const unique_file file = CreateForWriting(folder / "handle.bin");
  EXPECT_EQ(UnzipItem(zip, 2, file.get(), 0, kZipHandle), kZipOk);
  DWORD written;
  EXPECT_TRUE(WriteFile(file.get(), "more", 4, &written, nullptr)) << "the handle stays open";
  EXPECT_EQ(folder.Read("handle.bin"), kNoise + "more");

  Pipe pipe;
  EXPECT_EQ(UnzipItem(zip, 0, pipe.writeEnd.get(), 0, kZipHandle), kZipOk);
  EXPECT_EQ(pipe.TakeAll(), kText);
}

TEST(Reader, ExtractionThatFails) {
  const TempFolder folder;
  OpenZip zip(SmallArchive());
  const std::string path = folder / "out";
  EXPECT_EQ(UnzipItem(zip, 0, Arg(folder / "missing\\out"), 0, kZipFileName), kZipNoFile);
  const unique_file readOnly = OpenForReading(folder.Write("read.only", ""));
  EXPECT_EQ(UnzipItem(zip, 0, readOnly.get(), 0, kZipHandle), kZipWriteError);
  for (const unsigned long kind : {kZipHandle, kZipFileName, kZipMemory})
    for (const int index : {-2, -1, 3})
      EXPECT_EQ(UnzipItem(zip, index, Arg(path), 1, kind), kZipBadArguments);
  EXPECT_EQ(UnzipItem(zip, 0, nullptr, 1, kZipMemory), kZipBadArguments);
  EXPECT_EQ(UnzipItem(zip, 0, nullptr, 0, kZipFileName), kZipBadArguments);
  EXPECT_EQ(UnzipItem(zip, 0, Arg(path), 1, kZipFolder), kZipBadArguments);
  EXPECT_FALSE(folder.Has("out"));
}

// Folders of a relative destination are made below the root folder, the file relative to the
// current one, by design: hosts make the root folder current.
TEST(Reader, FoldersOfDestinations) {
  const struct {
    const char* destination;
    const char* made;  // below the root folder
    const char* file;  // below the current one, where its folder exists
  } cases[] = {
      {"sub\\out", "sub", "sub\\out"}, {"sub/deep\\er/out", "sub\\deep\\er", nullptr},
      {"a/../out", nullptr, "out"},    {"a..\\out", nullptr, nullptr},
      {"plain", nullptr, "plain"},     {"sub/", nullptr, nullptr},
      {"", nullptr, nullptr},
  };
  char previous[MAX_PATH];
  GetCurrentDirectoryA(sizeof previous, previous);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.destination);
    const TempFolder root, current;
    CreateDirectoryA((current / "sub").c_str(), nullptr);
    SetCurrentDirectoryA(current.path().c_str());
    OpenZip zip(SmallArchive(), root.path().c_str());
    const std::string destination = c.destination;
    const bool isNothing = destination.empty() || destination.back() == '/';
    const unsigned long result = UnzipItem(zip, 0, Arg(destination), 0, kZipFileName);
    SetCurrentDirectoryA(previous);
    EXPECT_EQ(result, c.file != nullptr || isNothing ? kZipOk : kZipNoFile);
    EXPECT_TRUE(c.made == nullptr || root.Has(c.made));
    EXPECT_TRUE(c.made != nullptr || std::filesystem::is_empty(root.path()));
    EXPECT_TRUE(c.file == nullptr || current.Read(c.file) == kText);
  }
}

TEST(Reader, AttributesAndTimesComeBack) {
  const TempFolder folder;
  const std::string path = folder.Write("file", kText), copy = folder / "copy";
  const FILETIME modified = FileTimeOf(2021, 7, 3, 11, 22, 35);
  const FILETIME accessed = FileTimeOf(2031, 12, 31, 23, 59, 59);
  SetTimes(path, accessed, modified);
  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
  MemoryZip made;
  EXPECT_EQ(AddFile(made, "file", path), kZipOk);
  OpenZip zip(made.Bytes());
  EXPECT_EQ(UnzipItem(zip, 0, Arg(copy), 0, kZipFileName), kZipOk);
  WIN32_FIND_DATAA found;
  const unique_find search(FindFirstFileA(copy.c_str(), &found));
  ASSERT_TRUE(search);
  EXPECT_TRUE(found.ftLastWriteTime == modified);
  EXPECT_TRUE(found.ftLastAccessTime == accessed);
  EXPECT_EQ(found.dwFileAttributes & FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_READONLY);
}

// Where bytes are handed out, it is not for good, and no good file is lost for them.
TEST(Reader, BadEntriesReplaceNothing) {
  const TempFolder folder;
  const std::string path = folder.Write("out", "keep"), fresh = folder / "fresh";
  hostile::Archive archive;
  archive.entries = {hostile::Deflated("wrong sum", kText), hostile::Stored("stored", kNoise),
                     hostile::Deflated("damaged", kText), hostile::Stored("encrypted", kText),
                     hostile::Stored("good", kNoise)};
  for (const int index : {0, 1}) archive.entries[index].central.crc ^= 1;
  archive.entries[2].data.replace(5, 40, 40, '\xFF');
  archive.entries[3].Both(&hostile::Header::flags, hostile::kEncrypted);
  const struct {
    unsigned long inMemory, inFile;
    std::string bytes;
  } results[] = {{kZipCorrupt, kZipCorrupt, kText},
                 {kZipCorrupt, kZipCorrupt, kNoise},
                 {kZipFlateError, kZipWriteError, ""},
                 {kZipCorrupt, kZipCorrupt, ""},
                 {kZipOk, kZipOk, kNoise}};
  OpenZip zip(archive.Bytes());
  for (int index = 0; index < 5; ++index) {
    SCOPED_TRACE(archive.entries[index].central.name);
    const auto& expected = results[index];
    unsigned long result;
    EXPECT_EQ(Extracted(zip, index, 1000, &result).substr(0, expected.bytes.size()),
              expected.bytes);
    EXPECT_EQ(result, expected.inMemory);
    for (const std::string& destination : {path, fresh})
      EXPECT_EQ(UnzipItem(zip, index, Arg(destination), 0, kZipFileName), expected.inFile);
    EXPECT_EQ(folder.Read("out"), index < 4 ? "keep" : kNoise);
    EXPECT_EQ(folder.Has("fresh"), index == 4);
  }
}

TEST(Reader, OpensFilesHandlesAndMemory) {
  const TempFolder folder;
  std::string copy = SmallArchive();
  const auto size = static_cast<unsigned>(copy.size());
  const std::string path = folder.Write("a.bin", "in front" + copy);
  const unique_file file = OpenForReading(path);
  SetFilePointer(file.get(), 8, nullptr, FILE_BEGIN);
  Pipe pipe;
  const struct {
    const void* source;
    unsigned length;
    unsigned long kind;
    const char* message;
  } cases[] = {
      {file.get(), 0, kZipHandle, "Success"},
      {path.c_str(), 0, kZipFileName, "Success"},  // what is in front counts as a stub
      {copy.data(), size, kZipMemory, "Success"},
      {copy.data(), 20, kZipMemory, "Zipfile is corrupt or not a zipfile"},
      {copy.data(), 0, kZipMemory, "Zipfile is corrupt or not a zipfile"},
      {pipe.readEnd.get(), 0, kZipHandle, "Zip-bug: trying to seek the unseekable"},
      {INVALID_HANDLE_VALUE, 0, kZipHandle, "Culdn't duplicate handle"},
      {"missing", 0, kZipFileName, "Couldn't create/open file"},
      {nullptr, 0, kZipFileName, "Caller: faulty arguments"},
      {nullptr, 10, kZipMemory, "Caller: faulty arguments"},
      {copy.data(), 10, kZipFolder, "Caller: faulty arguments"},
  };
  for (const auto& c : cases) {
    HZIP zip = OpenZipU(c.source, c.length, c.kind, nullptr);
    EXPECT_EQ(MessageU(kZipRecent), c.message);
    EXPECT_EQ(zip != nullptr, MessageU(kZipRecent) == "Success");
    if (zip == nullptr) continue;
    unsigned long result;
    EXPECT_EQ(Extracted(zip, 2, 999, &result), kNoise);
    EXPECT_EQ(CloseZipU(zip), kZipOk);
  }
  EXPECT_EQ(OpenZipU(copy.data(), size, kZipMemory, std::string(260, 'r').c_str()), nullptr);
}

}  // namespace
