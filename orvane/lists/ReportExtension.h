// What a client adds to its list's reports as pages: an index and pages of details beside the
// report, with links to them from the report's cells.
#pragma once

#include <afxwin.h>

#include <vector>

#include "lists/ReportSettings.h"

// The items of the report that is about to be written.
struct HlReportRun {
  const ReportSettings& settings;
  const std::vector<unsigned long>& ids;  // the report's items, in its order
};

// Set with MListCtrl::OnHlReport; for reports as pages only.
struct HlReportCallbacks {
  // Lets the user edit the client's settings in a dialog above owner. 1 changed, 0 cancelled.
  int (*configure)(void* client, CWnd* owner) = nullptr;
  // Before the rows, on the thread that called DoReport: writes what they link to. note: a line for
  // the report's top; empty: none. 1, or 0: it failed, was stopped, and has told the user unless
  // the run is quiet; no report is written then.
  int (*generate)(void* client, const HlReportRun& run, CString& note) = nullptr;
  // For each cell: its address, relative to the report; empty: the cell has no link. Called on the
  // thread that writes the rows, while the one that called DoReport waits.
  CString (*cellLink)(void* client, unsigned long id, int column) = nullptr;
};
