// Rows: which items are shown, in which order, and what the window knows of them.
#include <algorithm>

#include "diag/trace.h"
#include "lists/MListCtrl.h"
#include "lists/TextMatch.h"
#include "markup/NoException.h"

namespace {

// Removing so many rows costs as much as numbering all of them.
constexpr int kMostRemovedUnnumbered = 4096;
// Up to so many selected rows are deselected one by one, which is faster than all at once.
constexpr size_t kFewRows = 1000;
constexpr int kRecordsAhead = 8;  // how far before its use a text is fetched from memory

}  // namespace

// --- One row ---

void MListCtrl::AppendRow(uint32_t record) {
  m_rows.push_back(record);
  m_map.Row(record) = static_cast<uint32_t>(m_rows.size() - 1);
  if (m_hWnd == nullptr || m_rowCountStale) return;
  m_rowCountStale = true;
  Invalidate(FALSE);  // WM_PAINT is a message, too
}

void MListCtrl::RemoveRow(int row) {
  const uint32_t record = m_rows[row];
  const bool hadFocus = m_hWnd != nullptr && FocusedRow() == row;
  if (m_hWnd != nullptr) {
    if (GetEditControl() != nullptr) CancelEditLabel();
    ++m_restoring;
    VERIFY(CListCtrl::DeleteItem(row));
    --m_restoring;
  }
  m_rows.erase(m_rows.begin() + row);
  m_map.Row(record) = kNone;
  Forget(record);
  if (++m_removedSinceNumbered > kMostRemovedUnnumbered) m_rowsNumbered = false;
  // The keyboard goes on from where it was.
  if (hadFocus && !m_rows.empty())
    SetItemState(std::min(row, GetItemCount() - 1), LVIS_FOCUSED, LVIS_FOCUSED);
}

// An item that is shown knows its row, or a later one: from there it is looked for upwards, not
// farther than rows were removed.
int MListCtrl::RowOf(uint32_t record) const {
  if (record == kNone || m_map.Row(record) == kNone) return -1;
  if (!m_rowsNumbered) NumberRows();
  const int known = static_cast<int>(m_map.Row(record));
  for (int row = std::min(known, GetItemCount() - 1); row >= 0; --row)
    if (m_rows[row] == record) return row;
  ASSERT(FALSE);
  return -1;
}

void MListCtrl::NumberRows() const {
  for (size_t row = 0; row < m_rows.size(); ++row)
    m_map.Row(m_rows[row]) = static_cast<uint32_t>(row);
  m_rowsNumbered = true;
  m_removedSinceNumbered = 0;
}

// --- All rows ---

MListCtrl::QuietWindow::QuietWindow(MListCtrl& list) : m_list(list) {
  if (m_list.m_restoring++ == 0) m_list.SetRedraw(FALSE);
}

MListCtrl::QuietWindow::~QuietWindow() {
  if (--m_list.m_restoring == 0) m_list.SetRedraw(TRUE);
}

int MListCtrl::FocusedRow() const { return GetNextItem(-1, LVNI_FOCUSED); }

// Remembers selection and focus as items and takes both from the rows, which are about to change.
// Without memory for it the selection is lost.
MListCtrl::ViewState MListCtrl::TakeView() {
  ViewState state;
  if (m_hWnd == nullptr) return state;
  if (GetEditControl() != nullptr) CancelEditLabel();
  const auto record = [this](int row) { return HasRow(row) ? m_rows[row] : kNone; };
  state.focused = record(FocusedRow());
  state.anchor = record(GetSelectionMark());
  const size_t count = GetSelectedCount();
  std::vector<int> rows;
  const int isRemembered = WithoutException([&] {
    rows.reserve(count);
    state.selected.reserve(count);
    for (int row = -1; rows.size() < count && (row = GetNextItem(row, LVNI_SELECTED)) >= 0;) {
      rows.push_back(row);
      state.selected.push_back(record(row));
    }
    return 1;
  });
  if (count == 0 && state.focused == kNone) return state;
  const QuietWindow quiet(*this);
  if (count > kFewRows || !isRemembered)
    SetItemState(-1, 0, LVIS_SELECTED);
  else
    for (const int row : rows) SetItemState(row, 0, LVIS_SELECTED);
  if (state.focused != kNone) SetItemState(FocusedRow(), 0, LVIS_FOCUSED);
  return state;
}

void MListCtrl::RestoreView(const ViewState& state) {
  std::vector<int> rows;
  WithoutException([&] {
    rows.reserve(state.selected.size());
    for (const uint32_t record : state.selected)
      if (const int row = RowOf(record); row >= 0) rows.push_back(row);
    return 1;
  });
  // Neighbours after each other make long ranges, which the window finds again faster.
  std::sort(rows.begin(), rows.end());
  SelectRows(rows);
  if (const int row = RowOf(state.focused); row >= 0) SetItemState(row, LVIS_FOCUSED, LVIS_FOCUSED);
  SetSelectionMark(RowOf(state.anchor));
}

