// Owning types for Win32 handles: one a kind, move-only, each with the value that means "none".
// Releasing keeps the caller's last error.
#pragma once

#include <afxwin.h>

#include <utility>

// Traits name the handle type, its "none" value and how it is released.
template <class Traits>
class unique_handle_of {
 public:
  using Handle = typename Traits::Handle;

  unique_handle_of() = default;
  explicit unique_handle_of(Handle handle) : m_handle(handle) {}
  unique_handle_of(unique_handle_of&& other) noexcept : m_handle(other.release()) {}
  unique_handle_of& operator=(unique_handle_of&& other) noexcept {
    reset(other.release());
    return *this;
  }
  ~unique_handle_of() { reset(); }

  explicit operator bool() const { return m_handle != Traits::None(); }
  Handle get() const { return m_handle; }
  Handle release() { return std::exchange(m_handle, Traits::None()); }

  void reset(Handle handle = Traits::None()) {
    const Handle old = std::exchange(m_handle, handle);
    if (old == Traits::None()) return;
    const DWORD lastError = GetLastError();
    Traits::Release(old);
    SetLastError(lastError);
  }

 private:
  Handle m_handle = Traits::None();
};

struct FileHandleTraits {
  using Handle = HANDLE;
  static Handle None() { return INVALID_HANDLE_VALUE; }
  static void Release(Handle handle) { CloseHandle(handle); }
};

struct FindHandleTraits {
  using Handle = HANDLE;
  static Handle None() { return INVALID_HANDLE_VALUE; }
  static void Release(Handle handle) { FindClose(handle); }
};

// Events, mappings, threads, processes: kernel objects whose creation fails with null.
struct KernelHandleTraits {
  using Handle = HANDLE;
  static Handle None() { return nullptr; }
  static void Release(Handle handle) { CloseHandle(handle); }
};

// The address of a mapped view.
struct ViewTraits {
  using Handle = void*;
  static Handle None() { return nullptr; }
  static void Release(Handle view) { UnmapViewOfFile(view); }
};

struct RegistryKeyTraits {
  using Handle = HKEY;
  static Handle None() { return nullptr; }
  static void Release(Handle key) { RegCloseKey(key); }
};

// Cursors that were made, by copying for example; not those that the system shares.
struct CursorTraits {
  using Handle = HCURSOR;
  static Handle None() { return nullptr; }
  static void Release(Handle cursor) { DestroyCursor(cursor); }
};

// Memory as the clipboard takes it.
struct GlobalMemoryTraits {
  using Handle = HGLOBAL;
  static Handle None() { return nullptr; }
  static void Release(Handle memory) { GlobalFree(memory); }
};

using unique_file = unique_handle_of<FileHandleTraits>;
using unique_find = unique_handle_of<FindHandleTraits>;
using unique_kernel_handle = unique_handle_of<KernelHandleTraits>;
using unique_view = unique_handle_of<ViewTraits>;
using unique_registry_key = unique_handle_of<RegistryKeyTraits>;
using unique_cursor = unique_handle_of<CursorTraits>;
using unique_global = unique_handle_of<GlobalMemoryTraits>;
