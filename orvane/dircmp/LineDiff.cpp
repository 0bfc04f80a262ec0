#include "dircmp/LineDiff.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_map>

#include "dircmp/SequenceDiff.h"

namespace {

// Beyond that, words are not looked for.
constexpr size_t kMostTokens = 20000;
// The part of a block's characters that both sides are to have in common for its words to be
// marked.
constexpr double kLeastInCommon = 0.25;

bool IsSpace(char character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}

// Texts that compare equal get the same number.
class Numbers {
 public:
  int Of(const std::string& key) {
    return m_numbers.try_emplace(key, static_cast<int>(m_numbers.size())).first->second;
  }

 private:
  std::unordered_map<std::string, int> m_numbers;
};

// A text as it is compared: runs of white space as one blank, or left out.
std::string KeyOf(std::string_view text, const CompareOptions& options) {
  std::string key;
  if (options.whiteSpaceMode == kWhiteSpaceExact) {
    key = text;
  } else {
    bool isInRun = false;
    for (const char character : text) {
      if (!IsSpace(character)) {
        if (isInRun && options.whiteSpaceMode == kWhiteSpaceRuns) key += ' ';
        key += character;
      }
      isInRun = IsSpace(character);
    }
  }
  return options.ignoreCase ? LowerUtf8(key) : key;
}

std::string KeyOfLine(const TextLine& line, bool isFirst, const CompareOptions& options) {
  if (options.whiteSpaceMode == kWhiteSpaceExact) {
    return KeyOf(std::string(line.text) + std::string(line.end), options);
  }
  std::string key = KeyOf(line.text, options);
  // Part of the run that begins with the end of the line before, when there is one.
  if (!isFirst && key.starts_with(' ')) key.erase(0, 1);
  return key;
}

// A run of what is left out may stand some places further up or down as well, when what it passes
// is what it gives up at its other end. It is put at the last place that is better than the best of
// those before, beginning with the one where it stands.
template <class IsBetter>
void SettleRuns(const std::vector<int>& sequence, std::vector<char>& isLeftOut, IsBetter isBetter) {
  const size_t size = sequence.size();
  for (size_t begin = 0, end; begin < size; begin = end) {
    end = begin + 1;
    if (!isLeftOut[begin]) continue;
    while (end < size && isLeftOut[end]) ++end;
    const size_t length = end - begin;
    size_t best = begin;
    const auto offer = [&] { best = isBetter(begin, best, length) ? begin : best; };
    std::fill_n(isLeftOut.begin() + static_cast<std::ptrdiff_t>(begin), length, 0);
    while (begin > 0 && !isLeftOut[begin - 1] && sequence[begin - 1] == sequence[end - 1]) {
      --begin;
      --end;
    }
    offer();
    while (end < size && !isLeftOut[end] && sequence[begin] == sequence[end]) {
      ++begin;
      ++end;
      offer();
    }
    std::fill_n(isLeftOut.begin() + static_cast<std::ptrdiff_t>(best), length, 1);
    end = best + length;
  }
}

// The lines of a text that count, and what becomes of all of them.
struct Side {
  enum Fate : char { kKept, kChanged, kEmpty };

  Side(const DocumentText& text, Numbers& numbers, const CompareOptions& options,
       const ContentCompare::StopPoll& stop) {
    for (const TextLine& line : text.lines()) {
      if (stop && stop()) return;
      const std::string key = KeyOfLine(line, fates.empty(), options);
      fates.push_back(key.empty() ? kEmpty : kKept);
      if (key.empty()) continue;
      sequence.push_back(numbers.Of(key));
      indentations.push_back(std::min(line.text.find_first_not_of(" \t"), line.text.size()));
    }
  }

  // Where a reader would have them: the first line of a run indented the least, and as far down as
  // that allows.
  void Settle(std::vector<char>& isLeftOut) const {
    SettleRuns(sequence, isLeftOut, [this](size_t place, size_t best, size_t) {
      return indentations[place] <= indentations[best];
    });
  }

  void Apply(const std::vector<char>& isLeftOut) {
    size_t next = 0;
    for (Fate& fate : fates) {
      if (fate != kEmpty && isLeftOut[next++]) fate = kChanged;
    }
  }

  bool IsEmpty(size_t line) const { return fates[line] == kEmpty; }
  bool IsKept(size_t line) const { return line < fates.size() && fates[line] == kKept; }

  // Passes the lines up to the next one that is kept; true when there are changed ones.
  bool PassOthers(size_t& line) const {
    bool isChanged = false;
    for (; line < fates.size() && fates[line] != kKept; ++line)
      isChanged |= fates[line] == kChanged;
    return isChanged;
  }

