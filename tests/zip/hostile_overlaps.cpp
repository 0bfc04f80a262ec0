// Entries that share bytes of the archive: each of them is refused before anything is inflated,
// since a small archive of such entries can stand for any number of bytes.
#include <gtest/gtest.h>

#include "hostile_case.h"

namespace hostile {
namespace {

// A record for an entry that has its local header at an offset inside something else.
Entry Ghost(const Entry& entry, size_t offset) {
  Entry ghost = entry;
  ghost.hasLocal = false;
  ghost.offset = static_cast<uint32_t>(offset);
  return ghost;
}

void ShareALocalHeader(Archive& archive, const std::string& secondName) {
  Entry second = archive.entries[kText];
  second.central.name = secondName;
  archive.entries.push_back(Ghost(second, archive.LayOut().offsets[kText]));
}

void QuoteAnEntryInData(Archive& archive) {
  const Entry inner = Deflated("quoted.txt", std::string(5000, 'q'));
  const Entry outer = Stored("outer.bin", Noise(50, 8) + LocalPart(inner) + Noise(50, 9));
  archive.entries.push_back(outer);
  const size_t data = archive.LayOut().offsets.back() + kLocalSize + outer.local.name.size();
  archive.entries.push_back(Ghost(inner, data + 50));
}

// Each entry's data begin with a stored deflate block that quotes the next one's local header and
// go on with its data: all but the last hold the same megabytes over and over.
void QuoteHeadersInAChain(Archive& archive) {
  constexpr int kEntries = 20;
  const std::string zeros(1'000'000, 0);
  std::vector<Entry> chain = {Deflated("kernel", zeros)};
  while (chain.size() < kEntries) {
    const Entry& next = chain.front();
    const std::string header = LocalPart(next).substr(0, kLocalSize + next.local.name.size());
    const auto length = static_cast<uint16_t>(header.size());
    Entry entry = Deflated("link" + std::to_string(chain.size()), header + next.plain);
    entry.data = std::string(1, 0) + U16(length) + U16(~length) + header + next.data;
    entry.Both(&Header::compressed, entry.data.size());
    chain.insert(chain.begin(), entry);
  }
  archive.entries = {chain[0]};
  size_t offset = 0;
  for (size_t i = 1; i < chain.size(); ++i) {
    offset += kLocalSize + chain[i - 1].local.name.size() + 5;
    archive.entries.push_back(Ghost(chain[i], offset));
  }
}

void HideAnEntryInAnExtraField(Archive& archive) {
  const Entry hidden = Stored("hidden.txt", "hidden in an extra field");
  archive.entries[kText].local.extra = ExtraBlock(0x6375, LocalPart(hidden));
  archive.entries.push_back(
      Ghost(hidden, kLocalSize + archive.entries[kText].local.name.size() + 4));
}

void HideAnEntryInTheDirectory(Archive& archive) {
  const Entry hidden = Stored("hidden.txt", "hidden in the directory");
  archive.entries[kText].comment = LocalPart(hidden);
  const size_t record = archive.LayOut().directory;
  archive.entries.push_back(
      Ghost(hidden, record + kCentralSize + archive.entries[kText].central.name.size()));
}

void HideAnEntryInTheComment(Archive& archive) {
  const Entry hidden = Stored("hidden.txt", "hidden in the comment");
  archive.entries.push_back(hidden);
  archive.entries.back().hasLocal = false;
  archive.comment = LocalPart(hidden);
  archive.entries.back().offset = static_cast<uint32_t>(archive.LayOut().end + kEndSize);
}

// Stored data that go on over what follows them, with the CRC of just those bytes.
void StretchOver(Archive& archive, size_t index, uint32_t more) {
  Entry& entry = archive.entries[index];
  const Layout layout = archive.LayOut();
  const size_t data = layout.offsets[index] + kLocalSize + entry.local.name.size();
  entry.plain = layout.bytes.substr(data, entry.data.size() + more);
  entry.Both(&Header::crc, Crc(entry.plain));
  entry.Both(&Header::compressed, entry.plain.size());
  entry.Both(&Header::uncompressed, entry.plain.size());
}

// The second begins within the first's data and ends behind them.
void Interlock(Archive& archive) {
  const Entry second = Stored("second.bin", Noise(200, 10));
  const std::string part = LocalPart(second);
  const Entry first = Stored("first.bin", Noise(100, 11) + part.substr(0, 120));
  archive.entries.push_back(first);
  const size_t data = archive.LayOut().offsets.back() + kLocalSize + first.local.name.size();
  archive.entries.push_back(Ghost(second, data + 100));
  archive.entries.back().before = part.substr(120);
}

// The data of the second would begin inside the first's local header: its own local header stands
// before that.
void BeginInsideAHeader(Archive& archive) {
  Entry first = Stored("first.bin", "a first file");
  Entry second = Stored("second.bin", LocalPart(first));
  second.local.extraLength = 0;
  archive.entries.push_back(second);
  const size_t data = archive.LayOut().offsets.back() + kLocalSize + second.local.name.size();
  archive.entries.push_back(Ghost(first, data));
}

const Case kOverlaps[] = {
    {"SameLocalHeader", "cgggggc", [](Archive& a) { ShareALocalHeader(a, "second.txt"); }},
    {"SameLocalHeaderAndName", "cgggggc", [](Archive& a) { ShareALocalHeader(a, "text.txt"); }},
    {"LocalHeaderQuotedInData", "ggggggcc", QuoteAnEntryInData},
    {"LocalHeadersQuotedInAChain", "cccccccccccccccccccc", QuoteHeadersInAChain},
    {"LocalHeaderInExtraField", "cgggggc", HideAnEntryInAnExtraField},
    {"LocalHeaderInDirectory", "ggggggc", HideAnEntryInTheDirectory},
    {"LocalHeaderInArchiveComment", "gggggg.", HideAnEntryInTheComment},
    {"LocalHeaderAtStartOfData", "ggggggcc", BeginInsideAHeader},
    {"DataOverNextHeader", "gc.ggg", [](Archive& a) { StretchOver(a, kNoise, 10); }},
    {"DataOverNextEntries", "gc.c.g",
     [](Archive& a) {
       const Layout layout = a.LayOut();
       StretchOver(a, kNoise, static_cast<uint32_t>(layout.offsets[5] - layout.offsets[2] - 10));
     }},
    {"DataOverDirectory", "ggggggc",
     [](Archive& a) {
       a.entries.push_back(Stored("over.bin", Noise(20, 12)));
       StretchOver(a, 6, 10);
     }},
    {"Interlocked", "ggggggcc", Interlock},
};

class ZipOverlap : public testing::TestWithParam<Case> {};

TEST_P(ZipOverlap, IsRefused) { Check(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Entries, ZipOverlap, testing::ValuesIn(kOverlaps), NameOf);

}  // namespace
}  // namespace hostile
