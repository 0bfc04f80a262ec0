#include "hostile_reader.h"

#include <afxwin.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <ostream>

#include "support/Allocations.h"
#include "zip_tools.h"

namespace hostile {
namespace {

constexpr int kVisited = 100;            // entries looked at; an end record can announce 65,535
constexpr unsigned kMaxStep = 4099;      // bytes asked for at a time: odd, above a page
constexpr uint64_t kMostPerByte = 1032;  // what one byte of deflate data can hold
constexpr uint64_t kSlack = 1024;
constexpr size_t kMemoryPerByte = 4;         // allocated per byte of the archive,
constexpr size_t kMemoryFixed = 512 * 1024;  // and whatever the archive is
const std::string kInFront = "other bytes of the file";

void Add(Digest* digest, const unsigned char* bytes, uint32_t size) {
  digest->crc = crc32(digest->crc, bytes, size);
  digest->size += size;
}

Digest DigestOf(const std::string& bytes) {
  Digest digest;
  Add(&digest, reinterpret_cast<const unsigned char*>(bytes.data()),
      static_cast<uint32_t>(bytes.size()));
  return digest;
}

void ExpectOneOf(unsigned long code, std::initializer_list<unsigned long> codes, int index) {
  EXPECT_NE(std::find(codes.begin(), codes.end(), code), codes.end())
      << std::hex << "0x" << code << std::dec << " for entry " << index;
}

class Reading {
 public:
  Reading(const std::string& archive, ZipKind source, const TempFolder& folder)
      : m_size(archive.size()),
        m_output(folder / "output"),
        m_buffer(std::string(kMaxStep, 0).data(), kMaxStep) {
    if (source == kZipMemory) {
      m_block = std::make_unique<allocations::GuardedBytes>(archive.data(), archive.size());
    } else {
      m_path = folder.Write("archive.zip", source == kZipHandle ? kInFront + archive : archive);
    }
    if (source == kZipHandle) {
      m_source = OpenForReading(m_path);
      SetFilePointer(m_source.get(), static_cast<LONG>(kInFront.size()), nullptr, FILE_BEGIN);
    }
    m_outcome.entries.reserve(kVisited);
  }

  Outcome Run() {
    const size_t before = allocations::Count().bytes;
    allocations::ResetPeak();
    m_zip = Open();
    m_outcome.opened = m_zip != nullptr;
    if (m_zip != nullptr) {
      VisitAll();
      EXPECT_EQ(CloseZipU(m_zip), kZipOk);
    } else {
      EXPECT_EQ(MessageU(kZipRecent), "Zipfile is corrupt or not a zipfile");
    }
    EXPECT_LE(allocations::Peak() - before, kMemoryPerByte * m_size + kMemoryFixed);
    return std::move(m_outcome);
  }

 private:
  HZIP Open() {
    const auto size = static_cast<unsigned>(m_size);
    if (m_block != nullptr) return OpenZipU(m_block->data(), size, kZipMemory, nullptr);
    if (m_source) return OpenZipU(m_source.get(), 0, kZipHandle, nullptr);
    return OpenZipU(m_path.c_str(), 0, kZipFileName, nullptr);
  }

  void VisitAll() {
    ZIPENTRY record = {};
    EXPECT_EQ(GetZipItemA(m_zip, -1, &record), kZipOk);
    const int count = m_outcome.count = record.index;
    EXPECT_TRUE(count >= 0 && count <= 65535) << count;
    for (const int index : {-2, count, INT_MAX}) {
      EXPECT_EQ(GetZipItemA(m_zip, index, &record), kZipBadArguments);
      EXPECT_EQ(UnzipItem(m_zip, index, m_buffer.data(), kMaxStep, kZipMemory), kZipBadArguments);
    }
    for (int index = 0; index < std::min(count, kVisited); ++index) Visit(index);
    EXPECT_LE(m_handedOut, kMostPerByte * m_size + kSlack);
  }

