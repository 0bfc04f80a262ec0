// DDX_Text: texts and numbers of edits.

#include <afxwin.h>

#include <errno.h>
#include <float.h>
#include <math.h>
#include <stdlib.h>

#include <charconv>
#include <limits>
#include <system_error>

#include "ddx/failing.h"
#include "ddx/window_text.h"

namespace {

bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// The text without white space around it, and without a plus sign.
CString numberPart(HWND control) {
  CString text = WindowText(control);
  int first = 0;
  int end = text.GetLength();
  while (first < end && isSpace(text[first])) ++first;
  while (end > first && isSpace(text[end - 1])) --end;
  if (end - first > 1 && text[first] == '+' && text[first + 1] != '-') ++first;
  return text.Mid(first, end - first);
}

// False: the text is no number, or the type does not hold it.
template <class Number>
bool parse(const CString& text, Number* number) {
  const char* const end = static_cast<LPCTSTR>(text) + text.GetLength();
  const auto result = std::from_chars(static_cast<LPCTSTR>(text), end, *number);
  return result.ec == std::errc() && result.ptr == end;
}

template <class Integer>
void exchangeInteger(CDataExchange* pDX, int nIDC, Integer& value, UINT prompt) {
  const HWND control = pDX->PrepareEditCtrl(nIDC);
  if (!pDX->m_bSaveAndValidate) {
    char text[std::numeric_limits<Integer>::digits10 + 3];
    *std::to_chars(text, text + sizeof text - 1, value).ptr = '\0';
    ShowWindowText(control, text);
  } else if (Integer read; parse(numberPart(control), &read)) {
    value = read;
  } else {
    FailWith(pDX, prompt);
  }
}

// With the digits that the type is sure to hold.
template <class Real>
void exchangeReal(CDataExchange* pDX, int nIDC, Real& value) {
  const HWND control = pDX->PrepareEditCtrl(nIDC);
  if (!pDX->m_bSaveAndValidate) {
    char text[64];
    *std::to_chars(text, text + sizeof text - 1, value, std::chars_format::general,
                   std::numeric_limits<Real>::digits10)
         .ptr = '\0';
    ShowWindowText(control, text);
  } else if (Real read; parse(numberPart(control), &read) && isfinite(read)) {
    value = read;
  } else {
    FailWith(pDX, AFX_IDP_PARSE_REAL);
  }
}

}  // namespace

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value) {
  const HWND control = pDX->PrepareEditCtrl(nIDC);
  if (pDX->m_bSaveAndValidate)
    value = WindowText(control);
  else
    ShowWindowText(control, value);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, BYTE& value) {
  exchangeInteger(pDX, nIDC, value, AFX_IDP_PARSE_BYTE);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, short& value) {
  exchangeInteger(pDX, nIDC, value, AFX_IDP_PARSE_INT);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value) {
  exchangeInteger(pDX, nIDC, value, AFX_IDP_PARSE_INT);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value) {
  exchangeInteger(pDX, nIDC, value, AFX_IDP_PARSE_UINT);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, long& value) {
  exchangeInteger(pDX, nIDC, value, AFX_IDP_PARSE_INT);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value) {
  exchangeInteger(pDX, nIDC, value, AFX_IDP_PARSE_UINT);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, float& value) { exchangeReal(pDX, nIDC, value); }
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, double& value) {
  exchangeReal(pDX, nIDC, value);
}
