// What a list remembers of its last report.
#pragma once

#include <afxwin.h>

#include <memory>

#include "entry/export.h"
#include "lists/ReportSettings.h"

class MListCtrl;

// Changes settings to what the user set when the list's last report dialog was closed. Columns are
// remembered by their titles: those that have gone are left out, and new ones come last. What is
// missing or damaged stays as it is in settings, as all does when the list has no registry key.
ORVANE_API void LoadLastReport(MListCtrl& list, ReportSettings& settings);
// Keeps them under the list's registry key, if it has one. The filters keep themselves.
ORVANE_API void SaveLastReport(MListCtrl& list, const ReportSettings& settings);

enum class ReportFilterRole { Primary, Secondary };

// A report's filter on a column as the user has left it.
std::shared_ptr<DataFilter> SavedReportFilter(MListCtrl& list, int column, ReportFilterRole role);
