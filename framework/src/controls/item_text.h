// Texts of items, which controls write into a buffer of the caller's without saying how long they
// are.
#pragma once

#include <afxstr_.h>

// fill(buffer, size) writes as much of the text as fits and returns how many characters that were.
// A text that nearly fills the buffer may have been cut, also in front of a double-byte character.
template <class Fill>
CString WholeText(Fill fill) {
  constexpr int kUsual = 256;
  char usual[kUsual] = "";
  if (const int length = fill(usual, kUsual); length < kUsual - 2) return CString(usual, length);
  CString text;
  for (int size = 4 * kUsual;; size *= 2) {
    const LPTSTR buffer = text.GetBuffer(size);
    buffer[0] = '\0';
    const int length = fill(buffer, size);
    text.ReleaseBuffer(length);
    if (length >= size - 2) continue;
    text.FreeExtra();
    return text;
  }
}
