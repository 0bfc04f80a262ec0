// The dialog "Secondary Filter": the column that a report's second filter is on, and the filter.
#pragma once

#include <afxwin.h>

#include <functional>
#include <memory>

#include "lists/DataFilter.h"

class MListCtrl;

class NewColumnFilterDialog : public CDialog {
 public:
  // Gives the filter on a column; null: there is none.
  using FilterFn = std::function<std::shared_ptr<DataFilter>(int column)>;

  // column: the data index to begin with; -1: the first one.
  NewColumnFilterDialog(const MListCtrl& list, int column, FilterFn filterOn,
                        CWnd* owner = nullptr);

  // Valid after OK. A filter that was configured is saved then, whatever ends this dialog.
  int Column() const { return m_column; }

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  afx_msg void OnConfigure();
  DECLARE_MESSAGE_MAP()

 private:
  int ChosenColumn() const;

  const MListCtrl& m_list;
  int m_column;
  FilterFn m_filterOn;
};
