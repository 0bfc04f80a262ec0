// What the user has made of a list: taken from one, given to the next one of the same folders or of
// others.
#pragma once

#include <afxwin.h>

#include <string>
#include <unordered_set>
#include <vector>

class ComparisonList;

// Documents are known by their relative paths, in lower case.
class ListPlace {
 public:
  explicit ListPlace(const ComparisonList& list);

  // Columns and order.
  void RestoreLayout(ComparisonList& list) const;
  // Selection, focus and scrolling. Where the document with the focus is gone, the focus goes to
  // the row where it was, and so does the selection when all of it is gone.
  void RestoreRows(ComparisonList& list) const;

 private:
  std::vector<int> m_widths, m_order;
  int m_sortColumn;
  int m_isDescending;
  std::unordered_set<std::string> m_selected;
  std::string m_focused, m_top;
  int m_focusedRow, m_topRow;
  int m_scrolledRight;  // in pixels
};
