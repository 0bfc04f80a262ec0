// The small window that shows what stands in, or belongs to, a cell of a list.
#pragma once

#include <afxcmn.h>

// One of a list. It shows the whole text of a cell that is too narrow at once and in the cell's
// place, and another text, which the list has for the row, when the mouse rests.
class CellTip {
 public:
  // Shows text at a place of the screen; in a cell's place it looks like the cell. Does nothing
  // while the same text is shown already.
  void Show(CListCtrl& list, const char* text, CPoint place);
  void Hide();
  bool IsShown() const { return m_shown; }
  HWND Window() const { return m_tip.GetSafeHwnd(); }
  void Destroy();

 private:
  bool Create(CListCtrl& list);
  TOOLINFO Tool() const;

  CToolTipCtrl m_tip;
  HWND m_list = nullptr;
  CString m_text;
  bool m_shown = false;
};
