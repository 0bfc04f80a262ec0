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

  Archive stored, piped;
  for (int i = 0; i < 12; ++i)
    stored.entries.push_back(Stored("dir/" + std::to_string(i), Noise(i * 7, 30 + i)));
  for (int i = 0; i < 4; ++i) {
    const std::string text(3000, static_cast<char>('a' + i));
    piped.entries.push_back(Piped(Deflated("stream" + std::to_string(i), text), i % 2));
  }
  return {good, decorated, stored, piped};
}

// Changes an archive in a way that depends on a number alone.
class Mutator {
 public:
  Mutator(const Layout& layout, unsigned number)
      : m_layout(layout), m_bytes(layout.bytes), m_random(number) {}

  std::string ChangeBytes() {
    for (unsigned changes = Below(4) + 1; changes > 0; --changes) {
      const size_t at = Below(m_bytes.size());
      const size_t run = std::min<size_t>(Below(40) + 1, m_bytes.size() - at);
      switch (Below(5)) {
        case 0:
          m_bytes[at] = static_cast<char>(m_bytes[at] ^ (1 << Below(8)));
          break;
        case 1:
          m_bytes.replace(at, run, run, Below(2) ? '\xFF' : '\0');
          break;
        case 2:
          m_bytes.insert(at, Noise(run, m_random()));
          break;
        case 3:
          m_bytes.erase(at, run);
          break;
        default:
          m_bytes.insert(Below(m_bytes.size()), m_bytes.substr(at, run));
      }
    }
    return m_bytes;
  }

  std::string ChangeNumbers() {
    for (unsigned changes = Below(3) + 1; changes > 0; --changes) {
      const Number& number = m_layout.numbers[Below(m_layout.numbers.size())];
      m_bytes.replace(number.at, number.width, U32(Interesting(number)), 0, number.width);
    }
    return m_bytes;
  }

 private:
  unsigned Below(size_t limit) { return static_cast<unsigned>(m_random() % limit); }

  uint32_t ValueOf(const Number& number) const {
    uint32_t value = 0;
    for (unsigned i = number.width; i-- > 0;)
      value = value << 8 | static_cast<unsigned char>(m_bytes[number.at + i]);
    return value;
  }

  // The values at which readers go wrong: borders, sizes and places of this archive, near misses.
  uint32_t Interesting(const Number& number) {
    const uint32_t old = ValueOf(number);
    const auto size = static_cast<uint32_t>(m_bytes.size());
    const auto directory = static_cast<uint32_t>(m_layout.directory);
    const auto end = static_cast<uint32_t>(m_layout.end);
    const auto entry = static_cast<uint32_t>(m_layout.offsets[Below(m_layout.offsets.size())]);
    const uint32_t other = ValueOf(m_layout.numbers[Below(m_layout.numbers.size())]);
    const uint32_t values[] = {
        0,     1,     8,     0x7FFF,    0x8000,    0xFFFE,  0xFFFF,     0x10000,    size,
        entry, entry, entry, directory, directory, end,     0x7FFFFFFF, 0x80000000, 0xFFFFFFFF,
        other, other, ~old,  old + 1,   old - 1,   old * 2, old / 2,    m_random()};
    return values[Below(std::size(values))];
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
    ExpectNothingMadeUp(seed, outcome);  // no change at random fits a CRC
    if (number % 8 != 0) return;
    for (const ZipKind source : {kZipFileName, kZipHandle})
      EXPECT_TRUE(ReadGuarded(bytes, source) == outcome) << "memory and source " << source;
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

TEST_F(ZipMutation, RandomBytes) { Mutate(&Mutator::ChangeBytes); }

TEST_F(ZipMutation, RandomNumbers) { Mutate(&Mutator::ChangeNumbers); }

}  // namespace
}  // namespace hostile
