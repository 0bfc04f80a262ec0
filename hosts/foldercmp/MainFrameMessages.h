// Private messages and timers of the main window.
#pragma once

#include <afxwin.h>

constexpr UINT kCompareMessage = WM_APP + 1;  // compares what the boxes say

constexpr UINT_PTR kFilterTimer = 1;  // the user has stopped typing in the filter
constexpr UINT kFilterDelay = 200;    // milliseconds
