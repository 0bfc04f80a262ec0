// The classes of characters that markup knows: those of the C locale, so bytes above 127 are
// neither white space nor part of a name, whatever the code page.
#pragma once

#include <array>

inline constexpr bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

inline constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

inline constexpr std::array<bool, 256> kNameCharacters = [] {
  std::array<bool, 256> table = {};
  for (int c = 0; c < 128; ++c) {
    const int lower = c | 0x20;
    table[c] = (lower >= 'a' && lower <= 'z') || IsDigit(static_cast<char>(c)) || c == ':' ||
               c == '_' || c == '-';
  }
  return table;
}();

inline bool IsNameCharacter(char c) { return kNameCharacters[static_cast<unsigned char>(c)]; }
