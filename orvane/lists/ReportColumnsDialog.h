// The dialog "Report Columns": which columns a report has, in which order.
#pragma once

#include <afxcmn.h>

#include <vector>

class MListCtrl;

class ReportColumnsDialog : public CDialog {
 public:
  // included: data indices, in the order of the report. Columns that the list does not show are
  // offered only when they are included.
  ReportColumnsDialog(const MListCtrl& list, const std::vector<int>& included,
                      CWnd* owner = nullptr);

  // Valid after OK.
  const std::vector<int>& Included() const { return m_included; }

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  afx_msg void OnUp() { Move(-1); }
  afx_msg void OnDown() { Move(1); }
  afx_msg void OnReset();
  afx_msg void OnRowChanged(NMHDR* header, LRESULT* result);
  DECLARE_MESSAGE_MAP()

 private:
  void Show(int row, int column, bool isIncluded);
  void Move(int places);
  void UpdateButtons();

  const MListCtrl& m_list;
  std::vector<int> m_included;
  std::vector<int> m_offered;  // in the order of the rows
  CListCtrl m_rows;
};
