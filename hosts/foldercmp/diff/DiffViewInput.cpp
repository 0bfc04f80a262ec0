// DiffView: keys, mouse, scroll bars and layout.
#include <algorithm>
#include <cstdlib>

#include "foldercmp/diff/BufferedPaint.h"
#include "foldercmp/diff/DiffView.h"

namespace {

// Pixels at 96 dpi.
constexpr int kSplitterWidth = 6;
constexpr int kMapWidth = 26;
constexpr int kLeastPane = 80;
constexpr int kColumnsAStep = 4;  // of the arrow keys and the scroll bar's arrows

int TrackPosition(CScrollBar& bar) {
  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  bar.GetScrollInfo(&info, SIF_TRACKPOS);
  return info.nTrackPos;
}

// Where a scroll bar's notification leads to.
int Scrolled(UINT code, CScrollBar& bar, int position, int step, int page, int last) {
  switch (code) {
    case SB_LINEUP:
      return position - step;
    case SB_LINEDOWN:
      return position + step;
    case SB_PAGEUP:
      return position - page;
    case SB_PAGEDOWN:
      return position + page;
    case SB_TOP:
      return 0;
    case SB_BOTTOM:
      return last;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return TrackPosition(bar);
    default:
      return position;
  }
}

}  // namespace

BEGIN_MESSAGE_MAP(DiffView, CWnd)
ON_WM_SIZE()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_SETFOCUS()
ON_WM_VSCROLL()
ON_WM_HSCROLL()
ON_WM_SETCURSOR()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_LBUTTONUP()
ON_WM_MOUSEMOVE()
END_MESSAGE_MAP()

void DiffView::OnSize(UINT type, int width, int height) {
  CWnd::OnSize(type, width, height);
  Layout();
}

CRect DiffView::NoticePlace() const {
  CRect client;
  GetClientRect(client);
  client.bottom = client.top + (m_notice.IsEmpty() ? 0 : m_style.titleHeight());
  return client;
}

int DiffView::PanesWidth() const {
  CRect client;
  GetClientRect(client);
  return std::max(0, static_cast<int>(client.Width()) - m_style.Pixels(kMapWidth) -
                         GetSystemMetrics(SM_CXVSCROLL));
}

CRect DiffView::SplitterPlace() const {
  CRect client;
  GetClientRect(client);
  const int width = m_style.Pixels(kSplitterWidth), least = m_style.Pixels(kLeastPane);
  const int most = std::max(least, PanesWidth() - width - least);
  const int left = std::clamp(MulDiv(PanesWidth(), m_splitter, 1000) - width / 2, least, most);
  const int top = NoticePlace().bottom;
  const int bottom = client.bottom - GetSystemMetrics(SM_CYHSCROLL);
  return CRect(left, top, left + width, std::max(top, bottom));
}

void DiffView::Layout() {
  if (m_horizontal.m_hWnd == nullptr) return;
  const CRect splitter = SplitterPlace();
  const int right = PanesWidth(), mapWidth = m_style.Pixels(kMapWidth);
  const int top = splitter.top, height = splitter.Height();
  m_left.MoveWindow(0, top, splitter.left, height, FALSE);
  m_right.MoveWindow(splitter.right, top, std::max(0, right - static_cast<int>(splitter.right)),
                     height, FALSE);
  m_map.MoveWindow(right, top, mapWidth, height, FALSE);
  m_vertical.MoveWindow(right + mapWidth, top, GetSystemMetrics(SM_CXVSCROLL), height);
  m_horizontal.MoveWindow(0, splitter.bottom, right, GetSystemMetrics(SM_CYHSCROLL));
  m_state.place.SetPage(m_left.RowsOnPage());
  ScrollToColumn(m_state.firstColumn);
  Invalidate(FALSE);
  Changed();
}

