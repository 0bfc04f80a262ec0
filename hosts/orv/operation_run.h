// How the commands run operations: with a progress line on a terminal or, when it is asked for,
// the library's progress window; Ctrl+C stops them after the item that is worked on.
#pragma once

#include "ops/MultiOp.h"

// Progress windows from now on, in place of lines.
void ShowProgressWindow();

// Runs the operation and gives its result. A second Ctrl+C ends the program at once.
int RunOperation(MMultiOperation& operation);

// A line on stderr that says how far the work is, when stderr is a terminal and no window is shown.
// It is never longer than the last one needs, never runs backwards, and goes when the work ends.
class ProgressLine {
 public:
  explicit ProgressLine(const char* verb) : m_verb(verb) {}
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void Show(unsigned done, unsigned all);

 private:
  const char* m_verb;
  int m_percent = -1;  // that is on the screen
  unsigned long m_shownAt = 0;
};
