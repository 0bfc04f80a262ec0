// Commands, menus, keys and label editing.
#include <algorithm>
#include <cstring>
#include <new>
#include <string>

#include "entry/Handles.h"
#include "lists/MListCtrl.h"
#include "lists/TextMatch.h"
#include "resources/resource.h"
#include "settings/MString.h"

namespace {

constexpr char kOpenText[] = "Open", kViewText[] = "View";
constexpr int kHelpBuffer = 260;
constexpr int kRowsAhead = 16;  // how far before its use a row is fetched from memory

bool isDown(int key) { return GetKeyState(key) < 0; }

// Puts a text on the clipboard for everybody.
void putOnClipboard(HWND owner, const std::string& text) {
  unique_global memory(GlobalAlloc(GMEM_MOVEABLE, text.size() + 1));
  void* const copy = memory ? GlobalLock(memory.get()) : nullptr;
  if (copy == nullptr || !OpenClipboard(owner)) return;
  memcpy(copy, text.c_str(), text.size() + 1);
  GlobalUnlock(memory.get());
  EmptyClipboard();
  if (SetClipboardData(CF_TEXT, memory.get()) != nullptr) memory.release();  // the system's now
  CloseClipboard();
}

}  // namespace

// --- Commands ---

int MListCtrl::ExecuteCode(UINT code) {
  if (code >= CommandUserFirst && code <= CommandUserLast) {
    if (!m_onUserCommand) return 0;
    m_onUserCommand(static_cast<int>(code - CommandUserFirst));
    return 1;
  }
  if (code >= CommandSortBy && code < CommandUserFirst) {
    const int column = static_cast<int>(code - CommandSortBy);
    return column == m_sortColumn || SetSortKey(column, 1);
  }
  switch (code) {
    case CommandOpen:
      return OpenFile(0);
    case CommandView:
      return OpenFile(1);
    case CommandRename: {
      if (m_hWnd == nullptr || !m_onLabelEdit) return 0;
      SetFocus();
      return EditLabel(FocusedRow()) != nullptr;
    }
    case CommandSelectAll:
      SelectAll();
      return 1;
    case CommandInvertSelection:
      InvertSelection();
      return 1;
    case CommandReverseOrder:
      return m_sortColumn >= 0 && SetSortKey(m_sortColumn, 1);
    default:
      return 0;
  }
}

int MListCtrl::OpenFile(int view) {
  if (!m_openCommand || m_hWnd == nullptr || !HasRow(FocusedRow())) return 0;
  MFileViewButton* const file = m_openCommand(GetSelectedItem(1));
  if (file == nullptr) return 0;
  return view ? file->View() : file->Open();
}

BOOL MListCtrl::OnCommand(WPARAM wParam, LPARAM lParam) {
  if (lParam == 0 && MenuCodeFound(LOWORD(wParam)) && ExecuteCode(LOWORD(wParam))) return TRUE;
  return CListCtrlEx::OnCommand(wParam, lParam);
}

int MListCtrl::GetCmdHelpMsg(UINT code, char* buffer) const {
  CString text;
  const int column = static_cast<int>(code) - CommandSortBy;
  if (code == CommandOpen)
    text = kOpenText;
  else if (code == CommandSelectAll)
    text = MString::Loaded(IDS_SELECT_ALL);
  else if (code == CommandInvertSelection)
    text = MString::Loaded(IDS_INVERT_SELECTION);
  else if (code == CommandReverseOrder)
    text = MString::Loaded(IDS_REVERSE_ORDER);
  else if (code >= CommandSortBy && code < CommandUserFirst && m_sortMenu.FindCommand(code) >= 0)
    text = MString::Loaded(IDS_SORT_BY) + " " + m_columns[column].title;
  if (text.IsEmpty()) return 0;
  lstrcpynA(buffer, text, kHelpBuffer);
  return 1;
}

// --- Menus ---

void MListCtrl::GetFileMenu(MPopupMenu& menu) const {
  menu.AppendItem(CommandOpen, kOpenText);
  menu.AppendItem(CommandView, kViewText);
}

void MListCtrl::MarkSortMenu() {
  m_sortMenu.RadioCheck(
      m_sortColumn < 0 ? -1
                       : m_sortMenu.FindCommand(CommandSortBy + static_cast<UINT>(m_sortColumn)));
}

void MListCtrl::AttachSortMenu(CMenu& menu) {
  MarkSortMenu();
  MPopupMenu::AppendCopy(menu, m_sortMenu, MString::Loaded(IDS_SORT_BY));
}

