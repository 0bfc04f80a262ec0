// The import tables of loaded modules (PE/COFF, section "The .idata Section").
#pragma once

#include <windows.h>

#include <functional>
#include <string>

// Calls visit with the name of every function that a module imports by name, and the place of its
// address; the place can be written through ReplaceImport.
inline void ForEachImport(HMODULE module,
                          const std::function<void(const char* name, void** place)>& visit) {
  auto* base = reinterpret_cast<unsigned char*>(module);
  auto* dos = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
  auto* headers = reinterpret_cast<IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const auto& table = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  if (table.VirtualAddress == 0) return;
  auto* descriptor = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + table.VirtualAddress);
  for (; descriptor->Name != 0; ++descriptor) {
    auto* names = reinterpret_cast<IMAGE_THUNK_DATA*>(base + descriptor->OriginalFirstThunk);
    auto* places = reinterpret_cast<IMAGE_THUNK_DATA*>(base + descriptor->FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++places) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
      auto* import = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
      visit(reinterpret_cast<const char*>(import->Name),
            reinterpret_cast<void**>(&places->u1.Function));
    }
  }
}

inline void ReplaceImport(void** place, void* function) {
  DWORD protection = 0;
  VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection);
  *place = function;
  VirtualProtect(place, sizeof *place, protection, &protection);
}
