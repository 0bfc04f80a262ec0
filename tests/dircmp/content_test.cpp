// Whether two contents are the same, in every mode.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "dircmp/ContentCompare.h"
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
