// The two panes with the map, the scroll bars and the splitter between them.
#pragma once

#include <afxwin.h>

#include <functional>

#include "foldercmp/diff/DiffMap.h"
#include "foldercmp/diff/DiffPane.h"

class DiffView : public CWnd, private DiffPaneHost {
 public:
  DiffView();

  BOOL Create(CWnd* parent, UINT id);
  // Called when the place, the selection or the active side has changed.
  void OnChange(std::function<void()> onChange) { m_onChange = std::move(onChange); }
  // What a pane's own menu shows; the commands go to the frame.
  void SetPaneMenu(UINT menu) { m_paneMenu = menu; }

  const DiffViewState& state() const { return m_state; }

  // --- What is shown ---

  void SetTitles(const CString& left, const CString& right);
  // mark: the lines to stay at; null: the first difference is shown.
  void SetDocument(std::shared_ptr<const DiffDocument> document, const DiffMark* mark);
  DiffMark Mark() const { return DiffMark(*m_state.document, m_state.place, m_state.active); }
  // A line above the panes; empty: none.
  void SetNotice(const CString& notice);
  const CString& notice() const { return m_notice; }
  void SetTabSize(int tabSize);
  // Thousandths of the width that the left pane takes.
  int splitter() const { return m_splitter; }
  void SetSplitter(int splitter);

  // --- Moving ---

  // Gives the focus to the pane of a side.
  void Activate(DiffSide side);
  void ShowDifference(int difference);
  void ShowFound(const FoundText& found);
  void ShowLine(DiffSide side, int line);
  void SelectAll();
  // The selected lines of the active side, or the one with the focus.
  std::wstring SelectedText() const;

 private:
  void OnPaneFocus(DiffSide side) override;
  void OnPaneRow(int row, bool extend) override;
  bool OnPaneKey(UINT key, bool shift, bool control) override;
  void OnPaneWheel(int delta, bool isHorizontal) override;
  void OnPaneMenu(CPoint screen) override;

  afx_msg void OnSize(UINT type, int width, int height);
  afx_msg void OnPaint();
  afx_msg BOOL OnEraseBkgnd(CDC*) { return TRUE; }
  afx_msg void OnSetFocus(CWnd* other);
  afx_msg void OnVScroll(UINT code, UINT position, CScrollBar* bar);
  afx_msg void OnHScroll(UINT code, UINT position, CScrollBar* bar);
  afx_msg BOOL OnSetCursor(CWnd* window, UINT hitTest, UINT message);
  afx_msg void OnLButtonDown(UINT flags, CPoint point);
  afx_msg void OnLButtonDblClk(UINT flags, CPoint point);
  afx_msg void OnLButtonUp(UINT flags, CPoint point);
  afx_msg void OnMouseMove(UINT flags, CPoint point);
  DECLARE_MESSAGE_MAP()

  DiffPane& PaneOf(DiffSide side) { return side == DiffSide::Left ? m_left : m_right; }
  bool MoveByKey(UINT key, bool shift, bool control);
  void Layout();
  int PanesWidth() const;  // of both, with the splitter
  CRect SplitterPlace() const;
  CRect NoticePlace() const;
  void Changed();
  void ScrollTo(int row);
  void ScrollToColumn(int column);
  void ShowColumns(int begin, int end);
  void MeasureColumns();
  void SetScrollBars();

  DiffViewState m_state;
  DiffStyle m_style;
  DiffPane m_left;
  DiffPane m_right;
  DiffMap m_map;
  CScrollBar m_vertical;
  CScrollBar m_horizontal;
  CString m_notice;
  std::function<void()> m_onChange;
  UINT m_paneMenu = 0;
  int m_splitter = 500;
  int m_columns = 0;    // of the longest line
  int m_wheelRest = 0;  // of turns of the wheel too small for a row
};
