#include "foldercmp/diff/DiffPane.h"

#include <algorithm>

namespace {

constexpr UINT_PTR kDragTimer = 1;
constexpr UINT kDragInterval = 40;  // milliseconds from row to row beyond the pane's edges

bool IsDown(int key) { return ::GetKeyState(key) < 0; }

}  // namespace

BEGIN_MESSAGE_MAP(DiffPane, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_MOUSEMOVE()
ON_WM_TIMER()
ON_WM_CAPTURECHANGED()
ON_WM_MOUSEWHEEL()
ON_MESSAGE(WM_MOUSEHWHEEL, &DiffPane::OnHorizontalWheel)
ON_WM_KEYDOWN()
ON_WM_CONTEXTMENU()
END_MESSAGE_MAP()

BOOL DiffPane::Create(CWnd* parent, UINT id) {
  const LPCTSTR windowClass =
      AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW, ::LoadCursor(nullptr, IDC_ARROW), nullptr);
  return CWnd::Create(windowClass, m_state.TitleOf(m_side), WS_CHILD | WS_VISIBLE | WS_TABSTOP,
                      CRect(0, 0, 0, 0), parent, id);
}

int DiffPane::RowsOnPage() const {
  CRect client;
  GetClientRect(client);
  return std::max(0, static_cast<int>(client.Height()) - m_style.titleHeight()) /
         m_style.rowHeight();
}

int DiffPane::ColumnsOnPage() const {
  CRect client;
  GetClientRect(client);
  const int width = client.Width() - XOfColumn(m_state.firstColumn);
  return std::max(0, width) / m_style.columnWidth();
}

int DiffPane::RowAt(int y) const {
  const int below = y - m_style.titleHeight();
  const int rows = below >= 0 ? below / m_style.rowHeight() : -1;
  return m_state.place.first() + rows;
}

void DiffPane::OnSetFocus(CWnd* other) {
  CWnd::OnSetFocus(other);
  m_host.OnPaneFocus(m_side);
  Invalidate(FALSE);
}

void DiffPane::OnKillFocus(CWnd* other) {
  CWnd::OnKillFocus(other);
  Invalidate(FALSE);
}

void DiffPane::OnLButtonDown(UINT flags, CPoint point) {
  SetFocus();
  if (point.y < m_style.titleHeight() || m_state.document->rowCount() == 0) return;
  m_isDragging = true;
  SetCapture();
  SetTimer(kDragTimer, kDragInterval);
  m_host.OnPaneRow(RowAt(point.y), (flags & MK_SHIFT) != 0);
}

void DiffPane::OnLButtonUp(UINT, CPoint) {
  if (m_isDragging) ::ReleaseCapture();
}

void DiffPane::OnCaptureChanged(CWnd*) {
  m_isDragging = false;
  KillTimer(kDragTimer);
}

void DiffPane::OnMouseMove(UINT, CPoint point) {
  CRect client;
  GetClientRect(client);
  client.top += m_style.titleHeight();
  // Beyond the edges the timer sets the pace.
  if (m_isDragging && client.PtInRect(CPoint(client.left, point.y)))
    m_host.OnPaneRow(RowAt(point.y), true);
}

void DiffPane::OnTimer(UINT_PTR id) {
  if (id == kDragTimer && m_isDragging) Drag();
}

void DiffPane::Drag() {
  CPoint point;
  ::GetCursorPos(&point);
  ScreenToClient(&point);
  CRect client;
  GetClientRect(client);
  const DiffPlace& place = m_state.place;
  if (point.y < m_style.titleHeight()) {
    m_host.OnPaneRow(place.first() - 1, true);
  } else if (point.y >= client.bottom) {
    m_host.OnPaneRow(place.first() + place.page(), true);
  }
}

BOOL DiffPane::OnMouseWheel(UINT flags, short delta, CPoint) {
  m_host.OnPaneWheel(delta, (flags & MK_SHIFT) != 0);
  return TRUE;
}

// This one counts above 0 for right.
LRESULT DiffPane::OnHorizontalWheel(WPARAM wParam, LPARAM) {
  m_host.OnPaneWheel(-static_cast<short>(HIWORD(wParam)), true);
  return TRUE;
}

void DiffPane::OnKeyDown(UINT key, UINT repeat, UINT flags) {
  if (!m_host.OnPaneKey(key, IsDown(VK_SHIFT), IsDown(VK_CONTROL)))
    CWnd::OnKeyDown(key, repeat, flags);
}

void DiffPane::OnContextMenu(CWnd*, CPoint point) {
  if (point.x == -1 && point.y == -1) {  // asked for with a key: at the row with the focus
    const int rows = m_state.place.caret() - m_state.place.first();
    point = CPoint(XOfColumn(m_state.firstColumn),
                   m_style.titleHeight() + (rows + 1) * m_style.rowHeight());
    ClientToScreen(&point);
  }
  m_host.OnPaneMenu(point);
}
