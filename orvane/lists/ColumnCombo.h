// A combo box in a dialog, whose entries are columns of a list.
#pragma once

#include <afxwin.h>

#include "lists/MListCtrl.h"

class ColumnCombo {
 public:
  ColumnCombo(const CWnd& dialog, int id)
      : m_combo(static_cast<CComboBox&>(*dialog.GetDlgItem(id))) {}

  void Add(const MListCtrl& list, int column) { Add(list.GetColName(column, 1), column); }
  void Add(const char* text, int column) {
    m_combo.SetItemData(m_combo.AddString(text), static_cast<DWORD>(column));
  }
  // The first entry when there is none of the column.
  void Select(int column) {
    m_combo.SetCurSel(0);
    for (int i = 0; i < m_combo.GetCount(); ++i)
      if (static_cast<int>(m_combo.GetItemData(i)) == column) m_combo.SetCurSel(i);
  }
  // A data index; -1: nothing is chosen.
  int Chosen() const {
    const int entry = m_combo.GetCurSel();
    return entry < 0 ? -1 : static_cast<int>(m_combo.GetItemData(entry));
  }

 private:
  CComboBox& m_combo;
};
