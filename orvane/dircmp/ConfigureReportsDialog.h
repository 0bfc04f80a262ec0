// The dialog "Configure Hyper-link Reports".
#pragma once

#include <afxwin.h>

#include "dircmp/HlReportSettings.h"

class ConfigureReportsDialog : public CDialog {
 public:
  explicit ConfigureReportsDialog(const HlReportSettings& settings, CWnd* owner = nullptr);

  // Valid after OK.
  HlReportSettings Settings() const;

 protected:
  void DoDataExchange(CDataExchange* exchange) override;

 private:
  int m_modified, m_new, m_deleted;
  int m_documentLinks;  // the radio buttons stand in the order of DocumentLinks
};
