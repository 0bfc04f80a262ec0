// The assertion log: failed assertions become lines of a file instead of dialogs, so that a server
// process is never stopped by a message box.
#pragma once

#include <afxwin.h>

#include <string_view>

#include "entry/export.h"

// All static. The host sets the log before its threads use the library; nothing is locked.
class ORVANE_API AssertVerifyTrace {
 public:
  // The file of the log; empty: the log is inactive. Set by InitTrace.
  static CString logFileName;
  // When 0, TraceOutput does nothing and reports success.
  static int traceOutput;
  // When not 0, no dialog and no message box is to be shown. Set once at load from InvokedFromIis.
  static int blockGuiMessages;

  // Starts the log: as InitTrace of diag/trace.h. Returns its result; the log is active from then
  // on even when the file could not be written.
  static int InitTrace(const char* name, int reset, int output);
  static int IsActive();
  static const char* GetLogFileName();

  // Writes the event "ASSERT" of a failed assertion, while the log is active.
  static void FailedLine(const char* source, int line);

  // As the functions of the same names in diag/trace.h, into this log: 1 written, 0 not.
  static int TraceEvent(const char* title, const char* text);
  static int TraceEvent(const char* title, int value, const char* format = "%d");
  static int TraceOutput(const char* file);

  // Whether the command line of the process names a web server's host program.
  static int InvokedFromIis();

  // Whether dialogs and message boxes are kept away, and the host's own word on it.
  static int BlockGui();
  static void BlockGuiMessages(int value);

  // There is nothing to assign.
  AssertVerifyTrace& operator=(const AssertVerifyTrace&) { return *this; }
};

namespace orvane_assert {

// The name of a source file without its folder and ending, as assertions report it.
template <size_t N>
struct SourceName {
  consteval explicit SourceName(std::string_view path) {
    path.remove_prefix(path.find_last_of("/\\") + 1);
    path = path.substr(0, path.find_last_of('.'));
    path.copy(text, path.size());
  }
  char text[N] = {};
};

}  // namespace orvane_assert

#define ORVANE_ASSERT_SOURCE                                                     \
  ([] {                                                                          \
    static constexpr orvane_assert::SourceName<sizeof __FILE__> kName(__FILE__); \
    return kName.text;                                                           \
  }())

// ASSERT(condition): the condition is evaluated only while the assertion log is active, so it has
// no side effects. VERIFY(expression): always evaluated. Both report a failure and go on. They take
// the place of the framework's macros, which would show a dialog or vanish.
#undef ASSERT
#define ASSERT(condition)                                              \
  ((AssertVerifyTrace::IsActive() && !(condition))                     \
       ? AssertVerifyTrace::FailedLine(ORVANE_ASSERT_SOURCE, __LINE__) \
       : static_cast<void>(0))

#undef VERIFY
#define VERIFY(expression)             \
  ((expression) ? static_cast<void>(0) \
                : AssertVerifyTrace::FailedLine(ORVANE_ASSERT_SOURCE, __LINE__))
