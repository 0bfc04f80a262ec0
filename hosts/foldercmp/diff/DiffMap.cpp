#include "foldercmp/diff/DiffMap.h"

#include <algorithm>

#include "foldercmp/diff/BufferedPaint.h"
#include "foldercmp/diff/DiffStyle.h"

namespace {

constexpr int kMargin = 3;          // pixels beside the marks
constexpr int kMostPixelsARow = 4;  // so that a short text is no bar code
constexpr int kLeastMark = 2;       // pixels
constexpr int kLeastVisible = 4;

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

DiffMap::Scale DiffMap::GetScale() const {
  CRect client;
  GetClientRect(client);
  const int rows = std::max(1, m_state.document->rowCount());
  return {rows, std::max(1, std::min(static_cast<int>(client.Height()), kMostPixelsARow * rows))};
}

int DiffMap::RowAt(int y) const {
  const Scale scale = GetScale();
  return std::clamp(scale.RowAt(y), 0, scale.rows - 1);
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
  const int width = paint.client().Width();
  dc.FillSolidRect(paint.client(), GetSysColor(COLOR_BTNFACE));
  if (m_state.document->rowCount() == 0) return;
  const Scale scale = GetScale();
  dc.FillSolidRect(kMargin, 0, width - 2 * kMargin, scale.height, GetSysColor(COLOR_WINDOW));
  DrawDifferences(dc, width);

  const DiffPlace& place = m_state.place;
  CRect visible(0, scale.YOfRow(place.first()), width,
                scale.YOfRow(std::min(place.first() + place.page(), place.rows())));
  visible.bottom = std::max(visible.bottom, visible.top + kLeastVisible);
  dc.Draw3dRect(visible, GetSysColor(COLOR_BTNTEXT), GetSysColor(COLOR_BTNTEXT));
}

void DiffMap::DrawDifferences(CDC& dc, int width) {
  const Scale scale = GetScale();
  // Lines that are only on one side are only on that side here.
  const auto draw = [&](const Difference& difference, COLORREF colour) {
    const int top = scale.YOfRow(difference.firstRow);
    const int bottom = scale.YOfRow(difference.firstRow + difference.rows);
    const int left = difference.kind == DiffKind::Added ? width / 2 : kMargin;
    const int right = difference.kind == DiffKind::Deleted ? width / 2 : width - kMargin;
    dc.FillSolidRect(left, top, right - left, std::max(kLeastMark, bottom - top), colour);
  };
  const auto& differences = m_state.document->differences();
  int drawnTo = -1;
  for (const Difference& difference : differences) {
    // Of hundreds of thousands most end in a pixel that has its mark already.
    const int bottom = scale.YOfRow(difference.firstRow + difference.rows);
    if (bottom == drawnTo) continue;
    drawnTo = bottom;
    draw(difference, DiffStyle::MapColour(difference.kind));
  }
  const int current = m_state.CurrentDifference();
  if (current >= 0) draw(differences[static_cast<size_t>(current)], DiffStyle::kCurrent);
}
