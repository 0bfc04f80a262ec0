// Walks over text in the runtime's multibyte code page, which is the system's ANSI one: in some of
// them a character takes two bytes, and the second may look like any other character.
#pragma once

#include <mbstring.h>

namespace strings {

inline unsigned char Byte(char c) { return static_cast<unsigned char>(c); }

// False in code pages where every character is one byte, so that no walk is needed.
bool DoubleByte();

// The bytes of the character at p: 1 or 2, never past the ending null.
inline int CharSize(const char* p) { return _ismbblead(Byte(p[0])) && p[1] != '\0' ? 2 : 1; }

// The character at p as a number, to be compared with others.
inline unsigned CharValue(const char* p) {
  return CharSize(p) == 2 ? Byte(p[0]) << 8 | Byte(p[1]) : Byte(p[0]);
}

// The first occurrence of a character that takes one byte, or of a text that is not empty; null:
// none.
const char* FindChar(const char* text, char ch);
const char* FindSub(const char* text, const char* sub);

// True when the set of characters has the one at p.
bool IsOneOf(const char* p, const char* set);

// Fold case by the ANSI code page, whatever locale the runtime is in.
void FoldUpper(char* text, int length);
void FoldLower(char* text, int length);
// Below 0, 0 or above 0: compares up to the null without regard to case.
int CompareNoCase(const char* left, const char* right);

}  // namespace strings
