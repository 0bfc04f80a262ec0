// The main window: its folders, and the comparison of them.
#include <algorithm>
#include <optional>
#include <utility>

#include "foldercmp/DroppedFolders.h"
#include "foldercmp/FolderPath.h"
#include "foldercmp/HostSettings.h"
#include "foldercmp/HostTexts.h"
#include "foldercmp/ListPlace.h"
#include "foldercmp/MainFrame.h"
#include "foldercmp/OptionsDialog.h"
#include "foldercmp/resource.h"
#include "messages/message.h"
#include "resources/resource.h"

namespace {

constexpr size_t kMostProblemsShown = 10;

CString systemText(DWORD error) {
  char text[512] = "";
  FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                 text, sizeof text, nullptr);
  CString trimmed(text);
  trimmed.TrimRight();
  return trimmed;
}

bool isMenuOpen() {
  GUITHREADINFO info = {};
  info.cbSize = sizeof info;
  constexpr DWORD kInMenu = GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE;
  return GetGUIThreadInfo(GetCurrentThreadId(), &info) && (info.flags & kInMenu) != 0;
}

bool isMissing(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ||
         error == ERROR_INVALID_NAME || error == ERROR_BAD_NETPATH;
}

// What the status bar says of a comparison. Where something could not be read, nobody knows that
// the folders are the same.
UINT resultText(const ComparisonList& list) {
  if (list.WasStopped()) return IDS_STOPPED;
  const FolderComparison* const comparison = list.Comparison();
  const bool isWhole = comparison != nullptr && comparison->problems().empty();
  if (list.HasDifferences() || !isWhole) return IDS_READY;
  return list.CountOf(FileState::Same) > 0 ? IDS_NO_DIFFERENCES : IDS_NO_DOCUMENTS;
}

}  // namespace

// The window knows that a list is being filled while one exists.
class MainFrame::Working {
 public:
  Working(MainFrame& frame, ComparisonList& list) : m_frame(frame) { frame.m_working = &list; }
  ~Working() { m_frame.m_working = nullptr; }
  Working(const Working&) = delete;
  Working& operator=(const Working&) = delete;

 private:
  MainFrame& m_frame;
};

// --- The folders ---

FolderPair MainFrame::TypedPair() const { return {m_base.Folder(), m_revised.Folder()}; }

void MainFrame::ShowPair(const FolderPair& pair) {
  m_base.SetFolder(pair.base);
  m_revised.SetFolder(pair.revised);
}

void MainFrame::ShowRecentPairs() {
  m_base.SetRemembered(m_recent.Folders(&FolderPair::base));
  m_revised.SetRemembered(m_recent.Folders(&FolderPair::revised));
}

void MainFrame::OnChooseBase() {
  m_base.Browse(*this, IDS_CHOOSE_BASE);
  m_base.SetFocus();
}

void MainFrame::OnChooseRevised() {
  m_revised.Browse(*this, IDS_CHOOSE_REVISED);
  m_revised.SetFocus();
}

void MainFrame::OnSwap() {
  const FolderPair pair = TypedPair();
  const bool isCompared = m_list != nullptr && pair.IsSame(m_compared);
  ShowPair({pair.revised, pair.base});
  if (isCompared) Compare();
}

void MainFrame::OnRecent(UINT id) {
  const size_t number = id - ID_RECENT_FIRST;
  if (number >= m_recent.Pairs().size()) return;
  ShowPair(m_recent.Pairs()[number]);
  Compare();
}

// Two folders are a pair. One goes to the box that it is dropped on; elsewhere, to the one that is
// empty, and when none is, it begins a new pair.
FolderPair MainFrame::PairWith(const DroppedFolders& dropped) const {
  const CString& first = dropped.paths.front();
  const FolderPair typed = TypedPair();
  if (dropped.paths.size() == 2) return {first, dropped.paths[1]};
  if (m_base.PlaceIn(*this).PtInRect(dropped.point)) return {first, typed.revised};
  if (m_revised.PlaceIn(*this).PtInRect(dropped.point)) return {typed.base, first};
  if (typed.base.IsEmpty()) return {first, typed.revised};
  if (typed.revised.IsEmpty()) return {typed.base, first};
  return {first, CString()};
}

void MainFrame::OnDropFiles(HDROP drop) {
  const DroppedFolders dropped(drop);
  if (!CanCompare() || dropped.paths.empty()) return;
  SetForegroundWindow();
  if (dropped.paths.size() > 2) {
    Message::DisplayMessage(Message::MSG_INFO, IDS_TOO_MANY_DROPPED);
    return;
  }
  for (const CString& path : dropped.paths) {
    if (FolderError(path) != ERROR_DIRECTORY) continue;
    Message::DisplayMessage(Message::MSG_INFO, IDS_NOT_A_FOLDER, path);
    return;
  }
  const FolderPair pair = PairWith(dropped);
  ShowPair(pair);
  if (!pair.base.IsEmpty() && !pair.revised.IsEmpty()) Compare();
}

