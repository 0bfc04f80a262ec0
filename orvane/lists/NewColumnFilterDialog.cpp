#include "lists/NewColumnFilterDialog.h"

#include "lists/ColumnCombo.h"
#include "lists/report_dialogs_ids.h"

BEGIN_MESSAGE_MAP(NewColumnFilterDialog, CDialog)
ON_BN_CLICKED(IDC_CONFIGURE_FILTER, OnConfigure)
END_MESSAGE_MAP()

NewColumnFilterDialog::NewColumnFilterDialog(const MListCtrl& list, int column, FilterFn filterOn,
                                             CWnd* owner)
    : CDialog(IDD_COLUMN_FILTER, owner),
      m_list(list),
      m_column(column),
      m_filterOn(std::move(filterOn)) {}

BOOL NewColumnFilterDialog::OnInitDialog() {
  CDialog::OnInitDialog();
  ColumnCombo columns(*this, IDC_FILTER_COLUMN);
  for (int column = 0; column < m_list.GetColumnCount(); ++column)
    if (m_list.ColumnEnabled(column) || column == m_column) columns.Add(m_list, column);
  columns.Select(m_column);
  return TRUE;
}

int NewColumnFilterDialog::ChosenColumn() const {
  return ColumnCombo(*this, IDC_FILTER_COLUMN).Chosen();
}

void NewColumnFilterDialog::OnConfigure() {
  if (const auto filter = m_filterOn(ChosenColumn())) filter->Edit();
}

void NewColumnFilterDialog::OnOK() {
  m_column = ChosenColumn();
  CDialog::OnOK();
}
