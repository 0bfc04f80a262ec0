// The difference window: menu, tool bar, status bar and find bar around the view.
#pragma once

#include <afxcmn.h>
#include <afxwin.h>

#include <memory>

#include "foldercmp/diff/DiffSettings.h"
#include "foldercmp/diff/DiffView.h"
#include "foldercmp/diff/DiffWindow.h"
#include "foldercmp/diff/FindBar.h"

class DiffOperation;

// Made with new, as every frame window.
class DiffFrame : public CFrameWnd {
 public:
  explicit DiffFrame(const DiffArguments& documents);

  // Opens the window, hidden. FALSE: there is none to be had, and the object is gone.
  BOOL Create();
  // Shows it where it was last.
  void Show();
  // Reads the documents; the first difference is shown.
  void LoadDocuments();

  const DiffView& view() const { return m_view; }
  DiffView& view() { return m_view; }

  void RecalcLayout(BOOL notify = TRUE) override;

 protected:
  BOOL PreCreateWindow(CREATESTRUCT& create) override;
  BOOL OnCreateClient(LPCREATESTRUCT create, CCreateContext* context) override;
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

  afx_msg void OnClose();
  afx_msg void OnEndSession(BOOL ends);
  afx_msg BOOL OnEraseBkgnd(CDC* dc);
  afx_msg void OnGetMinMaxInfo(MINMAXINFO* info);
  afx_msg void OnToolTip(UINT id, NMHDR* header, LRESULT* result);

  afx_msg void OnReload();
  afx_msg void OnSwap();
  afx_msg void OnCopy();
  afx_msg void OnSelectAll();
  afx_msg void OnFind();
  afx_msg void OnFindNext() { Find(true); }
  afx_msg void OnFindPrevious() { Find(false); }
  afx_msg void OnGoToLine();
  afx_msg void OnWhiteSpace(UINT id);
  afx_msg void OnIgnoreCase();
  afx_msg void OnTabs(UINT id);
  afx_msg void OnOtherPane();
  afx_msg void OnNext();
  afx_msg void OnPrevious();
  afx_msg void OnFirst();
  afx_msg void OnLast();

  afx_msg void OnUpdateRows(CCmdUI* ui);
  afx_msg void OnUpdateDifferences(CCmdUI* ui);
  afx_msg void OnUpdateWhiteSpace(CCmdUI* ui);
  afx_msg void OnUpdateIgnoreCase(CCmdUI* ui);
  afx_msg void OnUpdateTabs(CCmdUI* ui);
  DECLARE_MESSAGE_MAP()

 private:
  bool CreateToolBar();
  bool CreateStatusBar();

  // texts: what is to be compared anew; null: reads the documents. mark: the lines to stay at.
  // False: it was stopped, and what was shown before stays.
  bool Compare(std::shared_ptr<const DiffTexts> texts, const DiffMark* mark);
  // The options have changed.
  void CompareAgain();
  void Find(bool forward);
  void CloseFindBar();
  void ShowDifference(int difference, UINT notice);
  bool CopyText(const std::wstring& text);

  void ShowTitles();
  // The status bar and the tool bar follow what the view shows.
  void ShowState();
  void ShowMessage(UINT id);
  CString DifferenceText() const;
  CString LinesText() const;
  CString OptionsText() const;
  void SaveSettings();

  const DiffDocument& document() const { return *m_view.state().document; }

  DiffArguments m_documents;
  DiffSettings m_settings;
  DiffView m_view;
  CToolBarCtrl m_tools;
  CImageList m_images;
  CWnd m_status;
  FindBar m_findBar;
  DiffOperation* m_running = nullptr;  // the comparison that is under way
  bool m_closesWhenDone = false;
};
