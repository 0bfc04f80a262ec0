#include "foldercmp/ListPlace.h"

#include <algorithm>

#include "foldercmp/ComparisonList.h"

namespace {

std::string keyOfRow(const ComparisonList& list, int row) {
  if (row < 0 || row >= list.GetItemCount()) return {};
  std::string key(ComparisonList::RecordOf(list.GetItemData(row)).relativePath);
  CharLowerBuffA(key.data(), static_cast<DWORD>(key.size()));
  return key;
}

int rowHeight(const ComparisonList& list) {
  CRect place(0, 0, 0, 0);
  list.GetItemRect(0, place, LVIR_BOUNDS);
  return place.Height();
}

void scrollTo(ComparisonList& list, int row, int right) {
  const int down = (row - list.GetTopIndex()) * rowHeight(list);
  list.Scroll(CSize(right - list.GetScrollPos(SB_HORZ), down));
}

}  // namespace

ListPlace::ListPlace(const ComparisonList& list)
    : m_sortColumn(list.GetSortColumn()),
      m_isDescending(list.IsSortDescending()),
      m_focusedRow(list.GetNextItem(-1, LVNI_FOCUSED)),
      m_topRow(list.GetTopIndex()),
      m_scrolledRight(list.GetScrollPos(SB_HORZ)) {
  const int columns = list.GetVisibleColNum();
  for (int column = 0; column < columns; ++column) m_widths.push_back(list.GetColumnWidth(column));
  m_order.resize(static_cast<size_t>(columns));
  if (columns == 0 || !list.GetColumnOrderArray(m_order.data(), columns)) m_order.clear();
  for (int row = -1; (row = list.GetNextItem(row, LVNI_SELECTED)) >= 0;)
    m_selected.insert(keyOfRow(list, row));
  m_focused = keyOfRow(list, m_focusedRow);
  m_top = keyOfRow(list, m_topRow);
}

void ListPlace::RestoreLayout(ComparisonList& list) const {
  if (static_cast<size_t>(list.GetVisibleColNum()) == m_widths.size()) {
    for (size_t column = 0; column < m_widths.size(); ++column)
      list.SetColumnWidth(static_cast<int>(column), m_widths[column]);
    if (!m_order.empty())
      list.SetColumnOrderArray(static_cast<int>(m_order.size()), const_cast<int*>(m_order.data()));
  }
  if (m_sortColumn >= 0) list.SetSortKey(m_sortColumn, 0, m_isDescending);
}

void ListPlace::RestoreRows(ComparisonList& list) const {
  const int rows = list.GetItemCount();
  if (rows == 0) return;
  int focused = -1, top = -1;
  std::vector<int> selected;
  for (int row = 0; row < rows; ++row) {
    const std::string key = keyOfRow(list, row);
    if (m_selected.contains(key)) selected.push_back(row);
    if (key == m_focused) focused = row;
    if (key == m_top) top = row;
  }
  const auto inside = [rows](int row) { return std::clamp(row, 0, rows - 1); };
  if (focused < 0) focused = inside(m_focusedRow);
  if (selected.empty() && !m_selected.empty()) selected.push_back(focused);
  list.DeselectAll();
  if (static_cast<int>(selected.size()) == rows)
    list.SelectAll();  // faster than row by row
  else
    for (const int row : selected) list.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
  list.SetItemState(focused, LVIS_FOCUSED, LVIS_FOCUSED);
  list.SetSelectionMark(focused);
  scrollTo(list, top >= 0 ? top : inside(m_topRow), m_scrolledRight);
}
