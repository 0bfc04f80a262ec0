// The map beside the panes: all rows in proportion, with their differences and the visible part.
#pragma once

#include <afxwin.h>

#include <functional>

#include "foldercmp/diff/DiffViewState.h"

class DiffMap : public CWnd {
 public:
  // goTo: the user has clicked on a row, or dragged the mouse there: it is to be in the middle of
  // what is visible. The state outlives the map.
  DiffMap(const DiffViewState& state, std::function<void(int row)> goTo)
      : m_state(state), m_goTo(std::move(goTo)) {}

  BOOL Create(CWnd* parent, UINT id);
  // In the window's coordinates. A map that is higher than its rows does not stretch them.
  int RowAt(int y) const;
  int YOfRow(int row) const;

 private:
  afx_msg void OnPaint();
  afx_msg BOOL OnEraseBkgnd(CDC*) { return TRUE; }
  afx_msg void OnLButtonDown(UINT flags, CPoint point);
  afx_msg void OnLButtonUp(UINT flags, CPoint point);
  afx_msg void OnMouseMove(UINT flags, CPoint point);
  DECLARE_MESSAGE_MAP()

  void DrawDifference(CDC& dc, const CRect& client, const Difference& difference, bool isCurrent);
  int MapHeight() const;

  const DiffViewState& m_state;
  std::function<void(int row)> m_goTo;
};
