// Exchange of values between a dialog's members and its controls, and their validation.
#pragma once

#include "afxwnd_.h"

class CComboBox;
class CListBox;
class CTime;

// The exchange that UpdateData runs.
class AFX_CORE_DATA CDataExchange {
 public:
  CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate);

  BOOL m_bSaveAndValidate;  // from the controls to the members; FALSE: the other way
  CWnd* m_pDlgWnd;          // the dialog

  // For exchange functions: the control with the id, which a failure concerns from now on; the
  // second is for edits. Both throw CNotSupportedException when there is none.
  HWND PrepareCtrl(int nIDC);
  HWND PrepareEditCtrl(int nIDC);
  // After the user has been told: moves the focus to the control, selects the text of an edit, and
  // throws CUserException, on which UpdateData returns FALSE.
  [[noreturn]] void Fail();

  HWND m_hWndLastControl;
  BOOL m_bEditLastControl;
};

// Texts of any length, and numbers: a text that is none, or is out of the type's range, fails with
// a prompt.
AFX_CORE_DATA void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value);
AFX_CORE_DATA void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, BYTE& value);
AFX_CORE_DATA void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, short& value);
AFX_CORE_DATA void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value);
AFX_CORE_DATA void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value);
AFX_CORE_DATA void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, long& value);
AFX_CORE_DATA void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value);
AFX_CORE_DATA void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, float& value);
AFX_CORE_DATA void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, double& value);

// 0 unchecked, 1 checked, 2 undetermined; other values count as 0.
AFX_CORE_DATA void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value);
// nIDC: the group's first button, with WS_GROUP. The number of the checked one, -1: none is.
AFX_CORE_DATA void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value);

// Lists: the text or the number of the selected item; empty or -1: none is. To the control, the
// first item that begins with the text is selected, with Exact the one that equals it; upper and
// lower case are the same. A combo box's text is its edit's, which need not be one of its items.
AFX_CORE_DATA void AFXAPI DDX_LBString(CDataExchange* pDX, int nIDC, CString& value);
AFX_CORE_DATA void AFXAPI DDX_LBStringExact(CDataExchange* pDX, int nIDC, CString& value);
AFX_CORE_DATA void AFXAPI DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index);
AFX_CORE_DATA void AFXAPI DDX_CBString(CDataExchange* pDX, int nIDC, CString& value);
AFX_CORE_DATA void AFXAPI DDX_CBStringExact(CDataExchange* pDX, int nIDC, CString& value);
AFX_CORE_DATA void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index);

// Positions of a scroll bar and a slider. The scroll bar's range is set before.
AFX_CORE_DATA void AFXAPI DDX_Scroll(CDataExchange* pDX, int nIDC, int& value);
AFX_CORE_DATA void AFXAPI DDX_Slider(CDataExchange* pDX, int nIDC, int& value);

// Dates. A date picker without a value leaves the member as it is.
AFX_CORE_DATA void AFXAPI DDX_DateTimeCtrl(CDataExchange* pDX, int nIDC, CTime& value);
AFX_CORE_DATA void AFXAPI DDX_MonthCalCtrl(CDataExchange* pDX, int nIDC, CTime& value);

// Makes the member the object of the control, the first time; subclasses it.
AFX_CORE_DATA void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);

// Validation of the value that the call before it has exchanged. From the control, a value outside
// fails with a prompt that names the limits. To the control, DDV_MaxChars limits what the user can
// type (in characters of one byte), DDV_MinMaxSlider sets the slider's range and
// DDV_MinMaxDateTime the date picker's.
AFX_CORE_DATA void AFXAPI DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars);
AFX_CORE_DATA void AFXAPI DDV_MinMaxByte(CDataExchange* pDX, BYTE value, BYTE minVal, BYTE maxVal);
AFX_CORE_DATA void AFXAPI DDV_MinMaxShort(CDataExchange* pDX, short value, short minVal,
                                          short maxVal);
AFX_CORE_DATA void AFXAPI DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal);
AFX_CORE_DATA void AFXAPI DDV_MinMaxLong(CDataExchange* pDX, long value, long minVal, long maxVal);
AFX_CORE_DATA void AFXAPI DDV_MinMaxUInt(CDataExchange* pDX, UINT value, UINT minVal, UINT maxVal);
AFX_CORE_DATA void AFXAPI DDV_MinMaxDWord(CDataExchange* pDX, const DWORD& value,
                                          const DWORD& minVal, const DWORD& maxVal);
AFX_CORE_DATA void AFXAPI DDV_MinMaxFloat(CDataExchange* pDX, const float& value,
                                          const float& minVal, const float& maxVal);
AFX_CORE_DATA void AFXAPI DDV_MinMaxDouble(CDataExchange* pDX, const double& value,
                                           const double& minVal, const double& maxVal);
AFX_CORE_DATA void AFXAPI DDV_MinMaxSlider(CDataExchange* pDX, DWORD value, DWORD minVal,
                                           DWORD maxVal);
AFX_CORE_DATA void AFXAPI DDV_MinMaxDateTime(CDataExchange* pDX, CTime& refValue,
                                             const CTime* refMinRange, const CTime* refMaxRange);
