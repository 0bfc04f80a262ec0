// How the functions for whole trees report what they could not do: an assertion, and an event that
// names the path.
#pragma once

#include <afxwin.h>

#include "diag/trace.h"

// source: the header that the assertion is reported for, whichever file it comes up in.
inline void ReportTreeFailure(const char* source, int line, const char* what, const char* path) {
  if (!AssertVerifyTrace::IsActive()) return;
  AssertVerifyTrace::FailedLine(source, line);
  AssertVerifyTrace::TraceEvent(what, path);
}

#define REPORT_TREE_FAILURE(what, path) ReportTreeFailure("DirOp", __LINE__, what, path)
