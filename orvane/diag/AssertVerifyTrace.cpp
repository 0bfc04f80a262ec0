#include "diag/AssertVerifyTrace.h"

#include <atomic>
#include <cstdio>

#include "diag/trace.h"

namespace {

// The thread that is writing a failure to the log, 0 for none. An assertion that fails on the way,
// where the log's folder is made for example, is not reported: it would fail again, without end.
std::atomic<DWORD> reporting;

}  // namespace

CString AssertVerifyTrace::logFileName;
int AssertVerifyTrace::traceOutput = 1;
int AssertVerifyTrace::blockGuiMessages = AssertVerifyTrace::InvokedFromIis();

int AssertVerifyTrace::InitTrace(const char* name, int reset, int output) {
  logFileName = name;
  traceOutput = output;
  return ::InitTrace(name, reset);
}

int AssertVerifyTrace::IsActive() { return !logFileName.IsEmpty(); }

const char* AssertVerifyTrace::GetLogFileName() { return logFileName; }

void AssertVerifyTrace::FailedLine(const char* source, int line) {
  DWORD self = GetCurrentThreadId();
  if (!IsActive() || reporting == self) return;
  char text[MAX_PATH + 40];
  snprintf(text, sizeof text, "File: %s (%d)", source, line);
  reporting = self;
  TraceEvent("ASSERT", text);
  reporting.compare_exchange_strong(self, 0);  // unless another thread is reporting by now
}

int AssertVerifyTrace::TraceEvent(const char* title, const char* text) {
  return ::TraceEvent(logFileName, title, text);
}

int AssertVerifyTrace::TraceEvent(const char* title, int value, const char* format) {
  return ::TraceEvent(logFileName, title, value, format);
}

int AssertVerifyTrace::TraceOutput(const char* file) {
  return traceOutput == 0 ? 1 : ::TraceOutput(logFileName, file);
}

int AssertVerifyTrace::InvokedFromIis() {
  static const char* const kHosts[] = {"webserver.exe", "aspnet_wp.exe", "w3wp.exe",
                                       "vb6.exe",       "inetinfo.exe",  "dllhost.exe"};
  CString commandLine(GetCommandLineA());
  commandLine.MakeLower();
  for (const char* host : kHosts) {
    if (commandLine.Find(host) >= 0) return 1;
  }
  return 0;
}

int AssertVerifyTrace::BlockGui() { return blockGuiMessages; }

void AssertVerifyTrace::BlockGuiMessages(int value) { blockGuiMessages = value; }
