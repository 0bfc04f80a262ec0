// How many objects of the system's user interface the process holds. The system's own function for
// that answers 0 under Wine.
#pragma once

#include <windows.h>

#include <array>

// Windows, menus, icons, cursors and hooks have their handles in one table, whose free places are
// used again once there are some: the highest of a few new handles tells, within a few hundred, how
// full it is.
inline int UserObjects() {
  std::array<HMENU, 200> menus;
  int highest = 0;
  for (HMENU& menu : menus) {
    menu = ::CreateMenu();
    const int place = LOWORD(reinterpret_cast<UINT_PTR>(menu));
    if (place > highest) highest = place;
  }
  for (HMENU menu : menus) ::DestroyMenu(menu);
  return highest;
}

// Entries in use of the table of drawing objects, which the system shows to the process.
inline int GdiObjects() {
  struct Entry {
    UINT64 object;
    ULONG owner;
    USHORT unique;
    UCHAR type;  // 0: free
    UCHAR flags;
    UINT64 user;
  };
  constexpr int kEntries = 0x4000;
  constexpr int kTableInProcessBlock = 0x94;  // of 32-bit processes
  using GetBlock = const char*(WINAPI*)();
  static const auto getBlock = reinterpret_cast<GetBlock>(reinterpret_cast<void*>(
      ::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "RtlGetCurrentPeb")));
  const auto* const table =
      *reinterpret_cast<const Entry* const*>(getBlock() + kTableInProcessBlock);
  int count = 0;
  for (int i = 0; i < kEntries; ++i) count += table[i].type != 0;
  return count;
}
