// The order of the rows.
#include <cstring>

#include "diag/trace.h"
#include "lists/MListCtrl.h"
#include "markup/NoException.h"

// --- Comparing ---

int MListCtrl::CompareStr(const char* one, const char* two) {
  const int result = strcmp(one, two);  // as unsigned characters
  return (result > 0) - (result < 0);
}

int MListCtrl::ReverseCompareStr(const char* one, const char* two) { return CompareStr(two, one); }

int MListCtrl::CompareStrNocase(const char* one, const char* two) { return _stricmp(one, two); }

int MListCtrl::ReverseCompareStrNocase(const char* one, const char* two) {
  return -_stricmp(one, two);
}

int MListCtrl::CompareVal(unsigned long one, unsigned long two) {
  return one < two ? -1 : one > two;
}

void MListCtrl::AddSortKey(ListOrder& order, int column) const {
  const ListColumn& by = m_columns[column];
  if (by.kind != ListColumnText)
    order.ThenByNumber(SlotOf(column));
  else if (by.compareTexts != nullptr)
    order.ThenBy(SlotOf(column), by.compareTexts);
  else if (by.compareValues != nullptr)
    order.ThenById(by.compareValues);
  else
    order.ThenByNothing();
}

ListOrder MListCtrl::OrderBy(int column, int descending) const {
  ListOrder order(m_map);
  if (column < 0) return order;
  AddSortKey(order, column);
  for (const int alternate : m_columns[column].alternates) {
    if (!m_columns.Has(alternate)) break;
    AddSortKey(order, alternate);
  }
  if (descending) order.Descending();
  return order;
}

int MListCtrl::CompareItemsFunc(unsigned long one, unsigned long two) const {
  const uint32_t first = m_map.Find(one), second = m_map.Find(two);
  if (first == kNone || second == kNone) return 0;
  return WithoutException([=, this] { return Order().Compare(first, second); });
}

// --- Sorting ---

void MListCtrl::SetSortMethod(int restoreSavedKey, int headerArrows) {
  m_restoreSavedKey = restoreSavedKey;
  m_headerArrows = headerArrows;
  ShowArrow();
}

void MListCtrl::SetAltSortKey(int column, int alt1, int alt2, int alt3) {
  if (!m_columns.Has(column)) {
    ASSERT(FALSE);
    return;
  }
  m_columns[column].alternates = {alt1, alt2, alt3};
}

int MListCtrl::CanSortBy(int column) const {
  return m_columns.Has(column) && m_columns[column].CanBeSorted();
}

int MListCtrl::SetSortKey(int column, int toggle, int descending) {
  if (!CanSortBy(column)) {
    MessageBeep(MB_OK);
    return 0;
  }
  if (column != m_sortColumn) {
    m_sortDescending = toggle ? m_columns[column].initialDirection < 0 : descending != 0;
  } else {
    if (!toggle && m_sortDescending == (descending != 0)) return 1;
    m_sortDescending = !m_sortDescending;
  }
  m_sortColumn = column;
  MarkSortMenu();
  ShowArrow();

  const CWaitCursor wait;
  const ViewState state = TakeView();
  SortRows();
  RowsReplaced(state);
  if (state.selected.empty()) return 1;
  const int last = RowOf(m_lastSelected);
  EnsureVisible(last >= 0 && IsSelected(last) ? last : GetNextItem(-1, LVNI_SELECTED), FALSE);
  return 1;
}

void MListCtrl::SortRows() {
  // When there is no memory, or a client's comparison fails, the rows stay as they are.
  VERIFY(WithoutException([this] {
    Order().Sort(m_rows);
    return 1;
  }));
}

void MListCtrl::ShowArrow() {
  if (m_hWnd == nullptr) return;
  const bool shown = m_headerArrows && m_sortColumn >= 0;
  SetHeaderArrow(shown ? m_columns[m_sortColumn].position : -1, m_sortDescending);
}