  std::vector<int> sequence;
  std::vector<size_t> indentations;  // of the same lines
  std::vector<Fate> fates;           // of every line
};

// Puts the lines of both sides beside each other.
class BlockMaker {
 public:
  BlockMaker(const Side& left, const Side& right) : m_left(left), m_right(right) {}

  std::vector<LineBlock> Make() {
    const size_t leftLines = m_left.fates.size(), rightLines = m_right.fates.size();
    for (size_t left = 0, right = 0; left < leftLines || right < rightLines;) {
      const size_t leftStart = left, rightStart = right;
      bool isDifferent = false;
      if (m_left.IsKept(left) && m_right.IsKept(right)) {
        while (m_left.IsKept(left) && m_right.IsKept(right)) ++left, ++right;
      } else {
        isDifferent = m_left.PassOthers(left);
        isDifferent |= m_right.PassOthers(right);
      }
      if (isDifferent) {
        AddDifferent(left - leftStart, right - rightStart);
      } else {
        Add(left - leftStart, right - rightStart, false);
      }
    }
    return std::move(m_blocks);
  }

 private:
  // Empty lines at both ends, which don't count, are none of the difference.
  void AddDifferent(size_t leftCount, size_t rightCount) {
    const size_t most = std::min(leftCount, rightCount);
    const size_t leftEnd = m_leftDone + leftCount, rightEnd = m_rightDone + rightCount;
    size_t before = 0, after = 0;
    while (before < most && m_left.IsEmpty(m_leftDone + before) &&
           m_right.IsEmpty(m_rightDone + before)) {
      ++before;
    }
    while (before + after < most && m_left.IsEmpty(leftEnd - 1 - after) &&
           m_right.IsEmpty(rightEnd - 1 - after)) {
      ++after;
    }
    Add(before, before, false);
    Add(leftCount - before - after, rightCount - before - after, true);
    Add(after, after, false);
  }

  void Add(size_t leftCount, size_t rightCount, bool isDifferent) {
    const auto left = static_cast<int>(leftCount), right = static_cast<int>(rightCount);
    if (left == 0 && right == 0) return;
    const auto isInPairs = [](const LineBlock& block) {
      return !block.isDifferent && block.leftCount == block.rightCount;
    };
    const LineBlock block = {static_cast<int>(m_leftDone), left, static_cast<int>(m_rightDone),
                             right, isDifferent};
    if (!m_blocks.empty() && isInPairs(block) && isInPairs(m_blocks.back())) {
      m_blocks.back().leftCount += left;
      m_blocks.back().rightCount += right;
    } else {
      m_blocks.push_back(block);
    }
    m_leftDone += leftCount;
    m_rightDone += rightCount;
  }

  const Side& m_left;
  const Side& m_right;
  size_t m_leftDone = 0, m_rightDone = 0;  // lines that are in blocks
  std::vector<LineBlock> m_blocks;
};

// A word, a run of white space, any other character, or a line's end.
struct Token {
  int line;  // from the block's first
  int begin;
  int end;
  bool isSpace;
};

bool IsWordByte(char character) {
  const auto byte = static_cast<unsigned char>(character);
  const bool isLetter = (byte | 0x20) >= 'a' && (byte | 0x20) <= 'z';
  return isLetter || (byte >= '0' && byte <= '9') || byte == '_' || byte >= 0x80;
}

int TokenEnd(std::string_view text, size_t begin) {
  size_t end = begin + 1;
  if (IsSpace(text[begin])) {
    while (end < text.size() && IsSpace(text[end])) ++end;
  } else if (IsWordByte(text[begin])) {
    while (end < text.size() && IsWordByte(text[end])) ++end;
  }
  return static_cast<int>(end);
}

// The tokens of some lines, with the numbers of those that count.
struct Tokens {
  // False: too many.
  bool Add(const DocumentText& text, int first, int count, Numbers& numbers,
           const CompareOptions& options) {
    for (int line = 0; line < count; ++line) {
      const TextLine& source = text.lines()[static_cast<size_t>(first + line)];
      const int size = static_cast<int>(source.text.size());
      for (int begin = 0, end; begin < size; begin = end) {
        end = TokenEnd(source.text, static_cast<size_t>(begin));
        const auto piece =
            source.text.substr(static_cast<size_t>(begin), static_cast<size_t>(end - begin));
        AddToken({line, begin, end, IsSpace(piece[0])}, piece, numbers, options);
        if (list.size() > kMostTokens) return false;
      }
      AddToken({line, size, size + static_cast<int>(source.end.size()), true}, source.end, numbers,
               options);
    }
    return true;
  }

