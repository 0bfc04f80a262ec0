// The trace log: a text file that a host switches on by naming it, one time-stamped line an event.
//
// Every event opens, appends and closes its file, so nothing is lost when the process ends and the
// file may be read, moved or deleted at any time. A line begins with its line break. Failures are
// silent: 1 is "written", 0 "not written", and no exception leaves these functions. Lines of
// several threads or processes stay whole and none is lost.
#pragma once

#include "diag/AssertVerifyTrace.h"

// Starts a trace in the file path: the environment of the process when the file is new (always
// after reset, which deletes it), the date, and the command line. An empty or null path: 0.
ORVANE_API int InitTrace(const char* path, int reset);

// One event: the local time, the title and the text. Null or empty ones are written as "<null>".
ORVANE_API int TraceEvent(const char* path, const char* title, const char* text);

// The same with a number, formatted printf-like with format ("%d" when null or empty), of fewer
// than 1014 characters (ASSERT); the result is cut at 1023.
ORVANE_API int TraceEvent(const char* path, const char* title, int value,
                          const char* format = "%d");

// Copies the text file into the log, each line indented by a tab. Without a file name only the
// heading of the dump is written.
ORVANE_API int TraceOutput(const char* path, const char* file);

// Lists the entry names of a zip archive into the log; none when it cannot be read. Without a file
// name only the heading of the dump is written.
ORVANE_API int TraceZip(const char* path, const char* zipFile);

// The function trace: an object in a function writes a line when the function is entered and when
// it is left. The rest is static; the host sets the names before its threads trace.
class ORVANE_API TraceFunction {
 public:
  // The file that events go to now (empty: the trace is off), and the one that InitTrace named.
  static CString logFileName;
  static CString orgLogFileName;
  // When 0, TraceOutput and TraceZip do nothing and report success.
  static int traceOutput;

  explicit TraceFunction(const char* name);
  TraceFunction(const TraceFunction&) = default;
  TraceFunction& operator=(const TraceFunction&) = default;
  ~TraceFunction();

  static int InitTrace(const char* name, int reset, int output);

  // Sends the trace to name + ".log" in the folder of the file that InitTrace named. An empty name
  // gives a file named ".log", and a base file without folder one in the root folder, by design.
  static void SwitchTraceName(const char* name);

  // Events in logFileName; titles get two more blanks in front.
  static int TraceEvent(const char* title, const char* text);
  static int TraceEvent(const char* title, int value, const char* format = "%d");
  static int TraceOutput(const char* file);
  static int TraceZip(const char* zipFile);
  static const char* GetLogFileName();

 private:
  CString m_name;
};
