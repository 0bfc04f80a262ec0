// DiffFrame: its commands.
#include <algorithm>
#include <cstring>
#include <utility>

#include "entry/Handles.h"
#include "foldercmp/diff/DiffFrame.h"
#include "foldercmp/diff/DiffNotice.h"
#include "foldercmp/diff/DiffOperation.h"
#include "foldercmp/diff/GoToLine.h"
#include "foldercmp/diff/diff_ids.h"

BEGIN_MESSAGE_MAP(DiffFrame, CFrameWnd)
ON_WM_CLOSE()
ON_WM_ENDSESSION()
ON_WM_ERASEBKGND()
ON_WM_GETMINMAXINFO()
ON_NOTIFY_RANGE(TTN_GETDISPINFOA, 0, 0xFFFF, &DiffFrame::OnToolTip)
ON_COMMAND(ID_DIFF_RELOAD, &DiffFrame::OnReload)
ON_COMMAND(ID_DIFF_SWAP, &DiffFrame::OnSwap)
ON_COMMAND(ID_DIFF_CLOSE, &DiffFrame::OnClose)
ON_COMMAND(ID_DIFF_COPY, &DiffFrame::OnCopy)
ON_COMMAND(ID_DIFF_SELECT_ALL, &DiffFrame::OnSelectAll)
ON_COMMAND(ID_DIFF_FIND, &DiffFrame::OnFind)
ON_COMMAND(ID_DIFF_FIND_NEXT, &DiffFrame::OnFindNext)
ON_COMMAND(ID_DIFF_FIND_PREVIOUS, &DiffFrame::OnFindPrevious)
ON_COMMAND(ID_DIFF_GO_TO_LINE, &DiffFrame::OnGoToLine)
ON_COMMAND_RANGE(ID_DIFF_WHITE_SPACE_EXACT, ID_DIFF_WHITE_SPACE_IGNORED, &DiffFrame::OnWhiteSpace)
ON_COMMAND(ID_DIFF_IGNORE_CASE, &DiffFrame::OnIgnoreCase)
ON_COMMAND_RANGE(ID_DIFF_TABS_4, ID_DIFF_TABS_8, &DiffFrame::OnTabs)
ON_COMMAND(ID_DIFF_OTHER_PANE, &DiffFrame::OnOtherPane)
ON_COMMAND(ID_DIFF_NEXT, &DiffFrame::OnNext)
ON_COMMAND(ID_DIFF_PREVIOUS, &DiffFrame::OnPrevious)
ON_COMMAND(ID_DIFF_FIRST, &DiffFrame::OnFirst)
ON_COMMAND(ID_DIFF_LAST, &DiffFrame::OnLast)
ON_UPDATE_COMMAND_UI_RANGE(ID_DIFF_COPY, ID_DIFF_GO_TO_LINE, &DiffFrame::OnUpdateRows)
ON_UPDATE_COMMAND_UI_RANGE(ID_DIFF_NEXT, ID_DIFF_LAST, &DiffFrame::OnUpdateDifferences)
ON_UPDATE_COMMAND_UI_RANGE(ID_DIFF_WHITE_SPACE_EXACT, ID_DIFF_WHITE_SPACE_IGNORED,
                           &DiffFrame::OnUpdateWhiteSpace)
ON_UPDATE_COMMAND_UI(ID_DIFF_IGNORE_CASE, &DiffFrame::OnUpdateIgnoreCase)
ON_UPDATE_COMMAND_UI_RANGE(ID_DIFF_TABS_4, ID_DIFF_TABS_8, &DiffFrame::OnUpdateTabs)
END_MESSAGE_MAP()

// --- Comparing ---

bool DiffFrame::Compare(std::shared_ptr<const DiffTexts> texts, const DiffMark* mark) {
  DiffOperation operation(m_documents.left, m_documents.right, m_settings.Options(),
                          std::move(texts));
  m_running = &operation;
  operation.DoOperation(0);
  m_running = nullptr;
  if (m_closesWhenDone) PostMessage(WM_CLOSE);
  if (!operation.document()) {
    CString notice;
    notice.LoadString(IDS_DIFF_STOPPED);
    m_view.SetNotice(notice);
    return false;
  }
  m_view.SetNotice(NoticeOf(*operation.document(), m_documents.leftTitle, m_documents.rightTitle));
  m_view.SetDocument(operation.document(), mark);
  return true;
}

void DiffFrame::LoadDocuments() { Compare(nullptr, nullptr); }

void DiffFrame::OnReload() {
  const DiffMark mark = m_view.Mark();
  Compare(nullptr, document().rowCount() == 0 ? nullptr : &mark);
}

void DiffFrame::OnSwap() {
  DiffMark mark = m_view.Mark();
  mark.Swap();
  std::swap(m_documents.left, m_documents.right);
  std::swap(m_documents.leftTitle, m_documents.rightTitle);
  if (Compare(nullptr, &mark)) {
    ShowTitles();
  } else {
    std::swap(m_documents.left, m_documents.right);
    std::swap(m_documents.leftTitle, m_documents.rightTitle);
  }
}

void DiffFrame::CompareAgain() {
  const DiffMark mark = m_view.Mark();
  if (Compare(document().texts(), &mark)) return;
  m_settings.whiteSpaceMode = document().options().whiteSpaceMode;
  m_settings.ignoreCase = document().options().ignoreCase;
  ShowState();
}

