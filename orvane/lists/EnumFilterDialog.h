// The dialog "Enumeration Filter".
#pragma once

#include <afxwin.h>

#include "controls/COXOptionTreeCtrl.h"
#include "lists/DataFilter.h"

class EnumFilterDialog : public CDialog {
 public:
  // The boxes have the ids kFirstBox + value.
  static constexpr UINT kFirstBox = 1000;

  explicit EnumFilterDialog(const EnumFilter& filter, CWnd* owner = nullptr);

  // Valid after OK.
  unsigned long GetMask() const { return m_mask; }

 protected:
  BOOL OnInitDialog() override;
  afx_msg void OnBox(UINT id);
  afx_msg void OnSelectAll();
  afx_msg void OnInvert();
  DECLARE_MESSAGE_MAP()

 private:
  static constexpr int kMostValues = 32;

  int Values() const;
  void SetMask(unsigned long mask);

  const EnumFilter& m_filter;
  unsigned long m_mask;
  COXOptionTreeCtrl m_tree;
};
