// A report's filters in words.
#pragma once

#include <afxwin.h>

#include "entry/export.h"
#include "lists/ReportSettings.h"

class MListCtrl;

// "Primary filter on column Name: is greater than or equal to "a" and is less than ...", or the
// same with "Secondary". The condition is left out when the filter has no effect or is of a kind
// that the list doesn't have. Empty: the filter is not active.
ORVANE_API CString FilterInWords(const MListCtrl& list, const ReportFilter& filter, bool isPrimary);
