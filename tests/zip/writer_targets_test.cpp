// Where archives go and entries come from, and what becomes of an archive when one of them fails.
#include "zip_tools.h"

namespace {

using hostile::Noise;

TEST(Writer, NewArchiveReplacesTheFileAndIsNotShared) {
  const TempFolder folder;
  const std::string path = folder.Write("a.zip", std::string(10'000, 'x'));
  HZIP zip = CreateZipZ(Arg(path), 0, kZipFileName);
  ASSERT_NE(zip, nullptr);
  EXPECT_FALSE(OpenForReading(path));
  EXPECT_EQ(AddText(zip, "a", "bytes"), kZipOk);
  EXPECT_EQ(CloseZipZ(zip), kZipOk);
  EXPECT_EQ(ContentsOf(folder.Read("a.zip")), (Contents{{"a", "bytes"}}));
}

TEST(Writer, ArchiveStartsWhereTheHandleStands) {
  const TempFolder folder;
  const unique_file file = CreateForWriting(folder / "a.bin");
  DWORD written;
  WriteFile(file.get(), "stub", 4, &written, nullptr);
  HZIP zip = CreateZipZ(file.get(), 0, kZipHandle);
  // More than is kept back, so that the first header is patched in the file.
  const std::string noise = Noise(300'000, 1);
  unsigned long position = 0;
  EXPECT_EQ(ZipAdd(zip, "noise", noise.data(), 300'000, kZipMemory, position), kZipOk);
  EXPECT_GT(position, 300'000u);
  EXPECT_EQ(AddText(zip, "b", "bytes"), kZipOk);
  EXPECT_EQ(CloseZipZ(zip), kZipOk);
  // The handle stays the caller's, and stands behind the archive.
  EXPECT_TRUE(WriteFile(file.get(), "tail", 4, &written, nullptr));
  const std::string bytes = folder.Read("a.bin");
  ASSERT_EQ(bytes.substr(0, 8) + bytes.substr(bytes.size() - 4), "stubPK\3\4tail");
  EXPECT_EQ(ContentsOf(bytes.substr(4, bytes.size() - 8)),
            (Contents{{"noise", noise}, {"b", "bytes"}}));
}

TEST(Writer, MemoryOfTheCaller) {
  std::string block(600, '#');
  HZIP zip = CreateZipZ(block.data(), 500, kZipMemory);
  unsigned long before = 0, after = 0, size = 0;
  EXPECT_EQ(ZipAdd(zip, "a", "bytes", 5, kZipMemory, before), kZipOk);
  EXPECT_EQ(ZipAdd(zip, "b", Noise(600, 1).data(), 600, kZipMemory, after), kZipMemoryFull);
  EXPECT_EQ(before, after);
  EXPECT_EQ(AddText(zip, "c", "bytes"), kZipEarlierError);
  void* memory = nullptr;
  EXPECT_EQ(ZipGetMemory(zip, &memory, &size), kZipOk);
  EXPECT_EQ(memory, block.data());
  EXPECT_EQ(CloseZipZ(zip), kZipOk);
  EXPECT_EQ(ContentsOf(block.substr(0, size)), (Contents{{"a", "bytes"}}));
  EXPECT_EQ(block.substr(500), std::string(100, '#'));

  zip = CreateZipZ(block.data(), 60, kZipMemory);
  EXPECT_EQ(AddText(zip, "a", "bytes"), kZipOk) << "fits, but not its directory";
  EXPECT_EQ(ZipGetMemory(zip, nullptr, nullptr), kZipMemoryFull);
  EXPECT_EQ(AddText(zip, "b", "bytes"), kZipEarlierError);
  EXPECT_EQ(CloseZipZ(zip), kZipMemoryFull);
}

TEST(Writer, TargetsThatCanNotBeWritten) {
  const TempFolder folder;
  const unique_file readOnly = OpenForReading(folder.Write("a", ""));
  Pipe closed;
  closed.readEnd.reset();
  for (HANDLE target : {readOnly.get(), closed.writeEnd.get()}) {
    HZIP zip = CreateZipZ(target, 0, kZipHandle);
    EXPECT_EQ(AddText(zip, "a", "bytes"), kZipWriteError);
    EXPECT_EQ(AddText(zip, "b", "bytes"), kZipEarlierError);
    EXPECT_EQ(CloseZipZ(zip), kZipWriteError);
  }
}

TEST(Writer, HandlesAsSources) {
  const TempFolder folder;
  const std::string text(200'000, 't');
  const unique_file file = OpenForReading(folder.Write("a", text));
  SetFilePointer(file.get(), 77, nullptr, FILE_BEGIN);
  MemoryZip zip;
  for (const unsigned length : {0u, 11u}) {  // a file has its own size, and is read from its start
    EXPECT_EQ(ZipAdd(zip, "file", file.get(), length, kZipHandle), kZipOk);
    EXPECT_EQ(ZipAdd(zip, "pipe", Pipe("from a pipe").readEnd.get(), length, kZipHandle), kZipOk);
  }
  EXPECT_EQ(
      ContentsOf(zip.Bytes()),
      (Contents{{"file", text}, {"pipe", "from a pipe"}, {"file", text}, {"pipe", "from a pipe"}}));
}

// A source that gives more or fewer bytes than announced, after some of them were written.
TEST(Writer, FailedEntryIsTakenBack) {
  const TempFolder folder;
  const std::string noise = Noise(400'000, 1);
  const Contents good = {{"before", "bytes"}, {"after", "bytes"}};
  for (const unsigned announced : {399'999u, 400'001u}) {
    HZIP zip = CreateZipZ(Arg(folder / "a.zip"), 0, kZipFileName);
    EXPECT_EQ(AddText(zip, "before", "bytes"), kZipOk);
    EXPECT_EQ(ZipAdd(zip, "noise", Pipe(noise).readEnd.get(), announced, kZipHandle),
              kZipSizeDiffers);
    EXPECT_EQ(AddText(zip, "after", "bytes"), kZipOk);
    EXPECT_EQ(CloseZipZ(zip), kZipOk);
    // Without a gap, and cut where the failed entry reached farther.
    const std::string bytes = folder.Read("a.zip");
    EXPECT_EQ(ContentsOf(bytes), good);
    EXPECT_LT(bytes.size(), 400u);
  }
  Pipe target;
  HZIP zip = CreateZipZ(target.writeEnd.get(), 0, kZipHandle);
  EXPECT_EQ(AddText(zip, "before", "bytes"), kZipOk);
  EXPECT_EQ(ZipAdd(zip, "noise", Pipe(noise).readEnd.get(), 100, kZipHandle), kZipSizeDiffers);
  EXPECT_EQ(AddText(zip, "after", "bytes"), kZipOk);
  EXPECT_EQ(CloseZipZ(zip), kZipOk);
  EXPECT_EQ(ContentsOf(target.TakeAll()), good) << "what a pipe has taken is in no directory";
}

TEST(Writer, SourcesThatFail) {
  const TempFolder folder;
  const std::string locked = folder / "locked", missing = folder / "missing";
  const unique_file writeOnly = CreateForWriting(locked);
  const struct {
    const char* what;
    const char* name;
    const void* source;
    unsigned length;
    unsigned long kind, result;
  } cases[] = {
      {"no name", "", "x", 1, kZipMemory, kZipBadArguments},
      {"null name", nullptr, "x", 1, kZipMemory, kZipBadArguments},
      {"no memory", "a", nullptr, 1, kZipMemory, kZipBadArguments},
      {"empty memory", "a", "x", 0, kZipMemory, kZipBadArguments},
      {"no path", "a", nullptr, 0, kZipFileName, kZipBadArguments},
      {"missing file", "a", missing.c_str(), 0, kZipFileName, kZipNoFile},
      {"file being written", "a", locked.c_str(), 0, kZipFileName, kZipNoFile},
      {"unreadable handle", "a", writeOnly.get(), 0, kZipHandle, kZipReadError},
      {"no handle", "a", INVALID_HANDLE_VALUE, 0, kZipHandle, kZipBadArguments},
      {"no such kind", "a", "x", 1, 5, kZipBadArguments},
  };
  MemoryZip zip;
  for (const auto& c : cases) {
    EXPECT_EQ(ZipAdd(zip, c.name, c.source, c.length, c.kind), c.result) << c.what;
    EXPECT_EQ(MessageZ(kZipRecent), MessageZ(c.result)) << c.what;
  }
  EXPECT_EQ(AddText(zip, "good", "bytes"), kZipOk) << "none of them is an error that sticks";
  EXPECT_EQ(ContentsOf(zip.Bytes()), (Contents{{"good", "bytes"}}));
}

TEST(Writer, TargetsThatFail) {
  const TempFolder folder;
  const std::string inMissing = folder / "missing\\a.zip";
  const struct {
    void* target;
    unsigned length;
    unsigned long kind, result;
  } cases[] = {
      {INVALID_HANDLE_VALUE, 0, kZipHandle, kZipNoDuplicate},
      {nullptr, 0, kZipHandle, kZipNoDuplicate},
      {Arg(inMissing), 0, kZipFileName, kZipNoFile},
      {nullptr, 0, kZipFileName, kZipBadArguments},
      {nullptr, 0, kZipMemory, kZipMemoryFull},
      {nullptr, 0xFFFFFFFF, kZipMemory, kZipNoMemory},
      {nullptr, 100, kZipFolder, kZipBadArguments},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CreateZipZ(c.target, c.length, c.kind), nullptr);
    EXPECT_EQ(MessageZ(kZipRecent), MessageZ(c.result));
  }
}

TEST(Writer, HandlesOfTheOtherKind) {
  MemoryZip made;
  ZIPENTRY entry;
  EXPECT_EQ(GetZipItemA(made, 0, &entry), kZipWrongKind);
  EXPECT_EQ(FindZipItemA(made, "a", false, nullptr, nullptr), kZipWrongKind);
  EXPECT_EQ(UnzipItem(made, 0, &entry, 1, kZipMemory), kZipWrongKind);
  EXPECT_EQ(CloseZipU(made), kZipWrongKind);
  OpenZip reader(made.Bytes());
  EXPECT_EQ(AddText(made, "a", "x"), kZipEnded);
  unsigned long position = 1;
  EXPECT_EQ(ZipAdd(reader, "a", "x", 1, kZipMemory, position), kZipWrongKind);
  EXPECT_EQ(position, 0u);
  EXPECT_EQ(ZipGetMemory(reader, nullptr, nullptr), kZipWrongKind);
  EXPECT_EQ(CloseZipZ(reader), kZipWrongKind);
  EXPECT_TRUE(IsZipHandleZ(nullptr) && IsZipHandleZ(made) && !IsZipHandleZ(reader));
  EXPECT_TRUE(IsZipHandleU(nullptr) && IsZipHandleU(reader) && !IsZipHandleU(made));
  const TempFolder folder;
  HZIP file = CreateZipZ(Arg(folder / "a.zip"), 0, kZipFileName);
  EXPECT_EQ(ZipGetMemory(file, nullptr, nullptr), kZipNotMemory);
  EXPECT_EQ(CloseZipZ(file), kZipOk);

  // The writer and the reader each remember their own last result.
  EXPECT_EQ(AddText(nullptr, "a", "x"), kZipBadArguments);
  EXPECT_EQ(CloseZipZ(nullptr), kZipBadArguments);
  EXPECT_EQ(OpenZipU("missing", 0, kZipFileName, nullptr), nullptr);
  EXPECT_EQ(MessageZ(kZipRecent), "Caller: faulty arguments");
  EXPECT_EQ(MessageU(kZipRecent), "Couldn't create/open file");
  EXPECT_EQ(CloseZipU(nullptr), kZipBadArguments);
}

// Hosts look for these texts, spelled as they are.
TEST(Writer, MessagesOfResults) {
  const struct {
    unsigned long code;
    const char* text;
  } cases[] = {
      {0, "Success"},
      {0x100, "Culdn't duplicate handle"},
      {0x5000000, "Zip-bug: an internal error during flation"},
      {0x900, "unknown zip result code"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(MessageZ(c.code), c.text);
    EXPECT_EQ(MessageU(c.code), c.text);
  }
  char text[8] = "";
  EXPECT_EQ(FormatZipMessageU(0x400, text, 6), 21u) << "the full length";
  EXPECT_STREQ(text, "Error");
  EXPECT_EQ(FormatZipMessageU(0x400, nullptr, 100), 21u);
  EXPECT_EQ(FormatZipMessageZ(0x400, text, 0), 21u);
  EXPECT_STREQ(text, "Error") << "untouched";
}

}  // namespace
