#include "controls/COXOptionTreeCtrl.h"

#include <algorithm>

namespace {

// The tree changes a box after the message that makes it do so: compare what is there then.
constexpr UINT kCompareMessage = WM_APP + 0x3001;

}  // namespace

BEGIN_MESSAGE_MAP(COXOptionTreeCtrl, CTreeCtrl)
ON_WM_CREATE()
ON_MESSAGE(kCompareMessage, OnCompare)
END_MESSAGE_MAP()

int COXOptionTreeCtrl::OnCreate(LPCREATESTRUCT create) {
  if (CTreeCtrl::OnCreate(create) == -1) return -1;
  Prepare();
  return 0;
}

// A window that is subclassed gets no WM_CREATE any more. In one that is being created the tree is
// not there yet: with the style from its beginning it would clear all boxes when it is first drawn.
void COXOptionTreeCtrl::PreSubclassWindow() {
  CTreeCtrl::PreSubclassWindow();
  if (SendMessage(TVM_GETITEMHEIGHT) != 0) Prepare();
}

int COXOptionTreeCtrl::AddCheckBox(UINT id, const char* text, int checked) {
  const HTREEITEM item = InsertItem(text);
  if (item == nullptr) return 0;
  m_boxes.push_back({id, item, checked != 0});
  SetCheck(item, checked != 0);
  return 1;
}

const COXOptionTreeCtrl::Box* COXOptionTreeCtrl::Find(UINT id) const {
  const auto box =
      std::find_if(m_boxes.begin(), m_boxes.end(), [id](const Box& b) { return b.id == id; });
  return box == m_boxes.end() ? nullptr : &*box;
}

int COXOptionTreeCtrl::GetBox(UINT id) const {
  const Box* const box = Find(id);
  return box == nullptr ? -1 : GetCheck(box->item) != 0;
}

int COXOptionTreeCtrl::SetBox(UINT id, int checked) {
  auto* const box = const_cast<Box*>(Find(id));
  if (box == nullptr) return 0;
  box->checked = checked != 0;
  return SetCheck(box->item, checked != 0);
}

LRESULT COXOptionTreeCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  const HWND window = m_hWnd;  // the parent may end the tree when it is notified
  const LRESULT result = CTreeCtrl::WindowProc(message, wParam, lParam);
  if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == WM_LBUTTONUP ||
      message == WM_KEYDOWN || message == WM_CHAR)
    ::PostMessage(window, kCompareMessage, 0, 0);
  return result;
}

LRESULT COXOptionTreeCtrl::OnCompare(WPARAM, LPARAM) {
  // The parent may add boxes, close the window, or end this object when it is told.
  const HWND window = m_hWnd;
  for (size_t i = 0; FromHandlePermanent(window) == this && i < m_boxes.size(); ++i) {
    Box& box = m_boxes[i];
    const int checked = GetCheck(box.item) != 0;
    if (checked == box.checked) continue;
    box.checked = checked;
    GetParent()->SendMessage(WM_COMMAND, MAKEWPARAM(box.id, BN_CLICKED),
                             reinterpret_cast<LPARAM>(window));
  }
  return 0;
}
