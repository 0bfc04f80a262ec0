// The report dialog of a list.
#pragma once

#include <afxwin.h>

#include <map>
#include <memory>

#include "entry/export.h"
#include "lists/LastReport.h"
#include "lists/ReportSettings.h"

class MListCtrl;

// Shows the dialog with these settings until the user closes it; reports and previews are made
// while it is shown. settings: receives those that it was closed with, which are kept for the next
// time. 1: a report was written; 0: none, or no dialog may be shown (AssertVerifyTrace::BlockGui).
ORVANE_API int RunReportDialog(MListCtrl& list, ReportSettings& settings, bool allowPreview);

class ORVANE_API ReportDialog : public CDialog {
 public:
  ReportDialog(MListCtrl& list, const ReportSettings& settings, bool allowPreview,
               CWnd* owner = nullptr);

  // As the user has left them.
  const ReportSettings& Get() const { return m_settings; }
  bool HasWritten() const { return m_hasWritten; }

  // The extension, without a dot, of files in a format.
  static const char* ExtensionOf(ReportFormat format);

 protected:
  // Asks for the file to write, beginning with a path; empty: the user has cancelled.
  virtual CString AskForFile(const CString& path);
  // Makes a report and tells the user if that fails.
  virtual bool Generate(const ReportSettings& settings);
  // Opens a file with its program.
  virtual bool Open(const CString& file);

  BOOL OnInitDialog() override;
  void DoDataExchange(CDataExchange* dx) override;
  void OnOK() override;
  void OnCancel() override;
  afx_msg void OnSetting();
  afx_msg void OnConfigurePrimary();
  afx_msg void OnActivateSecondary();
  afx_msg void OnConfigureSecondary();
  afx_msg void OnSelectColumns();
  afx_msg void OnHyperLinks();
  afx_msg void OnHelp();
  afx_msg BOOL OnHelpInfo(HELPINFO* info);
  afx_msg void OnPreview();
  afx_msg void OnMakeReport();
  DECLARE_MESSAGE_MAP()

 private:
  using Filters = std::map<int, std::shared_ptr<DataFilter>>;

  void FillSortColumns();
  // The filter on a column: the same one whenever it is asked for.
  std::shared_ptr<DataFilter> FilterOn(int column, ReportFilterRole role);
  void ShowSettings();
  CString SuggestedFile() const;

  MListCtrl& m_list;
  ReportSettings m_settings;
  bool m_allowPreview;
  bool m_hasWritten = false;
  Filters m_primaryFilters, m_secondaryFilters;
};
