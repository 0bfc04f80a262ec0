// Columns: their declaration, their headers, and the layout that is kept.
#include <algorithm>
#include <cstring>

#include "diag/trace.h"
#include "lists/MListCtrl.h"
#include "markup/NoException.h"
#include "resources/resource.h"
#include "settings/MString.h"
#include "settings/SettingsGroup.h"

namespace {

constexpr int kWidest = 10000;  // a saved width above this is no width
constexpr char kWidthValue[] = "Width";
constexpr char kSortColumnValue[] = "SortCol";
constexpr char kSortOrderValue[] = "SortOrder";

// In menus a single "&" marks a letter.
CString menuText(const CString& title) {
  CString text(title);
  text.Replace("&", "&&");
  return text;
}

}  // namespace

// --- Declaration ---

template <class Complete>
int MListCtrl::Declare(const char* title, ListColumnKind kind, int descendingFirst,
                       Complete complete) {
  return WithoutException([&] {
    ListColumn column;
    column.title = title;
    column.kind = kind;
    column.initialDirection = descendingFirst ? -1 : 1;
    complete(column);
    return AppendColumn(column);
  });
}

int MListCtrl::AddColumn(const char* title, CompareValues compare, int descendingFirst) {
  return Declare(title, ListColumnText, descendingFirst,
                 [=](ListColumn& column) { column.compareValues = compare; });
}

int MListCtrl::AddColumn(const char* title, CompareTexts compare, int descendingFirst) {
  return Declare(title, ListColumnText, descendingFirst,
                 [=](ListColumn& column) { column.compareTexts = compare; });
}

int MListCtrl::AddUnsortedColumn(const char* title) {
  return Declare(title, ListColumnText, 0, [](ListColumn&) {});
}

int MListCtrl::AddEnumColumn(const char* title, int count, const char* values,
                             int descendingFirst) {
  return Declare(title, ListColumnEnum, descendingFirst,
                 [=](ListColumn& column) { column.enumTexts = EnumTexts(count, values); });
}

int MListCtrl::AddTimeColumn(const char* title, int descendingFirst) {
  return Declare(title, ListColumnTime, descendingFirst, [](ListColumn&) {});
}

int MListCtrl::AddNumericColumn(const char* title, int descendingFirst) {
  return Declare(title, ListColumnNumeric, descendingFirst, [](ListColumn&) {});
}

int MListCtrl::UpdateEnumColumnValues(int column, int count, const char* values) {
  if (!m_columns.Has(column) || m_columns[column].kind != ListColumnEnum) {
    ASSERT(FALSE);
    return 0;
  }
  return WithoutException([=, this] {
    m_columns[column].enumTexts = EnumTexts(count, values);
    if (m_hWnd != nullptr) Invalidate();
    return 1;
  });
}

int MListCtrl::AppendColumn(const ListColumn& column) {
  const int index = m_columns.Count();
  ASSERT(index > 0 || (column.kind != ListColumnEnum && column.kind != ListColumnTime));
  if (index >= kMostColumns) {
    ASSERT(FALSE);
    return 0;
  }
  const CString entry = menuText(column.title);
  const int added = WithoutException([&] {
    m_columns.Add(column);
    m_map.AddSlot(column.kind == ListColumnText);
    return 1;
  });
  ASSERT(added);
  if (!added) {
    m_columns.Cut(index);
    return 0;
  }
  const int position = m_columns[index].position;
  if (position < 0) return 1;
  if (column.CanBeSorted()) m_sortMenu.AppendItem(CommandSortBy + static_cast<UINT>(index), entry);
  if (m_hWnd != nullptr) InsertHeader(position);
  return 1;
}

std::vector<CString> MListCtrl::EnumTexts(int count, const char* values) {
  CString all(values);
  std::vector<const char*> pieces(static_cast<size_t>(std::max(count, 0)));
  BreakDataStr(all.GetBuffer(0), count, pieces.data());
  return {pieces.begin(), pieces.end()};
}

void MListCtrl::BreakDataStr(char* text, int count, const char** pieces) {
  for (int i = 0; i < count; ++i) {
    pieces[i] = text;
    char* const tab = strchr(text, '\t');
    if (tab == nullptr) {
      ASSERT(i == count - 1);
      text += strlen(text);
    } else {
      *tab = 0;
      text = tab + 1;
    }
  }
}

// --- Questions ---

