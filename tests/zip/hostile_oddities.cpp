// Archives that look odd and are sound: every entry must come out.
#include <gtest/gtest.h>

#include <algorithm>

#include "hostile_case.h"

namespace hostile {
namespace {

const std::string kStub = "MZ" + Noise(700, 2);

// The offsets of a self-extractor whose maker counted from the start of the file.
void CountFromTheFile(Archive& archive) {
  archive.stub = kStub;
  const Layout layout = archive.LayOut();
  for (size_t i = 0; i < archive.entries.size(); ++i) {
    archive.entries[i].offset = static_cast<uint32_t>(layout.offsets[i]);
  }
  archive.directoryOffset = static_cast<uint32_t>(layout.directory);
}

void ReverseTheDirectory(Archive& archive) {
  const Layout layout = archive.LayOut();
  std::vector<Entry> records = archive.entries;
  for (size_t i = 0; i < records.size(); ++i) {
    records[i].hasLocal = false;
    records[i].offset = static_cast<uint32_t>(layout.offsets[i]);
    archive.entries[i].hasCentral = false;
  }
  archive.entries.insert(archive.entries.end(), records.rbegin(), records.rend());
}

// What archivers write for a file that they read from a pipe: 64-bit sizes in the local header and
// the descriptor, although the central record does without.
Entry WideStreamed() {
  Entry entry = Piped(Deflated("wide.txt", Noise(500, 3) + std::string(500, 'w')));
  entry.local.version = entry.central.version = 45;
  entry.local.compressed = entry.local.uncompressed = 0xFFFFFFFF;
  entry.local.extra = ExtraBlock(1, std::string(16, 0));
  entry.descriptor = "PK\7\10" + U32(entry.central.crc) + U32(entry.central.compressed) + U32(0) +
                     U32(entry.central.uncompressed) + U32(0);
  return entry;
}

// The 64-bit end record and its locator, which some archivers always add.
std::string WideEnd(const Archive& archive) {
  const Layout layout = archive.LayOut();
  const std::string count = U32(static_cast<uint32_t>(archive.entries.size())) + U32(0);
  return "PK\6\6" + U32(44) + U32(0) + U16(45) + U16(45) + U32(0) + U32(0) + count + count +
         U32(static_cast<uint32_t>(layout.end - layout.directory)) + U32(0) +
         U32(static_cast<uint32_t>(layout.directory)) + U32(0) + "PK\6\7" + U32(0) +
         U32(static_cast<uint32_t>(layout.end)) + U32(0) + U32(1);
}

const Case kOddities[] = {
    {"Plain", "gggggg", [](Archive&) {}},
    {"NoEntries", "", [](Archive& a) { a.entries.clear(); }},
    {"StubInFront", "gggggg", [](Archive& a) { a.stub = kStub; }},
    {"StubInFrontCountedInOffsets", "gggggg", CountFromTheFile},
    {"ArchiveInFront", "ggg",
     [](Archive& a) {
       a.stub = a.Bytes();
       a.entries.resize(3);
     }},
    {"StrayBytesBetweenEntries", "gggggg",
     [](Archive& a) {
       for (Entry& entry : a.entries) entry.before = "stray";
     }},
    {"StrayBytesBeforeDirectory", "gggggg",
     [](Archive& a) { a.beforeDirectory = std::string(5000, '-'); }},
    {"SignatureInDirectory", "gggggg",
     [](Archive& a) { a.insideDirectory = "PK\5\5" + U16(6) + "signed"; }},
    {"WideEndRecordBeforeEndRecord", "gggggg", [](Archive& a) { a.beforeEnd = WideEnd(a); }},
    {"WideStreamedEntry", "ggggggg", [](Archive& a) { a.entries.push_back(WideStreamed()); }},
    {"RemovedEntryLeftInPlace", "ggggg", [](Archive& a) { a.entries[kInner].hasCentral = false; }},
    {"DirectoryInAnotherOrder", "gggggg", ReverseTheDirectory},
    {"DescriptorWithoutSignature", "gggggg",
     [](Archive& a) { a.entries[kStreamed] = Piped(Deflated("streamed.txt", "streamed"), false); }},
    {"DescriptorBehindStoredData", "gggggg",
     [](Archive& a) { a.entries[kNoise] = Piped(a.entries[kNoise]); }},
    {"CommentsAndExtraFields", "gggggg",
     [](Archive& a) {
       for (Entry& entry : a.entries) {
         entry.local.extra = ExtraBlock(0x6375, Noise(3000, 4));
         entry.central.extra = ExtraBlock(0x000A, Noise(32, 5));
         entry.comment = "a remark";
       }
     }},
    {"LongestComment", "gggggg", [](Archive& a) { a.comment = std::string(65513, 'c'); }},
    {"CommentWithEndSignatureAtItsEnd", "gggggg", [](Archive& a) { a.comment = "see PK\5\6"; }},
    // The search goes backwards in blocks of 1028 bytes: the record across the border of two.
    {"EndRecordAcrossSearchBlocks", "gggggg", [](Archive& a) { a.comment.assign(1028 - 20, 'c'); }},
    {"LineEndBehindEndRecord", "gggggg", [](Archive& a) { a.behind = "\r\n"; }},
    {"OtherFlagsAndVersions", "gggggg",
     [](Archive& a) {
       for (Entry& entry : a.entries) {
         for (Header* header : {&entry.local, &entry.central}) {
           header->flags |= 0x0806;  // UTF-8 name, best compression
           header->version = 63;
         }
         entry.madeBy = 0x033F;
         entry.external = 0x81A40000;
       }
       a.entries[kFolder].external = 0x41ED0010;
     }},
    {"NameOf259Characters", "ggggggg",
     [](Archive& a) { a.entries.push_back(Stored(std::string(259, 'n'), "long name")); }},
    {"NameOf65535Characters", "ggggggg",
     [](Archive& a) { a.entries.push_back(Deflated(std::string(65535, 'n'), "longest name")); }},
    {"BombOf1000To1", "ggggggg",
     [](Archive& a) { a.entries.push_back(Deflated("zeros", std::string(10'000'000, 0))); }},
};

class ZipOddity : public testing::TestWithParam<Case> {};

TEST_P(ZipOddity, IsAccepted) { Check(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Sound, ZipOddity, testing::ValuesIn(kOddities), NameOf);

}  // namespace
}  // namespace hostile
