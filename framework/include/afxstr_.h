// CString: text of any length in the system's ANSI code page, which may be a double-byte one.
#pragma once

#include "afxver_.h"

#include <stdarg.h>
#include <wtypes.h>

// Stands in memory before the characters of a string and the null that ends them.
struct CStringData {
  long nRefs;        // strings that share the characters; -1: locked, not to be shared
  int nDataLength;   // characters in use, without the null
  int nAllocLength;  // characters there is room for, without the null

  LPTSTR data() { return reinterpret_cast<LPTSTR>(this + 1); }
};

// The characters are shared between copies and counted; whoever writes first copies them. Copies
// may be used in different threads, one string object may not.
//
// A string is as wide as one pointer to its characters, which a null always ends. It may hold null
// characters too; searching and comparing stop at the first one.
//
// Positions are counted in bytes from 0. Arguments may point into the string itself. Every member
// that needs memory throws CMemoryException when there is none, and then leaves the string as it
// was.
class AFX_CORE_DATA CString {
 public:
  CString();
  CString(const CString& stringSrc);
  CString(CString&& stringSrc) noexcept;
  CString(TCHAR ch, int nRepeat = 1);
  // lpsz may be null, which gives an empty string, or MAKEINTRESOURCE of the id of a string
  // resource, which is loaded (an empty string when it is not found).
  CString(LPCSTR lpsz);
  CString(LPCSTR lpch, int nLength);
  // Characters that the ANSI code page does not have become its default character.
  CString(LPCWSTR lpsz);
  CString(LPCWSTR lpch, int nLength);
  CString(const unsigned char* psz);
  ~CString();

  int GetLength() const { return GetData()->nDataLength; }
  BOOL IsEmpty() const { return GetData()->nDataLength == 0; }
  // Makes the string empty and frees its memory.
  void Empty();

  // nIndex from 0 to the length, where the ending null stands; not checked.
  TCHAR GetAt(int nIndex) const { return m_pchData[nIndex]; }
  TCHAR operator[](int nIndex) const { return m_pchData[nIndex]; }
  // nIndex below the length.
  void SetAt(int nIndex, TCHAR ch);
  // Valid until the string changes or ends.
  operator LPCTSTR() const { return m_pchData; }

  const CString& operator=(const CString& stringSrc);
  const CString& operator=(CString&& stringSrc);
  const CString& operator=(TCHAR ch);
  const CString& operator=(LPCSTR lpsz);
  const CString& operator=(LPCWSTR lpsz);
  const CString& operator=(const unsigned char* psz);

  const CString& operator+=(const CString& string);
  const CString& operator+=(TCHAR ch);
  const CString& operator+=(LPCTSTR lpsz);

  friend AFX_CORE_DATA CString AFXAPI operator+(const CString& string1, const CString& string2);
  friend AFX_CORE_DATA CString AFXAPI operator+(const CString& string, TCHAR ch);
  friend AFX_CORE_DATA CString AFXAPI operator+(TCHAR ch, const CString& string);
  friend AFX_CORE_DATA CString AFXAPI operator+(const CString& string, LPCTSTR lpsz);
  friend AFX_CORE_DATA CString AFXAPI operator+(LPCTSTR lpsz, const CString& string);

  // Below 0, 0 or above 0 as the string sorts before lpsz, equals it or sorts after it: byte by
  // byte, without regard to the case of letters, by the order of the runtime's locale, and both.
  int Compare(LPCTSTR lpsz) const;
  int CompareNoCase(LPCTSTR lpsz) const;
  int Collate(LPCTSTR lpsz) const;
  int CollateNoCase(LPCTSTR lpsz) const;

  // Parts of the string. Positions and counts outside of it are brought back to its ends.
  CString Mid(int nFirst, int nCount) const;
  CString Mid(int nFirst) const;
  CString Left(int nCount) const;
  CString Right(int nCount) const;
  // The beginning that holds only characters of the set; that holds none of them.
  CString SpanIncluding(LPCTSTR lpszCharSet) const;
  CString SpanExcluding(LPCTSTR lpszCharSet) const;

  void MakeUpper();
  void MakeLower();
  // Reverses the characters; double-byte ones stay whole.
  void MakeReverse();

  // Cut off white space, one character, or any of the characters in lpszTargets.
  void TrimRight();
  void TrimRight(TCHAR chTarget);
  void TrimRight(LPCTSTR lpszTargets);
  void TrimLeft();
  void TrimLeft(TCHAR chTarget);
  void TrimLeft(LPCTSTR lpszTargets);

  // The count of characters or texts replaced or removed. An empty lpszOld is never found.
  int Replace(TCHAR chOld, TCHAR chNew);
  int Replace(LPCTSTR lpszOld, LPCTSTR lpszNew);
  int Remove(TCHAR chRemove);
  // The new length. Insert at a position past the end appends; both take a position below 0 as 0.
  int Insert(int nIndex, TCHAR ch);
  int Insert(int nIndex, LPCTSTR pstr);
  int Delete(int nIndex, int nCount = 1);

