// One side of the difference window: a title and the visible lines of a text.
#pragma once

#include <afxwin.h>

#include <vector>

#include "foldercmp/diff/DiffStyle.h"
#include "foldercmp/diff/DiffViewState.h"

// What a pane tells the view that it is in.
class DiffPaneHost {
 public:
  virtual ~DiffPaneHost() = default;
  virtual void OnPaneFocus(DiffSide side) = 0;
  // A row was clicked, or the mouse is dragged to it; extend: the selection grows.
  virtual void OnPaneRow(int row, bool extend) = 0;
  // False: the key means nothing here.
  virtual bool OnPaneKey(UINT key, bool shift, bool control) = 0;
  // delta: as in WM_MOUSEWHEEL, above 0 for up or left.
  virtual void OnPaneWheel(int delta, bool isHorizontal) = 0;
  virtual void OnPaneMenu(CPoint screen) = 0;
};

class DiffPane : public CWnd {
 public:
  // All of them outlive the pane.
  DiffPane(DiffSide side, const DiffViewState& state, DiffStyle& style, DiffPaneHost& host)
      : m_side(side), m_state(state), m_style(style), m_host(host) {}

  BOOL Create(CWnd* parent, UINT id);
  // What fits on a page, whole.
  int RowsOnPage() const;
  int ColumnsOnPage() const;
  // In the window's coordinates; for places above and below the rows the ones that would be there.
  int RowAt(int y) const;

 private:
  afx_msg void OnPaint();
  afx_msg BOOL OnEraseBkgnd(CDC*) { return TRUE; }
  afx_msg void OnSetFocus(CWnd* other);
  afx_msg void OnKillFocus(CWnd* other);
  afx_msg void OnLButtonDown(UINT flags, CPoint point);
  afx_msg void OnLButtonUp(UINT flags, CPoint point);
  afx_msg void OnMouseMove(UINT flags, CPoint point);
  afx_msg void OnTimer(UINT_PTR id);
  afx_msg void OnCaptureChanged(CWnd* other);
  afx_msg BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
  afx_msg LRESULT OnHorizontalWheel(WPARAM wParam, LPARAM lParam);
  afx_msg void OnKeyDown(UINT key, UINT repeat, UINT flags);
  afx_msg void OnContextMenu(CWnd* window, CPoint point);
  DECLARE_MESSAGE_MAP()

  void DrawTitle(CDC& dc, const CRect& place);
  void DrawRow(CDC& dc, int number, const CRect& place);
  void DrawMargin(CDC& dc, const DiffRow& row, const CRect& place);
  void DrawLine(CDC& dc, int number, const DiffRow& row, const CRect& place);
  // The columns where marks begin and end, in any order.
  std::vector<int> DrawMarks(CDC& dc, int number, const DiffRow& row, const CRect& place);
  void DrawEndMark(CDC& dc, const DiffRow& row, const CRect& place);
  void DrawText(CDC& dc, const DiffRow& row, const CRect& place, std::vector<int> breaks);
  void DrawFrames(CDC& dc, int number, const DiffRow& row, const CRect& place);

  bool isActive() const { return m_state.active == m_side; }
  int LineNumberDigits() const;
  int MarginWidth() const;
  int XOfColumn(int column) const;
  void Drag();

  DiffSide m_side;
  const DiffViewState& m_state;
  DiffStyle& m_style;
  DiffPaneHost& m_host;
  bool m_isDragging = false;
};
