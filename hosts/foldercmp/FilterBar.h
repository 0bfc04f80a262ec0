// The line of the main window that says which documents of the comparison are shown.
#pragma once

#include <afxwin.h>

#include "foldercmp/DocumentFilter.h"
#include "foldercmp/PanelMetrics.h"

class FilterBar {
 public:
  BOOL Create(CWnd& parent);
  void SetFont(CFont& font);
  void Place(const CRect& line, int labelWidth, const PanelMetrics& metrics);

  DocumentFilter Filter() const;
  void SetFilter(const DocumentFilter& filter);
  void SetFocus();
  bool HasTextFocus() const;

 private:
  CStatic m_label;
  CEdit m_text;
  CStatic m_columnLabel;
  CComboBox m_column;
  CButton m_states[kHideableStates];
};
