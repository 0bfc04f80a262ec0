#include "lists/StrFilterDialog.h"

#include <afxcmn.h>

#include "lists/FilterWords.h"
#include "lists/filter_dialogs_ids.h"
#include "resources/resource.h"
#include "settings/MString.h"

BEGIN_MESSAGE_MAP(StrFilterDialog, CDialog)
ON_CBN_SELCHANGE(IDC_FIRST_CONDITION, OnCondition)
ON_CBN_SELCHANGE(IDC_SECOND_CONDITION, OnCondition)
END_MESSAGE_MAP()

StrFilterDialog::StrFilterDialog(const StringFilter& filter, CWnd* owner)
    : CDialog(IDD_STRING_FILTER, owner), m_filter(filter), m_settings(filter.Get()) {}

// An entry's data is its condition: not all columns can use all.
void StrFilterDialog::FillConditions(UINT id, UINT firstTextId) const {
  auto& combo = *static_cast<CComboBox*>(GetDlgItem(static_cast<int>(id)));
  for (int condition = 0; condition < StringFilter::kConditions; ++condition) {
    if (!m_filter.CanUse(condition)) continue;
    const CString text =
        condition == 0 ? MString::Loaded(firstTextId) : ConditionInWords(condition);
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
