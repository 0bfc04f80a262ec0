// Starts the desktop host for pictures of it:
//   foldercmp_views empty
//   foldercmp_views filled|filtered|options|file-menu BASE REVISED
#include <windows.h>

#include <commctrl.h>

#include <cstring>
#include <string>

#include "foldercmp/resource.h"

namespace {

constexpr DWORD kWaitMilliseconds = 20'000;
constexpr int kListId = 0xE900;

BOOL CALLBACK findFrame(HWND window, LPARAM found) {
  char title[256] = "";
  GetWindowTextA(window, title, sizeof title);
  if (strstr(title, "Folder Comparison") == nullptr || !IsWindowVisible(window)) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

HWND waitForFrame(bool withList) {
  HWND frame = nullptr;
  for (const DWORD start = GetTickCount(); GetTickCount() - start < kWaitMilliseconds; Sleep(100)) {
    EnumWindows(findFrame, reinterpret_cast<LPARAM>(&frame));
    if (frame != nullptr && (!withList || GetDlgItem(frame, kListId) != nullptr)) return frame;
  }
  return nullptr;
}

void show(HWND frame, const std::string& view) {
  if (view == "filtered") {
    PostMessageA(frame, WM_COMMAND, ID_SHOW_SAME, 0);
    SetDlgItemTextA(frame, IDC_FILTER_TEXT, "zip");
  }
  if (view == "options") PostMessageA(frame, WM_COMMAND, ID_OPTIONS, 0);
  if (view == "file-menu") PostMessageA(frame, WM_SYSCOMMAND, SC_KEYMENU, 'f');
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 && argc != 4) return 99;
  std::string command = "foldercmp.exe";
  for (int i = 2; i < argc; ++i) command += std::string(" \"") + argv[i] + "\"";
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process = {};
  if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &startup, &process))
    return 1;
  CloseHandle(process.hThread);
  const HWND frame = waitForFrame(argc == 4);
  if (frame != nullptr) {
    MoveWindow(frame, 0, 0, 860, 520, TRUE);
    show(frame, argv[1]);
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  CloseHandle(process.hProcess);
  return frame == nullptr;
}
