#include "lists/RangeFilterDialogs.h"

#include <afxcmn.h>
#include <afxdtctl.h>

#include <cstdint>

#include "lists/filter_dialogs_ids.h"
#include "messages/message.h"
#include "resources/resource.h"
#include "util/TimeUtil.h"

namespace {

constexpr time_t kDay = 24 * 60 * 60;

}  // namespace

TimeFilterDialog::TimeFilterDialog(const TimeFilter& filter, CWnd* owner)
    : CDialog(IDD_TIME_FILTER, owner),
      m_start(filter.GetStart()),
      m_end(filter.GetEnd()),
      m_exclude(filter.GetInvert() != 0) {}

// The pickers know more dates than a time does: those that it cannot be are not offered.
BOOL TimeFilterDialog::OnInitDialog() {
  const CTime first = kDay, last = INT32_MAX - kDay;  // whatever the time zone is
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
