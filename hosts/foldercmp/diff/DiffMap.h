// The map beside the panes: all rows in proportion, with their differences and the visible part.
#pragma once

#include <afxwin.h>

#include <cstdint>
#include <functional>
#include <utility>

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
  int YOfRow(int row) const { return GetScale().YOfRow(row); }

 private:
  afx_msg void OnPaint();
  afx_msg BOOL OnEraseBkgnd(CDC*) { return TRUE; }
  afx_msg void OnLButtonDown(UINT flags, CPoint point);
  afx_msg void OnLButtonUp(UINT flags, CPoint point);
  afx_msg void OnMouseMove(UINT flags, CPoint point);
  DECLARE_MESSAGE_MAP()

  // Rows in proportion to pixels.
  struct Scale {
    int YOfRow(int row) const {
      return static_cast<int>(static_cast<int64_t>(row) * height / rows);
    }
    int RowAt(int y) const { return static_cast<int>(static_cast<int64_t>(y) * rows / height); }

    int rows;    // from 1
    int height;  // from 1
  };

  Scale GetScale() const;
  void DrawDifferences(CDC& dc, int width);

  const DiffViewState& m_state;
  std::function<void(int row)> m_goTo;
};
