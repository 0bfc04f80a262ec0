// The columns of a list: what was declared, and where it is shown.
#pragma once

#include <afxwin.h>

#include <array>
#include <vector>

#include "lists/ListOrder.h"

enum ListColumnKind { ListColumnText, ListColumnEnum, ListColumnTime, ListColumnNumeric };

struct ListColumn {
  CString title;
  ListColumnKind kind = ListColumnText;
  ListOrder::CompareValues compareValues = nullptr;
  ListOrder::CompareTexts compareTexts = nullptr;
  int initialDirection = 1;  // -1: descending
  std::vector<CString> enumTexts;
  std::array<int, 3> alternates = {-1, -1, -1};  // up to the first -1
  int position = -1;                             // where it is shown; -1: it is not

  bool CanBeSorted() const {
    return kind != ListColumnText || compareValues != nullptr || compareTexts != nullptr;
  }
};

// Columns are numbered in the order of their declaration (data index), and the ones that are shown
// in the same order by position.
class ListColumns {
 public:
  static constexpr int kMost = 25;

  int Count() const { return static_cast<int>(m_columns.size()); }
  int VisibleCount() const { return static_cast<int>(m_visible.size()); }
  bool Has(int column) const { return column >= 0 && column < Count(); }
  ListColumn& operator[](int column) { return m_columns[column]; }
  const ListColumn& operator[](int column) const { return m_columns[column]; }

  // Bit i: data column i is shown. For columns that are still to be declared.
  void SetEnabled(unsigned long mask) { m_enabled = mask; }
  bool IsEnabled(int column) const {
    return column >= 0 && column < 32 && (m_enabled >> column & 1) != 0;
  }
  // Gives the column its position. Throws std::bad_alloc.
  void Add(const ListColumn& column);
  // Keeps the first count columns.
  void Cut(int count);
  // The data index of a position, -1: nothing is shown there.
  int AtPosition(int position) const {
    return position >= 0 && position < VisibleCount() ? m_visible[position] : -1;
  }

 private:
  std::vector<ListColumn> m_columns;
  std::vector<int> m_visible;
  unsigned long m_enabled = ~0ul;
};
