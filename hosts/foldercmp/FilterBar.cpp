#include "foldercmp/FilterBar.h"

#include <algorithm>
#include <iterator>

#include "foldercmp/HostTexts.h"
#include "foldercmp/resource.h"
#include "resources/resource.h"

namespace {

constexpr RECT kNoPlace = {0, 0, 0, 0};
// The texts of the columns, in the order of FilterColumn.
constexpr UINT kColumnTexts[] = {IDS_WHOLE_PATH, IDS_COLUMN_DOCUMENT_NAME, IDS_COLUMN_TYPE,
                                 IDS_COLUMN_FOLDER_NAME};
static_assert(std::size(kColumnTexts) == static_cast<size_t>(FilterColumn::kCount));
constexpr int kMostTyped = MAX_PATH;

CString text(const CWnd& window) {
  CString content;
  window.GetWindowText(content);
  return content;
}

}  // namespace

BOOL FilterBar::Create(CWnd& parent) {
  constexpr DWORD kShown = WS_CHILD | WS_VISIBLE, kStop = kShown | WS_TABSTOP | WS_GROUP;
  if (!m_label.Create(MString::Loaded(IDS_FILTER_LABEL), kShown | SS_LEFT | SS_CENTERIMAGE,
                      kNoPlace, &parent, IDC_FILTER_LABEL) ||
      !m_text.CreateEx(WS_EX_CLIENTEDGE, "EDIT", "", kStop | ES_AUTOHSCROLL, kNoPlace, &parent,
                       IDC_FILTER_TEXT) ||
      !m_columnLabel.Create(MString::Loaded(IDS_FILTER_COLUMN_LABEL),
                            kShown | SS_CENTER | SS_CENTERIMAGE, kNoPlace, &parent,
                            IDC_FILTER_COLUMN_LABEL) ||
      !m_column.Create(kStop | CBS_DROPDOWNLIST | WS_VSCROLL, kNoPlace, &parent, IDC_FILTER_COLUMN))
    return FALSE;
  m_text.SetLimitText(kMostTyped);
  for (const UINT id : kColumnTexts) m_column.AddString(MString::Loaded(id));
  for (UINT i = 0; i < kHideableStates; ++i) {
    const DWORD group = i == 0 ? WS_GROUP : 0;
    if (!m_states[i].Create(MString::Loaded(IDS_SHOW_FIRST + i),
                            kShown | WS_TABSTOP | group | BS_AUTOCHECKBOX, kNoPlace, &parent,
                            IDC_SHOW_FIRST + i))
      return FALSE;
  }
  SetFilter(DocumentFilter());
  return TRUE;
}

void FilterBar::SetFont(CFont& font) {
  for (CWnd* const window : {static_cast<CWnd*>(&m_label), static_cast<CWnd*>(&m_text),
                             static_cast<CWnd*>(&m_columnLabel), static_cast<CWnd*>(&m_column)})
    window->SetFont(&font);
  for (CButton& state : m_states) state.SetFont(&font);
}

// The text takes what the others leave.
void FilterBar::Place(const CRect& line, int labelWidth, const PanelMetrics& metrics) {
  const int gap = metrics.Width(6), box = GetSystemMetrics(SM_CXMENUCHECK) + metrics.Width(6);
  int right = line.right;
  for (int i = kHideableStates - 1; i >= 0; --i) {
    const int width = metrics.TextWidth(text(m_states[i])) + box;
    right -= width;
    m_states[i].MoveWindow(right, line.top, width, line.Height());
    right -= i == 0 ? gap : metrics.Width(2);
  }
  int columnWidth = 0;
  for (const UINT id : kColumnTexts)
    columnWidth = std::max(columnWidth, metrics.TextWidth(MString::Loaded(id)));
  columnWidth += GetSystemMetrics(SM_CXVSCROLL) + metrics.Width(8);
  right -= columnWidth;
  m_column.MoveWindow(right, line.top, columnWidth,
                      line.Height() + (m_column.GetCount() + 1) * m_column.GetItemHeight(0));
  const int between = metrics.TextWidth(text(m_columnLabel)) + metrics.Width(6);
  right -= between;
  m_columnLabel.MoveWindow(right, line.top, between, line.Height());
  const int left = line.left + labelWidth;
  m_label.MoveWindow(line.left, line.top, labelWidth, line.Height());
  m_text.MoveWindow(left, line.top, std::max(0, right - left), line.Height());
}

DocumentFilter FilterBar::Filter() const {
  DocumentFilter filter;
  filter.states = 0;
  for (int i = 0; i < kHideableStates; ++i)
    if (m_states[i].GetCheck() == BST_CHECKED) filter.states |= 1u << i;
  filter.column = static_cast<FilterColumn>(std::max(0, m_column.GetCurSel()));
  filter.text = text(m_text);
  return filter;
}

void FilterBar::SetFilter(const DocumentFilter& filter) {
  for (int i = 0; i < kHideableStates; ++i)
    m_states[i].SetCheck(filter.ShowsState(static_cast<FileState>(i)));
  m_column.SetCurSel(static_cast<int>(filter.column));
  if (text(m_text) != filter.text) m_text.SetWindowText(filter.text);
}

void FilterBar::SetFocus() {
  m_text.SetFocus();
  m_text.SetSel(0, -1);
}

bool FilterBar::HasTextFocus() const { return ::GetFocus() == m_text.m_hWnd; }
