// Runs another program of the tests and waits for its end.
#pragma once

#include <string>

#include <windows.h>

// The exit status; 999 when the program could not be started.
inline DWORD RunProgram(std::string command) {
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process = {};
  if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &startup, &process)) {
    return 999;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD status = 999;
  GetExitCodeProcess(process.hProcess, &status);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return status;
}
