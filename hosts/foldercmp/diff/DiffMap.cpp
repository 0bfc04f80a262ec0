#include "foldercmp/diff/DiffMap.h"

#include <algorithm>

#include "foldercmp/diff/BufferedPaint.h"
#include "foldercmp/diff/DiffStyle.h"

namespace {

constexpr int kMargin = 3;          // pixels beside the marks
constexpr int kMostPixelsARow = 4;  // so that a short text is no bar code
constexpr int kLeastMark = 2;       // pixels

}  // namespace

BEGIN_MESSAGE_MAP(DiffMap, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_MOUSEMOVE()
END_MESSAGE_MAP()

BOOL DiffMap::Create(CWnd* parent, UINT id) {
  const LPCTSTR windowClass =
      AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW, ::LoadCursor(nullptr, IDC_ARROW), nullptr);
  return CWnd::Create(windowClass, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), parent, id);
}

int DiffMap::MapHeight() const {
  CRect client;
  GetClientRect(client);
  return std::max(1, std::min(static_cast<int>(client.Height()),
                              kMostPixelsARow * m_state.document->rowCount()));
}

int DiffMap::RowAt(int y) const {
  const int rows = m_state.document->rowCount();
  return std::clamp(MulDiv(y, rows, MapHeight()), 0, std::max(0, rows - 1));
}

int DiffMap::YOfRow(int row) const {
  return MulDiv(row, MapHeight(), std::max(1, m_state.document->rowCount()));
}

void DiffMap::OnLButtonDown(UINT, CPoint point) {
  if (m_state.document->rowCount() == 0) return;
  SetCapture();
  m_goTo(RowAt(point.y));
}

void DiffMap::OnLButtonUp(UINT, CPoint) {
  if (::GetCapture() == m_hWnd) ::ReleaseCapture();
}

void DiffMap::OnMouseMove(UINT, CPoint point) {
  if (::GetCapture() == m_hWnd) m_goTo(RowAt(point.y));
}

void DiffMap::OnPaint() {
  BufferedPaint paint(*this);
  CDC& dc = paint.dc();
  const CRect& client = paint.client();
  dc.FillSolidRect(client, GetSysColor(COLOR_BTNFACE));
  if (m_state.document->rowCount() == 0) return;
  dc.FillSolidRect(kMargin, 0, client.Width() - 2 * kMargin, MapHeight(),
                   GetSysColor(COLOR_WINDOW));

  const auto& differences = m_state.document->differences();
  int drawnTo = 0;
  for (const Difference& difference : differences) {
    // Of hundreds of thousands most stand in a pixel that has its colour already.
    if (YOfRow(difference.firstRow + difference.rows) + kLeastMark <= drawnTo) continue;
    DrawDifference(dc, client, difference, false);
    drawnTo = YOfRow(difference.firstRow + difference.rows) + kLeastMark;
  }
  const int current = m_state.CurrentDifference();
  if (current >= 0) DrawDifference(dc, client, differences[static_cast<size_t>(current)], true);

  const DiffPlace& place = m_state.place;
  CRect visible(0, YOfRow(place.first()), client.right,
                YOfRow(std::min(place.first() + place.page(), place.rows())));
  visible.bottom = std::max(visible.bottom, visible.top + 4);
  dc.Draw3dRect(visible, GetSysColor(COLOR_BTNTEXT), GetSysColor(COLOR_BTNTEXT));
}

// Lines that are only on one side are only on that side here.
void DiffMap::DrawDifference(CDC& dc, const CRect& client, const Difference& difference,
                             bool isCurrent) {
  const int top = YOfRow(difference.firstRow);
  const int height = std::max(kLeastMark, YOfRow(difference.firstRow + difference.rows) - top);
  const int middle = client.Width() / 2;
  const int left = difference.kind == DiffKind::Added ? middle : kMargin;
  const int right = difference.kind == DiffKind::Deleted ? middle : client.Width() - kMargin;
  dc.FillSolidRect(left, top, right - left, height,
                   isCurrent ? DiffStyle::kCurrent : DiffStyle::MapColour(difference.kind));
}
