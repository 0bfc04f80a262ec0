#include "controls/CListCtrlEx.h"

#include <algorithm>
#include <cstdlib>

BEGIN_MESSAGE_MAP(CListCtrlEx, CListCtrl)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_MOUSEMOVE()
ON_WM_MOUSEHOVER()
ON_WM_MOUSELEAVE()
ON_NOTIFY_REFLECT(NM_CUSTOMDRAW, OnCustomDraw)
END_MESSAGE_MAP()

namespace {

// The list view's own margins on both sides of a text, in the first column and in the others.
constexpr int kLabelMargin = 6, kCellMargin = 12;
constexpr int kFittedMargin = 14;  // a column that fits has these and some air
constexpr int kMostRowsMeasured = 10000;
constexpr int kArrowSize = 9;  // of the arrow's bitmap, in pixels

// A context of the window with the window's font, until the end of the scope.
class MeasuringDC {
 public:
  explicit MeasuringDC(CWnd& window)
      : m_dc(&window), m_before(m_dc.SelectObject(window.GetFont())) {}
  ~MeasuringDC() { m_dc.SelectObject(m_before); }
  int Width(const CString& text) { return m_dc.GetTextExtent(text).cx; }

 private:
  CClientDC m_dc;
  CFont* m_before;
};

int cellMargin(int column) { return column == 0 ? kLabelMargin : kCellMargin; }

bool endsTip(UINT message) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_MOUSEWHEEL:
    case WM_VSCROLL:
    case WM_HSCROLL:
    case WM_SIZE:
    case WM_KILLFOCUS:
    case WM_SHOWWINDOW:
    case WM_CONTEXTMENU:
      return true;
    default:
      return false;
  }
}

}  // namespace

CString CListCtrlEx::GetCellText(int row, int column) {
  return CListCtrl::GetItemText(row, column);
}

CString CListCtrlEx::GetRowTip(int) { return CString(); }

void CListCtrlEx::GetDisplayColors(int, COLORREF&, COLORREF&) {}

void CListCtrlEx::GetCellColors(int, int, COLORREF&, COLORREF&) {}

// --- The window ---

int CListCtrlEx::OnCreate(LPCREATESTRUCT create) {
  if (CListCtrl::OnCreate(create) == -1) return -1;
  InitWindow();
  return 0;
}

// A window that is subclassed gets no WM_CREATE any more. In one that is being created the list
// view is not there yet.
void CListCtrlEx::PreSubclassWindow() {
  CListCtrl::PreSubclassWindow();
  if (GetHeaderCtrl() != nullptr) InitWindow();
}

void CListCtrlEx::InitWindow() {
  // The same notifications for every parent; some versions of the control leave the texts of 8-bit
  // ones in UTF-16.
  SendMessage(LVM_SETUNICODEFORMAT, TRUE);
  SetExtendedStyle(GetExtendedStyle() | LVS_EX_FULLROWSELECT | LVS_EX_HEADERDRAGDROP |
                   LVS_EX_DOUBLEBUFFER);
}

void CListCtrlEx::OnDestroy() {
  m_tip.Destroy();
  m_tipRow = m_tipColumn = -1;
  CListCtrl::OnDestroy();
}

LRESULT CListCtrlEx::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (endsTip(message)) HideTip();
  return CListCtrl::WindowProc(message, wParam, lParam);
}

BOOL CListCtrlEx::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  const CHeaderCtrl* const header = GetHeaderCtrl();
  const auto& notice = *reinterpret_cast<const NMHEADER*>(lParam);
  if (header != nullptr && notice.hdr.hwndFrom == header->m_hWnd &&
      (notice.hdr.code == HDN_DIVIDERDBLCLICKA || notice.hdr.code == HDN_DIVIDERDBLCLICKW)) {
    FitColumn(notice.iItem);
    *pResult = 0;
    return TRUE;
  }
  return CListCtrl::OnNotify(wParam, lParam, pResult);
}

// --- Colours ---

void CListCtrlEx::OnCustomDraw(NMHDR* header, LRESULT* result) {
  auto& draw = *reinterpret_cast<NMLVCUSTOMDRAW*>(header);
  const int row = static_cast<int>(draw.nmcd.dwItemSpec);
  *result = CDRF_DODEFAULT;
  switch (draw.nmcd.dwDrawStage) {
    case CDDS_PREPAINT:
      *result = CDRF_NOTIFYITEMDRAW;
      break;
    case CDDS_ITEMPREPAINT:
      *result = CDRF_NOTIFYSUBITEMDRAW;
      break;
    case CDDS_ITEMPREPAINT | CDDS_SUBITEM:
      if (GetItemState(row, LVIS_SELECTED) != 0) break;
      draw.clrText = GetTextColor();
      draw.clrTextBk = GetBkColor();
      GetDisplayColors(row, draw.clrText, draw.clrTextBk);
      GetCellColors(row, draw.iSubItem, draw.clrText, draw.clrTextBk);
      *result = CDRF_NEWFONT;
      break;
  }
}

