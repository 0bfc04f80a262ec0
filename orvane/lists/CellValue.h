// Numbers in the place of texts: the values of items, and what filters are asked about. Inside the
// library only.
#pragma once

#include <cstdint>

inline uint32_t NumberOf(const char* value) {
  return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(value));
}
inline const char* ValueOf(uint32_t number) {
  return reinterpret_cast<const char*>(static_cast<uintptr_t>(number));
}
