// The exchange of a time with two pickers.
#include <afxdtctl.h>

#include "util/TimeUtil.h"

namespace {

void Show(HWND picker, CTime time) {
  SYSTEMTIME fields;
  const bool none = time.GetTime() == 0 && (GetWindowLong(picker, GWL_STYLE) & DTS_SHOWNONE) != 0;
  if (none || time.GetAsSystemTime(fields)) {
    DateTime_SetSystemtime(picker, none ? GDT_NONE : GDT_VALID, &fields);
  }
}

bool Read(HWND picker, SYSTEMTIME& fields) {
  return DateTime_GetSystemtime(picker, &fields) == GDT_VALID;
}

bool AreSame(const SYSTEMTIME& one, const SYSTEMTIME& other) {
  return one.wYear == other.wYear && one.wMonth == other.wMonth && one.wDay == other.wDay &&
         one.wHour == other.wHour && one.wMinute == other.wMinute && one.wSecond == other.wSecond;
}

void Take(HWND datePicker, HWND timePicker, CTime& time) {
  SYSTEMTIME old = {}, fields, picked;
  time.GetAsSystemTime(old);
  fields = old;
  if (Read(datePicker, picked)) {
    fields.wYear = picked.wYear;
    fields.wMonth = picked.wMonth;
    fields.wDay = picked.wDay;
  }
  if (Read(timePicker, picked)) {
    fields.wHour = picked.wHour;
    fields.wMinute = picked.wMinute;
    fields.wSecond = picked.wSecond;
  }
  // When clocks are set back, two times an hour apart have the same fields: one that the user has
  // not touched stays the one it was.
  if (AreSame(fields, old)) return;
  const CTime combined(fields);
  if (combined.GetTime() != -1) time = combined;
}

}  // namespace

void DDX_DateTimeCtrl(CDataExchange* dx, int dateControlId, int timeControlId, CTime& time) {
  const HWND datePicker = dx->PrepareCtrl(dateControlId);
  const HWND timePicker = dx->PrepareCtrl(timeControlId);
  if (dx->m_bSaveAndValidate) {
    Take(datePicker, timePicker, time);
  } else {
    Show(datePicker, time);
    Show(timePicker, time);
  }
}