// --- Widths and arrows ---

void CListCtrlEx::FitColumn(int column) {
  CHeaderCtrl* const header = GetHeaderCtrl();
  char title[260] = "";
  HDITEM item = {};
  item.mask = HDI_TEXT | HDI_FORMAT;
  item.pszText = title;
  item.cchTextMax = sizeof title;
  if (header == nullptr || !header->GetItem(column, &item)) return;

  MeasuringDC dc(*this);
  int width = dc.Width(title) + kHeaderMargin + ((item.fmt & HDF_BITMAP) != 0 ? kArrowWidth : 0);
  const int count = CListCtrl::GetItemCount();
  const int first = count <= kMostRowsMeasured ? 0 : GetTopIndex();
  const int end = std::min(count, first + kMostRowsMeasured);
  for (int row = first; row < end; ++row)
    width = std::max(width, dc.Width(GetCellText(row, column)) + kFittedMargin);
  SetColumnWidth(column, width);
}

const CBitmap& CListCtrlEx::Arrow(int descending) {
  CBitmap& bitmap = m_arrows[descending ? 1 : 0];
  if (bitmap.GetSafeHandle() != nullptr) return bitmap;
  CClientDC screen(nullptr);
  CDC dc;
  if (!dc.CreateCompatibleDC(&screen) ||
      !bitmap.CreateCompatibleBitmap(&screen, kArrowSize, kArrowSize))
    return bitmap;
  CBitmap* const before = dc.SelectObject(&bitmap);
  dc.FillSolidRect(0, 0, kArrowSize, kArrowSize, GetSysColor(COLOR_BTNFACE));
  // A triangle of five lines, each two pixels shorter than the one below it, or above.
  for (int line = 0; line < 5; ++line) {
    const int y = descending ? 6 - line : 2 + line;
    dc.FillSolidRect(4 - line, y, 2 * line + 1, 1, GetSysColor(COLOR_BTNSHADOW));
  }
  dc.SelectObject(before);
  return bitmap;
}

void CListCtrlEx::SetHeaderArrow(int column, int descending) {
  CHeaderCtrl* const header = GetHeaderCtrl();
  if (header == nullptr) return;
  for (int i = 0, count = header->GetItemCount(); i < count; ++i) {
    HDITEM item = {};
    item.mask = HDI_FORMAT;
    header->GetItem(i, &item);
    const bool had = (item.fmt & HDF_BITMAP) != 0;
    if (!had && i != column) continue;
    item.fmt &= ~(HDF_BITMAP | HDF_BITMAP_ON_RIGHT);
    item.mask = HDI_FORMAT | HDI_BITMAP;
    item.hbm = nullptr;
    if (i == column) {
      item.fmt |= HDF_STRING | HDF_BITMAP | HDF_BITMAP_ON_RIGHT;
      item.hbm = Arrow(descending);
    }
    header->SetItem(i, &item);
  }
}

// --- Tips ---

void CListCtrlEx::HideTip() {
  m_tip.Hide();
  m_tipRow = m_tipColumn = -1;
}

void CListCtrlEx::OnMouseMove(UINT flags, CPoint point) {
  CListCtrl::OnMouseMove(flags, point);
  LVHITTESTINFO hit = {};
  hit.pt = point;
  SubItemHitTest(&hit);
  if (hit.iItem < 0) {
    HideTip();
    return;
  }
  if (hit.iItem == m_tipRow && hit.iSubItem == m_tipColumn) return;
  m_tip.Hide();
  m_tipRow = hit.iItem;
  m_tipColumn = hit.iSubItem;
  TRACKMOUSEEVENT track = {sizeof track, TME_LEAVE | TME_HOVER, m_hWnd, HOVER_DEFAULT};
  TrackMouseEvent(&track);
  ShowCutText(m_tipRow, m_tipColumn);
}

void CListCtrlEx::ShowCutText(int row, int column) {
  CRect cell;
  if (GetEditControl() != nullptr || !GetSubItemRect(row, column, LVIR_LABEL, cell)) return;
  const CString text = GetCellText(row, column);
  CRect client;
  GetClientRect(client);
  const int needed = MeasuringDC(*this).Width(text) + cellMargin(column);
  if (text.IsEmpty() || cell.left + needed <= std::min(cell.right, client.right)) return;
  CPoint place = cell.TopLeft();
  ClientToScreen(&place);
  m_tip.Show(*this, text, place);
}

void CListCtrlEx::OnMouseHover(UINT, CPoint point) {
  if (m_tipRow < 0 || m_tip.IsShown() || GetEditControl() != nullptr) return;
  const CString text = GetRowTip(m_tipRow);
  if (text.IsEmpty()) return;
  ClientToScreen(&point);
  point.Offset(0, GetSystemMetrics(SM_CYCURSOR) * 2 / 3);
  m_tip.Show(*this, text, point);
}

void CListCtrlEx::OnMouseLeave() {
  HideTip();
  CListCtrl::OnMouseLeave();
}
