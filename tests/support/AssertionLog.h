// Switches the assertion log on for a scope, in a file of its own.
#pragma once

#include <string>

#include "diag/trace.h"
#include "support/TempFolder.h"

class AssertionLog {
 public:
  AssertionLog() { AssertVerifyTrace::logFileName = (m_folder / "assert.log").c_str(); }
  ~AssertionLog() { AssertVerifyTrace::logFileName.Empty(); }

  // What was reported so far.
  std::string Text() const { return m_folder.Read("assert.log"); }
  bool Empty() const { return Text().empty(); }
  // Whether an assertion of the source failed.
  bool Names(const std::string& source) const {
    return Text().find("ASSERT: File: " + source + " (") != std::string::npos;
  }

 private:
  TempFolder m_folder;
};