  void AddToken(const Token& token, std::string_view text, Numbers& numbers,
                const CompareOptions& options) {
    if (text.empty()) return;
    std::string key(text);
    if (token.isSpace && options.whiteSpaceMode == kWhiteSpaceIgnored) return;
    if (token.isSpace && options.whiteSpaceMode == kWhiteSpaceRuns) {
      // A line's end is white space, too, and one run with what stands around it.
      if (!list.empty() && list.back().isSpace) return;
      key = " ";
    }
    list.push_back(token);
    sequence.push_back(numbers.Of(options.ignoreCase ? LowerUtf8(key) : key));
  }

  // Words of whole lines where that can be: the indentation of an inserted line is its own, not
  // that of the line below.
  void Settle(std::vector<char>& isLeftOut) const {
    const auto isWhole = [this](size_t place, size_t length) {
      return BeginsLine(place) && BeginsLine(place + length);
    };
    SettleRuns(sequence, isLeftOut, [&](size_t place, size_t best, size_t length) {
      return isWhole(place, length) && !isWhole(best, length);
    });
  }

  // Characters but white space: all, and those in common.
  int Characters() const {
    return Count([](size_t) { return true; });
  }
  int InCommon(const std::vector<char>& isLeftOut) const {
    return Count([&](size_t token) { return !isLeftOut[token]; });
  }

  std::vector<ChangedRanges> Changed(const std::vector<char>& isLeftOut, int lines) const {
    std::vector<ChangedRanges> changed(static_cast<size_t>(lines));
    for (size_t i = 0; i < list.size(); ++i) {
      if (!isLeftOut[i]) continue;
      ChangedRanges& ranges = changed[static_cast<size_t>(list[i].line)];
      if (!ranges.empty() && ranges.back().second == list[i].begin) {
        ranges.back().second = list[i].end;
      } else {
        ranges.emplace_back(list[i].begin, list[i].end);
      }
    }
    return changed;
  }

  std::vector<Token> list;
  std::vector<int> sequence;

 private:
  bool BeginsLine(size_t place) const {
    return place == 0 || place == list.size() || list[place - 1].line != list[place].line;
  }

  template <class Counts>
  int Count(Counts counts) const {
    int count = 0;
    for (size_t i = 0; i < list.size(); ++i) {
      if (!list[i].isSpace && counts(i)) count += list[i].end - list[i].begin;
    }
    return count;
  }
};

std::vector<ChangedRanges> WholeLines(const DocumentText& text, int first, int count) {
  std::vector<ChangedRanges> changed;
  for (int line = first; line < first + count; ++line) {
    const TextLine& source = text.lines()[static_cast<size_t>(line)];
    changed.push_back({{0, static_cast<int>(source.text.size())}});
  }
  return changed;
}

}  // namespace

std::vector<LineBlock> DiffLines(const DocumentText& left, const DocumentText& right,
                                 const CompareOptions& options,
                                 const ContentCompare::StopPoll& stop) {
  Numbers numbers;
  Side leftSide(left, numbers, options, stop), rightSide(right, numbers, options, stop);
  SequenceDifference difference = DiffSequences(leftSide.sequence, rightSide.sequence, stop);
  if (stop && stop()) return {};
  leftSide.Settle(difference.left);
  rightSide.Settle(difference.right);
  leftSide.Apply(difference.left);
  rightSide.Apply(difference.right);

  return BlockMaker(leftSide, rightSide).Make();
}

WordDifference DiffWords(const DocumentText& left, const DocumentText& right,
                         const LineBlock& block, const CompareOptions& options) {
  Numbers numbers;
  Tokens leftTokens, rightTokens;
  if (leftTokens.Add(left, block.left, block.leftCount, numbers, options) &&
      rightTokens.Add(right, block.right, block.rightCount, numbers, options)) {
    SequenceDifference difference = DiffSequences(leftTokens.sequence, rightTokens.sequence);
    leftTokens.Settle(difference.left);
    rightTokens.Settle(difference.right);
    const int common =
        leftTokens.InCommon(difference.left) + rightTokens.InCommon(difference.right);
    const int all = leftTokens.Characters() + rightTokens.Characters();
    if (common >= kLeastInCommon * all) {
      return {leftTokens.Changed(difference.left, block.leftCount),
              rightTokens.Changed(difference.right, block.rightCount)};
    }
  }
  return {WholeLines(left, block.left, block.leftCount),
          WholeLines(right, block.right, block.rightCount)};
}