void MListCtrl::FillContextMenu(MPopupMenu& menu, bool onRow) {
  if (m_openCommand && onRow) {
    GetFileMenu(menu);
    menu.SetDefaultItem(CommandOpen);
  }
  if (m_onLabelEdit && onRow && EditableColumn() >= 0)
    menu.AppendItem(CommandRename, MString::Loaded(IDS_RENAME) + "\tF2");
  menu.AppendSeparator();
  menu.AppendItem(CommandSelectAll, MString::Loaded(IDS_SELECT_ALL) + "\tCtrl+A", !m_rows.empty());
  menu.AppendItem(CommandInvertSelection, MString::Loaded(IDS_INVERT_SELECTION), !m_rows.empty());
  if (m_sortMenu.GetCount() == 0) return;
  menu.AppendSeparator();
  AttachSortMenu(menu);
  menu.AppendItem(CommandReverseOrder, MString::Loaded(IDS_REVERSE_ORDER), m_sortColumn >= 0);
}

void MListCtrl::OnContextMenu(CWnd* window, CPoint point) {
  if (window != nullptr && window->m_hWnd != m_hWnd) {
    CListCtrlEx::OnContextMenu(window, point);
    return;
  }
  int row = FocusedRow();
  if (point == CPoint(-1, -1)) {  // by a key: at the row, or in the corner
    CRect place(0, 0, 0, 0);
    if (HasRow(row)) {
      EnsureVisible(row, FALSE);
      GetItemRect(row, place, LVIR_LABEL);
    }
    point = CPoint(std::max<LONG>(place.left, 0), place.bottom);
    ClientToScreen(&point);
  } else {
    CPoint inside(point);
    ScreenToClient(&inside);
    row = HitTest(inside);
  }
  MPopupMenu menu;
  FillContextMenu(menu, HasRow(row));
  if (m_onContextMenu) m_onContextMenu(HasRow(row) ? row : -1, GetItemData(row), std::ref(menu));
  HideTip();
  if (const UINT code = menu.Choose(point, this)) ExecuteCode(code);
}

// --- Keys and clicks ---

UINT MListCtrl::OnGetDlgCode() {
  const UINT code = CListCtrlEx::OnGetDlgCode();
  const auto* const message = reinterpret_cast<const MSG*>(GetCurrentMessage()->lParam);
  // In a dialog, Enter on a row is the list's and not the default button's.
  const bool isEnter =
      message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
  return isEnter && m_onDblClk && HasRow(FocusedRow()) ? code | DLGC_WANTMESSAGE : code;
}

void MListCtrl::OnKeyDown(UINT key, UINT repeat, UINT flags) {
  const bool control = isDown(VK_CONTROL) && !isDown(VK_MENU);
  if (control && key == 'A')
    SelectAll();
  else if (control && (key == 'C' || key == VK_INSERT))
    CopySelected();
  else if (key == VK_F2 && m_onLabelEdit)
    ExecuteCode(CommandRename);
  else if (key == VK_RETURN && m_onDblClk)
    OpenRow(FocusedRow());
  else
    CListCtrlEx::OnKeyDown(key, repeat, flags);
}

void MListCtrl::OpenRow(int row) {
  if (m_onDblClk && HasRow(row)) m_onDblClk(GetItemData(row));
}

void MListCtrl::OnRowDoubleClick(NMHDR* header, LRESULT* result) {
  *result = 0;
  OpenRow(reinterpret_cast<const NMITEMACTIVATE*>(header)->iItem);
}

void MListCtrl::OnColumnClick(NMHDR* header, LRESULT* result) {
  *result = 0;
  SetSortKey(CalcColIdx(reinterpret_cast<const NMLISTVIEW*>(header)->iSubItem), 1);
}

// The cells as they are shown, from left to right, between tabs; each row ends with CR LF.
void MListCtrl::CopySelected() {
  IdArray ids;
  if (InitSelectedArray(ids) == 0) return;
  std::vector<int> order(static_cast<size_t>(GetVisibleColNum()));
  if (order.empty() || !GetColumnOrderArray(order.data(), static_cast<int>(order.size()))) return;
  try {
    std::string text;
    for (int i = 0; i < ids.GetSize(); ++i) {
      for (const int position : order) {
        if (position != order.front()) text += '\t';
        text += GetItemIdText(ids[i], position);
      }
      text += "\r\n";
    }
    putOnClipboard(m_hWnd, text);
  } catch (const std::bad_alloc&) {
    MessageBeep(MB_OK);
  }
}

// --- Texts for the window, and looking for them ---

