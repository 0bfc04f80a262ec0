// DDV functions. To the control there is nothing to validate: what the program shows is its own
// affair.

#include <afxcmn.h>
#include <afxdtctl.h>

#include "ddx/failing.h"

namespace {

template <class Value>
void validateRange(CDataExchange* pDX, Value value, Value minVal, Value maxVal, LPCTSTR format,
                   UINT prompt) {
  if (!pDX->m_bSaveAndValidate || (value >= minVal && value <= maxVal)) return;
  char limits[2][64];
  snprintf(limits[0], sizeof limits[0], format, minVal);
  snprintf(limits[1], sizeof limits[1], format, maxVal);
  FailWith(pDX, prompt, limits[0], limits[1]);
}

bool isClass(HWND control, LPCTSTR name) {
  char itsName[64] = "";
  ::GetClassName(control, itsName, sizeof itsName);
  return lstrcmpi(itsName, name) == 0;
}

}  // namespace

void AFXAPI DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars) {
  if (pDX->m_bSaveAndValidate) {
    if (value.GetLength() <= nChars) return;
    char limit[16];
    snprintf(limit, sizeof limit, "%d", nChars);
    FailWith(pDX, AFX_IDP_PARSE_STRING_SIZE, limit, nullptr);
  }
  if (pDX->m_hWndLastControl == nullptr) return;
  const UINT message = isClass(pDX->m_hWndLastControl, "COMBOBOX") ? CB_LIMITTEXT : EM_LIMITTEXT;
  if (message == CB_LIMITTEXT || pDX->m_bEditLastControl)
    ::SendMessage(pDX->m_hWndLastControl, message, nChars, 0);
}

void AFXAPI DDV_MinMaxByte(CDataExchange* pDX, BYTE value, BYTE minVal, BYTE maxVal) {
  validateRange<int>(pDX, value, minVal, maxVal, "%d", AFX_IDP_PARSE_INT_RANGE);
}

void AFXAPI DDV_MinMaxShort(CDataExchange* pDX, short value, short minVal, short maxVal) {
  validateRange<int>(pDX, value, minVal, maxVal, "%d", AFX_IDP_PARSE_INT_RANGE);
}

void AFXAPI DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal) {
  validateRange(pDX, value, minVal, maxVal, "%d", AFX_IDP_PARSE_INT_RANGE);
}

void AFXAPI DDV_MinMaxLong(CDataExchange* pDX, long value, long minVal, long maxVal) {
  validateRange(pDX, value, minVal, maxVal, "%ld", AFX_IDP_PARSE_INT_RANGE);
}

void AFXAPI DDV_MinMaxUInt(CDataExchange* pDX, UINT value, UINT minVal, UINT maxVal) {
  validateRange(pDX, value, minVal, maxVal, "%u", AFX_IDP_PARSE_INT_RANGE);
}

void AFXAPI DDV_MinMaxDWord(CDataExchange* pDX, const DWORD& value, const DWORD& minVal,
                            const DWORD& maxVal) {
  validateRange(pDX, value, minVal, maxVal, "%lu", AFX_IDP_PARSE_INT_RANGE);
}

void AFXAPI DDV_MinMaxFloat(CDataExchange* pDX, const float& value, const float& minVal,
                            const float& maxVal) {
  validateRange<double>(pDX, value, minVal, maxVal, "%.6g", AFX_IDP_PARSE_REAL_RANGE);
}

void AFXAPI DDV_MinMaxDouble(CDataExchange* pDX, const double& value, const double& minVal,
                             const double& maxVal) {
  validateRange(pDX, value, minVal, maxVal, "%.15g", AFX_IDP_PARSE_REAL_RANGE);
}

void AFXAPI DDV_MinMaxSlider(CDataExchange* pDX, DWORD value, DWORD minVal, DWORD maxVal) {
  validateRange(pDX, value, minVal, maxVal, "%lu", AFX_IDP_PARSE_INT_RANGE);
  if (pDX->m_bSaveAndValidate || pDX->m_hWndLastControl == nullptr) return;
  CSliderCtrl* const slider =
      STATIC_DOWNCAST(CSliderCtrl, CWnd::FromHandle(pDX->m_hWndLastControl));
  // The slider has had its value, which its former range may have cut.
  slider->SetRange(static_cast<int>(minVal), static_cast<int>(maxVal), TRUE);
  slider->SetPos(static_cast<int>(value));
}

void AFXAPI DDV_MinMaxDateTime(CDataExchange* pDX, CTime& refValue, const CTime* refMinRange,
                               const CTime* refMaxRange) {
  if (!pDX->m_bSaveAndValidate) {
    if (pDX->m_hWndLastControl == nullptr) return;
    CWnd* const control = CWnd::FromHandle(pDX->m_hWndLastControl);
    STATIC_DOWNCAST(CDateTimeCtrl, control)->SetRange(refMinRange, refMaxRange);
  } else if ((refMinRange != nullptr && refValue < *refMinRange) ||
             (refMaxRange != nullptr && refValue > *refMaxRange)) {
    FailWith(pDX, AFX_IDP_PARSE_DATETIME);
  }
}
