#include <afxwin.h>

#include "operation_run.h"

#include <atomic>
#include <cstdio>

#include "commands.h"

namespace {

constexpr unsigned long kLineMilliseconds = 100;
constexpr int kLineWidth = 20;

bool g_window = false;
int g_percent = -1;    // that was shown last
bool g_shown = false;  // whether the line is on the screen
unsigned long g_shownAt = 0;
std::atomic<MMultiOperation*> g_running = nullptr;
std::atomic<bool> g_stopped = false;
bool g_finishes = false;  // the command goes on after a stop
int g_status = kFailed;

BOOL WINAPI OnCtrlC(DWORD event) {
  const bool isFirst = !g_stopped.exchange(true);
  // Taken out, so that the next one finds nothing to stop and ends the program.
  MMultiOperation* const operation = g_running.exchange(nullptr);
  if (operation != nullptr)
    operation->StopLoop();
  else if (!isFirst || !g_finishes)
    ExitProcess(static_cast<UINT>(g_status));
  // When the console is closed the system ends the program as soon as this returns, or some seconds
  // later: what was stopped has these to clean up.
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
  return TRUE;
}

bool HasTerminal() {
  static const bool has = [] {
    DWORD mode;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != FALSE;
  }();
  return has;
}

// At once: stderr has no buffer.
void Write(const CString& text) { fputs(text, stderr); }

}  // namespace

void HandleCtrlC() { SetConsoleCtrlHandler(OnCtrlC, TRUE); }

void FinishAfterCtrlC(int status) {
  g_finishes = true;
  g_status = status;
}

bool WasStopped() { return g_stopped; }

void ShowProgressWindow() { g_window = true; }

int RunOperation(MMultiOperation& operation) {
  if (g_stopped) return 0;
  operation.SetNoGui(!g_window);
  operation.SetDisplayProgressOnSingle(1);
  g_percent = -1;
  const CtrlCStops stops(operation);
  const int result = operation.DoOperation(g_window);
  ClearProgress();
  return result;
}

CtrlCStops::CtrlCStops(MMultiOperation& operation) { g_running = &operation; }

CtrlCStops::~CtrlCStops() { g_running = nullptr; }

void ShowProgress(const char* verb, unsigned done, unsigned all) {
  if (g_window || !HasTerminal() || all == 0) return;
  const int percent = static_cast<int>(done * 100ull / all);
  if (percent <= g_percent || GetTickCount() - g_shownAt < kLineMilliseconds) return;
  g_percent = percent;
  g_shownAt = GetTickCount();
  g_shown = true;
  CString line;
  line.Format("\r%s: %d%%", verb, percent);
  Write(line);
}

void ClearProgress() {
  if (g_shown) Write("\r" + CString(' ', kLineWidth) + "\r");
  g_shown = false;
}
