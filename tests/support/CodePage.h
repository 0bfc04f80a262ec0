// Texts in the ANSI code page that the tests run in.
#pragma once

#include <string>

#include <windows.h>

// A text in the ANSI code page; empty when that can't spell it.
inline std::string Ansi(const std::wstring& text) {
  std::string bytes(text.size() * 4, 0);
  BOOL isReplaced = FALSE;
  BOOL* const replaced = GetACP() == CP_UTF8 ? nullptr : &isReplaced;  // refused for UTF-8
  const DWORD flags = GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
  const int size =
      WideCharToMultiByte(CP_ACP, flags, text.data(), static_cast<int>(text.size()), bytes.data(),
                          static_cast<int>(bytes.size()), nullptr, replaced);
  bytes.resize(isReplaced ? 0 : static_cast<size_t>(size));
  return bytes;
}

inline std::string Utf8(const std::wstring& text) {
  std::string bytes(text.size() * 4, 0);
  bytes.resize(static_cast<size_t>(
      WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                          static_cast<int>(bytes.size()), nullptr, nullptr)));
  return bytes;
}

// A letter beyond ASCII that the code page has in both cases: A with dots, or the Russian Ya, which
// double-byte code pages have too. In UTF-8 either has two bytes.
inline std::wstring UpperLetter() { return Ansi(L"\u00C4").empty() ? L"\u042F" : L"\u00C4"; }
inline std::wstring LowerLetter() { return Ansi(L"\u00C4").empty() ? L"\u044F" : L"\u00E4"; }
