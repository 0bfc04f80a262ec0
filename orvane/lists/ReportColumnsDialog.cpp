#include "lists/ReportColumnsDialog.h"

#include <algorithm>

#include "lists/MListCtrl.h"
#include "lists/report_dialogs_ids.h"

BEGIN_MESSAGE_MAP(ReportColumnsDialog, CDialog)
ON_BN_CLICKED(IDC_COLUMN_UP, OnUp)
ON_BN_CLICKED(IDC_COLUMN_DOWN, OnDown)
ON_BN_CLICKED(IDC_COLUMNS_RESET, OnReset)
ON_NOTIFY(LVN_ITEMCHANGED, IDC_COLUMNS, OnRowChanged)
END_MESSAGE_MAP()

ReportColumnsDialog::ReportColumnsDialog(const MListCtrl& list, const std::vector<int>& included,
                                         CWnd* owner)
    : CDialog(IDD_REPORT_COLUMNS, owner), m_list(list), m_included(included), m_offered(included) {
  for (int column = 0; column < list.GetColumnCount(); ++column)
    if (list.ColumnEnabled(column) &&
        std::find(included.begin(), included.end(), column) == included.end())
      m_offered.push_back(column);
}

BOOL ReportColumnsDialog::OnInitDialog() {
  CDialog::OnInitDialog();
  m_rows.SubclassDlgItem(IDC_COLUMNS, this);
  m_rows.SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
  CRect room;
  m_rows.GetClientRect(room);
  const int widest = room.Width() - GetSystemMetrics(SM_CXVSCROLL);
  m_rows.InsertColumn(0, "", LVCFMT_LEFT, widest);
  for (size_t i = 0; i < m_offered.size(); ++i) {
    const int row = static_cast<int>(i);
    m_rows.InsertItem(row, "");
    Show(row, m_offered[i], i < m_included.size());
  }
  m_rows.SetItemState(0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  UpdateButtons();
  return TRUE;
}

void ReportColumnsDialog::Show(int row, int column, bool isIncluded) {
  m_offered[static_cast<size_t>(row)] = column;
  m_rows.SetItemText(row, 0, m_list.GetColName(column, 1));
  m_rows.SetCheck(row, isIncluded);
}

void ReportColumnsDialog::Move(int places) {
  const int row = m_rows.GetNextItem(-1, LVNI_SELECTED);
  const int other = row + places;
  if (row < 0 || other < 0 || other >= m_rows.GetItemCount()) return;
  const int column = m_offered[static_cast<size_t>(row)];
  const bool isIncluded = m_rows.GetCheck(row);
  Show(row, m_offered[static_cast<size_t>(other)], m_rows.GetCheck(other));
  Show(other, column, isIncluded);
  m_rows.SetItemState(other, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  m_rows.EnsureVisible(other, FALSE);
}

void ReportColumnsDialog::OnReset() {
  std::vector<int> columns = m_offered;
  std::sort(columns.begin(), columns.end());
  for (size_t i = 0; i < columns.size(); ++i) Show(static_cast<int>(i), columns[i], true);
}

void ReportColumnsDialog::OnRowChanged(NMHDR*, LRESULT* result) {
  UpdateButtons();
  *result = 0;
}

void ReportColumnsDialog::UpdateButtons() {
  const int row = m_rows.GetNextItem(-1, LVNI_SELECTED);
  const struct {
    int id;
    bool isOfUse;
  } buttons[] = {{IDC_COLUMN_UP, row > 0},
                 {IDC_COLUMN_DOWN, row >= 0 && row < m_rows.GetItemCount() - 1}};
  for (const auto& button : buttons) {
    CWnd* const window = GetDlgItem(button.id);
    // A disabled button that had the focus would leave the keyboard without effect.
    if (!button.isOfUse && GetFocus() == window) GotoDlgCtrl(&m_rows);
    window->EnableWindow(button.isOfUse);
  }
}

void ReportColumnsDialog::OnOK() {
  m_included.clear();
  for (int row = 0; row < m_rows.GetItemCount(); ++row)
    if (m_rows.GetCheck(row)) m_included.push_back(m_offered[static_cast<size_t>(row)]);
  CDialog::OnOK();
}
