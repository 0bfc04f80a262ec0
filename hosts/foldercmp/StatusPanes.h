// The status bar of the main window: help lines of the commands, then how many documents are shown,
// and how many there are of each state.
#pragma once

#include <afxcmn.h>

#include "foldercmp/PanelMetrics.h"

class DirCmpCtrl;

class StatusPanes {
 public:
  BOOL Create(CWnd& parent);
  void SetFont(CFont& font) { m_bar.SetFont(&font); }
  // Takes its place at the window's lower edge.
  void Place(const PanelMetrics& metrics);
  int Height() const;

  HWND Window() const { return m_bar.m_hWnd; }
  // The counts of a list; null: none.
  void ShowCounts(const DirCmpCtrl* list, const PanelMetrics& metrics);

 private:
  enum { kText, kShown, kFirstState, kPanes = kFirstState + 4 };

  CStatusBarCtrl m_bar;
  CString m_texts[kPanes];
};
