// The differences of two texts, line by line and, within changed lines, word by word: for showing
// them side by side.
#pragma once

#include <afxwin.h>

#include <utility>
#include <vector>

#include "dircmp/ContentCompare.h"
#include "dircmp/DocumentText.h"

// Consecutive lines of two texts that stand side by side, counted from 0.
struct LineBlock {
  int left;
  int leftCount;
  int right;
  int rightCount;
  // Else the lines are equal in pairs; only empty ones, where white space doesn't count, may be
  // more on one side.
  bool isDifferent;

  int rows() const { return leftCount > rightCount ? leftCount : rightCount; }
};

// The blocks of two texts from their first lines to their last. Of the options, white space counts
// within lines as in the comparison of files; a line break that has moved to another word is a
// difference always. The work is bounded: in texts with very many differences, more than necessary
// are found. Lets out the exceptions of failed allocations.
//
// stop: asked again and again, some milliseconds apart at most; true, from then on: the work ends
// and there are no blocks.
ORVANE_API std::vector<LineBlock> DiffLines(const DocumentText& left, const DocumentText& right,
                                            const CompareOptions& options,
                                            const ContentCompare::StopPoll& stop = {});

// Changed characters of a line as ranges of its bytes, from the first up to the one before the
// second; a range that goes beyond the line's text means its end, too.
using ChangedRanges = std::vector<std::pair<int, int>>;

// The changed words in the lines of a different block: an entry a line.
struct WordDifference {
  std::vector<ChangedRanges> left;
  std::vector<ChangedRanges> right;
};

// Lines that have next to nothing in common are changed as a whole, and so are those of very large
// blocks.
ORVANE_API WordDifference DiffWords(const DocumentText& left, const DocumentText& right,
                                    const LineBlock& block, const CompareOptions& options);
