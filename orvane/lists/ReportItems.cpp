#include "lists/ReportItems.h"

#include <algorithm>

#include "lists/CellValue.h"
#include "lists/FilterWords.h"
#include "lists/ReportText.h"
#include "resources/resource.h"
#include "settings/MString.h"
#include "util/TimeUtil.h"

namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0), kWhite = RGB(255, 255, 255);

// Titles may come from anywhere; in a report they stand on one line.
std::string lineOf(CString text) {
  text.Replace("\r\n", " ");
  text.Replace('\r', ' ');
  text.Replace('\n', ' ');
  text.Replace('\t', ' ');
  std::string line;
  AppendPrintable(line, Utf8Of(text));
  return line;
}

}  // namespace

ReportItems::ReportItems(MListCtrl& list, const ReportSettings& settings)
    : m_list(list), m_settings(settings) {
  std::copy_if(
      settings.columns.begin(), settings.columns.end(), std::back_inserter(m_columns),
      [&](int column) { return list.m_columns.Has(column) || column == MListCtrl::kDescription; });
  m_row.cells.resize(m_columns.size());
  m_shown.resize(m_columns.size());
  m_converted.resize(m_columns.size());
}

void ReportItems::Select() {
  const ListDataMap& map = m_list.m_map;
  m_records.clear();
  for (uint32_t record = map.First(); record != ListDataMap::kNone; record = map.Next(record))
    if (Passes(record, m_settings.primary) && Passes(record, m_settings.secondary))
      m_records.push_back(record);
  const int by = m_list.m_columns.Has(m_settings.sortColumn) ? m_settings.sortColumn : -1;
  m_list.OrderBy(by, m_settings.isDescending).Sort(m_records);
}

bool ReportItems::Passes(uint32_t record, const ReportFilter& filter) const {
  if (!filter.isActive || filter.filter == nullptr || !m_list.m_columns.Has(filter.column))
    return true;
  const int slot = MListCtrl::SlotOf(filter.column);
  const ListDataMap& map = m_list.m_map;
  const char* const value = m_list.m_columns[filter.column].kind == ListColumnText
                                ? map.Text(record, slot)
                                : ValueOf(map.Slot(record, slot).number);
  return filter.filter->IsMatch(value) != 0;
}

std::vector<unsigned long> ReportItems::Ids() const {
  std::vector<unsigned long> ids(m_records.size());
  std::transform(m_records.begin(), m_records.end(), ids.begin(),
                 [this](uint32_t record) { return m_list.m_map.Id(record); });
  return ids;
}

ReportHead ReportItems::Head() const {
  ReportHead head;
  head.isShown = m_settings.hasHeader;
  head.title = lineOf(m_list.ListTitle());
  head.secondaryTitle = lineOf(m_list.SecondaryTitle());
  for (const bool isPrimary : {true, false}) {
    const CString words =
        FilterInWords(m_list, isPrimary ? m_settings.primary : m_settings.secondary, isPrimary);
    if (!words.IsEmpty()) head.notes.push_back(lineOf(words));
  }
  MString count;
  if (Count() == 1)
    count.LoadString(IDS_REPORT_ONE_ITEM);
  else
    count.FormatMessage(IDS_REPORT_ITEMS, static_cast<int>(Count()));
  const CString& format = m_list.m_displayTimeFormat;
  const CString now =
      DisplayDate(CTime::GetCurrentTime(),
                  format.IsEmpty() ? nullptr : static_cast<LPCTSTR>(format), m_list.m_displayTz);
  head.notes.push_back(lineOf(count + " " + MString::Loaded(IDS_REPORT_ON) + " " + now));

  head.sortedBy = -1;
  head.isDescending = m_settings.isDescending;
  for (const int column : m_columns) {
    if (column == m_settings.sortColumn) head.sortedBy = static_cast<int>(head.columns.size());
    const bool isDescription = column == MListCtrl::kDescription;
    head.columns.push_back(
        {lineOf(isDescription ? m_list.GetDescriptionTitle() : m_list.GetColName(column, 1)),
         isDescription ? MListCtrl::Text : m_list.GetColumnKind(column), column});
  }
  head.product = lineOf(m_list.ProductName());
  head.url = lineOf(m_list.ProductUrl());
  head.footer = lineOf(MString::Loaded(IDS_REPORT_GENERATED_BY)) + head.product;
  if (!head.url.empty()) head.footer += ", " + head.url;
  return head;
}

const ReportRow& ReportItems::Row(size_t index) {
  const uint32_t record = m_records[index];
  m_row.id = m_list.m_map.Id(record);
  for (size_t i = 0; i < m_columns.size(); ++i) FillCell(i, record);
  if (m_settings.format == ReportFormat::Html) AddLooks(record);
  return m_row;
}

void ReportItems::FillCell(size_t index, uint32_t record) {
  const int column = m_columns[index];
  ReportCell& cell = m_row.cells[index];
  const ListDataMap& map = m_list.m_map;
  if (column == MListCtrl::kDescription) {
    cell.text = Utf8Of(map.Text(record, MListCtrl::kDescriptionSlot), m_converted[index]);
    return;
  }
  const int slot = MListCtrl::SlotOf(column);
  switch (m_list.m_columns[column].kind) {
    case ListColumnText:
      cell.text = Utf8Of(map.Text(record, slot), m_converted[index]);
      return;
    case ListColumnNumeric:
      // In the list the text of a number ends with a parenthesis, which callers cut off.
      m_converted[index] = std::to_string(static_cast<int32_t>(map.Slot(record, slot).number));
      cell.text = m_converted[index];
      break;
    default:
      CString& shown = m_shown[index];
      shown = m_list.CellText(record, column, 0);
      cell.text = Utf8Of({static_cast<LPCSTR>(shown), static_cast<size_t>(shown.GetLength())},
                         m_converted[index]);
  }
  cell.number = map.Slot(record, slot).number;
}

void ReportItems::AddLooks(uint32_t record) {
  m_list.m_map.Expect(record);  // what is asked for now is about this item
  m_row.text = kBlack;
  m_row.background = kWhite;
  m_list.GetItemColors(m_row.id, m_row.text, m_row.background);
  const auto link = m_list.HlReport().cellLink;
  if (link == nullptr) return;
  for (size_t i = 0; i < m_columns.size(); ++i)
    m_row.cells[i].link = Utf8Of(link(m_list.HlReportClient(), m_row.id, m_columns[i]));
}
