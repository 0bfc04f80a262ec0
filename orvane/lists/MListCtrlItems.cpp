// Items: adding, changing, deleting, and the texts of their cells.
#include <cstdlib>
#include <cstring>

#include "diag/trace.h"
#include "lists/CellValue.h"
#include "lists/MListCtrl.h"
#include "markup/NoException.h"
#include "messages/message.h"
#include "resources/resource.h"
#include "util/TimeUtil.h"

namespace {

constexpr char kUnknownItem[] = " Error";
constexpr char kUnknownEnum[] = " Error (0x%lx)";
constexpr char kNoTime[] = "{N/A}";
// The parenthesis belongs to the text of a number, by design: callers cut it off.
constexpr char kNumberFormat[] = "%ld)";

}  // namespace

// --- Storing ---

void MListCtrl::StoreText(uint32_t record, int slot, const char* text, bool whole) {
  if (text == nullptr) text = "";
  size_t length = strlen(text);
  if (!whole) {
    if (const void* const cut = memchr(text, '\r', length))
      length = static_cast<size_t>(static_cast<const char*>(cut) - text);
  }
  m_map.SetText(record, slot, text, length);
}

void MListCtrl::StoreValue(uint32_t record, int column, const char* value) {
  if (m_columns[column].kind == ListColumnText)
    StoreText(record, SlotOf(column), value, m_storeMultiLine != 0);
  else
    m_map.Slot(record, SlotOf(column)).number = NumberOf(value);
}

void MListCtrl::StoreValues(uint32_t record, const char* const* values, int withDescription) {
  const int count = m_columns.Count();
  for (int i = 0; i < count; ++i) StoreValue(record, i, values[i]);
  if (withDescription) StoreDescription(record, values[count]);
}

void MListCtrl::StoreDescription(uint32_t record, const char* text) {
  if (text == nullptr) text = "";
  if (strcmp(m_map.Text(record, kDescriptionSlot), text) == 0) return;
  StoreText(record, kDescriptionSlot, text, true);
  if (*text == 0 || m_hasDescription) return;
  m_hasDescription = true;
  if (m_hWnd != nullptr) InsertHeader(m_columns.VisibleCount());
}

unsigned long MListCtrl::AddItem(unsigned long id, const char* const* values, int withDescription) {
  if (id == kAutomaticId) {
    while (m_map.Find(m_nextId) != kNone || m_nextId == kAutomaticId) ++m_nextId;
    id = m_nextId++;
  } else if (m_map.Find(id) != kNone) {
    ASSERT(FALSE);
    return kAutomaticId;
  }
  uint32_t record = kNone;
  const int added = WithoutException([&] {
    record = m_map.Insert(id);
    StoreValues(record, values, withDescription);
    if (Passes(record)) AppendRow(record);
    return 1;
  });
  if (added) return id;
  ASSERT(FALSE);
  if (record != kNone) m_map.Erase(record);
  return kAutomaticId;
}

const char* MListCtrl::FromDataString(int column, const char* piece) const {
  const ListColumn& declared = m_columns[column];
  if (declared.kind == ListColumnText) return piece;
  for (size_t i = 0; i < declared.enumTexts.size(); ++i)
    if (declared.enumTexts[i] == piece) return ValueOf(static_cast<uint32_t>(i));
  return ValueOf(static_cast<uint32_t>(strtoll(piece, nullptr, 10)));
}

int MListCtrl::UpdateItem(unsigned long id, char* dataString, int withDescription) {
  const int count = m_columns.Count();
  const char* values[kMostColumns + 1];
  BreakDataStr(dataString, count + (withDescription ? 1 : 0), values);
  for (int i = 0; i < count; ++i) values[i] = FromDataString(i, values[i]);
  return UpdateItem(id, values, withDescription, 0);
}

int MListCtrl::UpdateItem(unsigned long id, const char* const* values, int withDescription,
                          int refilter) {
  return ChangeItem(id, refilter,
                    [=, this](uint32_t record) { StoreValues(record, values, withDescription); });
}

int MListCtrl::UpdateItemField(unsigned long id, int column, const char* value, int refilter) {
  ASSERT(m_columns.Has(column));
  return m_columns.Has(column) && ChangeItem(id, refilter, [=, this](uint32_t record) {
           StoreValue(record, column, value);
         });
}

int MListCtrl::SetTooltip(unsigned long id, const char* text) {
  return ChangeItem(id, 0, [=, this](uint32_t record) { StoreDescription(record, text); });
}

template <class Store>
int MListCtrl::ChangeItem(unsigned long id, int refilter, Store store) {
  const uint32_t record = m_map.Find(id);
  if (record == kNone) return 0;
  const int changed = WithoutException([&] {
    store(record);
    ItemChanged(record, refilter);
    return 1;
  });
  ASSERT(changed);
  return changed;
}

void MListCtrl::ItemChanged(uint32_t record, int refilter) {
  const int row = RowOf(record);
  const bool passes = refilter ? Passes(record) : row >= 0;
  if (row < 0 && passes)
    AppendRow(record);
  else if (row >= 0 && m_hWnd != nullptr && passes)
    RedrawItems(row, row);
  if (row < 0 || passes) return;
  RemoveRow(row);
  ReportSelection();
}

// --- Deleting ---

int MListCtrl::DeleteItemId(unsigned long id, int confirm) {
  uint32_t record = m_map.Find(id);
  if (record == kNone) return 0;
  if (confirm) {
    if (!Message::GetConfirmation(IDS_DELETE_ITEM, CellText(record, 0, 0))) return 0;
    record = m_map.Find(id);  // much can happen while the question stands
    if (record == kNone) return 0;
  }
  const int row = RowOf(record);
  if (row >= 0) RemoveRow(row);
  Forget(record);
  m_map.Erase(record);
  if (row >= 0) ReportSelection();
  return 1;
}

