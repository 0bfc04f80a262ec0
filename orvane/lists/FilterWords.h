// Filters in words.
#pragma once

#include <afxwin.h>

#include "entry/export.h"
#include "lists/ReportSettings.h"

class MListCtrl;

// "is greater than", of a StringFilter::Condition.
CString ConditionInWords(int condition);

// A report's filter: "Primary filter on column Name: is greater than or equal to "a" and is less
// than ...", or the same with "Secondary". Empty: the filter is not active. A filter of a client's
// own kind is named without its condition.
ORVANE_API CString FilterInWords(const MListCtrl& list, const ReportFilter& filter, bool isPrimary);
