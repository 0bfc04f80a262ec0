// The main window: filter, documents, reports, and how the commands stand.
#include <shlwapi.h>

#include "foldercmp/AboutDialog.h"
#include "foldercmp/HostTexts.h"
#include "foldercmp/MainFrame.h"
#include "foldercmp/MainFrameMessages.h"
#include "foldercmp/resource.h"

namespace {

constexpr int kMenuPathLength = 40;

// A path as a menu shows it: not too long, and with "&" as itself.
CString menuPath(const CString& path) {
  char compact[MAX_PATH];
  PathCompactPathExA(compact, path, kMenuPathLength, 0);
  CString text(compact);
  text.Replace("&", "&&");
  return text;
}

}  // namespace

// --- The filter ---

void MainFrame::SetFilter(const DocumentFilter& filter) {
  m_filterBar.SetFilter(filter);
  ApplyFilter();
}

void MainFrame::ApplyFilter() {
  KillTimer(kFilterTimer);
  if (m_list == nullptr) return;
  m_list->SetDocumentFilter(m_filterBar.Filter());
  m_status.ShowCounts(m_list.get(), m_metrics);
}

void MainFrame::OnFilterTyped() { SetTimer(kFilterTimer, kFilterDelay); }

void MainFrame::OnTimer(UINT_PTR timer) {
  if (timer == kFilterTimer)
    ApplyFilter();
  else
    CFrameWnd::OnTimer(timer);
}

void MainFrame::OnFilterChosen() { ApplyFilter(); }
void MainFrame::OnStateClicked(UINT) { ApplyFilter(); }

void MainFrame::OnShowState(UINT id) {
  DocumentFilter filter = m_filterBar.Filter();
  filter.states ^= 1u << (id - ID_SHOW_SAME);
  SetFilter(filter);
}

void MainFrame::OnShowAll() {
  DocumentFilter filter = m_filterBar.Filter();
  filter.states = DocumentFilter::kAllStates;
  SetFilter(filter);
}

void MainFrame::OnFilter() { m_filterBar.SetFocus(); }

void MainFrame::OnClearFilter() {
  DocumentFilter filter = m_filterBar.Filter();
  filter.text.Empty();
  SetFilter(filter);
}

// --- Documents and reports ---

void MainFrame::OnListCode(UINT code) { m_list->ExecuteCode(code); }
void MainFrame::OnOpenDocument() { m_list->OpenCommand(0); }

void MainFrame::OnOpenSide(UINT id) {
  m_list->ExecuteCommand(id == ID_DOCUMENT_OPEN_BASE ? ComparisonList::kOpenBase
                                                     : ComparisonList::kOpenRevised);
}

void MainFrame::OnReport() { m_list->DoReport(); }
void MainFrame::OnReportPages() { m_list->ConfigureReports(this); }
void MainFrame::OnAbout() { AboutDialog(this).DoModal(); }

// --- Menus ---

void MainFrame::OnInitMenuPopup(CMenu* menu, UINT index, BOOL isSystemMenu) {
  if (!isSystemMenu) {
    if (menu->GetMenuItemID(0) == ID_RECENT_FIRST) FillRecentMenu(*menu);
    if (menu->GetMenuItemID(0) == ID_SHOW_SAME) FillSortMenu(*menu);
  }
  CFrameWnd::OnInitMenuPopup(menu, index, isSystemMenu);
}

void MainFrame::FillRecentMenu(CMenu& menu) {
  while (menu.DeleteMenu(0, MF_BYPOSITION)) {
  }
  const auto& pairs = m_recent.Pairs();
  for (size_t i = 0; i < pairs.size(); ++i) {
    const CString text = FilledText(IDS_RECENT_PAIR, static_cast<int>((i + 1) % 10),
                                    menuPath(pairs[i].base), menuPath(pairs[i].revised));
    menu.AppendMenu(MF_STRING, ID_RECENT_FIRST + i, text);
  }
  if (pairs.empty())
    menu.AppendMenu(MF_STRING, ID_RECENT_FIRST, MString::Loaded(IDS_NO_RECENT_PAIRS));
}

// The list's "Sort By" menu is the last entry.
void MainFrame::FillSortMenu(CMenu& viewMenu) {
  const int last = static_cast<int>(viewMenu.GetMenuItemCount()) - 1;
  if (viewMenu.GetMenuItemID(last) == static_cast<UINT>(-1))
    viewMenu.DeleteMenu(static_cast<UINT>(last), MF_BYPOSITION);
  if (m_list != nullptr) m_list->AttachSortMenu(viewMenu);
}

void MainFrame::GetMessageString(UINT id, CString& text) const {
  char help[MAX_PATH] = "";
  if (id == AFX_IDS_IDLEMESSAGE)
    text = m_statusText;
  else if (MListCtrl::MenuCodeFound(id))
    text = m_list != nullptr && m_list->GetCmdHelpMsg(id, help) ? help : "";
  else if (id >= ID_RECENT_FIRST && id <= ID_RECENT_LAST)
    text = MString::Loaded(ID_RECENT_FIRST);
  else
    CFrameWnd::GetMessageString(id, text);
}

// --- How the commands stand ---

void MainFrame::OnUpdateIdle(CCmdUI* ui) { ui->Enable(!IsBusy()); }

void MainFrame::OnUpdateList(CCmdUI* ui) { ui->Enable(m_list != nullptr && !IsBusy()); }

void MainFrame::OnUpdateRecent(CCmdUI* ui) {
  ui->Enable(!IsBusy() && ui->m_nID - ID_RECENT_FIRST < m_recent.Pairs().size());
}

void MainFrame::OnUpdateState(CCmdUI* ui) {
  ui->SetCheck(m_filterBar.Filter().ShowsState(static_cast<FileState>(ui->m_nID - ID_SHOW_SAME)));
}

void MainFrame::OnUpdateShowAll(CCmdUI* ui) {
  ui->Enable(m_filterBar.Filter().states != DocumentFilter::kAllStates);
}

void MainFrame::OnUpdateClearFilter(CCmdUI* ui) {
  ui->Enable(!m_filterBar.Filter().text.IsEmpty());
}

void MainFrame::OnUpdateOpen(CCmdUI* ui) {
  const DocumentRecord* const document = m_list != nullptr ? m_list->FocusedDocument() : nullptr;
  const bool isModified = document != nullptr && document->state == FileState::Modified;
  ui->SetText(MString::Loaded(isModified ? IDS_ANALYZE_COMMAND : IDS_OPEN_COMMAND));
  ui->Enable(document != nullptr && !IsBusy());
}

void MainFrame::OnUpdateOpenSide(CCmdUI* ui) {
  const auto side =
      ui->m_nID == ID_DOCUMENT_OPEN_BASE ? ComparisonList::kOpenBase : ComparisonList::kOpenRevised;
  ui->Enable(m_list != nullptr && !IsBusy() && m_list->HasDocument(side));
}
