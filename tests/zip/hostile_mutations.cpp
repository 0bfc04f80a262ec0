// Good archives cut at every byte, and changed at random: plain bytes, or the numbers of headers.
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

  Archive stored;
  for (int i = 0; i < 12; ++i) {
    stored.entries.push_back(Stored("dir/" + std::to_string(i), Noise(i * 7, 30 + i)));
  }

  Archive streamed;
  for (int i = 0; i < 4; ++i) {
    streamed.entries.push_back(Streamed("stream" + std::to_string(i),
                                        std::string(3000, static_cast<char>('a' + i)), i % 2));
  }

  Archive none;
  none.comment = "empty";
  return {good, decorated, stored, streamed, none};
}

// Changes an archive in a way that depends on a number alone.
class Mutator {
 public:
  Mutator(const Layout& layout, unsigned number)
      : m_layout(layout), m_bytes(layout.bytes), m_random(number) {}

  std::string ChangeBytes() {
    for (unsigned changes = Below(4) + 1; changes > 0; --changes) ChangeBytesOnce();
    return m_bytes;
  }

  std::string ChangeNumbers() {
    for (unsigned changes = Below(3) + 1; changes > 0; --changes) {
      const Number& number = m_layout.numbers[Below(m_layout.numbers.size())];
      const uint32_t value = Interesting(number);
      for (unsigned i = 0; i < number.width; ++i) {
        m_bytes[number.at + i] = static_cast<char>(value >> (8 * i));
      }
    }
    return m_bytes;
  }

 private:
  unsigned Below(size_t limit) { return static_cast<unsigned>(m_random() % limit); }

  void ChangeBytesOnce() {
    if (m_bytes.empty()) return;
    const size_t at = Below(m_bytes.size());
    const size_t run = std::min<size_t>(Below(40) + 1, m_bytes.size() - at);
    switch (Below(7)) {
      case 0:
        m_bytes[at] = static_cast<char>(m_bytes[at] ^ (1 << Below(8)));
        break;
      case 1:
        m_bytes[at] = static_cast<char>(m_random());
        break;
      case 2:
        m_bytes.replace(at, run, run, Below(2) ? '\xFF' : '\0');
        break;
      case 3:
        m_bytes.insert(at, Noise(run, m_random()));
        break;
      case 4:
        m_bytes.erase(at, run);
        break;
      case 5:
        m_bytes.insert(Below(m_bytes.size()), m_bytes.substr(at, run));
        break;
      default:
        m_bytes.replace(Below(m_bytes.size() - run + 1), run, m_bytes.substr(at, run));
    }
  }

  uint32_t ValueOf(const Number& number) const {
    uint32_t value = 0;
    for (unsigned i = 0; i < number.width; ++i) {
      value |= static_cast<uint32_t>(static_cast<unsigned char>(m_bytes[number.at + i])) << (8 * i);
    }
    return value;
  }

  // The values at which readers go wrong: borders, sizes and places of this archive, near misses.
  uint32_t Interesting(const Number& number) {
    const uint32_t old = ValueOf(number);
    const auto size = static_cast<uint32_t>(m_bytes.size());
    const auto directory = static_cast<uint32_t>(m_layout.directory);
    const auto end = static_cast<uint32_t>(m_layout.end);
    const uint32_t values[] = {0,          1,          8,          0x7FFF,       0x8000,
                               0xFFFE,     0xFFFF,     0x10000,    size,         size - 1,
                               size + 1,   directory,  directory,  end,          end - 1,
                               0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, ~old,         old + 1,
                               old - 1,    old * 2,    old / 2,    old ^ 0x8000, m_random()};
    const unsigned choice = Below(std::size(values) + 6);
    if (choice < std::size(values)) return values[choice];
    if (choice < std::size(values) + 3 && !m_layout.offsets.empty()) {
      return static_cast<uint32_t>(m_layout.offsets[Below(m_layout.offsets.size())]);
    }
    return ValueOf(m_layout.numbers[Below(m_layout.numbers.size())]);
  }

  const Layout& m_layout;
  std::string m_bytes;
  std::mt19937 m_random;
};

