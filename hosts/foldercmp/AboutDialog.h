// Says what the program is, and leads to what its library is.
#pragma once

#include <afxwin.h>

class AboutDialog : public CDialog {
 public:
  explicit AboutDialog(CWnd* owner);
  BOOL OnInitDialog() override;

 protected:
  afx_msg void OnLibrary();
  DECLARE_MESSAGE_MAP()
};
