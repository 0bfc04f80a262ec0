#include <afxwin.h>

#include "zip/EntryPath.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <string_view>

#include "diag/trace.h"

namespace {

bool IsSlash(wchar_t c) { return c == L'/' || c == L'\\'; }

// The file system drops trailing dots and blanks, so ".. " and "..." can mean the parent.
bool IsParent(std::wstring_view part) {
  size_t dots = 0;
  for (const wchar_t c : part) {
    if (c != L'.' && c != L' ') return false;
    dots += c == L'.';
  }
  return dots >= 2;
}

bool EqualsFolded(std::wstring_view text, const wchar_t* name) {
  return text.size() == std::wcslen(name) && _wcsnicmp(text.data(), name, text.size()) == 0;
}

// A device has its name in every folder, whatever ending follows: "nul", "Con .txt", "COM1.log".
bool IsDevice(std::wstring_view part) {
  part = part.substr(0, part.find(L'.'));
  part = part.substr(0, part.find_last_not_of(L' ') + 1);
  for (const wchar_t* name : {L"CON", L"PRN", L"AUX", L"NUL", L"CLOCK$", L"CONIN$", L"CONOUT$"})
    if (EqualsFolded(part, name)) return true;
  if (part.size() != 4 ||
      (!EqualsFolded(part.substr(0, 3), L"COM") && !EqualsFolded(part.substr(0, 3), L"LPT")))
    return false;
  // Superscript one, two and three count as digits.
  const wchar_t digit = part[3];
  return (digit >= L'1' && digit <= L'9') || digit == 0xB9 || digit == 0xB2 || digit == 0xB3;
}

}  // namespace

bool StaysBelowTarget(const char* entryName) {
  // In wide characters, as the file system gets it: a slash can be half of an 8-bit character.
  wchar_t buffer[MAX_PATH];
  if (std::strlen(entryName) >= MAX_PATH - 1) return false;
  const int length = MultiByteToWideChar(CP_ACP, 0, entryName, -1, buffer, MAX_PATH) - 1;
  if (length <= 0) return false;
  const std::wstring_view name(buffer, static_cast<size_t>(length));

  if (IsSlash(name.front()) || name.find(L':') != std::wstring_view::npos) return false;
  for (size_t begin = 0; begin <= name.size();) {
    const size_t end = std::min(name.find_first_of(L"/\\", begin), name.size());
    const std::wstring_view part = name.substr(begin, end - begin);
    if (IsParent(part) || IsDevice(part)) return false;
    begin = end + 1;
  }
  return true;
}

void ReportSkippedEntry(const char* entryName) {
  AssertVerifyTrace::FailedLine(ORVANE_ASSERT_SOURCE, __LINE__);
  AssertVerifyTrace::TraceEvent("Zip entry skipped, its path leaves the folder", entryName);
}