void MListCtrl::SelectRows(const std::vector<int>& rows) {
  if (rows.size() == m_rows.size() && rows.size() > kFewRows)
    SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
  else
    for (const int row : rows) SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
}

void MListCtrl::RowsReplaced(const ViewState& state) {
  m_rowsNumbered = false;
  if (m_hWnd == nullptr) return;
  {
    const QuietWindow quiet(*this);
    SyncRowCount();
    RestoreView(state);
  }
  Invalidate();
  ReportSelection();
}

// --- Colours ---

void MListCtrl::GetDisplayColors(int row, COLORREF& text, COLORREF& background) {
  if (HasRow(row)) GetItemColors(GetItemData(row), text, background);
}

void MListCtrl::GetItemColors(unsigned long, COLORREF&, COLORREF&) {}

// --- The filter ---

bool MListCtrl::Passes(uint32_t record) const {
  m_map.Expect(record);
  return WithoutException([=, this] { return FilterMatch(m_map.Id(record)); }) != 0;
}

int MListCtrl::FilterMatch(unsigned long id) const {
  if (m_filter.pattern.IsEmpty()) return m_filter.type != FilterNever;
  const uint32_t record = m_map.Find(id);
  if (record == kNone) return 0;
  const char* const text = m_map.Text(record, SlotOf(m_filter.column));
  const char* const pattern = m_filter.pattern;
  bool matches = false;
  switch (m_filter.type) {
    case FilterEqual:
      matches = m_filter.pattern == text;
      break;
    case FilterContains:
      matches = Contains(text, pattern);
      break;
    case FilterBeginsWith:
      matches = BeginsWith(text, pattern);
      break;
    case FilterEqualNoCase:
    case FilterEqualNoCaseToo:
      matches = EqualsNoCase(text, pattern);
      break;
    case FilterBeginsWithNoCase:
      matches = BeginsWithNoCase(text, pattern);
      break;
    case FilterPathPrefix:
      matches = IsPathPrefix(text, pattern);
      break;
  }
  return matches != (m_filter.negate != 0);
}

int MListCtrl::SetFilter(int column, const char* pattern, int type, int negate) {
  if (!m_columns.Has(column) || m_columns[column].kind != ListColumnText || type < FilterEqual ||
      type > FilterNever) {
    ASSERT(FALSE);
    return 0;
  }
  if (pattern == nullptr) pattern = "";
  if (m_filter.pattern == pattern && m_filter.type == type &&
      (m_filter.negate != 0) == (negate != 0))
    return 1;
  return WithoutException([=, this] {
    m_filter = {column, pattern, type, negate};
    Refilter();
    return 1;
  });
}

int MListCtrl::SetFilter(const char*, int, int) { return 0; }

void MListCtrl::ResetFilter() {
  if (!IsFiltered()) return;
  m_filter.pattern.Empty();
  Refilter();
}

void MListCtrl::Refilter() {
  const CWaitCursor wait;
  const int hasRoom = WithoutException([this] {
    m_rows.reserve(m_map.Count());
    return 1;
  });
  ASSERT(hasRoom);
  if (!hasRoom) return;
  const ViewState state = TakeView();
  m_rows.clear();
  const bool readsTexts = IsFiltered();
  uint32_t ahead = m_map.First();
  for (int i = 0; i < kRecordsAhead && ahead != kNone; ++i) ahead = m_map.Next(ahead);
  for (uint32_t record = m_map.First(); record != kNone; record = m_map.Next(record)) {
    if (readsTexts && ahead != kNone) {
      m_map.FetchText(ahead, SlotOf(m_filter.column));
      ahead = m_map.Next(ahead);
    }
    m_map.Row(record) = kNone;
    if (!Passes(record)) continue;
    m_map.Row(record) = static_cast<uint32_t>(m_rows.size());
    m_rows.push_back(record);
  }
  SortRows();
  RowsReplaced(state);
}

CString MListCtrl::GetFilterDscr() const {
  if (m_filter.type == FilterNever) return "Never Match";
  if (!IsFiltered()) return CString();
  CString text = GetColName(m_filter.column, 1) + " Filter: ";
  if (m_filter.negate) text += " NOT ";
  if (m_filter.type == FilterContains) text += "*";
  text += m_filter.pattern;
  if (m_filter.type == FilterContains || m_filter.type == FilterBeginsWith ||
      m_filter.type == FilterBeginsWithNoCase || m_filter.type == FilterPathPrefix)
    text += "*";
  return text;
}
