#include "support/OpenHandles.h"

#include <windows.h>
#include <winternl.h>

#include <algorithm>

namespace allocations {

// Counted in the system's table of handles, because GetProcessHandleCount answers 0 under Wine 8.
unsigned OpenHandles() {
  constexpr ULONG kTableSize = 1 << 20;
  static auto* const query =
      reinterpret_cast<decltype(&NtQuerySystemInformation)>(reinterpret_cast<void*>(
          GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQuerySystemInformation")));
  static auto* const table = static_cast<SYSTEM_HANDLE_INFORMATION*>(
      VirtualAlloc(nullptr, kTableSize, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
  ULONG size = 0;
  if (query(SystemHandleInformation, table, kTableSize, &size) != 0) return 0;
  return static_cast<unsigned>(
      std::count_if(table->Handle, table->Handle + table->Count,
                    [](const auto& handle) { return handle.OwnerPid == GetCurrentProcessId(); }));
}

}  // namespace allocations
