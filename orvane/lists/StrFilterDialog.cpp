#include "lists/StrFilterDialog.h"

#include <afxcmn.h>

#include "lists/filter_dialogs_ids.h"
#include "resources/resource.h"

BEGIN_MESSAGE_MAP(StrFilterDialog, CDialog)
ON_CBN_SELCHANGE(IDC_FIRST_CONDITION, OnCondition)
ON_CBN_SELCHANGE(IDC_SECOND_CONDITION, OnCondition)
END_MESSAGE_MAP()

namespace {

// In the order of the conditions.
constexpr UINT kTexts[] = {IDS_FILTER_INCLUDE_ALL,         IDS_FILTER_EQUALS,
                           IDS_FILTER_DOES_NOT_EQUAL,      IDS_FILTER_IS_GREATER,
                           IDS_FILTER_IS_GREATER_OR_EQUAL, IDS_FILTER_IS_LESS,
                           IDS_FILTER_IS_LESS_OR_EQUAL,    IDS_FILTER_BEGINS_WITH,
                           IDS_FILTER_DOES_NOT_BEGIN_WITH, IDS_FILTER_CONTAINS,
                           IDS_FILTER_DOES_NOT_CONTAIN};
static_assert(sizeof kTexts / sizeof *kTexts == StringFilter::kConditions);

}  // namespace

StrFilterDialog::StrFilterDialog(const StringFilter& filter, CWnd* owner)
    : CDialog(IDD_STRING_FILTER, owner), m_filter(filter), m_settings(filter.Get()) {}

// An entry's data is its condition: not all columns can use all.
void StrFilterDialog::FillConditions(UINT id, UINT firstTextId) const {
  auto& combo = *static_cast<CComboBox*>(GetDlgItem(static_cast<int>(id)));
  for (int condition = 0; condition < StringFilter::kConditions; ++condition) {
    if (!m_filter.CanUse(condition)) continue;
    CString text;
    text.LoadString(condition == 0 ? firstTextId : kTexts[condition]);
    combo.SetItemData(combo.AddString(text), static_cast<DWORD>(condition));
  }
}

int StrFilterDialog::Condition(UINT id) const {
  const auto& combo = *static_cast<CComboBox*>(GetDlgItem(static_cast<int>(id)));
  return combo.GetCurSel() < 0 ? 0 : static_cast<int>(combo.GetItemData(combo.GetCurSel()));
}

void StrFilterDialog::Select(UINT id, int condition) const {
  auto& combo = *static_cast<CComboBox*>(GetDlgItem(static_cast<int>(id)));
  combo.SetCurSel(0);
  for (int i = 0; i < combo.GetCount(); ++i)
    if (static_cast<int>(combo.GetItemData(i)) == condition) combo.SetCurSel(i);
}

BOOL StrFilterDialog::OnInitDialog() {
  FillConditions(IDC_FIRST_CONDITION, IDS_FILTER_INCLUDE_ALL);
  FillConditions(IDC_SECOND_CONDITION, IDS_FILTER_NOT_ACTIVATED);
  CDialog::OnInitDialog();
  OnCondition();
  return TRUE;
}

void StrFilterDialog::DoDataExchange(CDataExchange* dx) {
  CDialog::DoDataExchange(dx);
  if (dx->m_bSaveAndValidate) {
    m_settings.firstCondition = Condition(IDC_FIRST_CONDITION);
    m_settings.secondCondition = Condition(IDC_SECOND_CONDITION);
  } else {
    Select(IDC_FIRST_CONDITION, m_settings.firstCondition);
    Select(IDC_SECOND_CONDITION, m_settings.secondCondition);
  }
  DDX_Text(dx, IDC_FIRST_TEXT, m_settings.firstText);
  DDX_Text(dx, IDC_SECOND_TEXT, m_settings.secondText);
  int either = !m_settings.bothConditions;
  DDX_Radio(dx, IDC_AND, either);
  m_settings.bothConditions = either != 1;
}

void StrFilterDialog::OnCondition() {
  const bool second = Condition(IDC_SECOND_CONDITION) > StringFilter::IncludeAll;
  GetDlgItem(IDC_FIRST_TEXT)->EnableWindow(Condition(IDC_FIRST_CONDITION) != 0);
  for (const int id : {IDC_SECOND_TEXT, IDC_AND, IDC_OR}) GetDlgItem(id)->EnableWindow(second);
}
