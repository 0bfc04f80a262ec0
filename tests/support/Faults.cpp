#include "support/Faults.h"

#include <windows.h>
#include <wininet.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstring>

#include "support/ImportTable.h"

namespace faults {
namespace {

struct Armed {
  std::atomic<bool> on{false};
  Kind kind = Kind::kMemory;
  std::atomic<unsigned> left{0};  // calls until the one that fails, it included
  std::atomic<const char*> function{nullptr};
};

Armed armed;

bool IsToFail(Kind kind, const char* function) {
  if (!armed.on || armed.kind != kind || armed.left == 0 || --armed.left != 0) return false;
  armed.function = function;
  return true;
}

template <size_t N>
struct Name {
  consteval Name(const char (&name)[N]) { std::copy_n(name, N, text); }
  char text[N];
};

struct Hook {
  const char* name;
  void* function;
  void** real;
};

// What a function's place in the import tables is filled with: itself, or its failure.
template <Name name, class Function>
struct Hooked;

template <Name name, class Result, class... Arguments>
struct Hooked<name, Result(WINAPI*)(Arguments...)> {
  static inline void* real = nullptr;
  static inline Kind kind;
  static inline Result failure;
  static inline DWORD error;

  static Result WINAPI Call(Arguments... arguments) {
    if (IsToFail(kind, name.text)) {
      SetLastError(error);
      return failure;
    }
    return reinterpret_cast<Result(WINAPI*)(Arguments...)>(real)(arguments...);
  }

