// Appending, trimming, replacing, inserting, deleting and turning round.

#include <ctype.h>

#include <algorithm>

#include "strings/code_page.h"
#include "strings/string_storage.h"

using namespace strings;

const CString& CString::operator+=(const CString& string) {
  ConcatInPlace(string.GetLength(), string.m_pchData);
  return *this;
}

const CString& CString::operator+=(TCHAR ch) {
  ConcatInPlace(1, &ch);
  return *this;
}

const CString& CString::operator+=(LPCTSTR lpsz) {
  ConcatInPlace(Length(lpsz), lpsz);
  return *this;
}

static CStringData* join(LPCSTR left, int leftLength, LPCSTR right, int rightLength) {
  Builder text(Length(static_cast<size_t>(leftLength) + rightLength));
  return text.Append(left, leftLength).Append(right, rightLength).Finish();
}

CString AFXAPI operator+(const CString& string1, const CString& string2) {
  CString sum;
  sum.Attach(join(string1, string1.GetLength(), string2, string2.GetLength()));
  return sum;
}

CString AFXAPI operator+(const CString& string, TCHAR ch) {
  CString sum;
  sum.Attach(join(string, string.GetLength(), &ch, 1));
  return sum;
}

CString AFXAPI operator+(TCHAR ch, const CString& string) {
  CString sum;
  sum.Attach(join(&ch, 1, string, string.GetLength()));
  return sum;
}

CString AFXAPI operator+(const CString& string, LPCTSTR lpsz) {
  CString sum;
  sum.Attach(join(string, string.GetLength(), lpsz, Length(lpsz)));
  return sum;
}

CString AFXAPI operator+(LPCTSTR lpsz, const CString& string) {
  CString sum;
  sum.Attach(join(lpsz, Length(lpsz), string, string.GetLength()));
  return sum;
}

void CString::MakeUpper() { FoldUpper(GetBuffer(0), GetLength()); }

void CString::MakeLower() { FoldLower(GetBuffer(0), GetLength()); }

void CString::MakeReverse() {
  char* text = GetBuffer(0);
  const int length = GetLength();
  // The bytes of each pair are swapped first, and swapped back by the turning.
  if (DoubleByte())
    for (int i = 0; i < length; ++i)
      if (CharSize(text + i) == 2) {
        std::swap(text[i], text[i + 1]);
        ++i;
      }
  std::reverse(text, text + length);
}

namespace {

// The length without the characters at the end that are targets. It walks from the beginning,
// because the second byte of a character may look like a target.
template <class IsTarget>
int lengthTrimmedRight(LPCSTR text, int length, IsTarget isTarget) {
  if (!DoubleByte()) {
    while (length > 0 && isTarget(text + length - 1)) --length;
    return length;
  }
  int kept = 0;
  for (int i = 0; i < length;) {
    const bool target = isTarget(text + i);
    i += CharSize(text + i);
    if (!target) kept = i;
  }
  return std::min(kept, length);
}

template <class IsTarget>
int lengthToTrimLeft(LPCSTR text, int length, IsTarget isTarget) {
  int i = 0;
  while (i < length && isTarget(text + i)) i += CharSize(text + i);
  return i;
}

bool isSpace(LPCSTR p) {
  return CharSize(p) == 1 ? isspace(Byte(*p)) != 0 : _ismbcspace(CharValue(p)) != 0;
}

auto isCharacter(TCHAR ch) {
  return [ch](LPCSTR p) { return *p == ch && CharSize(p) == 1; };
}

auto isAnyOf(LPCSTR set) {
  return [set](LPCSTR p) { return IsOneOf(p, set); };
}

}  // namespace

void CString::TrimRight() { Keep(0, lengthTrimmedRight(*this, GetLength(), isSpace)); }

void CString::TrimRight(TCHAR chTarget) {
  Keep(0, lengthTrimmedRight(*this, GetLength(), isCharacter(chTarget)));
}

void CString::TrimRight(LPCTSTR lpszTargets) {
  Keep(0, lengthTrimmedRight(*this, GetLength(), isAnyOf(lpszTargets)));
}

