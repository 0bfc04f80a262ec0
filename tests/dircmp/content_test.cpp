// Whether two contents are the same, in every mode.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "dircmp/ContentCompare.h"
#include "support/LongRun.h"
#include "support/TempFolder.h"

namespace {

using Result = ContentCompare::Result;

// Gives its bytes in pieces of any size, so that a border may lie between any two of them.
class PiecemealSource : public ByteSource {
 public:
  PiecemealSource(const std::string& bytes, unsigned seed, int largest)
      : m_bytes(bytes), m_random(seed), m_largest(largest) {}

  int Read(void* buffer, int size) override {
    const size_t wanted = std::min<size_t>(size, 1 + m_random() % m_largest);
    const size_t count = m_bytes.copy(static_cast<char*>(buffer), wanted, m_place);
    m_place += count;
    return static_cast<int>(count);
  }

 private:
  const std::string& m_bytes;
  size_t m_place = 0;
  std::mt19937 m_random;
  int m_largest;
};

// In pieces of any size, and with the sides exchanged.
bool AreEqual(const std::string& left, const std::string& right, const CompareOptions& options) {
  ContentCompare comparison(options);
  int equal = 0, all = 0;
  for (const int largest : {1, 2, 3, 20, 1000}) {
    for (const bool isSwapped : {false, true}) {
      PiecemealSource l(left, 1, largest), r(right, 2, largest);
      const Result result = isSwapped ? comparison.Streams(r, l) : comparison.Streams(l, r);
      equal += result == Result::Equal;
      ++all;
    }
  }
  EXPECT_TRUE(equal == 0 || equal == all) << "it depends on the pieces";
  return equal != 0;
}

TEST(Content, Modes) {
  constexpr char kYes = 'y', kNo = 'n';
  constexpr struct {
    const char* left;
    const char* right;
    const char* same;  // exact, runs, ignored; then the same without regard to case
  } kCases[] = {
      {"a  b", "a b", "nyynyy"},
      {"ab", "a b", "nnynny"},
      {"one\r\ntwo\r\n", "one\ntwo\n", "nyynyy"},
      {"a", "a \t\r\n", "nyynyy"},
      {"", " \n", "nyynyy"},
      {" a", "a", "nnynny"},
      {"ABC", "abc", "nnnyyy"},
      {"A  B", "a b", "nnnnyy"},
      {"ab", "abc", "nnnnnn"},
      {"@[`{", "`{@[", "nnnnnn"},    // 32 apart, as the two cases of a letter are
      {"a\xA0 b", "a b", "nnnnnn"},  // no white space
      {"caf\xC9 \xC4", "caf\xE9 \xE4", "nnnyyy"},
      {"\xD7", "\xF7", "nnnnnn"},  // signs between the letters
      {"a\v\fb", "a b", "nyynyy"},
      {"a  b\t\tc", "a b c ", "nyynyy"},
      {"a b  c", "a  bc", "nnynny"},
      {"Xy  zZ", "xY zz\n", "nnnnyy"},
      {" x \t", "\n\nx", "nyynyy"},
  };
  for (const auto& row : kCases) {
    for (int i = 0; i < 6; ++i) {
      const CompareOptions options = {
          .ignoreCase = i >= 3, .whiteSpaceMode = i % 3, .codePage = 1252};
      // Alone, and far enough behind equal bytes for the wide steps.
      for (const std::string& before : {std::string(), std::string(77, 'x')}) {
        const bool isEqual = AreEqual(before + row.left, before + row.right, options);
        EXPECT_EQ(isEqual ? kYes : kNo, row.same[i])
            << row.left << " | " << row.right << ", column " << i;
      }
    }
  }
}

// The same text as comparing sees it: what doesn't count taken out.
std::string Normalised(const std::string& text, const CompareOptions& options) {
  std::string normal;
  bool isInRun = false;
  for (const char character : text) {
    const bool isSpace = strchr(" \t\n\v\f\r", character) != nullptr && character != 0;
    if (isSpace && options.whiteSpaceMode != kWhiteSpaceExact) {
      isInRun = true;
      continue;
    }
    if (isInRun && options.whiteSpaceMode == kWhiteSpaceRuns) normal += ' ';
    isInRun = false;
    normal += options.ignoreCase && character >= 'A' && character <= 'Z'
                  ? static_cast<char>(character + 32)
                  : character;
  }
  return normal;
}

// A text, and one that was made from it by changes that mostly don't count.
std::pair<std::string, std::string> RelatedTexts(std::mt19937& random) {
  std::string left, right;
  const unsigned length = random() % 60;
  const unsigned mayDiffer = random() % 4;
  for (unsigned i = 0; i < length; ++i) {
    const char letter = "abcxyz"[random() % 6];
    const std::string spaces = std::string(random() % 3, " \t\n"[random() % 3]);
    left += letter;
    right += random() % 8 == 0 ? static_cast<char>(letter - 32) : letter;
    if (random() % 4 == 0) left += spaces;
    if (random() % 4 != 0)
      right += left.back() == letter ? "" : spaces + std::string(random() % 2, '\r');
    if (mayDiffer == 0 && random() % 40 == 0) right += letter;
  }
  return {left + std::string(random() % 3, ' '), right + std::string(random() % 3, '\n')};
}

TEST(Content, EqualsComparingNormalisedTexts) {
  std::mt19937 random(20);
  constexpr CompareOptions all[] = {{false, 0}, {false, 1}, {false, 2},
                                    {true, 0},  {true, 1},  {true, 2}};
  std::vector<std::unique_ptr<ContentCompare>> comparisons;
  for (const CompareOptions& options : all) {
    comparisons.push_back(std::make_unique<ContentCompare>(options));
  }
  int equal = 0, different = 0;
  const int count = IsLongRun() ? 1'000'000 : 30'000;
  for (int i = 0; i < count; ++i) {
    const auto [left, right] = RelatedTexts(random);
    const size_t which = random() % std::size(all);
    const CompareOptions& options = all[which];
    ContentCompare& comparison = *comparisons[which];
    const bool expected = Normalised(left, options) == Normalised(right, options);
    const unsigned seed = random();
    const int largest = 1 + static_cast<int>(random() % 20);
    PiecemealSource l(left, seed, largest), r(right, seed + 1, largest);
    ASSERT_EQ(comparison.Streams(l, r) == Result::Equal, expected) << left << "\n|\n" << right;
    PiecemealSource l2(left, seed + 2, largest), r2(right, seed, largest);
    ASSERT_EQ(comparison.Streams(r2, l2) == Result::Equal, expected) << "not symmetric";
    ++(expected ? equal : different);
  }
  EXPECT_GT(equal, count / 10);
  EXPECT_GT(different, count / 10);
}

TEST(Content, AStopTakesEffectInTheMiddleOfALargeFile) {
  class Endless : public ByteSource {
   public:
    int Read(void* buffer, int size) override {
      memset(buffer, 'x', static_cast<size_t>(size));
      read += size;
      return size;
    }
    int64_t read = 0;
  } left, right;
  constexpr int64_t kStopAt = 64 << 20;
  int64_t readByThen = 0;
  ContentCompare comparison({.ignoreCase = true, .whiteSpaceMode = 1}, [&] {
    if (left.read < kStopAt) return false;
    readByThen = left.read + right.read;
    return true;
  });
  EXPECT_EQ(comparison.Streams(left, right), Result::Stopped);
  EXPECT_EQ(left.read + right.read, readByThen) << "read on after the stop";
}

// In Japanese texts the second byte of a character may look like a letter.
TEST(Content, SecondBytesAreNoLetters) {
  const struct {
    std::string left, right;
    bool same;
  } kCases[] = {
      {"\x83\x41", "\x83\x61", false},  // two katakana, 32 apart
      {"\x83\x41\x41", "\x83\x41\x61", true},
      {"\x83\x83\x83\x41", "\x83\x83\x83\x61", false},
      {"\x83\x83\x41", "\x83\x83\x61", true},
      {"\xB1\x41", "\xB1\x61", true},  // a katakana of one byte
  };
  const CompareOptions options = {.ignoreCase = true, .codePage = 932};
  for (const auto& row : kCases)
    EXPECT_EQ(AreEqual(row.left, row.right, options), row.same) << row.right;
}

TEST(Content, WhatCannotBeReadIsNeitherEqualNorDifferent) {
  const TempFolder folder;
  const std::string file = folder.Write("a", "text");
  const std::string locked = folder.Write("locked", "text");
  const unique_file lock(
      CreateFileA(locked.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  ContentCompare comparison({});
  for (const std::string& other :
       {locked, folder / "missing", folder.path(), folder / std::string(300, 'n')}) {
    for (const bool isRight : {true, false}) {
      SetLastError(0);
      EXPECT_EQ(comparison.Files(isRight ? file.c_str() : other.c_str(),
                                 isRight ? other.c_str() : file.c_str()),
                Result::Unreadable)
          << other;
      EXPECT_NE(GetLastError(), 0u) << other;
    }
  }
  // An error after the first block.
  class FailingSource : public ByteSource {
    int Read(void* buffer, int) override {
      *static_cast<char*>(buffer) = 't';
      return ++m_reads == 1 ? 1 : kFailed;
    }
    int m_reads = 0;
  } failing;
  MemorySource same("t", 1);
  EXPECT_EQ(comparison.Streams(failing, same), Result::Unreadable);
}

}  // namespace
