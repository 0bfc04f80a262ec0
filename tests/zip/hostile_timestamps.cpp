// The extended time stamp in an entry's local extra field, whole and broken: each of the three
// times is the stamp's when it is there, and the DOS time otherwise.
#include "zip_tools.h"

namespace {

using namespace hostile;

constexpr uint16_t kStamp = 0x5455;  // "UT"
constexpr uint32_t kFirst = 1'000'000'001, kSecond = 1'100'000'002, kThird = 1'200'000'003;
constexpr uint32_t kDos = 1;  // stands for the DOS time

const std::string kThree = U32(kFirst) + U32(kSecond) + U32(kThird);

const struct {
  const char* name;
  std::string extra;
  uint32_t modified, accessed, created;
} kCases[] = {
    {"all", ExtraBlock(kStamp, "\7" + kThree), kFirst, kSecond, kThird},
    {"modified only", ExtraBlock(kStamp, "\1" + kThree), kFirst, kDos, kDos},
    {"accessed only", ExtraBlock(kStamp, "\2" + kThree), kDos, kFirst, kDos},
    {"created only", ExtraBlock(kStamp, "\4" + kThree), kDos, kDos, kFirst},
    {"modified and created", ExtraBlock(kStamp, "\5" + kThree), kFirst, kDos, kSecond},
    {"none", ExtraBlock(kStamp, std::string(1, 0) + kThree), kDos, kDos, kDos},
    {"before 1970", ExtraBlock(kStamp, "\1" + U32(0xFFFFFF9C)), 0xFFFFFF9C, kDos, kDos},
    {"behind other blocks",
     ExtraBlock(9, "other") + ExtraBlock(8, "") + ExtraBlock(kStamp, "\1" + kThree), kFirst, kDos,
     kDos},
    {"twice", ExtraBlock(kStamp, "\1" + U32(kFirst)) + ExtraBlock(kStamp, "\7" + kThree), kFirst,
     kDos, kDos},
    {"a time short", ExtraBlock(kStamp, "\7" + kThree.substr(0, 8)), kFirst, kSecond, kDos},
    {"half a time short", ExtraBlock(kStamp, "\7" + kThree.substr(0, 6)), kFirst, kDos, kDos},
    {"no times", ExtraBlock(kStamp, "\7"), kDos, kDos, kDos},
    {"no flags", ExtraBlock(kStamp, ""), kDos, kDos, kDos},
    {"length past the field", U16(kStamp) + U16(255) + "\7" + U32(kFirst), kFirst, kDos, kDos},
    {"another block's length past the field", U16(9) + U16(200) + ExtraBlock(kStamp, "\7" + kThree),
     kDos, kDos, kDos},
    {"cut in its length", U16(kStamp) + "\15", kDos, kDos, kDos},
};

TEST(ZipTimeStamps, EachTimeHasItsFlag) {
  Archive archive;
  archive.entries = {Stored("without", "w")};
  for (const auto& stamp : kCases) {
    archive.entries.push_back(Stored(stamp.name, "w"));
    archive.entries.back().local.extra = stamp.extra;
    // The directory's stamp says nothing.
    archive.entries.back().central.extra = ExtraBlock(kStamp, "\1" + U32(7));
  }
  const OpenZip zip(archive.Bytes());
  ZIPENTRY without = {}, entry = {};
  EXPECT_EQ(GetZipItemA(zip, 0, &without), kZipOk);
  const auto timeOf = [&](uint32_t seconds) {
    return seconds == kDos ? without.mtime : FileTimeOf(seconds);
  };
  int index = 0;
  for (const auto& stamp : kCases) {
    EXPECT_EQ(GetZipItemA(zip, ++index, &entry), kZipOk);
    EXPECT_TRUE(entry.mtime == timeOf(stamp.modified) && entry.atime == timeOf(stamp.accessed) &&
                entry.ctime == timeOf(stamp.created))
        << stamp.name;
  }
}

}  // namespace
