// The report dialog of a list.
#pragma once

#include <afxwin.h>

#include "entry/export.h"
#include "lists/ReportSettings.h"

class MListCtrl;

// What the user set when the list's last report dialog was closed, from the list's registry key;
// without one, or without a usable value, what the list shows: its columns, in its order.
ORVANE_API ReportSettings LastReportSettings(MListCtrl& list);

// Shows the dialog with these settings until the user closes it; reports and previews are made
// while it is shown. settings: receives those that it was closed with, which are kept for the next
// time. 1: a report was written; 0: none, or no dialog may be shown (AssertVerifyTrace::BlockGui).
ORVANE_API int RunReportDialog(MListCtrl& list, ReportSettings& settings, bool allowPreview);
