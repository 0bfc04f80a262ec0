// Runs another program of the tests.
#pragma once

#include <string>

#include <windows.h>

// A program that runs beside the test.
class StartedProgram {
 public:
  explicit StartedProgram(std::string command) {
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                   &m_process);
  }
  // One that still runs is ended.
  ~StartedProgram() {
    if (m_process.hProcess == nullptr) return;
    TerminateProcess(m_process.hProcess, kNotStarted);
    Wait();
    CloseHandle(m_process.hThread);
    CloseHandle(m_process.hProcess);
  }
  StartedProgram(const StartedProgram&) = delete;
  StartedProgram& operator=(const StartedProgram&) = delete;

  HANDLE Process() const { return m_process.hProcess; }

  // The exit status when it has ended; 999 when it could not be started.
  DWORD Wait() const {
    DWORD status = kNotStarted;
    WaitForSingleObject(m_process.hProcess, INFINITE);
    GetExitCodeProcess(m_process.hProcess, &status);
    return status;
  }

 private:
  static constexpr DWORD kNotStarted = 999;

  PROCESS_INFORMATION m_process = {};
};

inline DWORD RunProgram(const std::string& command) { return StartedProgram(command).Wait(); }
