// Entries that share bytes of the archive: each of them is refused before anything is inflated,
// since a small archive of such entries can stand for any number of bytes.
#include <gtest/gtest.h>

#include "hostile_reader.h"

namespace hostile {
namespace {

// Adds a record for an entry that stands in the archive already, inside something else.
void Reveal(Archive& archive, Entry entry) {
  entry.offset = static_cast<uint32_t>(archive.LayOut().bytes.find(LocalPart(entry)));
  entry.hasLocal = false;
  archive.entries.push_back(entry);
}

void ShareALocalHeader(Archive& archive) {
  Entry second = archive.entries[kText];
  second.central.name = "second.txt";
  Reveal(archive, second);
}

// An entry inside another one's data, behind an extra field of so many bytes.
void QuoteAnEntryInData(Archive& archive, size_t extra) {
  const Entry inner = Deflated("quoted.txt", std::string(5000, 'q'));
  Entry outer = Stored("outer.bin", Noise(50, 8) + LocalPart(inner) + Noise(50, 9));
  outer.local.extra = ExtraBlock(0x6375, Noise(extra, 18));
  archive.entries.push_back(outer);
  Reveal(archive, inner);
}

// An entry inside an extra field of another one with one byte of data: its sizes alone don't tell
// how far it reaches.
void HideAnEntryInAnExtraField(Archive& archive, size_t before) {
  const Entry hidden = Stored("hidden.txt", "hidden in an extra field");
  Entry host = Stored("host.txt", "x");
  host.local.extra = ExtraBlock(0x6375, Noise(before, 14) + LocalPart(hidden) + Noise(100, 15));
  archive.entries.push_back(host);
  Reveal(archive, hidden);
}

void HideAnEntryInTheDirectory(Archive& archive) {
  const Entry hidden = Stored("hidden.txt", "hidden in the directory");
  archive.entries[kText].comment = LocalPart(hidden);
  Reveal(archive, hidden);
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

const Case kOverlaps[] = {
    {"SameLocalHeader", "cgggggc", ShareALocalHeader},
    {"QuotedInData", "ggggggcc", [](Archive& a) { QuoteAnEntryInData(a, 0); }},
    {"QuotedBehindLongExtraField", "ggggggcc", [](Archive& a) { QuoteAnEntryInData(a, 60'000); }},
    {"InExtraField", "ggggggcc", [](Archive& a) { HideAnEntryInAnExtraField(a, 0); }},
    {"InLongExtraField", "ggggggcc", [](Archive& a) { HideAnEntryInAnExtraField(a, 40'000); }},
    {"InDirectory", "ggggggc", HideAnEntryInTheDirectory},
    {"DataOverNextHeader", "gc.ggg", [](Archive& a) { StretchOver(a, kNoise, 10); }},
    {"DataOverDirectory", "ggggggc",
     [](Archive& a) {
       a.entries.push_back(Stored("over.bin", Noise(20, 12)));
       StretchOver(a, 6, 10);
     }},
};

class ZipOverlap : public testing::TestWithParam<Case> {};

TEST_P(ZipOverlap, IsRefused) { Check(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Entries, ZipOverlap, testing::ValuesIn(kOverlaps), NameOf);

}  // namespace
}  // namespace hostile
