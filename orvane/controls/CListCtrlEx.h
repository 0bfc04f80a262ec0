// The report list that the library's lists are made from.
#pragma once

#include <afxcmn.h>

#include "controls/CellTip.h"
#include "entry/export.h"

// A list in report view with a colour for each cell, tips, columns that fit their texts on a double
// click of the header's divider, and arrows in the header. Rows and columns are numbered from 0;
// columns as they were inserted, however the user has dragged them.
class ORVANE_API CListCtrlEx : public CListCtrl {
 public:
  // The text of a cell: what the list shows, unless a derived class knows better.
  virtual CString GetCellText(int row, int column);
  // What is shown when the mouse rests on a row; empty: nothing. A cell that is too narrow for its
  // text shows the text instead.
  virtual CString GetRowTip(int row);

  // The colours of a row, preset with those of the list. A selected row is drawn in the system's
  // colours for that.
  virtual void GetDisplayColors(int row, COLORREF& text, COLORREF& background);
  // The colours of a cell, preset with those of its row.
  virtual void GetCellColors(int row, int column, COLORREF& text, COLORREF& background);

  // Makes a column as wide as its header and its longest text need. Of very many rows, it looks at
  // those from the first one in sight on.
  void FitColumn(int column);

  // Puts an arrow right of the text of one column's header, and takes it from all others; column
  // -1: none has one.
  void SetHeaderArrow(int column, int descending);
  // The pixels that an arrow with its margin takes.
  static constexpr int kArrowWidth = 20;
  // The pixels between a header's text and its edges, together.
  static constexpr int kHeaderMargin = 20;

  // The window of the tip that is up, null: none is.
  HWND ShownTip() const { return m_tip.IsShown() ? m_tip.Window() : nullptr; }

 protected:
  // What every window of this kind needs; once it is there.
  virtual void InitWindow();
  void HideTip();

  void PreSubclassWindow() override;
  BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  afx_msg int OnCreate(LPCREATESTRUCT create);
  afx_msg void OnDestroy();
  afx_msg void OnCustomDraw(NMHDR* header, LRESULT* result);
  afx_msg void OnMouseMove(UINT flags, CPoint point);
  afx_msg void OnMouseHover(UINT flags, CPoint point);
  afx_msg void OnMouseLeave();
  DECLARE_MESSAGE_MAP()

 private:
  void ShowCutText(int row, int column);
  const CBitmap& Arrow(int descending);

  CellTip m_tip;
  int m_tipRow = -1, m_tipColumn = -1;  // the cell under the mouse
  CBitmap m_arrows[2];                  // ascending, descending
};