void DiffFrame::OnWhiteSpace(UINT id) {
  m_settings.whiteSpaceMode = static_cast<int>(id - ID_DIFF_WHITE_SPACE_EXACT);
  CompareAgain();
}

void DiffFrame::OnIgnoreCase() {
  m_settings.ignoreCase = !m_settings.ignoreCase;
  CompareAgain();
}

void DiffFrame::OnTabs(UINT id) {
  m_settings.tabSize = id == ID_DIFF_TABS_8 ? 8 : 4;
  m_view.SetTabSize(m_settings.tabSize);
}

// --- Moving ---

void DiffFrame::OnOtherPane() {
  const DiffSide active = m_view.state().active;
  m_view.Activate(m_findBar.HasFocus() ? active : OtherSide(active));
}

void DiffFrame::ShowDifference(int difference, UINT notice) {
  if (document().differences().empty()) {
    ::MessageBeep(MB_OK);
    return;
  }
  m_view.ShowDifference(difference);
  if (notice == 0) return;
  ::MessageBeep(MB_OK);
  ShowMessage(notice);
}

void DiffFrame::OnNext() {
  const int next = document().DifferenceBelow(m_view.state().place.caret());
  ShowDifference(std::max(next, 0), next < 0 ? IDS_DIFF_FROM_FIRST : 0);
}

// From within a difference to the one before it.
void DiffFrame::OnPrevious() {
  const int current = m_view.state().CurrentDifference();
  const int previous =
      current >= 0 ? current - 1 : document().DifferenceAbove(m_view.state().place.caret());
  const int last = static_cast<int>(document().differences().size()) - 1;
  ShowDifference(previous < 0 ? last : previous, previous < 0 ? IDS_DIFF_FROM_LAST : 0);
}

void DiffFrame::OnFirst() { ShowDifference(0, 0); }

void DiffFrame::OnLast() {
  ShowDifference(static_cast<int>(document().differences().size()) - 1, 0);
}

void DiffFrame::OnGoToLine() {
  const DiffSide side = m_view.state().active;
  const int lines = document().lineCount(side);
  if (lines == 0) return;
  if (const auto line = AskForLine(lines)) {
    m_view.ShowLine(side, *line);
    m_view.Activate(side);
  }
}

// --- Finding ---

void DiffFrame::OnFind() {
  m_findBar.ShowResult("");
  m_findBar.ShowWindow(SW_SHOW);
  RecalcLayout();
  m_findBar.Edit();
}

void DiffFrame::CloseFindBar() {
  m_findBar.ShowWindow(SW_HIDE);
  RecalcLayout();
  m_view.Activate(m_view.state().active);
}

void DiffFrame::Find(bool forward) {
  const DiffViewState& state = m_view.state();
  FindQuery query = {m_findBar.text(), m_findBar.matchCase(), {}, forward};
  if (query.text.empty()) {
    OnFind();
    return;
  }
  if (!m_findBar.bothSides()) query.side = state.active;
  FindPlace start = {state.active, state.place.caret(), -1};
  if (state.found) start = {state.found->side, state.found->row, state.found->begin};
  const CWaitCursor wait;
  const auto found = FindText(document(), query, start);
  UINT result = 0;
  if (!found) {
    result = IDS_DIFF_NOT_FOUND;
  } else {
    m_view.ShowFound(*found);
    if (!m_findBar.HasFocus()) m_view.Activate(found->side);
    if (found->isWrapped) result = forward ? IDS_DIFF_FOUND_FROM_TOP : IDS_DIFF_FOUND_FROM_END;
  }
  CString text;
  if (result != 0) {
    ::MessageBeep(MB_OK);
    text.LoadString(result);
    ShowMessage(result);
  }
  m_findBar.ShowResult(text);
}

// --- Copying ---

void DiffFrame::OnSelectAll() { m_view.SelectAll(); }

void DiffFrame::OnCopy() {
  ShowMessage(CopyText(m_view.SelectedText()) ? IDS_DIFF_COPIED : IDS_DIFF_NOT_COPIED);
}

bool DiffFrame::CopyText(const std::wstring& text) {
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  unique_global memory(::GlobalAlloc(GMEM_MOVEABLE, bytes));
  if (!memory || !OpenClipboard()) return false;
  std::memcpy(::GlobalLock(memory.get()), text.c_str(), bytes);
  ::GlobalUnlock(memory.get());
  ::EmptyClipboard();
  const bool isDone = ::SetClipboardData(CF_UNICODETEXT, memory.get()) != nullptr;
  if (isDone) memory.release();  // it is the clipboard's now
  ::CloseClipboard();
  return isDone;
}

// --- How the commands stand ---

void DiffFrame::OnUpdateRows(CCmdUI* ui) { ui->Enable(document().rowCount() > 0); }

void DiffFrame::OnUpdateDifferences(CCmdUI* ui) { ui->Enable(!document().differences().empty()); }

void DiffFrame::OnUpdateWhiteSpace(CCmdUI* ui) {
  ui->SetRadio(static_cast<int>(ui->m_nID - ID_DIFF_WHITE_SPACE_EXACT) ==
               m_settings.whiteSpaceMode);
}

void DiffFrame::OnUpdateIgnoreCase(CCmdUI* ui) { ui->SetCheck(m_settings.ignoreCase); }

void DiffFrame::OnUpdateTabs(CCmdUI* ui) {
  ui->SetRadio((ui->m_nID == ID_DIFF_TABS_8 ? 8 : 4) == m_settings.tabSize);
}