  static Hook Make(Kind kindOfCall, Result result, DWORD lastError) {
    kind = kindOfCall;
    failure = result;
    error = lastError;
    return {name.text, reinterpret_cast<void*>(&Call), &real};
  }
};

// One whose failure is 0.
template <Name name, class Function>
Hook Zero(Kind kind, DWORD error) {
  return Hooked<name, Function>::Make(kind, {}, error);
}

#define HOOK_ZERO(function, kind, error) Zero<#function, decltype(&function)>(kind, error)
#define HOOK(function, kind, failure, error) \
  Hooked<#function, decltype(&function)>::Make(kind, failure, error)

const Hook kHooks[] = {
    HOOK_ZERO(CreateFileMappingA, Kind::kMapping, ERROR_NOT_ENOUGH_MEMORY),
    HOOK_ZERO(MapViewOfFile, Kind::kMapping, ERROR_NOT_ENOUGH_MEMORY),
    HOOK_ZERO(VirtualAlloc, Kind::kMapping, ERROR_NOT_ENOUGH_MEMORY),
    HOOK_ZERO(GlobalAlloc, Kind::kMapping, ERROR_NOT_ENOUGH_MEMORY),

    HOOK(CreateFileA, Kind::kOpen, INVALID_HANDLE_VALUE, ERROR_ACCESS_DENIED),
    HOOK(CreateFileW, Kind::kOpen, INVALID_HANDLE_VALUE, ERROR_ACCESS_DENIED),
    HOOK_ZERO(GetTempFileNameA, Kind::kOpen, ERROR_ACCESS_DENIED),
    HOOK_ZERO(DuplicateHandle, Kind::kOpen, ERROR_NO_SYSTEM_RESOURCES),

    HOOK_ZERO(ReadFile, Kind::kRead, ERROR_READ_FAULT),
    HOOK_ZERO(GetFileSizeEx, Kind::kRead, ERROR_READ_FAULT),
    HOOK_ZERO(SetFilePointerEx, Kind::kRead, ERROR_SEEK),
    HOOK(SetFilePointer, Kind::kRead, INVALID_SET_FILE_POINTER, ERROR_SEEK),
    HOOK_ZERO(GetFileInformationByHandle, Kind::kRead, ERROR_READ_FAULT),

    HOOK_ZERO(WriteFile, Kind::kWrite, ERROR_DISK_FULL),
    HOOK_ZERO(SetEndOfFile, Kind::kWrite, ERROR_DISK_FULL),
    HOOK_ZERO(FlushFileBuffers, Kind::kWrite, ERROR_DISK_FULL),
    HOOK_ZERO(SetFileTime, Kind::kWrite, ERROR_ACCESS_DENIED),
    HOOK_ZERO(SetFileAttributesA, Kind::kWrite, ERROR_ACCESS_DENIED),

    HOOK_ZERO(MoveFileA, Kind::kMove, ERROR_ACCESS_DENIED),
    HOOK_ZERO(MoveFileExA, Kind::kMove, ERROR_ACCESS_DENIED),
    HOOK_ZERO(CopyFileA, Kind::kMove, ERROR_DISK_FULL),

    HOOK(FindFirstFileA, Kind::kFolder, INVALID_HANDLE_VALUE, ERROR_ACCESS_DENIED),
    HOOK_ZERO(FindNextFileA, Kind::kFolder, ERROR_READ_FAULT),
    HOOK_ZERO(CreateDirectoryA, Kind::kFolder, ERROR_ACCESS_DENIED),
    HOOK_ZERO(RemoveDirectoryA, Kind::kFolder, ERROR_ACCESS_DENIED),
    HOOK(GetFileAttributesA, Kind::kFolder, INVALID_FILE_ATTRIBUTES, ERROR_ACCESS_DENIED),
    HOOK_ZERO(GetFileAttributesExA, Kind::kFolder, ERROR_ACCESS_DENIED),
    HOOK_ZERO(GetFullPathNameA, Kind::kFolder, ERROR_INVALID_NAME),
    HOOK_ZERO(GetTempPathA, Kind::kFolder, ERROR_INVALID_NAME),
    HOOK_ZERO(SetCurrentDirectoryA, Kind::kFolder, ERROR_ACCESS_DENIED),

    HOOK(RegCreateKeyA, Kind::kRegistry, ERROR_ACCESS_DENIED, 0),
    HOOK(RegOpenKeyA, Kind::kRegistry, ERROR_ACCESS_DENIED, 0),
    HOOK(RegOpenKeyExA, Kind::kRegistry, ERROR_ACCESS_DENIED, 0),
    HOOK(RegSetValueExA, Kind::kRegistry, ERROR_NO_SYSTEM_RESOURCES, 0),
    HOOK(RegQueryValueExA, Kind::kRegistry, ERROR_NO_SYSTEM_RESOURCES, 0),
    HOOK(RegDeleteValueA, Kind::kRegistry, ERROR_ACCESS_DENIED, 0),

    HOOK_ZERO(InternetOpenA, Kind::kInternet, ERROR_INTERNET_OUT_OF_HANDLES),
    HOOK_ZERO(InternetConnectA, Kind::kInternet, ERROR_INTERNET_OUT_OF_HANDLES),
    HOOK_ZERO(InternetOpenUrlA, Kind::kInternet, ERROR_INTERNET_OUT_OF_HANDLES),
    HOOK_ZERO(HttpOpenRequestA, Kind::kInternet, ERROR_INTERNET_OUT_OF_HANDLES),
    HOOK_ZERO(HttpSendRequestA, Kind::kInternet, ERROR_INTERNET_CONNECTION_ABORTED),
    HOOK_ZERO(HttpSendRequestExA, Kind::kInternet, ERROR_INTERNET_CONNECTION_ABORTED),
    HOOK_ZERO(HttpEndRequestA, Kind::kInternet, ERROR_INTERNET_CONNECTION_ABORTED),
    HOOK_ZERO(HttpQueryInfoA, Kind::kInternet, ERROR_HTTP_HEADER_NOT_FOUND),
    HOOK_ZERO(InternetReadFile, Kind::kInternet, ERROR_INTERNET_CONNECTION_RESET),
    HOOK_ZERO(InternetReadFileExA, Kind::kInternet, ERROR_INTERNET_CONNECTION_RESET),
    HOOK_ZERO(InternetWriteFile, Kind::kInternet, ERROR_INTERNET_CONNECTION_RESET),
    HOOK_ZERO(InternetSetOptionA, Kind::kInternet, ERROR_INTERNET_INTERNAL_ERROR),
};

// Of the libraries, and of the runtime that they work through.
void Install() {
  for (const char* module : {"orvane.dll", "appframe.dll", "msvcrt.dll"}) {
    const HMODULE loaded = GetModuleHandleA(module);
    if (loaded == nullptr) continue;
    ForEachImport(loaded, [](const char* name, void** place) {
      for (const Hook& hook : kHooks) {
        if (std::strcmp(name, hook.name) != 0 || *place == hook.function) continue;
        if (*hook.real == nullptr) *hook.real = *place;
        ReplaceImport(place, hook.function);
      }
    });
  }
}

}  // namespace

const char* NameOf(Kind kind) {
  static constexpr const char* kNames[] = {"memory", "mapping", "open",     "read",    "write",
                                           "move",   "folder",  "registry", "internet"};
  return kNames[static_cast<size_t>(kind)];
}

FailNth::FailNth(Kind kind, unsigned n) {
  [[maybe_unused]] static const bool installed = (Install(), true);
  if (kind == Kind::kMemory) {
    m_allocation = std::make_unique<allocations::FailNth>(n);
    return;
  }
  armed.kind = kind;
  armed.left = n;
  armed.function = nullptr;
  armed.on = true;
}

FailNth::~FailNth() { armed.on = false; }

bool FailNth::Happened() const {
  return m_allocation != nullptr ? m_allocation->Happened() : armed.on && armed.left == 0;
}

const char* FailNth::Function() const {
  const char* const function = armed.function;
  return m_allocation != nullptr || function == nullptr ? "" : function;
}

}  // namespace faults
