// Archives that look odd and are sound, and archives with one defect each, outside their entries'
// overlaps: end records, directories, local headers, extra fields, sizes and data that lie.
#include <gtest/gtest.h>

#include <algorithm>

#include "hostile_reader.h"

namespace hostile {
namespace {

constexpr uint16_t kTimeStamps = 0x5455;  // "UT"

// An end record of an archive of nothing.
const std::string kEmptyEnd = "PK\5\6" + std::string(18, 0);

// Gives an entry other deflate data, without another change.
void ReplaceData(Entry& entry, const std::string& data) {
  entry.data = data;
  entry.Both(&Header::compressed, data.size());
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

// Archives that look odd and are sound.
const Case kOddities[] = {
    {"Plain", "gggggg", [](Archive&) {}},
    {"NoEntries", "", [](Archive& a) { a.entries.clear(); }},
    {"StubInFront", "gggggg", [](Archive& a) { a.stub = "MZ" + Noise(700, 2); }},
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
    {"RemovedEntryLeftInPlace", "ggggg", [](Archive& a) { a[kInner].hasCentral = false; }},
    {"DirectoryInAnotherOrder", "gggggg", ReverseTheDirectory},
    {"DescriptorBehindStoredData", "gggggg", [](Archive& a) { a[kNoise] = Piped(a[kNoise]); }},
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
    {"NameOf65535Characters", "ggggggg",
     [](Archive& a) { a.entries.push_back(Deflated(std::string(65535, 'n'), "longest name")); }},
    {"BombOf1000To1", "ggggggg",
     [](Archive& a) { a.entries.push_back(Deflated("zeros", std::string(10'000'000, 0))); }},
};

const Case kDefects[] = {
    // End records.
    {"Comment", "gggggg", [](Archive& a) { a.comment = kEmptyEnd + "more comment"; }},
    {"CountTooHigh", "gggggg.", [](Archive& a) { a.count = 7; }},
    {"CountTooLow", "ggggg", [](Archive& a) { a.count = 5; }},
    {"CommentLengthTooShort", "gggggg",
     [](Archive& a) {
       a.comment = "a comment";
       a.commentLength = 0;
     }},
    {"EndSignatureBroken", "refused", [](Archive& a) { a.endSignature ^= 0x01000000; }},
    {"SecondDisk", "refused", [](Archive& a) { a.disk = 1; }},
    {"MarkedFor64Bits", "refused",
     [](Archive& a) {
       a.count = 0xFFFF;
       a.directorySize = a.directoryOffset = 0xFFFFFFFF;
     }},

    // Directories.
    {"LastSignatureBroken", "ggggg.", [](Archive& a) { a[5].central.signature ^= 0x00010000; }},
    {"NameEmpty", "gggggg.", [](Archive& a) { a.entries.push_back(Stored("", "nameless")); }},
    {"NameWithZero", "gggggg.",
     [](Archive& a) { a.entries.push_back(Stored(std::string("a\0b", 3), "zero")); }},
    {"NameTwice", "gggggg.", [](Archive& a) { a.entries.push_back(Stored("text.txt", "again")); }},
    {"RecordOnSecondDisk", "gcgggg", [](Archive& a) { a[kNoise].disk = 1; }},
    {"OffsetPastEnd", "gcgggg", [](Archive& a) { a[kNoise].offset = 0x7FFFFFFF; }},
    {"OffsetMarkedFor64Bits", "gcgggg", [](Archive& a) { a[kNoise].offset = 0xFFFFFFFF; }},

    // Local headers.
    {"LocalHeaderMissing", "gcgggg",
     [](Archive& a) {
       a[kNoise].hasLocal = false;
       a[kFolder].before = Noise(400, 13);
     }},
    {"LocalSignatureBroken", "gcgggg", [](Archive& a) { a[kNoise].local.signature ^= 0x00010000; }},
    {"NameRunsPastEnd", "gggggc", [](Archive& a) { a[5].local.nameLength = 65535; }},
    {"ExtraRunsPastEnd", "gggggc", [](Archive& a) { a[5].local.extraLength = 65535; }},
    {"ExtraRunsIntoData", "gc.ggg", [](Archive& a) { a[kNoise].local.extraLength = 9; }},

    // Extra fields, and what is not done.
    {"NoFlagsAtEndOfArchive", "g",
     [](Archive& a) {
       a.entries = {Stored("empty", "")};
       a[0].local.extra = ExtraBlock(kTimeStamps, "");
     }},

    {"Sizes64Bit", "cggggg",
     [](Archive& a) {
       Entry& entry = a[kText];
       const std::string sizes =
           U32(entry.local.uncompressed) + U32(0) + U32(entry.local.compressed) + U32(0);
       entry.Both(&Header::extra, ExtraBlock(1, sizes));
       entry.Both(&Header::compressed, 0xFFFFFFFF);
       entry.Both(&Header::uncompressed, 0xFFFFFFFF);
     }},

    // Sizes and sums.
    {"CrcWrongEmpty", "ggggcg", [](Archive& a) { a[kEmpty].Both(&Header::crc, 1); }},
    {"UncompressedTooSmall", "eggggg",
     [](Archive& a) { a[kText].Both(&Header::uncompressed, 100); }},
    {"UncompressedTooLarge", "eggggg",
     [](Archive& a) { a[kText].Both(&Header::uncompressed, 5000); }},
    {"UncompressedZero", "cggggg", [](Archive& a) { a[kText].Both(&Header::uncompressed, 0); }},
    {"CompressedTooLarge", ".ggggg",
     [](Archive& a) {
       a[kText].Both(&Header::compressed, a[kText].data.size() + 20);
       a[kNoise].before = std::string(20, 'x');
     }},
    {"CompressedPastEnd", "gggggc",
     [](Archive& a) { a[kStreamed].Both(&Header::compressed, 0x7FFFFFFF); }},
    {"StoredAnnouncesLess", "gcgggg",
     [](Archive& a) { a[kNoise].Both(&Header::uncompressed, 200); }},
    {"FolderWithData", "gg.ggg",
     [](Archive& a) {
       a[kFolder] = Stored("folder/", "data of a folder");
       a[kFolder].external = 0x41C00010;
     }},

    // Deflated data.
    {"ReservedBlockType", "dggggg",
     [](Archive& a) { ReplaceData(a[kText], std::string(50, '\xFF')); }},
    // A block of fixed codes whose first symbol copies from before the first byte.
    {"DistanceTooFar", "dggggg",
     [](Archive& a) { ReplaceData(a[kText], std::string("\3\2\0\0", 4)); }},
    {"NoFinalBlock", "dggggg",
     [](Archive& a) { ReplaceData(a[kText], std::string("\0\5\0\xFA\xFFhello", 10)); }},
    {"BrokenInTheMiddle", "eggggg",
     [](Archive& a) {
       std::string data = Deflate(Noise(100'000, 7));
       data.replace(50'000, 1000, 1000, '\xFF');
       a[kText] = Deflated("text.txt", Noise(100'000, 7));
       ReplaceData(a[kText], data);
     }},
};

class ZipCase : public testing::TestWithParam<Case> {};

TEST_P(ZipCase, IsAnswered) { Check(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Sound, ZipCase, testing::ValuesIn(kOddities), NameOf);
INSTANTIATE_TEST_SUITE_P(Broken, ZipCase, testing::ValuesIn(kDefects), NameOf);

}  // namespace
}  // namespace hostile
