// Selection, and what clients do with it.
#include "diag/trace.h"
#include "lists/MListCtrl.h"
#include "markup/NoException.h"

int MListCtrl::GetSelectedCnt() const {
  return m_hWnd == nullptr ? 0 : static_cast<int>(GetSelectedCount());
}

unsigned long MListCtrl::GetSelectedItem(int any) const {
  if (m_hWnd == nullptr || (!any && GetSelectedCnt() != 1)) return 0;
  const int row = FocusedRow();
  return HasRow(row) ? GetItemData(row) : 0;
}

int MListCtrl::IsSelected(int row) const {
  return m_hWnd != nullptr && HasRow(row) && GetItemState(row, LVIS_SELECTED) != 0;
}

int MListCtrl::GetSelectedItemData(int row, unsigned long& id) const {
  if (!IsSelected(row)) return 0;
  id = GetItemData(row);
  return 1;
}

int MListCtrl::SelectItem(int row, int select) {
  if (m_hWnd == nullptr || !HasRow(row)) return 0;
  return select ? SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED)
                : SetItemState(row, 0, LVIS_SELECTED);
}

int MListCtrl::SelectItem(const char* text, int select) {
  return SelectItem(FindItem(text), select);
}

int MListCtrl::SelectItemId(unsigned long id, int select) {
  return SelectItem(FindItem(id), select);
}

void MListCtrl::SelectAll() {
  if (m_hWnd == nullptr || m_rows.empty()) return;
  {
    const QuietWindow quiet(*this);
    // The window would join many short ranges one by one.
    if (GetSelectedCount() > 0) SetItemState(-1, 0, LVIS_SELECTED);
    SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
  }
  SelectionReplaced();
}

void MListCtrl::DeselectAll() {
  if (m_hWnd == nullptr || GetSelectedCount() == 0) return;
  {
    const QuietWindow quiet(*this);
    SetItemState(-1, 0, LVIS_SELECTED);
  }
  SelectionReplaced();
}

void MListCtrl::InvertSelection() {
  if (m_hWnd == nullptr) return;
  std::vector<int> rows;
  const int hasRoom = WithoutException([&] {
    rows.reserve(m_rows.size() - GetSelectedCount());
    return 1;
  });
  ASSERT(hasRoom);
  if (!hasRoom) return;
  for (int row = 0; row < GetItemCount(); ++row)
    if (GetItemState(row, LVIS_SELECTED) == 0) rows.push_back(row);
  {
    const QuietWindow quiet(*this);
    SetItemState(-1, 0, LVIS_SELECTED);
    SelectRows(rows);
  }
  SelectionReplaced();
}

void MListCtrl::SelectionReplaced() {
  Invalidate(FALSE);
  ReportSelection();
}

int MListCtrl::InitSelectedArray(IdArray& ids) const {
  ids.RemoveAll();
  return WithoutException([&] {
    const int count = GetSelectedCnt();
    ids.SetSize(count);
    int found = 0;
    for (int row = -1; found < count && (row = GetNextItem(row, LVNI_SELECTED)) >= 0;)
      ids[found++] = GetItemData(row);
    ids.SetSize(found);
    return found;
  });
}

// --- Notifications ---

void MListCtrl::OnItemChanged(NMHDR* header, LRESULT* result) {
  const auto& change = *reinterpret_cast<const NMLISTVIEW*>(header);
  *result = 0;
  if ((change.uChanged & LVIF_STATE) == 0 || m_restoring > 0) return;
  if ((change.uNewState & LVIS_SELECTED) != 0 && HasRow(change.iItem))
    m_lastSelected = m_rows[change.iItem];
  if (((change.uNewState ^ change.uOldState) & LVIS_SELECTED) != 0) ReportSelection();
}

void MListCtrl::OnStatesChanged(NMHDR* header, LRESULT* result) {
  const auto& change = *reinterpret_cast<const NMLVODSTATECHANGE*>(header);
  *result = 0;
  if (m_restoring > 0) return;
  if ((change.uNewState & LVIS_SELECTED) != 0 && HasRow(change.iTo))
    m_lastSelected = m_rows[change.iTo];
  ReportSelection();
}

// Tells the client when the selection has become one item, and that another than before.
void MListCtrl::ReportSelection() {
  if (m_restoring > 0 || !m_onSelect) return;
  if (GetSelectedCnt() != 1) {
    m_reportedSelection = kNone;
    return;
  }
  const bool lastIsIt = m_lastSelected != kNone && IsSelected(RowOf(m_lastSelected));
  const int row = lastIsIt ? RowOf(m_lastSelected) : GetNextItem(-1, LVNI_SELECTED);
  if (!HasRow(row) || m_rows[row] == m_reportedSelection) return;
  m_reportedSelection = m_rows[row];
  m_onSelect(GetItemData(row));
}

// --- Work on many items ---

void MListCtrl::RemoteCall::Run() const {
  WithoutException([this] {
    result = fn(*list, id, clientData);
    return 1;
  });
}

namespace {

// Calls a client's function for one identifier after the other.
class ForSelected : public MMultiOperation {
 public:
  ForSelected(const MListCtrl::IdArray& ids, HWND window, const MListCtrl::RemoteCall& call)
      : MMultiOperation(0, static_cast<unsigned>(ids.GetSize())),
        m_ids(ids),
        m_window(window),
        m_call(call) {}

 protected:
  // The function may change the list, which its window is showing meanwhile: it is called on the
  // window's thread. A list without a window shows nothing.
  OperationReturnState Operation(unsigned index) override {
    m_call.id = m_ids[static_cast<int>(index)];
    m_call.result = OperationFailedStop;
    if (m_window == nullptr || GetWindowThreadProcessId(m_window, nullptr) == GetCurrentThreadId())
      m_call.Run();
    else
      SendMessage(m_window, MListCtrl::kForSelectedMessage, 0, reinterpret_cast<LPARAM>(&m_call));
    return m_call.result;
  }

 private:
  const MListCtrl::IdArray& m_ids;
  const HWND m_window;
  MListCtrl::RemoteCall m_call;
};

}  // namespace

int MListCtrl::DoForSelected(const IdArray& ids, ForSelectedFn fn, void* clientData, int withGui) {
  ForSelected operation(ids, m_hWnd, {this, fn, clientData, 0, OperationFailedStop});
  operation.SetTitle(m_listTitle, "");
  operation.SetNoGui(!withGui);
  return operation.DoOperation(0);
}
