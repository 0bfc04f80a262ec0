// Where the user is in the rows: what is visible, the row with the focus, and the selection.
#pragma once

#include <afxwin.h>

// Rows from 0, without a window. All functions keep the place inside the rows.
class DiffPlace {
 public:
  // The document has other rows, or the window another size: rows that fit on a page, from 1.
  void SetRows(int rows) {
    m_rows = rows;
    Clamp();
  }
  void SetPage(int rows) {
    m_page = rows < 1 ? 1 : rows;
    Clamp();
  }

  int rows() const { return m_rows; }
  int page() const { return m_page; }
  int first() const { return m_first; }    // the uppermost visible row
  int caret() const { return m_caret; }    // the row with the focus
  int anchor() const { return m_anchor; }  // where the selection began
  int lastFirst() const { return m_rows > m_page ? m_rows - m_page : 0; }

  int selectionBegin() const { return m_caret < m_anchor ? m_caret : m_anchor; }
  int selectionEnd() const { return (m_caret > m_anchor ? m_caret : m_anchor) + 1; }
  bool hasSelection() const { return m_caret != m_anchor; }
  bool IsSelected(int row) const {
    return hasSelection() && row >= selectionBegin() && row < selectionEnd();
  }

  void ScrollTo(int first) {
    m_first = first;
    Clamp();
  }
  // Moves the row with the focus and scrolls as little as needed. extend: the selection grows.
  void MoveTo(int row, bool extend);
  // Moves there, too, and shows the row with those that follow it, and some before them.
  void Show(int row, int rows);
  void SelectAll();

 private:
  void Clamp();

  int m_rows = 0;
  int m_page = 1;
  int m_first = 0;
  int m_caret = 0;
  int m_anchor = 0;
};
