// window_driver PROGRAM ARGUMENTS...: starts a program, tells what it shows, and closes every
// window but those that show a progress, which end by themselves. A line a window: its title, then
// the texts in it, or the numbers of columns and rows of a list. Gives the program's exit status.
#include <afxwin.h>
#include <afxcmn.h>

#include <cstdio>
#include <set>
#include <string>

#include "entry/Handles.h"

namespace {

constexpr ULONGLONG kPatience = 60'000;  // milliseconds
constexpr int kGivenUp = 99;

std::string Text(HWND window) {
  char text[1000] = "";
  GetWindowTextA(window, text, sizeof text);
  return text;
}

struct Contents {
  std::string description;
  bool hasProgress = false;
  bool isReady = true;
};

BOOL CALLBACK AddChild(HWND child, LPARAM param) {
  Contents& contents = *reinterpret_cast<Contents*>(param);
  char name[50] = "";
  GetClassNameA(child, name, sizeof name);
  if (lstrcmpiA(name, PROGRESS_CLASSA) == 0) contents.hasProgress = true;
  if (lstrcmpiA(name, "Static") == 0 && !Text(child).empty()) {
    contents.description += "|" + Text(child);
  }
  if (lstrcmpiA(name, WC_LISTVIEWA) == 0) {
    const int rows = SendMessageA(child, LVM_GETITEMCOUNT, 0, 0);
    const HWND header = reinterpret_cast<HWND>(SendMessageA(child, LVM_GETHEADER, 0, 0));
    const int columns = SendMessageA(header, HDM_GETITEMCOUNT, 0, 0);
    contents.description += "|" + std::to_string(columns) + "x" + std::to_string(rows);
    contents.isReady = rows > 0;
  }
  return TRUE;
}

class Driver {
 public:
  explicit Driver(DWORD process) : m_process(process) {}

  void Look() {
    // A window that has gone may leave its handle to another one.
    std::erase_if(m_met, [](HWND window) { return !IsWindow(window); });
    EnumWindows(&MeetNext, reinterpret_cast<LPARAM>(this));
  }

 private:
  static BOOL CALLBACK MeetNext(HWND window, LPARAM self) {
    reinterpret_cast<Driver*>(self)->Meet(window);
    return TRUE;
  }

  void Meet(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != m_process || !IsWindowVisible(window) || Text(window).empty()) return;
    Contents contents;
    EnumChildWindows(window, &AddChild, reinterpret_cast<LPARAM>(&contents));
    if (!contents.isReady || !m_met.insert(window).second) return;
    printf("%s%s\n", Text(window).c_str(), contents.description.c_str());
    if (!contents.hasProgress) PostMessageA(window, WM_CLOSE, 0, 0);
  }

  const DWORD m_process;
  std::set<HWND> m_met;
};

}  // namespace

int main() {
  // The program's own command line is what follows the first argument of this one.
  const char* command = GetCommandLineA();
  const char end = *command == '"' ? '"' : ' ';
  for (++command; *command != '\0' && *command != end; ++command) {
  }
  if (*command == '"') ++command;
  while (*command == ' ') ++command;
  std::string started(command);

  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION program;
  if (!CreateProcessA(nullptr, started.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &startup, &program)) {
    fprintf(stderr, "window_driver: %s does not start: error %lu\n", started.c_str(),
            GetLastError());
    return kGivenUp;
  }
  const unique_kernel_handle process(program.hProcess), thread(program.hThread);
  Driver driver(program.dwProcessId);
  const ULONGLONG start = GetTickCount64();
  while (WaitForSingleObject(process.get(), 20) == WAIT_TIMEOUT) {
    driver.Look();
    if (GetTickCount64() - start < kPatience) continue;
    fputs("window_driver: the program goes on and on\n", stderr);
    TerminateProcess(process.get(), kGivenUp);
  }
  DWORD status = kGivenUp;
  GetExitCodeProcess(process.get(), &status);
  return static_cast<int>(status);
}
