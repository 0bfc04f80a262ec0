#include "util/SystemErrorWords.h"

#include <cwchar>
#include <iterator>

CString SystemErrorWords(DWORD error) {
  wchar_t text[512];
  DWORD length =
      FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                     MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), text, std::size(text), nullptr);
  // Full stops of the languages that have another one, too.
  while (length > 0 && wcschr(L"\r\n .\u3002\u0964", text[length - 1]) != nullptr) --length;
  return CString(text, static_cast<int>(length));
}
