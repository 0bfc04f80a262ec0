// The differences of two texts, line by line and word by word.
#include <afxwin.h>

#include <gtest/gtest.h>

#include "support/CodePage.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "dircmp/LineDiff.h"

namespace {

struct Texts {
  Texts(const std::string& leftBytes, const std::string& rightBytes) {
    left.Assign(leftBytes);
    right.Assign(rightBytes);
  }
  DocumentText left, right;
};

// "=2:2 !1:0" and so on: equal or different, lines left and right.
std::string Blocks(const std::string& left, const std::string& right,
                   const CompareOptions& options) {
  const Texts texts(left, right);
  std::string blocks;
  for (const LineBlock& block : DiffLines(texts.left, texts.right, options)) {
    blocks += (blocks.empty() ? "" : " ") + std::string(block.isDifferent ? "!" : "=") +
              std::to_string(block.leftCount) + ":" + std::to_string(block.rightCount);
  }
  return blocks;
}

TEST(Lines, Blocks) {
  const CompareOptions exact, runs = {.whiteSpaceMode = 1}, ignored = {.whiteSpaceMode = 2},
                              letters = {.ignoreCase = true};
  const std::string upper = Ansi(UpperLetter()), lower = Ansi(LowerLetter());
  const struct {
    std::string left, right;
    const CompareOptions& options;
    const char* blocks;
  } kCases[] = {
      {"", "", exact, ""},
      {"a\n", "", exact, "!1:0"},
      {"a\nb\nc\n", "a\nx\nc\n", exact, "=1:1 !1:1 =1:1"},
      {"a\nb\nc\n", "a\nc\n", exact, "=1:1 !1:0 =1:1"},
      {"a\nb", "a\nb\n", exact, "=1:1 !1:1"},
      {"a\r\nb\r\n", "a\nb\n", exact, "!2:2"},
      {"a\r\nb\rc", "a\nb\nc", runs, "=3:3"},
      {"a b\n c\n", "a  b \nc\n", runs, "=2:2"},
      {" a\n", "a\n", runs, "!1:1"},  // white space against none
      {"ab\n", "a b\n", ignored, "=1:1"},
      {"a\nb\n", "a\n\n\nb\n", runs, "=1:1 =0:2 =1:1"},  // no difference in the files, too
      {"a\n\nb\n", "a\nx\nb\n", runs, "=1:1 !1:1 =1:1"},
      // Empty lines beside each other are neither a difference nor the end of a block.
      {"a\n\nb\n \nc\n", "a\n\t\nb\n\nc\n", runs, "=5:5"},
      {"a\n\nb\n\nc\n", "a\n\nx\ny\n\nc\n", runs, "=2:2 !1:2 =2:2"},
      {"a\nb\n\nc\n", "a\n\nc\n", runs, "=1:1 !1:0 =2:2"},
      // A run that could stand elsewhere stands where it would be read.
      {"{\n}\nz\n", "{\n}\nx {\n}\nz\n", exact, "=2:2 !0:2 =1:1"},
      {"a\n  c\n", "a\n  b\na\n  c\n", exact, "!0:2 =2:2"},
      {"x\nx\nx\ny\n", "x\ny\n", exact, "=1:1 !2:0 =1:1"},
      {"ABC\n" + upper + "\n", "abc\n" + lower + "\n", letters, "=2:2"},
      {"\xEF\xBB\xBFz\n", "z\n", exact, "=1:1"},
  };
  for (const auto& row : kCases) {
    EXPECT_EQ(Blocks(row.left, row.right, row.options), row.blocks) << row.left << "|" << row.right;
  }
}

// The line with its changed ranges in brackets.
std::string Bracketed(const TextLine& line, const ChangedRanges& ranges) {
  std::string text = std::string(line.text) + (line.end.empty() ? "" : "$");
  for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
    text.insert(std::min<size_t>(text.size(), static_cast<size_t>(range->second)), "]");
    text.insert(static_cast<size_t>(range->first), "[");
  }
  return text;
}

TEST(Lines, Words) {
  const std::string ansi = Ansi(LowerLetter()), utf8 = Utf8(LowerLetter());
  const struct {
    std::string left, right;
    CompareOptions options;
    std::string markedLeft, markedRight;
  } kCases[] = {
      {"the old word\n", "the new word\n", {}, "the [old] word$", "the [new] word$"},
      {"f(a, b);\n", "f(a, b, c);\n", {}, "f(a, b);$", "f(a, b[, c]);$"},
      {"a b c\n", "a  b d\n", {.whiteSpaceMode = 1}, "a b [c]$", "a  b [d]$"},
      {"a b c\n", "a  b d\n", {}, "a[ ]b [c]$", "a[  ]b [d]$"},
      {"One two x\n", "one TWO y\n", {.ignoreCase = true}, "One two [x]$", "one TWO [y]$"},
      {"1 two 3\n", "1\ntwo 4\n", {.whiteSpaceMode = 1}, "1 two [3]$", "1$ two [4]$"},
      {"same\r\n", "same\n", {}, "same[$]", "same[$]"},
      {"nothing alike\n", "quite, other!\n", {}, "[nothing alike]$", "[quite, other!]$"},
      {ansi + "e an\n", ansi + "e aus\n", {}, utf8 + "e [an]$", utf8 + "e [aus]$"},
      {"\n", "x\n", {}, "[]$", "[x]$"},
      {"\treturn 0;\n",
       "\t// new\n\treturn 1;\n",
       {},
       "\treturn [0];$",
       "[\t// new$] \treturn [1];$"},
  };
  for (const auto& row : kCases) {
    const Texts texts(row.left, row.right);
    const std::vector<LineBlock> blocks = DiffLines(texts.left, texts.right, row.options);
    ASSERT_FALSE(blocks.empty()) << row.left;
    const WordDifference words = DiffWords(texts.left, texts.right, blocks[0], row.options);
    const auto marked = [](const DocumentText& text, const std::vector<ChangedRanges>& lines) {
      std::string all;
      for (size_t i = 0; i < lines.size(); ++i) {
        all += (i > 0 ? " " : "") + Bracketed(text.lines()[i], lines[i]);
      }
      return all;
    };
    EXPECT_EQ(marked(texts.left, words.left), row.markedLeft);
    EXPECT_EQ(marked(texts.right, words.right), row.markedRight);
  }
}

