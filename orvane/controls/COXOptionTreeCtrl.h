// A tree of check boxes.
#pragma once

#include <afxcmn.h>

#include <vector>

#include "entry/export.h"

// Each box has an id. When the user changes one, the parent gets WM_COMMAND with that id and
// BN_CLICKED, as from a check box. The boxes stand below each other; there are no branches. They
// end with the window.
class ORVANE_API COXOptionTreeCtrl : public CTreeCtrl {
 public:
  // 1, or 0: the tree refused.
  int AddCheckBox(UINT id, const char* text, int checked);
  // 1: checked, 0: not, -1: no box has the id.
  int GetBox(UINT id) const;
  // 1, or 0: no box has the id. The parent is not told.
  int SetBox(UINT id, int checked);

 protected:
  void PreSubclassWindow() override;
  afx_msg int OnCreate(LPCREATESTRUCT create);
  afx_msg LRESULT OnCompare(WPARAM, LPARAM);
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  DECLARE_MESSAGE_MAP()

 private:
  struct Box {
    UINT id;
    HTREEITEM item;
    int checked;  // as the parent knows it
  };

  void Prepare() {
    m_boxes.clear();  // those of a window before this one
    ModifyStyle(0, TVS_CHECKBOXES);
  }
  const Box* Find(UINT id) const;

  std::vector<Box> m_boxes;
};
