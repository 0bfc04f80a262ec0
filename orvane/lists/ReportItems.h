// The items of a report: which, in what order, and their texts. Inside the library only.
#pragma once

#include <afxwin.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "lists/MListCtrl.h"
#include "lists/ReportSettings.h"

struct ReportColumn {
  std::string title;
  MListCtrl::ColumnKind kind;
  int index;  // data index
};

// What stands around the rows. All texts are in UTF-8 and of one line.
struct ReportHead {
  bool isShown;  // whether there is anything on top
  std::string title, secondaryTitle;
  std::vector<std::string> notes;  // the filters, the number of items
  std::vector<ReportColumn> columns;
  int sortedBy;  // an index of columns; -1: the rows are not sorted by one that is there
  bool isDescending;
  std::string footer, product, url;  // the footer holds the other two
};

// In UTF-8, too; the texts last until the next row.
struct ReportCell {
  std::string_view text;  // of several lines as the case may be
  uint32_t number;        // of a column that isn't Text
  std::string link;       // an address; empty: none
};

struct ReportRow {
  unsigned long id;
  COLORREF text, background;
  std::vector<ReportCell> cells;  // in the order of the columns
};

class ReportItems {
 public:
  // Both stay the caller's; columns that the list doesn't have are left out.
  ReportItems(MListCtrl& list, const ReportSettings& settings);

  bool HasColumns() const { return !m_columns.empty(); }
  // Finds and sorts the items. Lets out std::bad_alloc.
  void Select();
  size_t Count() const { return m_records.size(); }
  std::vector<unsigned long> Ids() const;

  ReportHead Head() const;
  // Uses nothing of the list that its window changes, so it may run beside that.
  const ReportRow& Row(size_t index);

 private:
  bool Passes(uint32_t record, const ReportFilter& filter) const;
  void FillCell(size_t index, uint32_t record);
  void AddLooks(uint32_t record);

  MListCtrl& m_list;
  const ReportSettings& m_settings;
  std::vector<int> m_columns;
  std::vector<uint32_t> m_records;
  ReportRow m_row;
  // What the row's texts stand in: those that are not the list's own, and those that are not ASCII.
  std::vector<CString> m_shown;
  std::vector<std::string> m_converted;
};
