// What a zip archive can't hold is refused, and the archive made so far stays good.
#include "zip_tools.h"

#include <winioctl.h>

namespace {

constexpr uint64_t k4GiB = 1ull << 32;

// A file of zeros that takes no room on the disk.
unique_file SparseFile(const std::string& path, uint64_t size) {
  unique_file file = CreateForWriting(path, GENERIC_READ | GENERIC_WRITE);
  DWORD got = 0;
  DeviceIoControl(file.get(), FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &got, nullptr);
  LARGE_INTEGER end;
  end.QuadPart = static_cast<LONGLONG>(size);
  EXPECT_TRUE(SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN));
  EXPECT_TRUE(SetEndOfFile(file.get()));
  return file;
}

TEST(WriterLimits, EntryCount) {
  MemoryZip zip(16 << 20);
  for (int i = 0; i < 65535; ++i)
    ASSERT_EQ(ZipAdd(zip, std::to_string(i).c_str(), nullptr, 0, kZipFolder), kZipOk);
  EXPECT_EQ(ZipAdd(zip, "one more", nullptr, 0, kZipFolder), kZipBadArguments);
  OpenZip reader(zip.Bytes());
  ZIPENTRY entry;
  ASSERT_EQ(GetZipItemA(reader, -1, &entry), kZipOk);
  EXPECT_EQ(entry.index, 65535);
  EXPECT_EQ(FindZipItemA(reader, "65534/", false, nullptr, &entry), kZipOk);
  EXPECT_EQ(entry.index, 65534);
}

TEST(WriterLimits, NameLength) {
  MemoryZip zip;
  const std::string longest(65535, 'n');
  EXPECT_EQ(AddText(zip, longest + "n", "x"), kZipBadArguments);
  EXPECT_EQ(ZipAdd(zip, longest.c_str(), nullptr, 0, kZipFolder), kZipBadArguments) << "the slash";
  EXPECT_EQ(AddText(zip, longest, "x"), kZipOk);
  OpenZip reader(zip.Bytes());
  EXPECT_EQ(FindZipItemA(reader, longest.c_str(), false, nullptr, nullptr), kZipOk);
}

// None of these is read: they are refused by their size, with nothing written.
TEST(WriterLimits, SizesThatCanNotFit) {
  const TempFolder folder;
  const struct {
    const char* name;
    uint64_t size;
    bool toPipe;
  } cases[] = {
      {"deflated of 4 GiB", k4GiB, false},
      {"far more", k4GiB * 3, false},
      {"headers no longer fit.zip", k4GiB - 100, false},
      {"deflated to a pipe, at worst", k4GiB - 100'000, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const unique_file source = SparseFile(folder / "sparse", c.size);
    Pipe pipe;
    HZIP zip = c.toPipe ? CreateZipZ(pipe.writeEnd.get(), 0, kZipHandle)
                        : CreateZipZ(Arg(folder / "a.zip"), 0, kZipFileName);
    unsigned long before = 0, after = 0;
    EXPECT_EQ(ZipAdd(zip, "small", "x", 1, kZipMemory, before), kZipOk);
    EXPECT_EQ(ZipAdd(zip, c.name, source.get(), 0, kZipHandle, after), kZipBadArguments);
    EXPECT_EQ(before, after);
    EXPECT_EQ(CloseZipZ(zip), kZipOk);
    const std::string bytes = c.toPipe ? pipe.TakeAll() : folder.Read("a.zip");
    EXPECT_EQ(ContentsOf(bytes), (Contents{{"small", "x"}}));
  }
}

}  // namespace
