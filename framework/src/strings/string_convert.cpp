// Between the ANSI code page and others, and from the string table.

#include <afxwin.h>

#include <oleauto.h>
#include <wchar.h>

#include "strings/string_storage.h"

using namespace strings;

CString::CString(LPCWSTR lpsz)
    : CString(lpsz, lpsz == nullptr ? 0 : strings::Length(wcslen(lpsz))) {}

CString::CString(LPCWSTR lpch, int nLength) : CString() {
  if (lpch == nullptr || nLength < 1) return;
  const int length = WideCharToMultiByte(CP_ACP, 0, lpch, nLength, nullptr, 0, nullptr, nullptr);
  Attach(Allocate(length));
  WideCharToMultiByte(CP_ACP, 0, lpch, nLength, m_pchData, length, nullptr, nullptr);
}

const CString& CString::operator=(LPCWSTR lpsz) { return *this = CString(lpsz); }

BOOL CString::LoadString(UINT nID) {
  char shortText[256];
  int size = sizeof shortText;
  int length = AfxLoadString(nID, shortText, size);
  if (length < size - 2) {
    AssignCopy(length, shortText);
    return length > 0;
  }
  // Perhaps cut, before a double-byte character one byte early: with more and more room, until some
  // is left over. A string has up to 65,535 bytes.
  do {
    size *= 2;
    length = AfxLoadString(nID, GetBuffer(size - 1), size);
    ReleaseBuffer(length);
  } while (length >= size - 2);
  return TRUE;
}

void CString::AnsiToOem() {
  AllocBeforeWrite(GetLength());
  if (!IsEmpty()) CharToOemBuffA(m_pchData, m_pchData, GetLength());
}

void CString::OemToAnsi() {
  AllocBeforeWrite(GetLength());
  if (!IsEmpty()) OemToCharBuffA(m_pchData, m_pchData, GetLength());
}

BSTR CString::AllocSysString() const {
  const int length = MultiByteToWideChar(CP_ACP, 0, m_pchData, GetLength(), nullptr, 0);
  BSTR text = SysAllocStringLen(nullptr, length);
  if (text == nullptr) AfxThrowMemoryException();
  MultiByteToWideChar(CP_ACP, 0, m_pchData, GetLength(), text, length);
  return text;
}

BSTR CString::SetSysString(BSTR* pbstr) const {
  const int length = MultiByteToWideChar(CP_ACP, 0, m_pchData, GetLength(), nullptr, 0);
  if (!SysReAllocStringLen(pbstr, nullptr, length)) AfxThrowMemoryException();
  MultiByteToWideChar(CP_ACP, 0, m_pchData, GetLength(), *pbstr, length);
  return *pbstr;
}
