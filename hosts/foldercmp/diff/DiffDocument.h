// Two texts side by side: the rows of the difference window, without any window.
#pragma once

#include <afxwin.h>

#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "dircmp/LineDiff.h"
#include "foldercmp/diff/SimilarLines.h"

enum class DiffSide { Left, Right };

inline DiffSide OtherSide(DiffSide side) {
  return side == DiffSide::Left ? DiffSide::Right : DiffSide::Left;
}

// What was read of two files. Several comparisons of them share it.
struct DiffTexts {
  const DocumentText& Of(DiffSide side) const { return side == DiffSide::Left ? left : right; }
  DocumentText::Kind KindOf(DiffSide side) const {
    return side == DiffSide::Left ? leftKind : rightKind;
  }
  bool AreTexts() const {
    return leftKind == DocumentText::Kind::Text && rightKind == DocumentText::Kind::Text;
  }

  DocumentText left;
  DocumentText right;
  DocumentText::Kind leftKind = DocumentText::Kind::Text;
  DocumentText::Kind rightKind = DocumentText::Kind::Text;
  // The files byte for byte.
  ContentCompare::Result bytes = ContentCompare::Result::Equal;
};

enum class DiffKind { Equal, Changed, Deleted, Added };

// Two lines that stand side by side, counted from 0; -1: nothing stands on that side.
struct DiffRow {
  int LineOf(DiffSide side) const { return side == DiffSide::Left ? left : right; }

  DiffKind kind;
  int left;
  int right;
  int difference;  // the number of the difference it belongs to, -1: of none
};

// Consecutive rows that differ.
struct Difference {
  int firstRow;
  int rows;
  DiffKind kind;  // Deleted and Added where all rows are; else Changed
};

// Doesn't change once it is made, but for a cache: for one thread at a time.
class DiffDocument {
 public:
  // Nothing: no rows.
  DiffDocument();
  // Compares the texts; there are no rows when one of the files is no text. stop: as for DiffLines;
  // some rows only. Lets out the exceptions of failed allocations.
  DiffDocument(std::shared_ptr<const DiffTexts> texts, const CompareOptions& options,
               const ContentCompare::StopPoll& stop = {});

  const std::shared_ptr<const DiffTexts>& texts() const { return m_texts; }
  const CompareOptions& options() const { return m_options; }

  int rowCount() const { return m_rowCount; }
  // 0 <= row < rowCount().
  DiffRow RowAt(int row) const;
  // The row of a line; of a line behind the last one the last row. 0 when there are no rows.
  int RowOfLine(DiffSide side, int line) const;

  int lineCount(DiffSide side) const { return static_cast<int>(m_texts->Of(side).lines().size()); }
  const TextLine& Line(DiffSide side, int line) const {
    return m_texts->Of(side).lines()[static_cast<size_t>(line)];
  }
  // The changed words of a line; none in lines that are equal, deleted, added, or changed as a
  // whole. The result stands until the next call.
  const ChangedRanges& ChangedWords(DiffSide side, const DiffRow& row) const;

  const std::vector<Difference>& differences() const { return m_differences; }
  // The difference that a row belongs to; the first one below a row, or last one above it. -1:
  // there is none.
  int DifferenceAt(int row) const;
  int DifferenceBelow(int row) const;
  int DifferenceAbove(int row) const;

 private:
  // Rows that are filled from the top; a difference may consist of several.
  struct Block : LineBlock {
    int firstRow;
    int difference;
  };

  void AddRows(const LineBlock& block, int difference);
  void AddDifference(const LineBlock& block, SimilarLines& similar);
  size_t BlockOfRow(int row) const;

  std::shared_ptr<const DiffTexts> m_texts;
  CompareOptions m_options;
  std::vector<Block> m_blocks;
  std::vector<Difference> m_differences;
  std::vector<LineBlock> m_differentLines;  // of the differences
  int m_rowCount = 0;
  mutable std::map<int, WordDifference> m_words;  // by difference: those that were shown lately
};
