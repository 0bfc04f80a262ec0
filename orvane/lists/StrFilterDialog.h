// The dialog "String Filter".
#pragma once

#include <afxwin.h>

#include "lists/DataFilter.h"

class StrFilterDialog : public CDialog {
 public:
  // The conditions that the filter's column can use are offered, with its settings.
  explicit StrFilterDialog(const StringFilter& filter, CWnd* owner = nullptr);

  // Valid after OK.
  const StringFilter::Settings& Get() const { return m_settings; }

 protected:
  BOOL OnInitDialog() override;
  void DoDataExchange(CDataExchange* dx) override;
  afx_msg void OnCondition();
  DECLARE_MESSAGE_MAP()

 private:
  void FillConditions(UINT id, UINT firstTextId) const;
  int Condition(UINT id) const;
  void Select(UINT id, int condition) const;

  const StringFilter& m_filter;
  StringFilter::Settings m_settings;
};
