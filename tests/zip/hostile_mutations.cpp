// Good archives cut at every byte, and changed at random.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "hostile_builder.h"
#include "hostile_reader.h"
#include "support/Allocations.h"
#include "support/LongRun.h"

namespace hostile {
namespace {

std::vector<Archive> Seeds() {
  const Archive good = GoodArchive();

  Archive decorated = good;
  decorated.stub = "MZ" + Noise(60, 20);
  decorated.comment = "a comment with PK\5\6 in it, and more than that";
  decorated.beforeDirectory = "stray";
  for (Entry& entry : decorated.entries) {
    entry.before = "stray";
    entry.local.extra = ExtraBlock(0x5455, "\7" + U32(1000000000) + U32(1100000000) + U32(1));
    entry.central.extra = ExtraBlock(0x5455, "\7" + U32(1000000000));
    entry.comment = "remark";
  }
  return {good, decorated};
}

// Changes bytes in a way that depends on a number alone, mostly in the archive's headers.
std::string Mutated(std::string bytes, unsigned number) {
  std::mt19937 random(number);
  const auto below = [&](size_t limit) { return static_cast<unsigned>(random() % limit); };
  for (unsigned changes = below(4) + 1; changes > 0 && !bytes.empty(); --changes) {
    const size_t size = bytes.size(), signature = std::min(bytes.find("PK", below(size)), size);
    const size_t at = below(4) == 0 ? below(size) : std::min(signature + below(46), size - 1);
    const size_t run = std::min<size_t>(below(40) + 1, size - at);
    // The values at which readers go wrong: borders, sizes and places of this archive.
    const size_t values[] = {0,         1,          8,          0x7FFF,     0x8000,     0xFFFE,
                             0xFFFF,    0x10000,    size,       size - 1,   size / 2,   at,
                             signature, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, below(size)};
    const size_t width = std::min<size_t>(below(2) ? 2 : 4, size - at);
    switch (below(8)) {
      case 0:
        bytes[at] = static_cast<char>(bytes[at] ^ (1 << below(8)));
        break;
      case 1:
        bytes.insert(at, Noise(run, random()));
        break;
      case 2:
        bytes.erase(at, run);
        break;
      case 3:
        bytes.insert(below(size), bytes.substr(at, run));
        break;
      default:
        bytes.replace(at, width, U32(values[below(std::size(values))]), 0, width);
    }
  }
  return bytes;
}

class ZipMutation : public testing::Test {
 protected:
  // Reads an archive that was made of a seed; every eighth in all three ways, which must agree.
  void Read(const Archive& seed, const std::string& bytes, unsigned number) {
    const Outcome outcome = ReadGuarded(bytes, kZipMemory);
    ExpectNothingMadeUp(seed, outcome);  // no change at random fits a CRC
    if (number % 8 != 0) return;
    for (const ZipKind source : {kZipFileName, kZipHandle})
      EXPECT_TRUE(ReadGuarded(bytes, source) == outcome) << "memory and source " << source;
  }

 private:
  Outcome ReadGuarded(const std::string& bytes, ZipKind source) {
    const allocations::GuardPages guard;
    return ReadEverything(bytes, source, m_folder);
  }

  TempFolder m_folder;
};

TEST_F(ZipMutation, CutAtEveryByte) {
  Archive archive = GoodArchive();
  archive.comment = "PK\5\6 a comment";
  const std::string whole = archive.Bytes();
  for (size_t at = 0; at <= whole.size() && !HasFailure(); ++at) {
    SCOPED_TRACE(testing::Message() << "byte " << at << " of " << whole.size());
    Read(archive, whole.substr(0, at), static_cast<unsigned>(at));
    Read(archive, whole.substr(at), static_cast<unsigned>(at));
  }
}

TEST_F(ZipMutation, RandomChanges) {
  const unsigned count = IsLongRun() ? 20'000 : 1000;
  const std::vector<Archive> seeds = Seeds();
  for (unsigned number = 0; number < count && !HasFailure(); ++number) {
    SCOPED_TRACE(testing::Message() << "mutation " << number);
    const Archive& seed = seeds[number % seeds.size()];
    Read(seed, Mutated(seed.Bytes(), number), number / seeds.size());
  }
}

}  // namespace
}  // namespace hostile
