// The main window: two folders, a filter, the list of their documents, and a status bar.
#pragma once

#include <afxwin.h>

#include <memory>

#include "foldercmp/ComparisonList.h"
#include "foldercmp/FilterBar.h"
#include "foldercmp/FolderBox.h"
#include "foldercmp/PanelMetrics.h"
#include "foldercmp/RecentPairs.h"
#include "foldercmp/StatusPanes.h"

struct DroppedFolders;

class MainFrame : public CFrameWnd {
 public:
  // Creates the window, hidden. FALSE: it could not be created, and this object is gone.
  BOOL Open();
  // At the place of the last run.
  void Show(int cmdShow);
  // Compares two folders as soon as the window serves its messages.
  void CompareLater(const FolderPair& pair);

  BOOL PreTranslateMessage(MSG* message) override;
  void RecalcLayout(BOOL notify = TRUE) override;
  void GetMessageString(UINT id, CString& text) const override;

 protected:
  BOOL OnCreateClient(LPCREATESTRUCT create, CCreateContext* context) override;

  // --- The window ---
  afx_msg void OnClose();
  afx_msg void OnDestroy();
  afx_msg void OnEndSession(BOOL ends);
  afx_msg void OnSetFocus(CWnd* before);
  afx_msg BOOL OnEraseBkgnd(CDC* dc);
  afx_msg void OnGetMinMaxInfo(MINMAXINFO* info);
  afx_msg void OnSettingChange(UINT what, LPCTSTR section);
  afx_msg void OnInitMenuPopup(CMenu* menu, UINT index, BOOL isSystemMenu);
  afx_msg void OnDropFiles(HDROP drop);
  afx_msg LRESULT OnNextControl(WPARAM control, LPARAM isControl);
  afx_msg LRESULT OnCompareMessage(WPARAM, LPARAM);

  // --- Folders and comparison ---
  afx_msg void OnChooseBase();
  afx_msg void OnChooseRevised();
  afx_msg void OnSwap();
  afx_msg void OnCompare();
  afx_msg void OnOptions();
  afx_msg void OnRecent(UINT id);
  afx_msg void OnEnter();
  afx_msg void OnEscape();

  // --- Filter ---
  afx_msg void OnFilterTyped();
  afx_msg void OnTimer(UINT_PTR timer);
  afx_msg void OnFilterChosen();
  afx_msg void OnStateClicked(UINT id);
  afx_msg void OnShowState(UINT id);
  afx_msg void OnShowAll();
  afx_msg void OnFilter();
  afx_msg void OnClearFilter();

  // --- Documents and reports ---
  afx_msg void OnListCode(UINT code);
  afx_msg void OnOpenDocument();
  afx_msg void OnOpenSide(UINT id);
  afx_msg void OnReport();
  afx_msg void OnReportPages();
  afx_msg void OnAbout();

  // --- How the commands stand ---
  afx_msg void OnUpdateIdle(CCmdUI* ui);
  afx_msg void OnUpdateList(CCmdUI* ui);
  afx_msg void OnUpdateRecent(CCmdUI* ui);
  afx_msg void OnUpdateState(CCmdUI* ui);
  afx_msg void OnUpdateShowAll(CCmdUI* ui);
  afx_msg void OnUpdateClearFilter(CCmdUI* ui);
  afx_msg void OnUpdateOpen(CCmdUI* ui);
  afx_msg void OnUpdateOpenSide(CCmdUI* ui);
  DECLARE_MESSAGE_MAP()

 private:
  class Working;

  void SetFonts();
  void StoreSettings() const;
  bool IsBusy() const { return m_working != nullptr; }

  FolderPair TypedPair() const;
  void ShowPair(const FolderPair& pair);
  FolderPair PairWith(const DroppedFolders& dropped) const;
  void ShowRecentPairs();
  // Whether a box names a folder that can be opened; the user is told what is wrong.
  bool CheckFolder(FolderBox& box, UINT missingText);
  bool CanCompare() const;
  // Compares what the boxes say; nothing while a comparison is under way.
  void Compare();
  void CompareFolders(const FolderPair& pair);
  void ShowList(std::unique_ptr<ComparisonList> list, bool isRepeated);
  void ShowResult();
  void ReportProblems();

  void SetFilter(const DocumentFilter& filter);
  void ApplyFilter();
  void FillRecentMenu(CMenu& menu);
  void FillSortMenu(CMenu& viewMenu);

  PanelMetrics m_metrics;
  FolderBox m_base, m_revised;
  CButton m_compareButton, m_swapButton;
  FilterBar m_filterBar;
  CStatic m_hint;  // in the place of the list as long as there is none
  StatusPanes m_status;
  std::unique_ptr<ComparisonList> m_list;  // null: nothing was compared yet

  RecentPairs m_recent;
  FolderPair m_compared;                // what the list shows
  CString m_statusText;                 // while no command is selected
  ComparisonList* m_working = nullptr;  // is being filled
  bool m_closesWhenDone = false;
};
