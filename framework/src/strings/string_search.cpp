#include <afx.h>

#include <mbstring.h>
#include <string.h>

#include <algorithm>

#include "strings/code_page.h"

using namespace strings;

namespace {

const unsigned char* bytes(LPCSTR text) { return reinterpret_cast<const unsigned char*>(text); }

// The length of the beginning of the text whose characters all are in the set, or all are not.
int spanLength(LPCSTR text, LPCSTR set, bool inSet) {
  if (!DoubleByte()) return static_cast<int>(inSet ? strspn(text, set) : strcspn(text, set));
  LPCSTR p = text;
  while (*p != '\0' && IsOneOf(p, set) == inSet) p += CharSize(p);
  return static_cast<int>(p - text);
}

int position(LPCSTR text, LPCSTR found) {
  return found == nullptr ? -1 : static_cast<int>(found - text);
}

}  // namespace

int CString::Compare(LPCTSTR lpsz) const { return _mbscmp(bytes(m_pchData), bytes(lpsz)); }
int CString::CompareNoCase(LPCTSTR lpsz) const { return strings::CompareNoCase(m_pchData, lpsz); }
int CString::Collate(LPCTSTR lpsz) const { return _mbscoll(bytes(m_pchData), bytes(lpsz)); }
int CString::CollateNoCase(LPCTSTR lpsz) const { return _mbsicoll(bytes(m_pchData), bytes(lpsz)); }

int CString::Find(TCHAR ch) const { return Find(ch, 0); }
int CString::Find(LPCTSTR lpszSub) const { return Find(lpszSub, 0); }

int CString::Find(TCHAR ch, int nStart) const {
  if (nStart < 0 || nStart >= GetLength()) return -1;
  return position(m_pchData, FindChar(m_pchData + nStart, ch));
}

int CString::Find(LPCTSTR lpszSub, int nStart) const {
  if (nStart < 0 || nStart > GetLength()) return -1;
  if (*lpszSub == '\0') return nStart;
  return position(m_pchData, FindSub(m_pchData + nStart, lpszSub));
}

int CString::ReverseFind(TCHAR ch) const {
  if (!DoubleByte()) return position(m_pchData, strrchr(m_pchData, ch));
  LPCSTR last = nullptr;
  for (LPCSTR p = m_pchData; *p != '\0'; p += CharSize(p))
    if (*p == ch && CharSize(p) == 1) last = p;
  return position(m_pchData, last);
}

int CString::FindOneOf(LPCTSTR lpszCharSet) const {
  const int length = spanLength(m_pchData, lpszCharSet, false);
  return m_pchData[length] == '\0' ? -1 : length;
}

CString CString::Mid(int nFirst) const { return Mid(nFirst, GetLength()); }

CString CString::Mid(int nFirst, int nCount) const {
  const int first = std::clamp(nFirst, 0, GetLength());
  const int count = std::clamp(nCount, 0, GetLength() - first);
  if (count == GetLength()) return *this;
  return CString(m_pchData + first, count);
}

CString CString::Left(int nCount) const { return Mid(0, nCount); }

CString CString::Right(int nCount) const {
  const int count = std::clamp(nCount, 0, GetLength());
  return Mid(GetLength() - count, count);
}

CString CString::SpanIncluding(LPCTSTR lpszCharSet) const {
  return Left(spanLength(m_pchData, lpszCharSet, true));
}

CString CString::SpanExcluding(LPCTSTR lpszCharSet) const {
  return Left(spanLength(m_pchData, lpszCharSet, false));
}

// Equal texts have equal bytes in every code page, so these two need no walk.
static bool isEqual(LPCSTR s1, LPCSTR s2) { return s1 == s2 || strcmp(s1, s2) == 0; }

bool AFXAPI operator==(const CString& s1, const CString& s2) { return isEqual(s1, s2); }
bool AFXAPI operator==(const CString& s1, LPCTSTR s2) { return isEqual(s1, s2); }
bool AFXAPI operator==(LPCTSTR s1, const CString& s2) { return isEqual(s1, s2); }
bool AFXAPI operator!=(const CString& s1, const CString& s2) { return !isEqual(s1, s2); }
bool AFXAPI operator!=(const CString& s1, LPCTSTR s2) { return !isEqual(s1, s2); }
bool AFXAPI operator!=(LPCTSTR s1, const CString& s2) { return !isEqual(s1, s2); }

bool AFXAPI operator<(const CString& s1, const CString& s2) { return s1.Compare(s2) < 0; }
bool AFXAPI operator<(const CString& s1, LPCTSTR s2) { return s1.Compare(s2) < 0; }
bool AFXAPI operator<(LPCTSTR s1, const CString& s2) { return s2.Compare(s1) > 0; }
bool AFXAPI operator>(const CString& s1, const CString& s2) { return s1.Compare(s2) > 0; }
bool AFXAPI operator>(const CString& s1, LPCTSTR s2) { return s1.Compare(s2) > 0; }
bool AFXAPI operator>(LPCTSTR s1, const CString& s2) { return s2.Compare(s1) < 0; }
bool AFXAPI operator<=(const CString& s1, const CString& s2) { return s1.Compare(s2) <= 0; }
bool AFXAPI operator<=(const CString& s1, LPCTSTR s2) { return s1.Compare(s2) <= 0; }
bool AFXAPI operator<=(LPCTSTR s1, const CString& s2) { return s2.Compare(s1) >= 0; }
bool AFXAPI operator>=(const CString& s1, const CString& s2) { return s1.Compare(s2) >= 0; }
bool AFXAPI operator>=(const CString& s1, LPCTSTR s2) { return s1.Compare(s2) >= 0; }
bool AFXAPI operator>=(LPCTSTR s1, const CString& s2) { return s2.Compare(s1) <= 0; }
