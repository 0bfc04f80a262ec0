#pragma once

#include <afxver_.h>

#include <utility>

// A handle of a file, closed when its owner ends.
class OwnedFileHandle {
 public:
  explicit OwnedFileHandle(HANDLE handle) : m_handle(handle) {}
  ~OwnedFileHandle() {
    if (IsValid()) CloseHandle(m_handle);
  }
  OwnedFileHandle(const OwnedFileHandle&) = delete;
  OwnedFileHandle& operator=(const OwnedFileHandle&) = delete;

  bool IsValid() const { return m_handle != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return m_handle; }
  HANDLE Release() { return std::exchange(m_handle, INVALID_HANDLE_VALUE); }

 private:
  HANDLE m_handle;
};
