#include "support/OpenHandles.h"

#include <windows.h>
#include <winternl.h>

namespace allocations {
namespace {

constexpr auto kSystemHandleInformation = static_cast<SYSTEM_INFORMATION_CLASS>(16);
constexpr ULONG kTableSize = 1 << 20;

struct HandleEntry {
  ULONG process;
  BYTE type;
  BYTE flags;
  USHORT value;
  void* object;
  ULONG access;
};

struct HandleTable {
  ULONG count;
  HandleEntry entries[1];
};

}  // namespace

// Counted in the system's table of handles, because GetProcessHandleCount answers 0 under Wine 8.
unsigned OpenHandles() {
  static auto* const query =
      reinterpret_cast<decltype(&NtQuerySystemInformation)>(reinterpret_cast<void*>(
          GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQuerySystemInformation")));
  static auto* const table = static_cast<HandleTable*>(
      VirtualAlloc(nullptr, kTableSize, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
  ULONG size = 0;
  if (query(kSystemHandleInformation, table, kTableSize, &size) != 0) return 0;
  unsigned handles = 0;
  for (ULONG i = 0; i < table->count; ++i) {
    handles += table->entries[i].process == GetCurrentProcessId();
  }
  return handles;
}

}  // namespace allocations
