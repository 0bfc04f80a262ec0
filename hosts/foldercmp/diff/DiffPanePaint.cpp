// DiffPane: drawing.
#include <algorithm>
#include <climits>
#include <utility>

#include "foldercmp/diff/BufferedPaint.h"
#include "foldercmp/diff/DiffPane.h"
#include "foldercmp/diff/LineColumns.h"

namespace {

constexpr int kTextIndent = 4;   // pixels at 96 dpi between the margin and the first column
constexpr int kCurrentBar = 4;   // pixels at 96 dpi
constexpr int kSignColumns = 2;  // behind the line number

// Tells the kinds apart without their colours.
const char* SignOf(DiffKind kind) {
  switch (kind) {
    case DiffKind::Changed:
      return "~";
    case DiffKind::Deleted:
      return "-";
    case DiffKind::Added:
      return "+";
    default:
      return "";
  }
}

const char* NameOfEnd(std::string_view end) {
  return end == "\r\n" ? "CR LF" : end == "\n" ? "LF" : "CR";
}

}  // namespace

// The same on both sides, so that the columns stand alike.
int DiffPane::LineNumberDigits() const {
  int lines = std::max(m_state.document->lineCount(DiffSide::Left),
                       m_state.document->lineCount(DiffSide::Right));
  int digits = 3;
  for (lines /= 1000; lines > 0; lines /= 10) ++digits;
  return digits;
}

int DiffPane::MarginWidth() const {
  return m_style.Pixels(kCurrentBar) + (LineNumberDigits() + kSignColumns) * m_style.columnWidth();
}

int DiffPane::XOfColumn(int column) const {
  return MarginWidth() + m_style.Pixels(kTextIndent) +
         (column - m_state.firstColumn) * m_style.columnWidth();
}

void DiffPane::OnPaint() {
  BufferedPaint paint(*this);
  CDC& dc = paint.dc();
  CRect place = paint.client();
  dc.FillSolidRect(place, GetSysColor(COLOR_WINDOW));
  dc.SetBkMode(TRANSPARENT);
  place.bottom = place.top + m_style.titleHeight();
  DrawTitle(dc, place);

  const int rows = m_state.document->rowCount();
  if (rows == 0) return;
  dc.FillSolidRect(0, place.bottom, MarginWidth(), paint.client().bottom - place.bottom,
                   DiffStyle::kMargin);
  Selected font(dc, m_style.textFont());
  for (int row = m_state.place.first(); row < rows && place.bottom < paint.client().bottom; ++row) {
    place.top = place.bottom;
    place.bottom = place.top + m_style.rowHeight();
    DrawRow(dc, row, place);
  }
}

void DiffPane::DrawTitle(CDC& dc, const CRect& place) {
  const bool isFocused = ::GetFocus() == m_hWnd;
  dc.FillSolidRect(place, GetSysColor(isFocused    ? COLOR_ACTIVECAPTION
                                      : isActive() ? COLOR_INACTIVECAPTION
                                                   : COLOR_BTNFACE));
  dc.SetTextColor(GetSysColor(isFocused    ? COLOR_CAPTIONTEXT
                              : isActive() ? COLOR_INACTIVECAPTIONTEXT
                                           : COLOR_BTNTEXT));
  Selected font(dc, m_style.titleFont());
  CRect text = place;
  text.DeflateRect(m_style.Pixels(6), 0);
  dc.DrawText(m_state.TitleOf(m_side), text,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_PATH_ELLIPSIS | DT_END_ELLIPSIS);
}

void DiffPane::DrawRow(CDC& dc, int number, const CRect& place) {
  const DiffRow row = m_state.document->RowAt(number);
  CRect margin = place, text = place;
  margin.right = text.left = MarginWidth();
  DrawMargin(dc, row, margin);
  DrawLine(dc, number, row, text);
  DrawFrames(dc, number, row, text);
}

void DiffPane::DrawMargin(CDC& dc, const DiffRow& row, const CRect& place) {
  if (row.difference >= 0 && row.difference == m_state.CurrentDifference()) {
    dc.FillSolidRect(place.left, place.top, m_style.Pixels(kCurrentBar), place.Height(),
                     DiffStyle::kCurrent);
  }
  const int line = row.LineOf(m_side);
  if (line < 0) return;
  CString number;
  number.Format("%*d", LineNumberDigits(), line + 1);
  dc.SetTextColor(DiffStyle::kMarginText);
  dc.TextOut(place.left + m_style.Pixels(kCurrentBar), place.top, number);
  if (row.kind == DiffKind::Equal) return;
  dc.SetTextColor(RGB(0, 0, 0));
  dc.TextOut(place.right - kSignColumns * m_style.columnWidth() + m_style.columnWidth() / 2,
             place.top, SignOf(row.kind));
}

