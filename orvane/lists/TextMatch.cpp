#include "lists/TextMatch.h"

#include <afxwin.h>

#include <mbstring.h>

#include <cstring>
#include <cwchar>

namespace {

// Made once for the code page, so that a comparison is mostly a look-up a byte.
struct FoldTable {
  static constexpr unsigned kSeveral = 0x100;  // above all bytes
  // The byte in lower case; kSeveral for the first one of a character of several bytes.
  unsigned short folded[256];
  unsigned char length[256];  // bytes of a character that begins with a byte
  bool hasLeads = false;      // of a double-byte code page

  FoldTable() {
    const bool isUtf8 = GetACP() == CP_UTF8;
    for (int i = 0; i < 256; ++i) {
      const bool isLead = IsDBCSLeadByte(static_cast<BYTE>(i));
      length[i] = isLead ? 2 : isUtf8 && i >= 0xC0 ? 2 + (i >= 0xE0) + (i >= 0xF0) : 1;
      hasLeads |= isLead;
      char lower = static_cast<char>(i);
      if (i > 0 && !isLead && (!isUtf8 || i < 0x80)) CharLowerBuffA(&lower, 1);
      folded[i] = length[i] > 1 ? kSeveral : static_cast<unsigned char>(lower);
    }
  }

  // 1 for a character that the text's end cuts off.
  int LengthAt(const char* text) const {
    const int whole = length[static_cast<unsigned char>(*text)];
    for (int i = 1; i < whole; ++i)
      if (text[i] == 0) return 1;
    return whole;
  }
};

const FoldTable& Fold() {
  static const FoldTable table;
  return table;
}

// Whether two characters, one of them of several bytes, are the same but for their case.
bool IsSameLetter(const char* a, int lengthA, const char* b, int lengthB) {
  if (lengthA == lengthB && std::memcmp(a, b, lengthA) == 0) return true;
  wchar_t wideA[4], wideB[4];
  const int sizeA = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, a, lengthA, wideA, 4);
  const int sizeB = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, b, lengthB, wideB, 4);
  if (sizeA != sizeB || sizeA == 0) return false;
  CharLowerBuffW(wideA, sizeA);
  CharLowerBuffW(wideB, sizeB);
  return std::wmemcmp(wideA, wideB, sizeA) == 0;
}

// Past the pattern in the text, null when the text does not begin with it.
const char* PastPrefixNoCase(const char* text, const char* pattern) {
  const FoldTable& fold = Fold();
  while (*pattern != 0) {
    const unsigned a = fold.folded[static_cast<unsigned char>(*text)],
                   b = fold.folded[static_cast<unsigned char>(*pattern)];
    if ((a | b) < FoldTable::kSeveral) {
      if (a != b) return nullptr;
      ++text;
      ++pattern;
      continue;
    }
    const int lengthA = fold.LengthAt(text), lengthB = fold.LengthAt(pattern);
    if (!IsSameLetter(text, lengthA, pattern, lengthB)) return nullptr;
    text += lengthA;
    pattern += lengthB;
  }
  return text;
}

}  // namespace

bool EqualsNoCase(const char* text, const char* pattern) {
  const char* const rest = PastPrefixNoCase(text, pattern);
  return rest != nullptr && *rest == 0;
}

bool BeginsWith(const char* text, const char* pattern) {
  while (*pattern != 0)
    if (*text++ != *pattern++) return false;
  return true;
}

bool BeginsWithNoCase(const char* text, const char* pattern) {
  return PastPrefixNoCase(text, pattern) != nullptr;
}

bool IsPathPrefix(const char* text, const char* pattern) {
  const char* const rest = PastPrefixNoCase(text, pattern);
  return rest != nullptr && (*rest == 0 || *rest == '\\');
}

bool Contains(const char* text, const char* pattern) {
  if (Fold().hasLeads)
    return _mbsstr(reinterpret_cast<const unsigned char*>(text),
                   reinterpret_cast<const unsigned char*>(pattern)) != nullptr;
  // The texts are short: this has ended before strstr is prepared.
  for (; *text != 0; ++text)
    if (*text == *pattern && BeginsWith(text + 1, pattern + 1)) return true;
  return *pattern == 0;
}
