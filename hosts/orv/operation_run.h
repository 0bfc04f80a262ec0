// How the commands run operations: with a progress line on a terminal or, when it is asked for,
// the library's progress window; Ctrl+C stops them after the item that is worked on.
#pragma once

#include "ops/MultiOp.h"

// From now on Ctrl+C stops the operation that runs; without one, or at the second time, it ends the
// program as failed.
void HandleCtrlC();

// For a command of several operations that tells what it has done even when it is stopped: from now
// on Ctrl+C stops the operations that follow, too (RunOperation gives 0), and only its second time
// ends the program, with a status.
void FinishAfterCtrlC(int status);
bool WasStopped();

// Progress windows from now on, in place of lines.
void ShowProgressWindow();

// Runs the operation and gives its result.
int RunOperation(MMultiOperation& operation);

// While one lives, Ctrl+C stops its operation: for one that is run in its own way.
class CtrlCStops {
 public:
  explicit CtrlCStops(MMultiOperation& operation);
  ~CtrlCStops();
  CtrlCStops(const CtrlCStops&) = delete;
  CtrlCStops& operator=(const CtrlCStops&) = delete;
};

// Says on stderr how far the operation that runs is, in a line that never runs backwards and goes
// when the operation ends: on a terminal only, and when there is no window.
void ShowProgress(const char* verb, unsigned done, unsigned all);

// Takes the line away, for a message in its place; the next progress brings it back.
void ClearProgress();