// How many lines stand in pairs of equal ones.
size_t InCommon(const Texts& texts) {
  size_t count = 0;
  for (const LineBlock& block : DiffLines(texts.left, texts.right, {})) {
    for (int i = 0; !block.isDifferent && i < block.leftCount; ++i)
      count += texts.left.lines()[static_cast<size_t>(block.left + i)].text ==
               texts.right.lines()[static_cast<size_t>(block.right + i)].text;
  }
  return count;
}

// The length of the longest common subsequence.
size_t LongestCommon(const std::string& left, const std::string& right) {
  std::vector<size_t> lengths(right.size() + 1);
  for (const char l : left) {
    size_t diagonal = 0;
    for (size_t i = 0; i < right.size(); ++i) {
      const size_t above = lengths[i + 1];
      lengths[i + 1] = l == right[i] ? diagonal + 1 : std::max(above, lengths[i]);
      diagonal = above;
    }
  }
  return lengths.back();
}

std::string OneLetterLines(const std::string& letters) {
  std::string text;
  for (const char letter : letters) text += std::string(1, letter) + "\n";
  return text;
}

TEST(Lines, FewestDifferencesOfShortTexts) {
  std::mt19937 random(7);
  for (int i = 0; i < 3000; ++i) {
    std::string left, right;
    for (unsigned n = random() % 40; n > 0; --n) left += static_cast<char>('a' + random() % 5);
    right = left;
    for (unsigned n = random() % 12; n > 0 && !right.empty(); --n) {
      right[random() % right.size()] = static_cast<char>('a' + random() % 5);
      if (random() % 3 == 0) right.erase(random() % right.size(), 1);
      if (random() % 3 == 0) right.insert(right.begin() + random() % (right.size() + 1), 'b');
    }
    const Texts texts(OneLetterLines(left), OneLetterLines(right));
    ASSERT_EQ(InCommon(texts), LongestCommon(left, right)) << left << " " << right;
  }
}

// Two texts without a short way from one to the other.
Texts Unrelated(int lines, unsigned different) {
  std::mt19937 random(1);
  const auto text = [&] {
    std::string text;
    for (int i = 0; i < lines; ++i) text += std::to_string(random() % different) + "\n";
    return text;
  };
  const std::string left = text();
  return Texts(left, text());
}

TEST(Lines, LargeTexts) {
  constexpr int kLines = 100'000;
  for (const unsigned different : {50u, 1u << 20}) {
    SCOPED_TRACE(different);
    const Texts texts = Unrelated(kLines, different);
    const DWORD start = GetTickCount();
    EXPECT_GE(InCommon(texts), different < 100 ? kLines / 10u : 100u);
    EXPECT_LT(GetTickCount() - start, 10'000u);
  }
}

TEST(Lines, AStopActsWhereverItComes) {
  const Texts texts = Unrelated(2000, 50);
  int asked = 0;
  DiffLines(texts.left, texts.right, {}, [&] { return ++asked, false; });
  EXPECT_GT(asked, 4000) << "while lines are read, and later";
  for (const int last : {1, 3000, 4000, asked - 1, asked}) {
    int asks = 0;
    EXPECT_TRUE(DiffLines(texts.left, texts.right, {}, [&] { return ++asks >= last; }).empty());
    EXPECT_LE(asks, last + 4);
  }
}

TEST(DocumentText, Kinds) {
  using Kind = DocumentText::Kind;
  const struct {
    std::string bytes;
    Kind kind;
    std::string firstLine;
  } kCases[] = {
      {"plain\n", Kind::Text, "plain"},
      {Ansi(UpperLetter()) + "\n", Kind::Text, Utf8(UpperLetter())},
      {"\xC3\x84\n", Kind::Text, "\xC3\x84"},  // UTF-8
      {std::string("\xFF\xFE\xC4\0\n\0", 6), Kind::Text, "\xC3\x84"},
      {std::string("\xFE\xFF\0\xC4\0\n", 6), Kind::Text, "\xC3\x84"},
      {std::string("\xFF\xFE\x00\xD8", 4), Kind::Text, "\xEF\xBF\xBD"},  // half a character
      {std::string("a\0b", 3), Kind::Binary, ""},
  };
  for (const auto& row : kCases) {
    DocumentText text;
    EXPECT_EQ(text.Assign(row.bytes), row.kind);
    EXPECT_EQ(text.lines().empty() ? "" : text.lines()[0].text, row.firstLine);
  }
}

}  // namespace
