// Which lines of a difference belong side by side: lines that were changed a little beside what
// they were before, however many were inserted above them.
#pragma once

#include <afxwin.h>

#include <string_view>
#include <utility>
#include <vector>

// For the differences of one comparison, one after the other.
class SimilarLines {
 public:
  // Pairs of places in the two lists, ascending in both; other lines resemble none. Large
  // differences, and all when there have been very many before, have no pairs.
  std::vector<std::pair<int, int>> PairsOf(const std::vector<std::string_view>& left,
                                           const std::vector<std::string_view>& right);

 private:
  int m_comparisons = 0;  // of two lines, so far
};
