#include "dircmp/LetterCase.h"

namespace {

// The byte of the lower-case letter, when it is a single byte of the code page, too.
unsigned char LowerOf(UINT codePage, char character) {
  const auto byte = static_cast<unsigned char>(character);
  wchar_t wide[2];
  if (MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, &character, 1, wide, 2) != 1) return byte;
  CharLowerBuffW(wide, 1);
  char lower[4];
  BOOL isReplaced = FALSE;
  const int size = WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, wide, 1, lower, sizeof lower,
                                       nullptr, &isReplaced);
  return size == 1 && !isReplaced ? static_cast<unsigned char>(lower[0]) : byte;
}

}  // namespace

LetterCase::LetterCase(UINT codePage) {
  for (unsigned i = 0; i < 256; ++i) {
    const auto byte = static_cast<BYTE>(i);
    m_isLead[i] = IsDBCSLeadByteEx(codePage, byte) != FALSE;
    m_hasLeadBytes |= m_isLead[i];
    m_lower[i] = m_isLead[i] ? byte : LowerOf(codePage, static_cast<char>(byte));
  }
}
