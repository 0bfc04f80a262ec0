#include <stdio.h>

#include "strings/string_resource.h"
#include "strings/string_storage.h"

using namespace strings;

namespace {

// Memory that the system allocated for a message.
class LocalText {
 public:
  LocalText() = default;
  ~LocalText() { LocalFree(m_text); }
  LocalText(const LocalText&) = delete;
  LocalText& operator=(const LocalText&) = delete;
  LPSTR* Address() { return &m_text; }
  LPCSTR Get() const { return m_text; }

 private:
  LPSTR m_text = nullptr;
};

}  // namespace

CString StringResource(UINT id) {
  CString text;
  if (!text.LoadString(id)) AfxThrowResourceException();
  return text;
}

// The text is complete before the string changes: it may be one of its own arguments.
void CString::FormatV(LPCTSTR lpszFormat, va_list argList) {
  va_list again;
  va_copy(again, argList);
  char shortText[512];
  const int shortLength = _vsnprintf(shortText, sizeof shortText, lpszFormat, argList);
  if (shortLength >= 0) {
    va_end(again);
    AssignCopy(shortLength, shortText);
    return;
  }
  va_list counted;
  va_copy(counted, again);
  const int length = _vscprintf(lpszFormat, counted);
  va_end(counted);
  CStringData* data = length < 0 ? nullptr : TryAllocate(length);
  if (data != nullptr) _vsnprintf(data->data(), length, lpszFormat, again);
  va_end(again);
  if (data == nullptr) AfxThrowMemoryException();
  Attach(data);
}

void AFX_CDECL CString::Format(LPCTSTR lpszFormat, ...) {
  va_list arguments;
  va_start(arguments, lpszFormat);
  FormatV(lpszFormat, arguments);
  va_end(arguments);
}

void AFX_CDECL CString::Format(UINT nFormatID, ...) {
  const CString format = StringResource(nFormatID);
  va_list arguments;
  va_start(arguments, nFormatID);
  FormatV(format, arguments);
  va_end(arguments);
}

void CString::FormatMessageV(LPCTSTR lpszFormat, va_list* pArgList) {
  LocalText text;
  const DWORD length =
      ::FormatMessage(FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ALLOCATE_BUFFER, lpszFormat, 0, 0,
                      reinterpret_cast<LPSTR>(text.Address()), 0, pArgList);
  if (text.Get() == nullptr) AfxThrowMemoryException();
  AssignCopy(Length(length), text.Get());
}

void AFX_CDECL CString::FormatMessage(LPCTSTR lpszFormat, ...) {
  va_list arguments;
  va_start(arguments, lpszFormat);
  FormatMessageV(lpszFormat, &arguments);
  va_end(arguments);
}

void AFX_CDECL CString::FormatMessage(UINT nFormatID, ...) {
  const CString format = StringResource(nFormatID);
  va_list arguments;
  va_start(arguments, nFormatID);
  FormatMessageV(format, &arguments);
  va_end(arguments);
}