void DiffPane::DrawLine(CDC& dc, int number, const DiffRow& row, const CRect& place) {
  const bool isSelected = isActive() && m_state.place.IsSelected(number);
  const bool isFiller = row.LineOf(m_side) < 0;
  const COLORREF ground = isFiller ? DiffStyle::kFillerGround : DiffStyle::RowColour(row.kind);
  if (isSelected || row.kind != DiffKind::Equal || isFiller)
    dc.FillSolidRect(place, isSelected ? GetSysColor(COLOR_HIGHLIGHT) : ground);
  if (isFiller) {
    if (!isSelected) dc.FillRect(place, &m_style.filler());
    return;
  }
  std::vector<int> breaks;
  if (!isSelected) breaks = DrawMarks(dc, number, row, place);
  dc.SetTextColor(isSelected ? GetSysColor(COLOR_HIGHLIGHTTEXT) : DiffStyle::TextColour(row.kind));
  DrawText(dc, row, place, std::move(breaks));
}

std::vector<int> DiffPane::DrawMarks(CDC& dc, int number, const DiffRow& row, const CRect& place) {
  const TextLine& line = m_state.document->Line(m_side, row.LineOf(m_side));
  const int size = static_cast<int>(line.text.size());
  std::vector<int> breaks;
  // From the first byte to the second one, from the third to the fourth, and so on; all of them in
  // one pass over the line, which may be long.
  const auto mark = [&](const std::vector<int>& bytes, COLORREF colour) {
    const std::vector<int> columns = ColumnsOfBytes(line.text, m_state.tabSize, bytes);
    for (size_t i = 0; i + 1 < columns.size(); i += 2) {
      const int left = std::max(XOfColumn(columns[i]), static_cast<int>(place.left));
      const int right = std::min(XOfColumn(columns[i + 1]), static_cast<int>(place.right));
      if (left < right) dc.FillSolidRect(left, place.top, right - left, place.Height(), colour);
    }
    breaks.insert(breaks.end(), columns.begin(), columns.end());
  };
  std::vector<int> words;
  bool isEndChanged = false;
  for (const auto& [begin, end] : m_state.document->ChangedWords(m_side, row)) {
    words.insert(words.end(), {begin, std::min(end, size)});
    isEndChanged = end > size && m_state.document->options().whiteSpaceMode == kWhiteSpaceExact;
  }
  mark(words, DiffStyle::WordColour(row.kind));
  const auto& found = m_state.found;
  if (found && found->side == m_side && found->row == number)
    mark({found->begin, found->end}, DiffStyle::kFound);
  if (isEndChanged) DrawEndMark(dc, row, place);
  return breaks;
}

// A changed line end, which would not be seen.
void DiffPane::DrawEndMark(CDC& dc, const DiffRow& row, const CRect& place) {
  const TextLine& line = m_state.document->Line(m_side, row.LineOf(m_side));
  const CString name = NameOfEnd(line.end);
  const int x = XOfColumn(ColumnCount(line.text, m_state.tabSize)) + m_style.columnWidth() / 2;
  if (x < place.left || x >= place.right) return;
  dc.FillSolidRect(x, place.top + 1, (name.GetLength() + 1) * m_style.columnWidth(),
                   place.Height() - 2, DiffStyle::WordColour(row.kind));
  dc.SetTextColor(DiffStyle::kMarginText);
  dc.TextOut(x + m_style.columnWidth() / 2, place.top, name);
}

// In pieces from mark to mark: text that runs from right to left is turned around within its piece
// and stays where it is marked.
void DiffPane::DrawText(CDC& dc, const DiffRow& row, const CRect& place, std::vector<int> breaks) {
  const int columns = place.Width() / m_style.columnWidth() + 1;
  LineSlice slice = SliceOfLine(m_state.document->Line(m_side, row.LineOf(m_side)).text,
                                m_state.tabSize, m_state.firstColumn, columns);
  breaks.push_back(INT_MAX);
  std::sort(breaks.begin(), breaks.end());
  auto next = breaks.begin();
  int column = slice.column;
  for (size_t begin = 0, end; begin < slice.text.size(); begin = end) {
    const int x = XOfColumn(column);
    while (*next <= column) ++next;
    for (end = begin; end < slice.text.size() && (column < *next || slice.widths[end] == 0);
         ++end) {
      column += slice.widths[end];
      slice.widths[end] *= m_style.columnWidth();
    }
    ::ExtTextOutW(dc, x, place.top, ETO_CLIPPED, place, &slice.text[begin],
                  static_cast<UINT>(end - begin), &slice.widths[begin]);
  }
}

// The edges of the current difference, and the row with the focus.
void DiffPane::DrawFrames(CDC& dc, int number, const DiffRow& row, const CRect& place) {
  if (row.difference >= 0 && row.difference == m_state.CurrentDifference()) {
    const Difference& difference =
        m_state.document->differences()[static_cast<size_t>(row.difference)];
    if (number == difference.firstRow)
      dc.FillSolidRect(place.left, place.top, place.Width(), 1, DiffStyle::kCurrent);
    if (number == difference.firstRow + difference.rows - 1)
      dc.FillSolidRect(place.left, place.bottom - 1, place.Width(), 1, DiffStyle::kCurrent);
  }
  if (isActive() && number == m_state.place.caret() && ::GetFocus() == m_hWnd) {
    CRect focus = place;
    focus.DeflateRect(1, 1);
    dc.SetTextColor(RGB(0, 0, 0));
    dc.SetBkColor(RGB(255, 255, 255));
    dc.DrawFocusRect(focus);
  }
}
