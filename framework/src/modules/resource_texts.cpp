// Texts from string tables with inserts, and lists of texts in one.

#include <afxwin.h>

#include <string.h>

#include "strings/code_page.h"

using namespace strings;

namespace {

// Puts texts in the place of %1, %2 and so on. Others stay as they are.
CString insert(const CString& format, const LPCTSTR* texts, int count) {
  CString result;
  LPCSTR p = format, piece = p;
  while (*p != '\0') {
    const int number = *p == '%' ? p[1] - '1' : -1;
    if (number < 0 || number >= count) {
      p += CharSize(p);
      continue;
    }
    result += CString(piece, static_cast<int>(p - piece));
    if (texts[number] != nullptr) result += texts[number];
    p = piece = p + 2;
  }
  return result + piece;
}

void formatStrings(CString& result, UINT id, const LPCTSTR* texts, int count) {
  CString format;
  format.LoadString(id);
  result = insert(format, texts, count);
}

}  // namespace

void AFXAPI AfxFormatString1(CString& rString, UINT nIDS, LPCTSTR lpsz1) {
  formatStrings(rString, nIDS, &lpsz1, 1);
}

void AFXAPI AfxFormatString2(CString& rString, UINT nIDS, LPCTSTR lpsz1, LPCTSTR lpsz2) {
  const LPCTSTR texts[] = {lpsz1, lpsz2};
  formatStrings(rString, nIDS, texts, 2);
}

BOOL AFXAPI AfxExtractSubString(CString& rString, LPCTSTR lpszFullString, int iSubString,
                                TCHAR chSep) {
  LPCSTR part = lpszFullString;
  for (; part != nullptr && iSubString > 0; --iSubString) {
    LPCSTR separator = FindChar(part, chSep);
    part = separator == nullptr ? nullptr : separator + 1;
  }
  if (part == nullptr) {
    rString.Empty();
    return FALSE;
  }
  LPCSTR end = FindChar(part, chSep);
  rString = end == nullptr ? CString(part) : CString(part, static_cast<int>(end - part));
  return TRUE;
}
