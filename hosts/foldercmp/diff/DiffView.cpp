#include "foldercmp/diff/DiffView.h"

#include <algorithm>
#include <utility>

#include "foldercmp/diff/LineColumns.h"
#include "foldercmp/diff/diff_ids.h"

DiffView::DiffView()
    : m_left(DiffSide::Left, m_state, m_style, *this),
      m_right(DiffSide::Right, m_state, m_style, *this),
      m_map(m_state, [this](int row) {
        ScrollTo(row - m_state.place.page() / 2);
        Activate(m_state.active);
      }) {}

BOOL DiffView::Create(CWnd* parent, UINT id) {
  const LPCTSTR windowClass =
      AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW), nullptr);
  const CRect nowhere(0, 0, 0, 0);
  return CWnd::Create(windowClass, "", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, nowhere, parent,
                      id) &&
         m_left.Create(this, IDC_DIFF_LEFT) && m_right.Create(this, IDC_DIFF_RIGHT) &&
         m_map.Create(this, IDC_DIFF_MAP) &&
         m_vertical.Create(WS_CHILD | WS_VISIBLE | SBS_VERT, nowhere, this, IDC_DIFF_VERTICAL) &&
         m_horizontal.Create(WS_CHILD | WS_VISIBLE | SBS_HORZ, nowhere, this, IDC_DIFF_HORIZONTAL);
}

void DiffView::SetTitles(const CString& left, const CString& right) {
  m_state.leftTitle = left;
  m_state.rightTitle = right;
  m_left.SetWindowText(left);
  m_right.SetWindowText(right);
  Changed();
}

void DiffView::SetDocument(std::shared_ptr<const DiffDocument> document, const DiffMark* mark) {
  m_state.document = std::move(document);
  m_state.found.reset();
  m_state.place.SetRows(m_state.document->rowCount());
  MeasureColumns();
  if (mark != nullptr) {
    mark->Restore(*m_state.document, m_state.place);
  } else {
    m_state.place.MoveTo(0, false);
    m_state.firstColumn = 0;
  }
  Layout();
  if (mark == nullptr && !m_state.document->differences().empty()) ShowDifference(0);
}

void DiffView::SetNotice(const CString& notice) {
  m_notice = notice;
  Layout();
  Invalidate(FALSE);
}

void DiffView::SetTabSize(int tabSize) {
  m_state.tabSize = tabSize;
  MeasureColumns();
  Changed();
}

void DiffView::SetSplitter(int splitter) {
  m_splitter = std::clamp(splitter, 0, 1000);
  Layout();
}

void DiffView::Activate(DiffSide side) { PaneOf(side).SetFocus(); }

void DiffView::ShowDifference(int number) {
  const Difference& difference = m_state.document->differences()[static_cast<size_t>(number)];
  m_state.place.Show(difference.firstRow, difference.rows);
  m_state.found.reset();
  Changed();
}

void DiffView::ShowFound(const FoundText& found) {
  m_state.place.Show(found.row, 1);
  m_state.active = found.side;
  m_state.found = found;
  const TextLine& line =
      m_state.document->Line(found.side, m_state.document->RowAt(found.row).LineOf(found.side));
  const auto columns = ColumnsOfBytes(line.text, m_state.tabSize, {found.begin, found.end});
  ShowColumns(columns[0], columns[1]);
  Changed();
}

void DiffView::ShowLine(DiffSide side, int line) {
  m_state.place.Show(m_state.document->RowOfLine(side, line), 1);
  m_state.active = side;
  m_state.found.reset();
  Changed();
}

void DiffView::SelectAll() {
  m_state.place.SelectAll();
  Changed();
}

std::wstring DiffView::SelectedText() const {
  const DiffDocument& document = *m_state.document;
  std::string text;
  for (int row = m_state.place.selectionBegin();
       row < std::min(m_state.place.selectionEnd(), document.rowCount()); ++row) {
    const int line = document.RowAt(row).LineOf(m_state.active);
    if (line < 0) continue;
    text += document.Line(m_state.active, line).text;
    text += "\r\n";
  }
  const int size = static_cast<int>(text.size());
  std::wstring wide(
      static_cast<size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), 0);
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

// The longest line of both texts, if they are shown; only lines that could be longer are gone
// through.
void DiffView::MeasureColumns() {
  m_columns = 0;
  if (m_state.document->rowCount() == 0) return;
  size_t columns = 0;
  for (const DiffSide side : {DiffSide::Left, DiffSide::Right}) {
    for (const TextLine& line : m_state.document->texts()->Of(side).lines()) {
      const auto tabs = static_cast<size_t>(std::count(line.text.begin(), line.text.end(), '\t'));
      const size_t atMost = line.text.size() + tabs * static_cast<size_t>(m_state.tabSize - 1);
      if (atMost <= columns) continue;
      columns = std::max(columns, static_cast<size_t>(ColumnCount(line.text, m_state.tabSize)));
    }
  }
  m_columns = static_cast<int>(columns);
}

// What is on the screen follows the state.
void DiffView::Changed() {
  SetScrollBars();
  m_left.Invalidate(FALSE);
  m_right.Invalidate(FALSE);
  m_map.Invalidate(FALSE);
  if (m_onChange) m_onChange();
}

void DiffView::ScrollTo(int row) {
  const int before = m_state.place.first();
  m_state.place.ScrollTo(row);
  if (m_state.place.first() != before) Changed();
}

void DiffView::ScrollToColumn(int column) {
  const int page = std::min(m_left.ColumnsOnPage(), m_right.ColumnsOnPage());
  const int first = std::clamp(column, 0, std::max(0, m_columns + 1 - page));
  if (first == m_state.firstColumn) return;
  m_state.firstColumn = first;
  Changed();
}

void DiffView::ShowColumns(int begin, int end) {
  const int page = std::min(m_left.ColumnsOnPage(), m_right.ColumnsOnPage());
  if (begin < m_state.firstColumn) {
    ScrollToColumn(std::max(0, begin - page / 4));
  } else if (end > m_state.firstColumn + page) {
    ScrollToColumn(std::min(begin, end - page + page / 4));
  }
}

void DiffView::SetScrollBars() {
  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
  info.nMax = std::max(0, m_state.place.rows() - 1);
  info.nPage = static_cast<UINT>(m_state.place.page());
  info.nPos = m_state.place.first();
  m_vertical.SetScrollInfo(&info);
  info.nMax = m_columns;
  info.nPage = static_cast<UINT>(std::min(m_left.ColumnsOnPage(), m_right.ColumnsOnPage()));
  info.nPos = m_state.firstColumn;
  m_horizontal.SetScrollInfo(&info);
}
