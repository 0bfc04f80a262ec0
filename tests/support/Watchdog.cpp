#include "support/Watchdog.h"

#include <windows.h>

#include <atomic>
#include <cstdio>
#include <utility>

namespace watchdog {
namespace {

constexpr DWORD kPollMilliseconds = 50;
constexpr unsigned kHangExitCode = 99;
constexpr unsigned kCrashExitCode = 98;

struct State {
  SRWLOCK lock = SRWLOCK_INIT;
  const char* test = nullptr;
  ULONGLONG deadline = 0;
  std::string windows;
  std::atomic<int> expected{0};
  unsigned seconds = 0;
  DWORD mainThread = 0;
};

State& state() {
  static State state;
  return state;
}

// Asked in a way that a window that hangs can't hold up.
std::string TextOf(HWND window) {
  char text[200] = "";
  SendMessageTimeoutA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text),
                      SMTO_ABORTIFHUNG, 200, nullptr);
  return text;
}

BOOL CALLBACK AddChild(HWND window, LPARAM whole) {
  const std::string text = TextOf(window);
  if (!text.empty()) *reinterpret_cast<std::string*>(whole) += " / " + text;
  return TRUE;
}

// A window's class, title and the texts of its controls.
std::string Describe(HWND window) {
  char name[200] = "";
  GetClassNameA(window, name, sizeof name);
  std::string text = "  [" + std::string(name) + "] " + TextOf(window);
  EnumChildWindows(window, AddChild, reinterpret_cast<LPARAM>(&text));
  return text + "\n";
}

bool IsOurs(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process == GetCurrentProcessId() && IsWindowVisible(window);
}

BOOL CALLBACK CloseStray(HWND window, LPARAM) {
  if (!IsOurs(window) || state().expected > 0) return TRUE;
  const std::string text = Describe(window);
  AcquireSRWLockExclusive(&state().lock);
  state().windows += text;
  ReleaseSRWLockExclusive(&state().lock);
  PostMessageA(window, WM_CLOSE, 0, 0);
  return TRUE;
}

BOOL CALLBACK PrintWindow(HWND window, LPARAM) {
  if (IsOurs(window)) fputs(Describe(window).c_str(), stderr);
  return TRUE;
}

// A place in the program as an offset in its module, for a debugger.
void PrintPlace(DWORD address) {
  const auto* place = reinterpret_cast<const char*>(address);
  HMODULE module = nullptr;
  GetModuleHandleExA(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT, place,
      &module);
  char name[MAX_PATH] = "?";
  if (module != nullptr) GetModuleFileNameA(module, name, MAX_PATH);
  fprintf(stderr, "%s + 0x%x\n", name,
          static_cast<unsigned>(place - reinterpret_cast<const char*>(module)));
}

LONG WINAPI PrintCrash(EXCEPTION_POINTERS* crash) {
  fprintf(stderr, "\n[ CRASHES  ] %s: exception 0x%lx in ",
          state().test == nullptr ? "between the tests" : state().test,
          crash->ExceptionRecord->ExceptionCode);
  PrintPlace(crash->ContextRecord->Eip);
  fflush(stderr);
  TerminateProcess(GetCurrentProcess(), kCrashExitCode);
  return EXCEPTION_EXECUTE_HANDLER;
}

// Where the main thread is.
void PrintMainThread() {
  const HANDLE thread =
      OpenThread(THREAD_SUSPEND_RESUME | THREAD_GET_CONTEXT, FALSE, state().mainThread);
  if (thread == nullptr) return;
  SuspendThread(thread);
  CONTEXT context = {};
  context.ContextFlags = CONTEXT_CONTROL;
  if (GetThreadContext(thread, &context)) {
    fputs("  the main thread is in ", stderr);
    PrintPlace(context.Eip);
  }
}

DWORD WINAPI Run(void* started) {
  // The first look at the windows opens handles that stay: not while a test's are counted.
  EnumWindows(CloseStray, 0);
  SetEvent(started);
  for (;;) {
    Sleep(kPollMilliseconds);
    AcquireSRWLockExclusive(&state().lock);
    const char* test = state().test;
    const bool late = test != nullptr && GetTickCount64() > state().deadline;
    ReleaseSRWLockExclusive(&state().lock);
    if (test == nullptr) continue;
    EnumWindows(CloseStray, 0);
    if (!late) continue;
    fprintf(stderr, "\n[  HANGS   ] %s: not done after %u seconds. Its windows:\n", test,
            state().seconds);
    EnumWindows(PrintWindow, 0);
    PrintMainThread();
    fflush(stderr);
    TerminateProcess(GetCurrentProcess(), kHangExitCode);
  }
}

}  // namespace

void Start(unsigned seconds) {
  state().seconds = seconds;
  state().mainThread = GetCurrentThreadId();
  SetUnhandledExceptionFilter(PrintCrash);
  const HANDLE started = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  CloseHandle(CreateThread(nullptr, 0, Run, started, 0, nullptr));
  WaitForSingleObject(started, INFINITE);
  CloseHandle(started);
}

void Watch(const char* test) {
  AcquireSRWLockExclusive(&state().lock);
  state().test = test;
  state().deadline = GetTickCount64() + state().seconds * 1000ull;
  ReleaseSRWLockExclusive(&state().lock);
}

std::string TakeStrayWindows() {
  AcquireSRWLockExclusive(&state().lock);
  std::string windows = std::exchange(state().windows, {});
  ReleaseSRWLockExclusive(&state().lock);
  return windows;
}

ExpectWindows::ExpectWindows() { ++state().expected; }
ExpectWindows::~ExpectWindows() { --state().expected; }

}  // namespace watchdog
