#include "foldercmp/ComparisonList.h"

#include <mbstring.h>

#include "controls/MPopupMenu.h"
#include "foldercmp/CommandLine.h"
#include "foldercmp/HostSettings.h"
#include "foldercmp/HostTexts.h"
#include "foldercmp/resource.h"
#include "messages/message.h"

namespace {

CString inLowerCase(CString text) {
  CharLowerBuffA(text.GetBuffer(0), static_cast<DWORD>(text.GetLength()));
  text.ReleaseBuffer();
  return text;
}

bool contains(const CString& text, const CString& part) {
  const auto bytes = [](const CString& string) {
    return reinterpret_cast<const unsigned char*>(static_cast<LPCTSTR>(string));
  };
  return _mbsstr(bytes(text), bytes(part)) != nullptr;
}

}  // namespace

BOOL ComparisonList::Create(CWnd& parent, UINT id, CFont& font) {
  constexpr DWORD kStyle =
      WS_CHILD | WS_BORDER | WS_TABSTOP | WS_GROUP | LVS_REPORT | LVS_SHOWSELALWAYS;
  SetRegistryKey(kListKey);
  SetSortMethod(1, 1);
  SetUrlAndProduct("", MString::Loaded(IDS_PRODUCT));
  if (!DirCmpCtrl::Create(kStyle, CRect(0, 0, 0, 0), &parent, id)) return FALSE;
  SetFont(&font);
  unsigned long ignored = 0;
  m_hasKeptLayout = GetRegistry()->GetUserKey("SortCol", ignored, 0) != 0;
  return TRUE;
}

void ComparisonList::SetFirstLayout() {
  if (m_hasKeptLayout) return;
  SetSortKey(kStatus, 0, 1);
  CRect client;
  GetClientRect(client);
  for (int column = 0; column < GetVisibleColNum(); ++column) {
    FitColumn(column);
    // One long name is not to put the status out of sight.
    if (GetColumnWidth(column) > client.Width() / 3) SetColumnWidth(column, client.Width() / 3);
  }
  DeselectAll();
  SelectItem(0);
}

// --- The filter ---

void ComparisonList::SetDocumentFilter(const DocumentFilter& filter) {
  if (filter == m_documentFilter) return;
  // Without a text the column makes no difference.
  const bool isTheSame = filter.states == m_documentFilter.states && filter.text.IsEmpty() &&
                         m_documentFilter.text.IsEmpty();
  m_documentFilter = filter;
  m_filterText = inLowerCase(filter.text);
  if (!isTheSame) Refilter();
}

int ComparisonList::FilterMatch(unsigned long id) const {
  if (!m_documentFilter.ShowsState(RecordOf(id).state)) return 0;
  return m_filterText.IsEmpty() || contains(inLowerCase(FilteredText(id)), m_filterText);
}

CString ComparisonList::FilteredText(unsigned long id) const {
  switch (m_documentFilter.column) {
    case FilterColumn::DocumentName:
      return GetItemIdText(id, kDocumentName, 1, 1);
    case FilterColumn::Type:
      return GetItemIdText(id, kType, 1, 1);
    case FilterColumn::FolderName:
      return GetItemIdText(id, kFolderName, 1, 1);
    default:
      return RecordOf(id).relativePath;
  }
}

// --- Documents ---

bool ComparisonList::HasDifferences() const {
  for (int state = 0; state < kFileStates; ++state) {
    const auto counted = static_cast<FileState>(state);
    if (counted != FileState::Same && CountOf(counted) > 0) return true;
  }
  return false;
}

const DocumentRecord* ComparisonList::FocusedDocument() const {
  const int row = GetNextItem(-1, LVNI_FOCUSED);
  return row >= 0 ? &RecordOf(GetItemData(row)) : nullptr;
}

bool ComparisonList::HasDocument(Command side) const {
  const DocumentRecord* const record = FocusedDocument();
  if (record == nullptr) return false;
  return record->state != (side == kOpenBase ? FileState::New : FileState::Deleted);
}

void ComparisonList::DoContextMenu(int row, unsigned long id, MPopupMenu& menu) {
  DirCmpCtrl::DoContextMenu(row, id, menu);
  if (row < 0 || FocusedDocument() == nullptr) return;
  // Below the library's entry, which is on top.
  const auto insert = [&](UINT place, Command command, UINT text) {
    const UINT state = HasDocument(command) ? MF_ENABLED : MF_GRAYED;
    menu.InsertMenu(place, MF_BYPOSITION | MF_STRING | state, FirstUserCommand() + command,
                    MString::Loaded(text));
  };
  insert(1, kOpenBase, IDS_OPEN_BASE);
  insert(2, kOpenRevised, IDS_OPEN_REVISED);
}

void ComparisonList::ExecuteCommand(int command) {
  const DocumentRecord* const record = FocusedDocument();
  if (record == nullptr) return;
  if (command == kOpenBase)
    ViewFile(Comparison()->BasePath(*record));
  else if (command == kOpenRevised)
    ViewFile(Comparison()->RevisedPath(*record));
  else
    DirCmpCtrl::ExecuteCommand(command);
}

int ComparisonList::NewWindow(const char* left, const char* right) {
  if (DirCmpCtrl::NewWindow(left, right)) return 1;
  Message::DisplayErrorMessage(IDS_NO_ANALYSIS);
  return 0;
}

CString ComparisonList::GetNewWindowParams(const char*, const char*) {
  return CompareArgument(OptionsOf(Comparison()->prm()));
}

// --- Work ---

int ComparisonList::RunOperation(MMultiOperation& operation) {
  if (m_isStopped) return 0;
  m_running = &operation;
  const int result = DirCmpCtrl::RunOperation(operation);
  m_running = nullptr;
  if (operation.wasAborted()) m_isStopped = true;
  return result;
}

void ComparisonList::StopWork() {
  m_isStopped = true;
  if (m_running != nullptr) m_running->StopLoop();
}