  void Visit(int index) {
    EntryOutcome& entry = m_outcome.entries.emplace_back();
    ZIPENTRY record = {};
    entry.look = GetZipItemA(m_zip, index, &record);
    ExpectOneOf(entry.look, {kZipOk, kZipCorrupt}, index);
    if (entry.look == kZipOk) {
      EXPECT_EQ(record.index, index);
      ASSERT_NE(memchr(record.name, 0, sizeof record.name), nullptr) << index;
      entry.folder = (record.attr & FILE_ATTRIBUTE_DIRECTORY) != 0;
      int found = -1;
      FindZipItemA(m_zip, record.name, true, &found, nullptr);
      entry.found = found == index;
    }
    const auto announced = static_cast<uint32_t>(record.unc_size);
    UnzipToMemory(index, announced, &entry);
    const Digest written = UnzipToFile(index, &entry);
    // Memory and file are two ways to the same result; unreadable data have a code for each.
    if (entry.folder) {
      EXPECT_EQ(entry.file + written.size, kZipOk) << "a folder extracted: " << index;
    } else {
      EXPECT_EQ(entry.file, entry.memory == kZipFlateError ? kZipWriteError : entry.memory)
          << index;
      EXPECT_TRUE(entry.file != kZipOk || written == entry.bytes) << index;
    }
  }

  // Every call that gives kZipMore filled its step, or held the entry's last bytes.
  void UnzipToMemory(int index, uint32_t announced, EntryOutcome* entry) {
    constexpr unsigned kSteps[] = {1, 7, 61, kMaxStep};
    for (unsigned call = 0;; ++call) {
      const unsigned step = kSteps[std::min(call, 3u)];
      unsigned char* const destination = m_buffer.data() + kMaxStep - step;
      entry->memory = UnzipItem(m_zip, index, destination, step, kZipMemory);
      if (entry->memory != kZipMore) break;
      const uint32_t filled = std::min(step, announced - entry->bytes.size);
      ASSERT_GT(filled, 0u) << "more bytes than announced: " << index;
      Add(&entry->bytes, destination, filled);
    }
    m_handedOut += entry->bytes.size;
    ExpectOneOf(entry->memory, {kZipOk, kZipCorrupt, kZipFlateError}, index);
  }

  Digest UnzipToFile(int index, EntryOutcome* entry) {
    SetFileAttributesA(m_output.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileA(m_output.c_str());
    entry->file = UnzipItem(m_zip, index, Arg(m_output), 0, kZipFileName);
    const unique_file file = OpenForReading(m_output);
    EXPECT_EQ(static_cast<bool>(file), entry->file == kZipOk && !entry->folder) << index;
    Digest digest;
    DWORD size = 0;
    while (file && ReadFile(file.get(), m_buffer.data(), kMaxStep, &size, nullptr) && size > 0)
      Add(&digest, m_buffer.data(), size);
    return digest;
  }

  const size_t m_size;
  const std::string m_output;
  std::string m_path;
  std::unique_ptr<allocations::GuardedBytes> m_block;
  unique_file m_source;
  allocations::GuardedBytes m_buffer;
  HZIP m_zip = nullptr;
  uint64_t m_handedOut = 0;
  Outcome m_outcome;
};

// As in Case::expected; "?" for what nothing expects.
char LetterOf(const Entry& entry, const EntryOutcome& outcome) {
  if (outcome.memory == kZipFlateError) return 'd';
  if (outcome.memory == kZipCorrupt) return outcome.bytes.size == 0 ? 'c' : 'e';
  const bool isCut = entry.central.name.size() >= MAX_PATH;
  const bool isGood = outcome.look == kZipOk && (outcome.found || isCut) &&
                      outcome.file == kZipOk && outcome.bytes == DigestOf(entry.plain);
  return isGood ? 'g' : '?';
}

void CheckOutcome(const Archive& archive, const Outcome& outcome, const std::string& expected) {
  ExpectNothingMadeUp(archive, outcome);
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

Outcome ReadEverything(const std::string& archive, ZipKind source, const TempFolder& folder) {
  return Reading(archive, source, folder).Run();
}

void ExpectNothingMadeUp(const Archive& archive, const Outcome& outcome) {
  for (const EntryOutcome& entry : outcome.entries) {
    if (entry.memory != kZipOk || entry.bytes.size == 0) continue;
    EXPECT_TRUE(
        std::any_of(archive.entries.begin(), archive.entries.end(),
                    [&](const Entry& known) { return DigestOf(known.plain) == entry.bytes; }))
        << "an entry is extracted as good, with wrong bytes";
  }
}

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