void CString::TrimLeft() { Keep(lengthToTrimLeft(*this, GetLength(), isSpace), GetLength()); }

void CString::TrimLeft(TCHAR chTarget) {
  Keep(lengthToTrimLeft(*this, GetLength(), isCharacter(chTarget)), GetLength());
}

void CString::TrimLeft(LPCTSTR lpszTargets) {
  Keep(lengthToTrimLeft(*this, GetLength(), isAnyOf(lpszTargets)), GetLength());
}

// Keeps the characters from nFirst up to nEnd.
void CString::Keep(int nFirst, int nEnd) {
  if (nEnd - nFirst == GetLength()) return;
  AllocBeforeWrite(GetLength());
  memmove(m_pchData, m_pchData + nFirst, nEnd - nFirst);
  SetLength(GetData(), nEnd - nFirst);
}

int CString::Replace(TCHAR chOld, TCHAR chNew) {
  if (chOld == chNew) return 0;
  const int length = GetLength();
  const auto isOld = isCharacter(chOld);
  int count = 0;
  for (int i = 0; i < length; i += CharSize(m_pchData + i)) {
    if (!isOld(m_pchData + i)) continue;
    if (count++ == 0) AllocBeforeWrite(length);
    m_pchData[i] = chNew;
  }
  return count;
}

int CString::Replace(LPCTSTR lpszOld, LPCTSTR lpszNew) {
  const int oldLength = Length(lpszOld), newLength = Length(lpszNew);
  if (oldLength == 0) return 0;

  // A text with null characters in it is searched piece by piece.
  LPCSTR const end = m_pchData + GetLength();
  const auto next = [&](LPCSTR p) -> LPCSTR {
    for (; p < end; p += strlen(p) + 1)
      if (LPCSTR found = FindSub(p, lpszOld)) return found;
    return nullptr;
  };
  int count = 0;
  for (LPCSTR p = next(m_pchData); p != nullptr; p = next(p + oldLength)) ++count;
  if (count == 0) return 0;

  const long long length = GetLength() + static_cast<long long>(count) * (newLength - oldLength);
  if (length > INT_MAX) AfxThrowMemoryException();
  Builder text(static_cast<int>(length));
  LPCSTR rest = m_pchData;
  for (LPCSTR p = next(rest); p != nullptr; p = next(rest)) {
    text.Append(rest, static_cast<int>(p - rest)).Append(lpszNew, newLength);
    rest = p + oldLength;
  }
  text.Append(rest, static_cast<int>(end - rest));
  Attach(text.Finish());
  return count;
}

int CString::Remove(TCHAR chRemove) {
  const int length = GetLength();
  const auto isRemoved = isCharacter(chRemove);
  AllocBeforeWrite(length);
  int kept = 0;
  for (int i = 0; i < length;) {
    const int size = CharSize(m_pchData + i);
    if (!isRemoved(m_pchData + i)) {
      memmove(m_pchData + kept, m_pchData + i, size);
      kept += size;
    }
    i += size;
  }
  if (kept < length) SetLength(GetData(), kept);
  return length - kept;
}

int CString::Insert(int nIndex, TCHAR ch) {
  const TCHAR text[2] = {ch, '\0'};
  return Insert(nIndex, text);
}

int CString::Insert(int nIndex, LPCTSTR pstr) {
  const int length = GetLength(), added = Length(pstr);
  if (added == 0) return length;
  const int index = std::clamp(nIndex, 0, length);
  Builder text(Length(static_cast<size_t>(length) + added));
  text.Append(m_pchData, index).Append(pstr, added).Append(m_pchData + index, length - index);
  Attach(text.Finish());
  return GetLength();
}

int CString::Delete(int nIndex, int nCount) {
  const int length = GetLength();
  const int index = std::clamp(nIndex, 0, length);
  const int count = std::clamp(nCount, 0, length - index);
  if (count == 0) return length;
  AllocBeforeWrite(length);
  memmove(m_pchData + index, m_pchData + index + count, length - index - count);
  SetLength(GetData(), length - count);
  return length - count;
}
