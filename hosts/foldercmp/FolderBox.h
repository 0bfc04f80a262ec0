// A line of the main window that takes a folder: a label, an edit with a list of remembered folders
// that completes what is typed, and a button that shows the tree of folders.
#pragma once

#include <afxwin.h>

#include <vector>

#include "foldercmp/PanelMetrics.h"

class FolderBox {
 public:
  // Ids count up from labelId: label, edit, button. FALSE: the system has refused.
  BOOL Create(CWnd& parent, UINT labelId, UINT labelText, UINT browseText);
  void SetFont(CFont& font);

  // The width that label and button need.
  int LabelWidth(const PanelMetrics& metrics) const;
  int ButtonWidth(const PanelMetrics& metrics) const;
  // The height of the edit.
  int Height() const;
  void Place(const CRect& line, int labelWidth, int buttonWidth, int gap);
  CRect PlaceIn(const CWnd& parent) const;

  // As an absolute path; empty: nothing was typed.
  CString Folder() const;
  void SetFolder(const char* folder);
  void SetRemembered(const std::vector<CString>& folders);
  void SetFocus();
  bool HasFocus() const;

  // Lets the user choose in the tree of folders, under a title.
  void Browse(CWnd& owner, UINT title);

 private:
  CStatic m_label;
  CComboBox m_edit;
  CButton m_browse;
};