void DiffView::OnPaint() {
  BufferedPaint paint(*this);
  CDC& dc = paint.dc();
  dc.FillSolidRect(paint.client(), GetSysColor(COLOR_BTNFACE));
  CRect notice = NoticePlace();
  if (notice.IsRectEmpty()) return;
  dc.FillSolidRect(notice, DiffStyle::kNotice);
  dc.SetBkMode(TRANSPARENT);
  dc.SetTextColor(RGB(0, 0, 0));
  Selected font(dc, m_style.titleFont());
  notice.DeflateRect(m_style.Pixels(6), 0);
  dc.DrawText(m_notice, notice, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void DiffView::OnSetFocus(CWnd*) { Activate(m_state.active); }

// --- The splitter ---

BOOL DiffView::OnSetCursor(CWnd* window, UINT hitTest, UINT message) {
  CPoint point;
  ::GetCursorPos(&point);
  ScreenToClient(&point);
  if (window != this || !SplitterPlace().PtInRect(point))
    return CWnd::OnSetCursor(window, hitTest, message);
  ::SetCursor(::LoadCursor(nullptr, IDC_SIZEWE));
  return TRUE;
}

void DiffView::OnLButtonDown(UINT, CPoint point) {
  if (SplitterPlace().PtInRect(point)) SetCapture();
}

void DiffView::OnLButtonDblClk(UINT, CPoint point) {
  if (SplitterPlace().PtInRect(point)) SetSplitter(500);
}

void DiffView::OnLButtonUp(UINT, CPoint) {
  if (::GetCapture() == m_hWnd) ::ReleaseCapture();
}

void DiffView::OnMouseMove(UINT, CPoint point) {
  if (::GetCapture() != m_hWnd) return;
  if (PanesWidth() > 0) SetSplitter(MulDiv(point.x, 1000, PanesWidth()));
}

// --- Scrolling ---

void DiffView::OnVScroll(UINT code, UINT, CScrollBar*) {
  const DiffPlace& place = m_state.place;
  ScrollTo(Scrolled(code, m_vertical, place.first(), 1, std::max(1, place.page() - 1),
                    place.lastFirst()));
}

void DiffView::OnHScroll(UINT code, UINT, CScrollBar*) {
  const int page = std::max(1, m_left.ColumnsOnPage() - 1);
  ScrollToColumn(Scrolled(code, m_horizontal, m_state.firstColumn, kColumnsAStep, page, m_columns));
}

void DiffView::OnPaneWheel(int delta, bool isHorizontal) {
  UINT lines = 3;
  SystemParametersInfo(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  const int aNotch =
      lines == WHEEL_PAGESCROLL ? m_state.place.page() : std::min(static_cast<int>(lines), 100);
  m_wheelRest += delta * aNotch;
  const int steps = m_wheelRest / WHEEL_DELTA;
  m_wheelRest -= steps * WHEEL_DELTA;
  if (isHorizontal) {
    ScrollToColumn(m_state.firstColumn - steps * kColumnsAStep);
  } else {
    ScrollTo(m_state.place.first() - steps);
  }
}

// --- The panes ---

void DiffView::OnPaneFocus(DiffSide side) {
  if (m_state.active == side) return;
  m_state.active = side;
  Changed();
}

void DiffView::OnPaneRow(int row, bool extend) {
  m_state.place.MoveTo(row, extend);
  m_state.found.reset();
  Changed();
}

bool DiffView::OnPaneKey(UINT key, bool shift, bool control) {
  switch (key) {
    case VK_TAB:
      Activate(OtherSide(m_state.active));
      return true;
    case VK_LEFT:
      ScrollToColumn(m_state.firstColumn - kColumnsAStep);
      return true;
    case VK_RIGHT:
      ScrollToColumn(m_state.firstColumn + kColumnsAStep);
      return true;
    default:
      return MoveByKey(key, shift, control);
  }
}

bool DiffView::MoveByKey(UINT key, bool shift, bool control) {
  const DiffPlace& place = m_state.place;
  const int page = std::max(1, place.page() - 1);
  int row = place.caret(), first = place.first();
  switch (key) {
    case VK_UP:
      control ? --first : --row;
      break;
    case VK_DOWN:
      control ? ++first : ++row;
      break;
    case VK_PRIOR:
      row -= page;
      first -= page;
      break;
    case VK_NEXT:
      row += page;
      first += page;
      break;
    case VK_HOME:
      if (!control) {
        ScrollToColumn(0);
        return true;
      }
      row = 0;
      break;
    case VK_END:
      if (!control) {
        ScrollToColumn(m_columns);
        return true;
      }
      row = place.rows() - 1;
      break;
    default:
      return false;
  }
  m_state.place.ScrollTo(first);
  if (row != place.caret()) m_state.place.MoveTo(row, shift);
  m_state.found.reset();
  Changed();
  return true;
}

void DiffView::OnPaneMenu(CPoint screen) {
  CMenu menu;
  if (m_paneMenu == 0 || !menu.LoadMenu(m_paneMenu)) return;
  menu.GetSubMenu(0)->TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON, screen.x, screen.y,
                                     GetParent());
}
