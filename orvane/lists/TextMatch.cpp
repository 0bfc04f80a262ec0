#include "lists/TextMatch.h"

#include <afxwin.h>

#include <mbstring.h>

#include <cstring>

namespace {

// Made once for the code page, so that a comparison is a look-up a byte.
struct FoldTable {
  unsigned char lower[256];
  bool isLead[256] = {};
  bool hasLeads = false;

  FoldTable() {
    for (int i = 0; i < 256; ++i) {
      lower[i] = static_cast<unsigned char>(i);
      isLead[i] = IsDBCSLeadByte(static_cast<BYTE>(i));
      hasLeads |= isLead[i];
    }
    for (int i = 1; i < 256; ++i)
      if (!isLead[i]) CharLowerBuffA(reinterpret_cast<char*>(&lower[i]), 1);
  }
};

const FoldTable& Fold() {
  static const FoldTable table;
  return table;
}

// Past the pattern in the text, null when the text does not begin with it.
const char* PastPrefixNoCase(const char* text, const char* pattern) {
  const FoldTable& fold = Fold();
  for (; *pattern != 0; ++text, ++pattern) {
    const auto a = static_cast<unsigned char>(*text), b = static_cast<unsigned char>(*pattern);
    if (fold.lower[a] != fold.lower[b]) return nullptr;
    if (!fold.isLead[a] || pattern[1] == 0) continue;
    if (*++text != *++pattern) return nullptr;
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
  if (!Fold().hasLeads) return strstr(text, pattern) != nullptr;
  return _mbsstr(reinterpret_cast<const unsigned char*>(text),
                 reinterpret_cast<const unsigned char*>(pattern)) != nullptr;
}