MListCtrl::ColumnKind MListCtrl::GetColumnKind(int column) const {
  ASSERT(m_columns.Has(column));
  return m_columns.Has(column) ? static_cast<ColumnKind>(m_columns[column].kind) : Text;
}

int MListCtrl::DataIndex(int column, int byDataIndex) const {
  if (byDataIndex) return m_columns.Has(column) || column == kDescription ? column : -1;
  if (column == m_columns.VisibleCount()) return kDescription;
  return m_columns.AtPosition(column);
}

CString MListCtrl::GetColName(int column, int byDataIndex) const {
  const int index = DataIndex(column, byDataIndex);
  if (index == kDescription) return GetDescriptionTitle();
  return index < 0 ? CString() : m_columns[index].title;
}

int MListCtrl::GetColNames(TextArray& names) const {
  names.RemoveAll();
  for (int i = 0; i < m_columns.Count(); ++i) names.Add(m_columns[i].title);
  return m_columns.Count();
}

int MListCtrl::CalcColIdx(int position) const { return m_columns.AtPosition(position); }

int MListCtrl::CalcColIdx(const char* title) const {
  for (int i = 0; i < m_columns.Count(); ++i)
    if (m_columns[i].title == title) return i;
  return -1;
}

CString MListCtrl::GetDescriptionTitle() const {
  MString title;
  if (!title.LoadString(IDS_DESCRIPTION)) title.LoadString(IDS_DESCRIPTION_FALLBACK);
  return title;
}

// --- Headers and layout ---

CString MListCtrl::HeaderText(int position) const {
  const int column = m_columns.AtPosition(position);
  return column < 0 ? GetDescriptionTitle() : m_columns[column].title;
}

void MListCtrl::InsertHeader(int position) {
  const CString title = HeaderText(position);
  int width = GetStringWidth(title) + kHeaderMargin + (m_headerArrows ? kArrowWidth : 0);
  unsigned long saved = 0;
  if (m_registry != nullptr && m_registry->GetUserKey(kWidthValue + title, saved, 0) &&
      saved <= kWidest)
    width = static_cast<int>(saved);
  VERIFY(InsertColumn(position, title, LVCFMT_LEFT, width, position) == position);
}

void MListCtrl::SetRegistryKey(const char* key) {
  m_registryKey = key;
  m_registry.reset(m_registryKey.IsEmpty() ? nullptr : new MRegistry(m_registryKey));
}

DataFilter* MListCtrl::GetFilter(int column, const char* suffix) const {
  if (!m_columns.Has(column) || m_registryKey.IsEmpty()) {
    ASSERT(FALSE);
    return nullptr;
  }
  return NewFilter(column, m_registryKey + "\\" + m_columns[column].title + CString(suffix));
}

DataFilter* MListCtrl::NewFilter(int column, const char* key) const {
  if (!m_columns.Has(column)) {
    ASSERT(FALSE);
    return nullptr;
  }
  const ListColumn& filtered = m_columns[column];
  switch (filtered.kind) {
    case ListColumnEnum:
      return new EnumFilter(filtered.enumTexts, key);
    case ListColumnTime:
      return new TimeFilter(key);
    case ListColumnNumeric:
      return new NumericFilter(key);
    default:
      return new StringFilter(filtered.compareTexts, key);
  }
}

void MListCtrl::SaveLayout() {
  if (m_registry == nullptr) return;
  for (int position = 0; position < GetVisibleColNum(); ++position)
    m_registry->SetUserKey(kWidthValue + HeaderText(position),
                           static_cast<unsigned long>(GetColumnWidth(position)));
  SettingsGroup sort(*m_registry);
  sort.Add(kSortColumnValue, static_cast<unsigned long>(m_sortColumn));
  sort.Add(kSortOrderValue, static_cast<unsigned long>(m_sortDescending));
  sort.Save();
}

int MListCtrl::SetInitialSortKey(int column) {
  if (m_restoreSavedKey && m_registry != nullptr) {
    int saved = -1, descending = 0;
    m_registry->GetUserKey(kSortColumnValue, saved, column);
    m_registry->GetUserKey(kSortOrderValue, descending, 0);
    // A key that was saved with other columns, or damaged, is none.
    if (m_columns.Has(saved) && m_columns[saved].CanBeSorted())
      return SetSortKey(saved, 0, descending != 0);
  }
  return SetSortKey(column, 0, m_columns.Has(column) && m_columns[column].initialDirection < 0);
}
