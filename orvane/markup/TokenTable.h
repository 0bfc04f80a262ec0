// Tells tokens apart by their first characters.
#pragma once

#include <array>

#include "markup/OXToken.h"

// By first character: TEXT, a token of that character alone, or NONE when more of it must be seen.
inline constexpr std::array<signed char, 256> kFirstCharacters = [] {
  std::array<signed char, 256> table = {};
  table.fill(COXToken::TEXT);
  table['<'] = table['/'] = table['-'] = COXToken::NONE;
  table['>'] = COXToken::TAG_CLOSE;
  table['='] = COXToken::EQUALS;
  table['"'] = COXToken::DOUBLE_QUOTE;
  table['\''] = COXToken::SINGLE_QUOTE;
  return table;
}();

struct FoundToken {
  int type;
  int length;  // 0 for TEXT
};

// at is not at the end of a text that ends with a zero, so the next character can always be seen.
inline FoundToken FindToken(const char* at) {
  const int type = kFirstCharacters[static_cast<unsigned char>(*at)];
  if (type == COXToken::TEXT) return {type, 0};
  if (type != COXToken::NONE) return {type, 1};
  if (*at == '/') {
    return at[1] == '>' ? FoundToken{COXToken::EMPTY_TAG_CLOSE, 2} : FoundToken{COXToken::TEXT, 0};
  }
  if (*at == '-') {
    return at[1] == '-' && at[2] == '>' ? FoundToken{COXToken::COMMENT_END, 3}
                                        : FoundToken{COXToken::TEXT, 0};
  }
  switch (at[1]) {
    case '/':
      return {COXToken::END_TAG_START, 2};
    case '?':
      return {COXToken::PI_START, 2};
    case '!':
      return at[2] == '-' && at[3] == '-' ? FoundToken{COXToken::COMMENT_START, 4}
                                          : FoundToken{COXToken::MARKUP_START, 2};
    default:
      return {COXToken::TAG_START, 1};
  }
}