bool MainFrame::CheckFolder(FolderBox& box, UINT missingText) {
  const CString folder = box.Folder();
  if (folder.IsEmpty()) {
    Message::DisplayMessage(Message::MSG_INFO, missingText);
  } else if (const DWORD error = FolderError(folder); error == ERROR_DIRECTORY) {
    Message::DisplayErrorMessage(IDS_NOT_A_FOLDER, folder);
  } else if (isMissing(error)) {
    Message::DisplayErrorMessage(IDS_FOLDER_MISSING, folder);
  } else if (error != ERROR_SUCCESS) {
    Message::DisplayErrorMessage(IDS_FOLDER_UNREADABLE, folder, systemText(error));
  } else {
    return true;
  }
  box.SetFocus();
  return false;
}

// --- The comparison ---

LRESULT MainFrame::OnCompareMessage(WPARAM, LPARAM) {
  Compare();
  return 0;
}

void MainFrame::OnCompare() { Compare(); }

void MainFrame::OnOptions() {
  OptionsDialog dialog(this, LoadComparisonOptions(), LoadColourMarking());
  if (dialog.DoModal() != IDOK) return;
  StoreComparisonOptions(dialog.Options());
  StoreColourMarking(dialog.MarksColours());
  if (m_list != nullptr) CompareFolders(m_compared);
}

// The list is not to be replaced under a dialog or menu that works with it.
bool MainFrame::CanCompare() const { return !IsBusy() && IsWindowEnabled() && !isMenuOpen(); }

void MainFrame::Compare() {
  if (!CanCompare()) return;
  if (!CheckFolder(m_base, IDS_NO_BASE) || !CheckFolder(m_revised, IDS_NO_REVISED)) return;
  const FolderPair pair = TypedPair();
  ShowPair(pair);
  CompareFolders(pair);
}

void MainFrame::CompareFolders(const FolderPair& pair) {
  auto list = std::make_unique<ComparisonList>();
  if (!list->Create(*this, IDC_NEW_LIST, m_metrics.Font())) return;
  list->SetDocumentFilter(m_filterBar.Filter());
  {
    const Working working(*this, *list);
    list->InitList(pair.base, pair.revised, LoadComparisonOptions());
  }
  if (m_closesWhenDone) {
    PostMessage(WM_CLOSE);
    return;
  }
  const FolderPair swapped = {pair.revised, pair.base};
  const bool isRepeated =
      m_list != nullptr && (pair.IsSame(m_compared) || swapped.IsSame(m_compared));
  m_compared = pair;
  m_recent.Add(pair);
  ShowRecentPairs();
  // The user may have changed the filter meanwhile.
  list->SetDocumentFilter(m_filterBar.Filter());
  ShowList(std::move(list), isRepeated);
  ShowResult();
  ReportProblems();
}

// The new list lies behind the old one until that goes, so that nothing else is seen between them.
void MainFrame::ShowList(std::unique_ptr<ComparisonList> list, bool isRepeated) {
  const std::unique_ptr<ComparisonList> old = std::exchange(m_list, std::move(list));
  std::optional<ListPlace> place;
  if (old != nullptr) {
    place.emplace(*old);
    place->RestoreLayout(*m_list);
    old->SetDlgCtrlID(IDC_NEW_LIST);
  }
  m_list->SetDlgCtrlID(AFX_IDW_PANE_FIRST);
  RecalcLayout();
  if (!place) m_list->SetFirstLayout();
  if (place && isRepeated) place->RestoreRows(*m_list);
  m_list->ShowWindow(SW_SHOWNA);
  m_hint.ShowWindow(SW_HIDE);
  if (!m_filterBar.HasTextFocus()) m_list->SetFocus();
}

void MainFrame::ShowResult() {
  CString base = FolderName(m_compared.base), revised = FolderName(m_compared.revised);
  if (base.CompareNoCase(revised) == 0) {
    base = m_compared.base;
    revised = m_compared.revised;
  }
  SetWindowText(FilledText(IDS_TITLE, base, revised, AfxGetAppName()));
  m_statusText = MString::Loaded(resultText(*m_list));
  m_status.ShowCounts(m_list.get(), m_metrics);
  SetMessageText(AFX_IDS_IDLEMESSAGE);
}

void MainFrame::ReportProblems() {
  if (m_list->Comparison() == nullptr) return;
  const auto& problems = m_list->Comparison()->problems();
  if (problems.empty()) return;
  CString text = FilledText(IDS_PROBLEMS, static_cast<int>(problems.size()));
  for (size_t i = 0; i < std::min(problems.size(), kMostProblemsShown); ++i)
    text += "\n" + CString(problems[i].path.c_str()) + ": " + systemText(problems[i].error);
  if (problems.size() > kMostProblemsShown)
    text += FilledText(IDS_MORE_PROBLEMS, static_cast<int>(problems.size() - kMostProblemsShown));
  Message(Message::MSG_WARNING, text).DoModal();
}
