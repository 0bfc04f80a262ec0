#include "hostile_case.h"

#include <algorithm>
#include <ostream>

#include "hostile_reader.h"

namespace hostile {
namespace {

// The first trace makes blocks and handles that gtest keeps: not while a test's are counted.
class FirstTrace : public testing::Environment {
  void SetUp() override { SCOPED_TRACE(""); }
};
[[maybe_unused]] const auto* const kFirstTrace = testing::AddGlobalTestEnvironment(new FirstTrace);

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

// Nothing is extracted as good but what went into the archive.
void CheckNothingMadeUp(const Archive& archive, const Outcome& outcome) {
  for (size_t i = 0; i < outcome.entries.size(); ++i) {
    if (outcome.entries[i].memory != kZipOk) continue;
    const bool known = std::any_of(
        archive.entries.begin(), archive.entries.end(),
        [&](const Entry& entry) { return DigestOf(entry.plain) == outcome.entries[i].bytes; });
    EXPECT_TRUE(known) << "entry " << i << " is extracted as good, with wrong bytes";
  }
}

void CheckOutcome(const Archive& archive, const Outcome& outcome, std::string expected) {
  EXPECT_EQ(outcome.problem, "");
  CheckNothingMadeUp(archive, outcome);
  EXPECT_EQ(outcome.message, outcome.opened ? "" : "Zipfile is corrupt or not a zipfile");
  if (expected == "any") return;
  if (expected == "refused") {
    EXPECT_FALSE(outcome.opened);
    return;
  }
  const bool mayBeRefused = expected[0] == '~';
  if (mayBeRefused) expected.erase(0, 1);
  if (mayBeRefused && !outcome.opened) return;
  ASSERT_TRUE(outcome.opened) << outcome.message;
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
    SCOPED_TRACE(source == kZipMemory     ? "from memory"
                 : source == kZipFileName ? "by file name"
                                          : "by handle");
    CheckOutcome(archive, ReadEverything(bytes, source, folder), hostileCase.expected);
  }
}

}  // namespace hostile
