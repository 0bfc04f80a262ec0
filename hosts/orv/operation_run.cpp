#include <afxwin.h>

#include "operation_run.h"

#include <atomic>
#include <cstdio>

namespace {

constexpr unsigned long kLineMilliseconds = 100;

bool g_window = false;
std::atomic<MMultiOperation*> g_running = nullptr;

BOOL WINAPI OnCtrlC(DWORD) {
  // Taken out, so that the next one finds nothing to stop and ends the program.
  MMultiOperation* const operation = g_running.exchange(nullptr);
  if (operation == nullptr) return FALSE;
  operation->StopLoop();
  return TRUE;
}

bool HasTerminal() {
  static const bool has = [] {
    DWORD mode;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != FALSE;
  }();
  return has;
}

}  // namespace

void ShowProgressWindow() { g_window = true; }

int RunOperation(MMultiOperation& operation) {
  operation.SetNoGui(!g_window);
  operation.SetDisplayProgressOnSingle(1);
  g_running = &operation;
  SetConsoleCtrlHandler(OnCtrlC, TRUE);
  const int result = operation.DoOperation(g_window);
  g_running = nullptr;
  SetConsoleCtrlHandler(OnCtrlC, FALSE);
  return result;
}

ProgressLine::~ProgressLine() {
  if (m_percent >= 0) fprintf(stderr, "\r%*s\r", 40, "");
}

void ProgressLine::Show(unsigned done, unsigned all) {
  if (g_window || !HasTerminal() || all == 0) return;
  const int percent = static_cast<int>(done * 100ull / all);
  if (percent <= m_percent || GetTickCount() - m_shownAt < kLineMilliseconds) return;
  m_percent = percent;
  m_shownAt = GetTickCount();
  fprintf(stderr, "\r%s: %d%%", m_verb, percent);
  fflush(stderr);
}