  // The position of the first (ReverseFind: last) character or text found, from nStart on; -1:
  // none.
  int Find(TCHAR ch) const;
  int Find(LPCTSTR lpszSub) const;
  int Find(TCHAR ch, int nStart) const;
  int Find(LPCTSTR lpszSub, int nStart) const;
  int ReverseFind(TCHAR ch) const;
  int FindOneOf(LPCTSTR lpszCharSet) const;

  // Formats as the runtime's printf does; an argument may be the string itself. The second form
  // takes the format from the string table and throws CResourceException when it is not there. What
  // the runtime cannot format throws CMemoryException.
  void AFX_CDECL Format(LPCTSTR lpszFormat, ...);
  void AFX_CDECL Format(UINT nFormatID, ...);
  void FormatV(LPCTSTR lpszFormat, va_list argList);

  // Formats as the system's FormatMessage does: %1 to %99 stand for the arguments, which are texts
  // unless the insert says otherwise (%1!d!), %n breaks the line, %% is a percent sign. A format
  // that the system refuses throws CMemoryException.
  void AFX_CDECL FormatMessage(LPCTSTR lpszFormat, ...);
  void AFX_CDECL FormatMessage(UINT nFormatID, ...);
  void FormatMessageV(LPCTSTR lpszFormat, va_list* pArgList);

  // Loads from the string tables of the program and its extension modules. FALSE, and an empty
  // string, when no table has the id.
  BOOL LoadString(UINT nID);

  // Between the ANSI code page and that of consoles.
  void AnsiToOem();
  void OemToAnsi();

  // A new automation string with the text, owned by the caller.
  BSTR AllocSysString() const;
  // Puts the text into an automation string that exists already.
  BSTR SetSysString(BSTR* pbstr) const;

  // The characters to be written to, with room for nMinBufLength of them and a null. The string
  // must not be used otherwise until ReleaseBuffer says how many there are (-1: up to the first
  // null).
  LPTSTR GetBuffer(int nMinBufLength);
  void ReleaseBuffer(int nNewLength = -1);
  // The same with the length set at once.
  LPTSTR GetBufferSetLength(int nNewLength);
  // Frees memory that the text does not need.
  void FreeExtra();
  // Between the two, copies of the string get characters of their own.
  LPTSTR LockBuffer();
  void UnlockBuffer();

 protected:
  CStringData* GetData() const { return reinterpret_cast<CStringData*>(m_pchData) - 1; }
  // Takes over a block that nobody else owns; the string's old one is released.
  void Attach(CStringData* pData);
  // Sees to it that this string alone owns its characters and has room for nLength of them.
  void AllocBeforeWrite(int nLength);
  void AssignCopy(int nLength, LPCTSTR lpch);
  void ConcatInPlace(int nLength, LPCTSTR lpch);
  void Keep(int nFirst, int nEnd);

  LPTSTR m_pchData;
};

static_assert(sizeof(CString) == sizeof(void*), "a CString can stand where a text pointer stands");

AFX_CORE_DATA bool AFXAPI operator==(const CString& s1, const CString& s2);
AFX_CORE_DATA bool AFXAPI operator==(const CString& s1, LPCTSTR s2);
AFX_CORE_DATA bool AFXAPI operator==(LPCTSTR s1, const CString& s2);
AFX_CORE_DATA bool AFXAPI operator!=(const CString& s1, const CString& s2);
AFX_CORE_DATA bool AFXAPI operator!=(const CString& s1, LPCTSTR s2);
AFX_CORE_DATA bool AFXAPI operator!=(LPCTSTR s1, const CString& s2);
AFX_CORE_DATA bool AFXAPI operator<(const CString& s1, const CString& s2);
AFX_CORE_DATA bool AFXAPI operator<(const CString& s1, LPCTSTR s2);
AFX_CORE_DATA bool AFXAPI operator<(LPCTSTR s1, const CString& s2);
AFX_CORE_DATA bool AFXAPI operator>(const CString& s1, const CString& s2);
AFX_CORE_DATA bool AFXAPI operator>(const CString& s1, LPCTSTR s2);
AFX_CORE_DATA bool AFXAPI operator>(LPCTSTR s1, const CString& s2);
AFX_CORE_DATA bool AFXAPI operator<=(const CString& s1, const CString& s2);
AFX_CORE_DATA bool AFXAPI operator<=(const CString& s1, LPCTSTR s2);
AFX_CORE_DATA bool AFXAPI operator<=(LPCTSTR s1, const CString& s2);
AFX_CORE_DATA bool AFXAPI operator>=(const CString& s1, const CString& s2);
AFX_CORE_DATA bool AFXAPI operator>=(const CString& s1, LPCTSTR s2);
AFX_CORE_DATA bool AFXAPI operator>=(LPCTSTR s1, const CString& s2);
