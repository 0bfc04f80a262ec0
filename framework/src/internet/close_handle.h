#pragma once

#include <wininet.h>

#include <utility>

// Closes what is open. The caller's last error, which may be on its way into an exception, stays.
inline void CloseInternetHandle(HINTERNET& handle) {
  const HINTERNET open = std::exchange(handle, nullptr);
  if (open == nullptr) return;
  const DWORD lastError = GetLastError();
  InternetCloseHandle(open);
  SetLastError(lastError);
}