class ZipMutation : public testing::Test {
 protected:
  // Reads an archive that was made of a seed; every eighth in all three ways, which must agree.
  void Read(const Archive& seed, const std::string& bytes, unsigned number) {
    const Outcome outcome = ReadGuarded(bytes, kZipMemory);
    EXPECT_EQ(outcome.problem, "");
    ExpectSeedBytes(seed, outcome);
    if (number % 8 != 0) return;
    for (const ZipKind source : {kZipFileName, kZipHandle}) {
      const Outcome other = ReadGuarded(bytes, source);
      EXPECT_EQ(other.problem, "");
      EXPECT_TRUE(Same(outcome, other)) << "memory and source " << source << " differ";
    }
  }

  void Mutate(std::string (Mutator::*change)()) {
    const unsigned count = IsLongRun() ? 10'000 : 500;
    const std::vector<Archive> seeds = Seeds();
    std::vector<Layout> layouts;
    for (const Archive& seed : seeds) layouts.push_back(seed.LayOut());
    for (unsigned number = 0; number < count && !HasFailure(); ++number) {
      SCOPED_TRACE(testing::Message() << "mutation " << number);
      const size_t seed = number % seeds.size();
      Read(seeds[seed], (Mutator(layouts[seed], number).*change)(), number / seeds.size());
    }
  }

 private:
  Outcome ReadGuarded(const std::string& bytes, ZipKind source) {
    const allocations::GuardPages guard;
    return ReadEverything(bytes, source, m_folder);
  }

  // A random change doesn't make up another file that fits its CRC.
  static void ExpectSeedBytes(const Archive& seed, const Outcome& outcome) {
    for (const EntryOutcome& entry : outcome.entries) {
      if (entry.memory != kZipOk || entry.bytes == Digest()) continue;
      EXPECT_TRUE(std::any_of(seed.entries.begin(), seed.entries.end(), [&](const Entry& known) {
        return DigestOf(known.plain) == entry.bytes;
      })) << "an entry is extracted as good, with wrong bytes";
    }
  }

  static bool Same(const Outcome& left, const Outcome& right) {
    return left.opened == right.opened && left.count == right.count &&
           std::equal(left.entries.begin(), left.entries.end(), right.entries.begin(),
                      right.entries.end(), [](const EntryOutcome& a, const EntryOutcome& b) {
                        return a.look == b.look && a.found == b.found && a.memory == b.memory &&
                               a.file == b.file && a.bytes == b.bytes;
                      });
  }

  TempFolder m_folder;
};

TEST_F(ZipMutation, CutAtEveryByte) {
  const Archive archive = GoodArchive();
  const std::string whole = archive.Bytes();
  for (size_t size = 0; size <= whole.size() && !HasFailure(); ++size) {
    SCOPED_TRACE(testing::Message() << "the first " << size << " of " << whole.size());
    Read(archive, whole.substr(0, size), static_cast<unsigned>(size));
  }
}

TEST_F(ZipMutation, BeginsAtEveryByte) {
  const Archive archive = GoodArchive();
  const std::string whole = archive.Bytes();
  for (size_t start = 0; start <= whole.size() && !HasFailure(); ++start) {
    SCOPED_TRACE(testing::Message() << "from byte " << start << " of " << whole.size());
    Read(archive, whole.substr(start), static_cast<unsigned>(start));
  }
}

TEST_F(ZipMutation, CutInsideItsComment) {
  Archive archive = GoodArchive();
  archive.comment = "PK\5\6 a comment";
  const Layout whole = archive.LayOut();
  for (size_t size = whole.end; size < whole.bytes.size() && !HasFailure(); ++size) {
    SCOPED_TRACE(testing::Message() << "the first " << size << " of " << whole.bytes.size());
    Read(archive, whole.bytes.substr(0, size), 0);
  }
}

TEST_F(ZipMutation, RandomBytes) { Mutate(&Mutator::ChangeBytes); }

TEST_F(ZipMutation, RandomNumbers) { Mutate(&Mutator::ChangeNumbers); }

}  // namespace
}  // namespace hostile
