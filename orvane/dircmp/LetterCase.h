// Letters of a code page without regard to case, byte by byte. Inside the library only.
#pragma once

#include <windows.h>

class LetterCase {
 public:
  explicit LetterCase(UINT codePage);

  // The lower-case letter of a character of one byte; other bytes as they are.
  unsigned char Lower(unsigned char character) const { return m_lower[character]; }
  // Whether there are characters of two bytes; their second one may look like a letter.
  bool hasLeadBytes() const { return m_hasLeadBytes; }
  bool IsLead(unsigned char byte) const { return m_isLead[byte]; }

 private:
  unsigned char m_lower[256];
  bool m_isLead[256] = {};
  bool m_hasLeadBytes = false;
};
