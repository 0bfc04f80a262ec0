// Exchange with buttons, lists, sliders, dates and objects of controls.

#include <afxcmn.h>
#include <afxdtctl.h>

#include "ddx/window_text.h"

namespace {

// The messages by which a list box and the list of a combo box do the same.
struct ListMessages {
  UINT getCurSel, setCurSel, selectString, findStringExact;
};

constexpr ListMessages kListBox = {LB_GETCURSEL, LB_SETCURSEL, LB_SELECTSTRING, LB_FINDSTRINGEXACT};
constexpr ListMessages kComboBox = {CB_GETCURSEL, CB_SETCURSEL, CB_SELECTSTRING,
                                    CB_FINDSTRINGEXACT};

// Selects the item with a text, or with -1 none when there is no such item. False: there is none.
bool selectText(HWND control, const ListMessages& messages, bool exact, LPCTSTR text) {
  const LPARAM wanted = reinterpret_cast<LPARAM>(text);
  int found = -1;
  if (exact) {
    found = ::SendMessage(control, messages.findStringExact, static_cast<WPARAM>(-1), wanted);
    ::SendMessage(control, messages.setCurSel, found, 0);
  } else if (*text != '\0') {
    // An empty text would be the beginning of any item.
    found = ::SendMessage(control, messages.selectString, static_cast<WPARAM>(-1), wanted);
  }
  if (found < 0) ::SendMessage(control, messages.setCurSel, static_cast<WPARAM>(-1), 0);
  return found >= 0;
}

void exchangeIndex(CDataExchange* pDX, HWND control, const ListMessages& messages, int& index) {
  if (pDX->m_bSaveAndValidate)
    index = ::SendMessage(control, messages.getCurSel, 0, 0);
  else
    ::SendMessage(control, messages.setCurSel, index, 0);
}

void exchangeListText(CDataExchange* pDX, int nIDC, bool exact, CString& value) {
  const HWND control = pDX->PrepareCtrl(nIDC);
  if (!pDX->m_bSaveAndValidate) {
    selectText(control, kListBox, exact, value);
    return;
  }
  const int selected = ::SendMessage(control, LB_GETCURSEL, 0, 0);
  const int length =
      selected >= 0 ? static_cast<int>(::SendMessage(control, LB_GETTEXTLEN, selected, 0)) : 0;
  value.Empty();
  if (length <= 0) return;
  const LPTSTR buffer = value.GetBuffer(length);
  value.ReleaseBuffer(
      ::SendMessage(control, LB_GETTEXT, selected, reinterpret_cast<LPARAM>(buffer)));
}

void exchangeComboText(CDataExchange* pDX, int nIDC, bool exact, CString& value) {
  const HWND control = pDX->PrepareCtrl(nIDC);
  if (pDX->m_bSaveAndValidate)
    value = WindowText(control);
  else if (!selectText(control, kComboBox, exact, value))
    ShowWindowText(control, value);
}

bool isRadioButton(HWND control) {
  return (::SendMessage(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
}

}  // namespace

void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value) {
  const HWND control = pDX->PrepareCtrl(nIDC);
  if (pDX->m_bSaveAndValidate)
    value = ::SendMessage(control, BM_GETCHECK, 0, 0);
  else
    ::SendMessage(control, BM_SETCHECK, value >= 0 && value <= 2 ? value : 0, 0);
}

// The group ends before the next control that begins one. Other controls may stand between its
// buttons and do not count.
void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value) {
  HWND control = pDX->PrepareCtrl(nIDC);
  if (pDX->m_bSaveAndValidate) value = -1;
  int number = 0;
  do {
    if (isRadioButton(control)) {
      if (!pDX->m_bSaveAndValidate)
        ::SendMessage(control, BM_SETCHECK, number == value, 0);
      else if (::SendMessage(control, BM_GETCHECK, 0, 0) != 0)
        value = number;
      ++number;
    }
    control = ::GetWindow(control, GW_HWNDNEXT);
  } while (control != nullptr && (GetWindowLong(control, GWL_STYLE) & WS_GROUP) == 0);
}

void AFXAPI DDX_LBString(CDataExchange* pDX, int nIDC, CString& value) {
  exchangeListText(pDX, nIDC, false, value);
}

void AFXAPI DDX_LBStringExact(CDataExchange* pDX, int nIDC, CString& value) {
  exchangeListText(pDX, nIDC, true, value);
}

void AFXAPI DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index) {
  exchangeIndex(pDX, pDX->PrepareCtrl(nIDC), kListBox, index);
}

void AFXAPI DDX_CBString(CDataExchange* pDX, int nIDC, CString& value) {
  exchangeComboText(pDX, nIDC, false, value);
}

void AFXAPI DDX_CBStringExact(CDataExchange* pDX, int nIDC, CString& value) {
  exchangeComboText(pDX, nIDC, true, value);
}

void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index) {
  exchangeIndex(pDX, pDX->PrepareCtrl(nIDC), kComboBox, index);
}

void AFXAPI DDX_Scroll(CDataExchange* pDX, int nIDC, int& value) {
  const HWND control = pDX->PrepareCtrl(nIDC);
  if (pDX->m_bSaveAndValidate)
    value = ::GetScrollPos(control, SB_CTL);
  else
    ::SetScrollPos(control, SB_CTL, value, TRUE);
}

void AFXAPI DDX_Slider(CDataExchange* pDX, int nIDC, int& value) {
  const HWND control = pDX->PrepareCtrl(nIDC);
  if (pDX->m_bSaveAndValidate)
    value = ::SendMessage(control, TBM_GETPOS, 0, 0);
  else
    ::SendMessage(control, TBM_SETPOS, TRUE, value);
}

void AFXAPI DDX_DateTimeCtrl(CDataExchange* pDX, int nIDC, CTime& value) {
  CDateTimeCtrl* const control =
      STATIC_DOWNCAST(CDateTimeCtrl, CWnd::FromHandle(pDX->PrepareCtrl(nIDC)));
  if (pDX->m_bSaveAndValidate)
    control->GetTime(value);
  else
    control->SetTime(&value);
}

void AFXAPI DDX_MonthCalCtrl(CDataExchange* pDX, int nIDC, CTime& value) {
  CMonthCalCtrl* const control =
      STATIC_DOWNCAST(CMonthCalCtrl, CWnd::FromHandle(pDX->PrepareCtrl(nIDC)));
  if (pDX->m_bSaveAndValidate)
    control->GetCurSel(value);
  else
    control->SetCurSel(value);
}

void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl) {
  if (rControl.m_hWnd != nullptr) return;
  if (!rControl.SubclassWindow(pDX->PrepareCtrl(nIDC))) AfxThrowNotSupportedException();
}
