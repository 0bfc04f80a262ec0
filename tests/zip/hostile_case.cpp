#include "hostile_case.h"

#include <algorithm>
#include <ostream>

#include "hostile_reader.h"

namespace hostile {
namespace {

// As in Case::expected; "?" for what nothing expects.
char LetterOf(const Entry& entry, const EntryOutcome& outcome) {
  if (outcome.memory == kZipFlateError) return 'd';
  if (outcome.memory == kZipCorrupt) return outcome.bytes.size == 0 ? 'c' : 'e';
  const bool isCut = entry.central.name.size() >= MAX_PATH;
  const bool isGood = outcome.look == kZipOk && (outcome.found || isCut) &&
                      outcome.file == kZipOk && outcome.bytes == DigestOf(entry.plain);
  return isGood ? 'g' : '?';
}

void CheckOutcome(const Archive& archive, const Outcome& outcome, std::string expected) {
  ExpectNothingMadeUp(archive, outcome);
  const bool mayBeRefused = expected[0] == '~';
  if (mayBeRefused) expected.erase(0, 1);
  if (mayBeRefused && !outcome.opened) return;
  ASSERT_EQ(outcome.opened, expected != "refused");
  if (!outcome.opened) return;
  EXPECT_EQ(static_cast<size_t>(outcome.count), expected.size());
  std::string letters;
  for (const Entry& entry : archive.entries) {
    if (!entry.hasCentral || letters.size() >= outcome.entries.size()) continue;
    const bool isOpen = expected[letters.size()] == '.';
    letters += isOpen ? '.' : LetterOf(entry, outcome.entries[letters.size()]);
  }
  EXPECT_EQ(letters, expected.substr(0, letters.size()));
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
