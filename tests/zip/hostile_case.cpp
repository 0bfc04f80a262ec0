#include "hostile_case.h"

#include <algorithm>
#include <ostream>

#include "hostile_reader.h"

namespace hostile {
namespace {

constexpr size_t kNameKept = MAX_PATH - 1;

void CheckEntry(const Entry& entry, const EntryOutcome& outcome, char expected) {
  const bool failed = outcome.memory != kZipOk && (outcome.file != kZipOk || outcome.folder);
  switch (expected) {
    case 'g':
      EXPECT_EQ(outcome.look, kZipOk);
      EXPECT_TRUE(outcome.found || entry.central.name.size() > kNameKept);
      EXPECT_EQ(outcome.memory, kZipOk);
      EXPECT_EQ(outcome.file, kZipOk);
      EXPECT_EQ(outcome.bytes, DigestOf(entry.plain)) << outcome.bytes.size << " bytes";
      break;
    case 'c':
      EXPECT_EQ(outcome.memory, kZipCorrupt);
      EXPECT_EQ(outcome.bytes.size, 0u);
      break;
    case 'e':
      EXPECT_EQ(outcome.memory, kZipCorrupt);
      break;
    case 'd':
      EXPECT_EQ(outcome.memory, kZipFlateError);
      EXPECT_EQ(outcome.file, kZipWriteError);
      break;
    case 'f':
      EXPECT_TRUE(failed) << std::hex << "0x" << outcome.memory << " and 0x" << outcome.file;
      break;
    default:
      break;
  }
}

void CheckOutcome(const Archive& archive, const Outcome& outcome, std::string expected) {
  ExpectNothingMadeUp(archive, outcome);
  const bool mayBeRefused = expected[0] == '~';
  if (mayBeRefused) expected.erase(0, 1);
  if (mayBeRefused && !outcome.opened) return;
  ASSERT_EQ(outcome.opened, expected != "refused");
  if (!outcome.opened) return;
  ASSERT_EQ(static_cast<size_t>(outcome.count), expected.size());
  size_t index = 0;
  for (const Entry& entry : archive.entries) {
    if (!entry.hasCentral || index == outcome.entries.size()) continue;
    SCOPED_TRACE(testing::Message()
                 << "entry " << index << ": " << entry.central.name.substr(0, 80));
    CheckEntry(entry, outcome.entries[index], expected[index]);
    ++index;
  }
}

}  // namespace

std::string NameOf(const testing::TestParamInfo<Case>& info) { return info.param.name; }

void PrintTo(const Case& hostileCase, std::ostream* stream) { *stream << hostileCase.name; }

void Check(const Case& hostileCase) {
  Archive archive = GoodArchive();
  hostileCase.change(archive);
  const std::string bytes = archive.Bytes();
  const TempFolder folder;
  for (const ZipKind source : {kZipMemory, kZipFileName, kZipHandle}) {
    SCOPED_TRACE(testing::Message() << "source " << source);
    CheckOutcome(archive, ReadEverything(bytes, source, folder), hostileCase.expected);
  }
}

}  // namespace hostile