int MListCtrl::DeleteItem(int row) {
  if (!HasRow(row)) return 0;
  RemoveRow(row);
  ReportSelection();
  return 1;
}

int MListCtrl::DeleteAll() {
  TakeView();
  m_rows.clear();
  m_lastSelected = m_reportedSelection = kNone;
  m_map.Clear();
  RowsReplaced({});
  return 1;
}

void MListCtrl::Forget(uint32_t record) {
  if (m_lastSelected == record) m_lastSelected = kNone;
  if (m_reportedSelection == record) m_reportedSelection = kNone;
}

// --- Finding ---

int MListCtrl::FindItem(unsigned long id) const {
  const uint32_t record = m_map.Find(id);
  return record == kNone ? -1 : RowOf(record);
}

// Wherever the user has dragged the headers to.
int MListCtrl::FindItem(const char* text) const {
  return FindByPrefix(DataIndex(0, 0), text, true, 0, false);
}

unsigned long MListCtrl::GetItemData(int row) const {
  if (!HasRow(row)) return kAutomaticId;
  return m_map.Id(m_rows[row]);
}

int MListCtrl::GetItemCnt(int column, CStrMap<unsigned int>& counts, int byDataIndex) const {
  const int index = DataIndex(column, byDataIndex);
  ASSERT(index >= 0);
  if (index < 0) return 0;
  return WithoutException([&] {
    for (uint32_t record = m_map.First(); record != kNone; record = m_map.Next(record))
      ++counts[CellText(record, index, 0)];
    return 1;
  });
}

// --- Values and texts ---

unsigned long MListCtrl::Value(uint32_t record, int column, ColumnKind kind) const {
  constexpr auto kNoValue = static_cast<unsigned long>(-1);
  if (!m_columns.Has(column)) {
    ASSERT(FALSE);
    return kNoValue;
  }
  if (record == kNone || m_columns[column].kind != static_cast<ListColumnKind>(kind))
    return kNoValue;
  return m_map.Slot(record, SlotOf(column)).number;
}

int MListCtrl::GetItemIdEnum(unsigned long id, int column) const {
  return static_cast<int>(Value(m_map.Find(id), column, Enum));
}
long MListCtrl::GetItemIdTime(unsigned long id, int column) const {
  return static_cast<long>(Value(m_map.Find(id), column, Time));
}
long MListCtrl::GetItemIdNum(unsigned long id, int column) const {
  return static_cast<long>(Value(m_map.Find(id), column, Numeric));
}
int MListCtrl::GetItemEnum(int row, int column) const {
  return static_cast<int>(Value(HasRow(row) ? m_rows[row] : kNone, column, Enum));
}
long MListCtrl::GetItemTime(int row, int column) const {
  return static_cast<long>(Value(HasRow(row) ? m_rows[row] : kNone, column, Time));
}
long MListCtrl::GetItemNum(int row, int column) const {
  return static_cast<long>(Value(HasRow(row) ? m_rows[row] : kNone, column, Numeric));
}

CString MListCtrl::CellText(uint32_t record, int column, int raw) const {
  if (record == kNone || column < 0) {
    ASSERT(column >= 0);
    return kUnknownItem;
  }
  const int slot = column == kDescription ? kDescriptionSlot : SlotOf(column);
  const ListColumnKind kind = column == kDescription ? ListColumnText : m_columns[column].kind;
  CString text;
  if (kind == ListColumnText) {
    const char* const stored = m_map.Text(record, slot);
    const char* const cut = raw ? nullptr : strchr(stored, '\r');
    return cut == nullptr ? CString(stored) : CString(stored, static_cast<int>(cut - stored));
  }
  const uint32_t number = m_map.Slot(record, slot).number;
  if (kind == ListColumnEnum) {
    const std::vector<CString>& texts = m_columns[column].enumTexts;
    if (number < texts.size()) return texts[number];
    if (!texts.empty()) text.Format(kUnknownEnum, static_cast<unsigned long>(number));
  } else if (kind == ListColumnTime) {
    text = number == 0 ? CString(kNoTime)
                       : DisplayDate(CTime(static_cast<time_t>(number)),
                                     m_displayTimeFormat.IsEmpty()
                                         ? nullptr
                                         : static_cast<LPCTSTR>(m_displayTimeFormat),
                                     m_displayTz);
  } else {
    text.Format(kNumberFormat, static_cast<long>(number));
  }
  return text;
}

CString MListCtrl::GetItemIdText(unsigned long id, int column, int raw, int byDataIndex) const {
  return CellText(m_map.Find(id), DataIndex(column, byDataIndex), raw);
}

CString MListCtrl::GetItemText(int row, int column, int raw, int byDataIndex) const {
  return CellText(HasRow(row) ? m_rows[row] : kNone, DataIndex(column, byDataIndex), raw);
}

CString MListCtrl::GetCellText(int row, int column) { return GetItemText(row, column); }

CString MListCtrl::GetRowTip(int row) {
  return HasRow(row) ? CString(m_map.Text(m_rows[row], kDescriptionSlot)) : CString();
}

void MListCtrl::SetDisplayTz(int zoneBias) {
  m_displayTz = zoneBias;
  if (m_hWnd != nullptr) Invalidate();
}

void MListCtrl::SetDisplayTimeFormat(const char* format) {
  m_displayTimeFormat = format;
  if (m_hWnd != nullptr) Invalidate();
}
