#include "lists/RangeFilterDialogs.h"

#include <afxcmn.h>
#include <afxdtctl.h>

#include <algorithm>
#include <cstdint>

#include "lists/filter_dialogs_ids.h"
#include "messages/message.h"
#include "resources/resource.h"
#include "util/TimeUtil.h"

namespace {

// The pickers know more dates than a time does: those that it cannot be, whatever the time zone is,
// are not offered.
constexpr time_t kDay = 24 * 60 * 60;
constexpr time_t kFirst = kDay, kLast = INT32_MAX - kDay;

CTime offered(CTime time) { return std::clamp(time.GetTime(), kFirst, kLast); }

}  // namespace

TimeFilterDialog::TimeFilterDialog(const TimeFilter& filter, CWnd* owner)
    : CDialog(IDD_TIME_FILTER, owner),
      m_start(offered(filter.GetStart())),
      m_end(offered(filter.GetEnd())),
      m_exclude(filter.GetInvert() != 0) {}

BOOL TimeFilterDialog::OnInitDialog() {
  const CTime first = kFirst, last = kLast;
  for (const int id : {IDC_FROM_DATE, IDC_TO_DATE})
    static_cast<CDateTimeCtrl*>(GetDlgItem(id))->SetRange(&first, &last);
  return CDialog::OnInitDialog();
}

void TimeFilterDialog::DoDataExchange(CDataExchange* dx) {
  CDialog::DoDataExchange(dx);
  DDX_DateTimeCtrl(dx, IDC_FROM_DATE, IDC_FROM_TIME, m_start);
  DDX_DateTimeCtrl(dx, IDC_TO_DATE, IDC_TO_TIME, m_end);
  DDX_Radio(dx, IDC_INCLUDE, m_exclude);
}

void TimeFilterDialog::OnOK() {
  if (!UpdateData()) return;
  if (m_start > m_end) {
    Message::DisplayErrorMessage(IDS_FILTER_DATES_REVERSED);
    GotoDlgCtrl(GetDlgItem(IDC_FROM_DATE));
    return;
  }
  EndDialog(IDOK);
}

NumericFilterDialog::NumericFilterDialog(const NumericFilter& filter, CWnd* owner)
    : CDialog(IDD_NUMERIC_FILTER, owner),
      m_from(filter.GetFrom()),
      m_to(filter.GetTo()),
      m_exclude(filter.GetInvert() != 0) {}

// DDX_Text refuses what is no number, with a message.
void NumericFilterDialog::DoDataExchange(CDataExchange* dx) {
  CDialog::DoDataExchange(dx);
  DDX_Text(dx, IDC_FROM_NUMBER, m_from);
  DDX_Text(dx, IDC_TO_NUMBER, m_to);
  DDX_Radio(dx, IDC_INCLUDE, m_exclude);
}

void NumericFilterDialog::OnOK() {
  if (!UpdateData()) return;
  if (m_from > m_to) {
    Message::DisplayErrorMessage(IDS_FILTER_NUMBERS_REVERSED);
    GotoDlgCtrl(GetDlgItem(IDC_FROM_NUMBER));
    return;
  }
  EndDialog(IDOK);
}