void MListCtrl::OnGetDispInfo(NMHDR* header, LRESULT* result) {
  LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(header)->item;
  *result = 0;
  if ((item.mask & LVIF_TEXT) != 0 && item.cchTextMax > 0) {
    const CString text = GetItemText(item.iItem, item.iSubItem);
    const int room = item.cchTextMax - 1, bytes = std::min(text.GetLength(), room);
    item.pszText[MultiByteToWideChar(CP_ACP, 0, text, bytes, item.pszText, room)] = 0;
  }
  if ((item.mask & LVIF_PARAM) != 0) item.lParam = static_cast<LPARAM>(GetItemData(item.iItem));
}

void MListCtrl::OnFindRow(NMHDR* header, LRESULT* result) {
  const auto& find = *reinterpret_cast<const NMLVFINDITEMW*>(header);
  *result = -1;
  if ((find.lvfi.flags & LVFI_PARAM) != 0)
    *result = FindItem(static_cast<unsigned long>(find.lvfi.lParam));
  else if ((find.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) != 0)
    *result = FindByPrefix(FirstShownColumn(), CString(find.lvfi.psz),
                           (find.lvfi.flags & LVFI_PARTIAL) == 0, find.iStart,
                           (find.lvfi.flags & LVFI_WRAP) != 0);
}

// The leftmost one, which users look at when they type to find a row.
int MListCtrl::FirstShownColumn() const {
  int order[kMostColumns + 1] = {0};
  if (m_hWnd != nullptr && GetVisibleColNum() > 0) GetColumnOrderArray(order, GetVisibleColNum());
  return DataIndex(order[0], 0);
}

// The first row from start on whose text in a column begins with prefix, or is it; -1: none.
// Without regard to case.
int MListCtrl::FindByPrefix(int column, const char* prefix, bool whole, int start,
                            bool wrap) const {
  const int count = GetItemCount();
  if (column < 0 || prefix == nullptr) return -1;
  const bool isText = column != kDescription && m_columns[column].kind == ListColumnText;
  const auto matches = [&](int row) {
    const uint32_t record = m_rows[row];
    if (isText && row + 2 * kRowsAhead < count) {
      m_map.FetchValue(m_rows[row + 2 * kRowsAhead], SlotOf(column));
      m_map.FetchText(m_rows[row + kRowsAhead], SlotOf(column));
    }
    const CString shown = isText ? CString() : CellText(record, column, 0);
    const char* const text =
        isText ? m_map.Text(record, SlotOf(column)) : static_cast<LPCTSTR>(shown);
    return whole ? EqualsNoCase(text, prefix) : BeginsWithNoCase(text, prefix);
  };
  start = std::clamp(start, 0, count);
  for (int row = start; row < count; ++row)
    if (matches(row)) return row;
  for (int row = 0; wrap && row < start; ++row)
    if (matches(row)) return row;
  return -1;
}

// --- Label editing ---

void MListCtrl::OnLabelEdit(LabelEditFn fn, void* client) {
  m_onLabelEdit = {fn, client};
  if (m_hWnd != nullptr)
    ModifyStyle(fn == nullptr ? LVS_EDITLABELS : 0, fn != nullptr ? LVS_EDITLABELS : 0);
}

// The column whose texts are the rows' labels, -1: they are no texts.
int MListCtrl::EditableColumn() const {
  const int column = CalcColIdx(0);
  return column >= 0 && m_columns[column].kind == ListColumnText ? column : -1;
}

// The edit has one line: a text of several is not offered, so that none is lost.
void MListCtrl::OnBeginLabelEdit(NMHDR* header, LRESULT* result) {
  const int row = reinterpret_cast<const NMLVDISPINFOW*>(header)->item.iItem;
  const int column = EditableColumn();
  const bool allowed = m_onLabelEdit && column >= 0 && HasRow(row) &&
                       strchr(m_map.Text(m_rows[row], SlotOf(column)), '\r') == nullptr;
  *result = !allowed;
  if (allowed) HideTip();
}

void MListCtrl::OnEndLabelEdit(NMHDR* header, LRESULT* result) {
  const LVITEMW& item = reinterpret_cast<const NMLVDISPINFOW*>(header)->item;
  *result = FALSE;
  if (item.pszText == nullptr || !HasRow(item.iItem) || !m_onLabelEdit) return;
  const int column = EditableColumn();
  const unsigned long id = GetItemData(item.iItem);
  const CString oldText = GetItemIdText(id, column, 1, 1), newText = item.pszText;
  if (oldText == newText) return;
  if (m_onLabelEdit(static_cast<LPCTSTR>(oldText), static_cast<LPCTSTR>(newText)))
    *result = UpdateItemField(id, column, newText, 0);
}
