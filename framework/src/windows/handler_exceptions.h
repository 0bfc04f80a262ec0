// An exception that a handler has let out, at the border to the system.
#pragma once

#include <afxwin.h>

// To be called in a catch (...) block: tells the user and returns what the message's result is to
// be.
LRESULT ResultOfException(const MSG& message);
// For exceptions of the framework's kind: the thread's ProcessWndProcException does this.
LRESULT ReportHandlerException(CException* e, const MSG& message);
