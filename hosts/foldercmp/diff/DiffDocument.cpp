#include "foldercmp/diff/DiffDocument.h"

#include <algorithm>
#include <utility>

namespace {

// A page of rows has fewer differences than this.
constexpr size_t kMostCachedWords = 512;
// Words of larger differences are not looked for.
constexpr int kMostRowsWithWords = 5000;

DiffKind KindOf(const LineBlock& block) {
  if (block.leftCount == 0) return DiffKind::Added;
  return block.rightCount == 0 ? DiffKind::Deleted : DiffKind::Changed;
}

}  // namespace

DiffDocument::DiffDocument() : m_texts(std::make_shared<DiffTexts>()) {}

DiffDocument::DiffDocument(std::shared_ptr<const DiffTexts> texts, const CompareOptions& options,
                           const ContentCompare::StopPoll& stop)
    : m_texts(std::move(texts)), m_options(options) {
  if (!m_texts->AreTexts()) return;
  SimilarLines similar;
  for (const LineBlock& block : DiffLines(m_texts->left, m_texts->right, options, stop)) {
    if (stop && stop()) return;
    if (block.isDifferent) {
      AddDifference(block, similar);
    } else {
      AddRows(block, -1);
    }
  }
}

void DiffDocument::AddRows(const LineBlock& block, int difference) {
  if (block.rows() == 0) return;
  m_blocks.push_back({block, m_rowCount, difference});
  m_rowCount += block.rows();
}

void DiffDocument::AddDifference(const LineBlock& block, SimilarLines& similar) {
  const auto linesOf = [&](DiffSide side, int first, int count) {
    std::vector<std::string_view> lines;
    for (int line = first; line < first + count; ++line) lines.push_back(Line(side, line).text);
    return lines;
  };
  const int number = static_cast<int>(m_differences.size()), firstRow = m_rowCount;
  int left = 0, right = 0;  // what is done of the block
  const auto addUpTo = [&](int leftEnd, int rightEnd) {
    AddRows({block.left + left, leftEnd - left, block.right + right, rightEnd - right, true},
            number);
    left = leftEnd;
    right = rightEnd;
  };
  for (const auto& [leftLine, rightLine] :
       similar.PairsOf(linesOf(DiffSide::Left, block.left, block.leftCount),
                       linesOf(DiffSide::Right, block.right, block.rightCount))) {
    addUpTo(leftLine, rightLine);
    addUpTo(leftLine + 1, rightLine + 1);
  }
  addUpTo(block.leftCount, block.rightCount);
  m_differences.push_back({firstRow, m_rowCount - firstRow, KindOf(block)});
  m_differentLines.push_back(block);
}

size_t DiffDocument::BlockOfRow(int row) const {
  const auto next =
      std::upper_bound(m_blocks.begin(), m_blocks.end(), row,
                       [](int wanted, const Block& block) { return wanted < block.firstRow; });
  return static_cast<size_t>(next - m_blocks.begin()) - 1;
}

DiffRow DiffDocument::RowAt(int row) const {
  const Block& block = m_blocks[BlockOfRow(row)];
  const int place = row - block.firstRow;
  const int left = place < block.leftCount ? block.left + place : -1;
  const int right = place < block.rightCount ? block.right + place : -1;
  DiffKind kind = DiffKind::Equal;
  if (block.isDifferent)
    kind = left < 0 ? DiffKind::Added : right < 0 ? DiffKind::Deleted : DiffKind::Changed;
  return {kind, left, right, block.difference};
}

int DiffDocument::RowOfLine(DiffSide side, int line) const {
  if (m_blocks.empty()) return 0;
  const bool isLeft = side == DiffSide::Left;
  // Of several blocks that begin with the line, all but the last one have no lines on this side.
  const auto next = std::upper_bound(
      m_blocks.begin(), m_blocks.end(), line,
      [&](int wanted, const Block& block) { return wanted < (isLeft ? block.left : block.right); });
  const Block& block = next == m_blocks.begin() ? *next : next[-1];
  const int place = line - (isLeft ? block.left : block.right);
  return block.firstRow + std::clamp(place, 0, block.rows() - 1);
}

const ChangedRanges& DiffDocument::ChangedWords(DiffSide side, const DiffRow& row) const {
  static const ChangedRanges none;
  if (row.kind != DiffKind::Changed) return none;
  const Difference& difference = m_differences[static_cast<size_t>(row.difference)];
  if (difference.rows > kMostRowsWithWords) return none;
  const LineBlock& block = m_differentLines[static_cast<size_t>(row.difference)];
  auto found = m_words.find(row.difference);
  if (found == m_words.end()) {
    if (m_words.size() >= kMostCachedWords) m_words.clear();
    found =
        m_words.emplace(row.difference, DiffWords(m_texts->left, m_texts->right, block, m_options))
            .first;
  }
  const bool isLeft = side == DiffSide::Left;
  const int place = row.LineOf(side) - (isLeft ? block.left : block.right);
  const auto& lines = isLeft ? found->second.left : found->second.right;
  const ChangedRanges& ranges = lines[static_cast<size_t>(place)];
  // What is changed as a whole is marked by its row's colour.
  const int size = static_cast<int>(Line(side, row.LineOf(side)).text.size());
  const bool isWhole = ranges.size() == 1 && ranges[0].first == 0 && ranges[0].second >= size;
  return isWhole ? none : ranges;
}

int DiffDocument::DifferenceAt(int row) const {
  return row >= 0 && row < m_rowCount ? m_blocks[BlockOfRow(row)].difference : -1;
}

int DiffDocument::DifferenceBelow(int row) const {
  const auto next = std::upper_bound(
      m_differences.begin(), m_differences.end(), row,
      [](int wanted, const Difference& difference) { return wanted < difference.firstRow; });
  return next == m_differences.end() ? -1 : static_cast<int>(next - m_differences.begin());
}

int DiffDocument::DifferenceAbove(int row) const {
  const auto next = std::lower_bound(m_differences.begin(), m_differences.end(), row,
                                     [](const Difference& difference, int wanted) {
                                       return difference.firstRow + difference.rows <= wanted;
                                     });
  return static_cast<int>(next - m_differences.begin()) - 1;
}
