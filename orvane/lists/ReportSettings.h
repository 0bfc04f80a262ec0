// What one run of a list's report is to be.
#pragma once

#include <afxwin.h>

#include <memory>
#include <vector>

#include "lists/DataFilter.h"

enum class ReportFormat {
  Html = 0,          // a self-contained page
  Text = 1,          // plain text in aligned columns
  Xml = 2,           // a document that the library's parser reads back
  TabSeparated = 3,  // values for spreadsheet programs
  kCount
};

struct ReportFilter {
  int column = -1;                     // data index
  std::shared_ptr<DataFilter> filter;  // of the column's kind
  bool isActive = false;
};

struct ReportSettings {
  std::vector<int> columns;  // data indices of the included columns, in their order in the report
  int sortColumn = -1;       // data index; -1: the items stand in the list's order
  bool isDescending = false;
  ReportFilter primary;    // on the sort column
  ReportFilter secondary;  // on any column
  ReportFormat format = ReportFormat::Html;
  CString outputFile;
  bool isQuiet = false;    // no message and no progress window: the result alone tells
  bool hasHeader = true;   // column titles and the list's titles stand on top
  bool isPreview = false;  // outputFile is the preview's, nothing else is written
};
