#include "entry/strutils.h"

#include <mbstring.h>

#include <cstring>

#include "diag/trace.h"

// The _mbs functions and CString know double-byte characters, whose second byte can be that of a
// backslash or a letter.

void SplitAtLastBackslash(const char* text, CString& left, CString& right) {
  ASSERT(text != nullptr && *text != 0);
  const CString whole(text);  // text may be left's or right's own buffer
  const char* const begin = whole;
  const auto* const backslash =
      reinterpret_cast<const char*>(_mbsrchr(reinterpret_cast<const unsigned char*>(begin), '\\'));
  if (backslash == nullptr) {
    left = whole;
    right.Empty();
    return;
  }
  left = whole.Left(static_cast<int>(backslash - begin));
  right = backslash + 1;
}

const char* TextAfter(const char* text, const char* prefix) {
  if (text == nullptr || *text == 0) return nullptr;
  ASSERT(prefix != nullptr && strlen(text) >= strlen(prefix));
  const int found = prefix == nullptr ? -1 : CString(text).Find(prefix);
  ASSERT(found >= 0);
  return found < 0 ? nullptr : text + found + strlen(prefix);
}

CString WithBackslashes(const char* text) {
  CString result(text);
  char* const begin = result.GetBuffer(0);
  auto* place = reinterpret_cast<unsigned char*>(begin);
  while ((place = _mbschr(place, '/')) != nullptr) *place = '\\';
  result.ReleaseBuffer();
  return result;
}
