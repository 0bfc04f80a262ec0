// Opening and analysing documents.
#include "controls/MFileViewButton.h"
#include "controls/MPopupMenu.h"
#include "diag/trace.h"
#include "dircmp/DirCmpCtrl.h"
#include "dircmp/DocumentCopy.h"
#include "entry/Handles.h"
#include "messages/message.h"
#include "resources/resource.h"

namespace {

constexpr int kOpenCommand = 0;

// The path below a folder, without regard to letter case; empty: it is not below it.
CString pathBelow(const CString& folder, const CString& path) {
  const CString start = folder + "\\";
  const bool isBelow = lstrcmpiA(path.Left(start.GetLength()), start) == 0;
  return isBelow ? path.Mid(start.GetLength()) : CString();
}

CString titleOf(const CString& displayName, const CString& folder, const CString& path) {
  const CString below = pathBelow(folder, path);
  return below.IsEmpty() ? path : displayName + "->\\" + below;
}

// An argument of a command line. Paths can't hold quotation marks, and titles don't end in a
// backslash, which would take away the meaning of the one that follows.
CString quoted(CString text) {
  text.Replace('"', '\'');
  return "\"" + text + "\"";
}

}  // namespace

void DirCmpCtrl::DoContextMenu(int, unsigned long id, MPopupMenu& menu) {
  if (!IsDocument(id)) return;
  const CString text =
      MString::Loaded(RecordOf(id).state == FileState::Modified ? IDS_ANALYZE : IDS_OPEN);
  if (menu.GetCount() > 0) menu.InsertMenu(0, MF_BYPOSITION | MF_SEPARATOR);
  menu.InsertMenu(0, MF_BYPOSITION | MF_STRING, FirstUserCommand() + kOpenCommand, text);
  menu.SetDefaultItem(FirstUserCommand() + kOpenCommand);
}

void DirCmpCtrl::ExecuteCommand(int command) {
  if (command == kOpenCommand) OpenCommand(0);
}

void DirCmpCtrl::OpenCommand(unsigned long id) {
  if (id == 0) id = GetSelectedItem(1);
  if (!IsDocument(id)) return;
  const DocumentRecord& record = RecordOf(id);
  const CString base = m_comparison->BasePath(record), revised = m_comparison->RevisedPath(record);
  if (record.state == FileState::Modified) {
    const bool isSwapped =
        m_comparison->prm().m_olderOnLeft != 0 && record.baseModified > record.revisedModified;
    NewWindow(isSwapped ? revised : base, isSwapped ? base : revised);
    return;
  }
  // A document that was not evaluated may be in one folder only, whichever it is.
  const bool isInBase = record.state != FileState::New &&
                        (record.isEvaluated || GetFileAttributes(base) != INVALID_FILE_ATTRIBUTES);
  ViewFile(isInBase ? base : revised);
}

int DirCmpCtrl::NewWindow(const char* left, const char* right) {
  if (m_comparison == nullptr) return 0;
  // One folder may stand in the other, so that both paths are below it.
  const CString leftBelow = pathBelow(FolderOfSide(true), left);
  const bool isSwapped =
      leftBelow.IsEmpty() || leftBelow.CompareNoCase(pathBelow(FolderOfSide(false), right)) != 0;
  char program[MAX_PATH];
  const DWORD length = GetModuleFileNameA(nullptr, program, MAX_PATH);
  CString parameters = GetNewWindowParams(left, right);
  if (!parameters.IsEmpty()) parameters += " ";
  const CString commandLine = quoted(program) + " Diff " + parameters + quoted(left) + " " +
                              quoted(right) + " " + quoted(TitleOfSide(!isSwapped, left)) + " " +
                              quoted(TitleOfSide(isSwapped, right));
  const int isStarted = length < MAX_PATH && StartProgram(program, commandLine);
  VERIFY(isStarted);
  return isStarted;
}

CString DirCmpCtrl::GetNewWindowParams(const char*, const char*) { return {}; }

int DirCmpCtrl::StartProgram(const char* program, const char* commandLine) {
  CString line = commandLine;  // which the system may write to
  STARTUPINFOA start = {};
  start.cb = sizeof start;
  PROCESS_INFORMATION process = {};
  const BOOL isStarted = CreateProcessA(program, line.GetBuffer(0), nullptr, nullptr, FALSE, 0,
                                        nullptr, nullptr, &start, &process);
  const unique_kernel_handle handle(process.hProcess), thread(process.hThread);
  return isStarted != FALSE;
}

CString DirCmpCtrl::FolderOfSide(bool isBase) const {
  return isBase ? m_comparison->baseFolder() : m_comparison->revisedFolder();
}

CString DirCmpCtrl::TitleOfSide(bool isBase, const char* path) const {
  return titleOf(isBase ? m_baseName : m_revisedName, FolderOfSide(isBase), path);
}

// One folder may stand in the other: the one with the name goes first.
CString DirCmpCtrl::GetTitle(const char* displayName, const char* path) const {
  if (m_comparison == nullptr) return path;
  const CString name(displayName);
  const bool isRevised = m_revisedName == name && m_baseName != name;
  for (const bool isBase : {!isRevised, isRevised}) {
    const CString folder = FolderOfSide(isBase);
    if (!pathBelow(folder, path).IsEmpty()) return titleOf(name, folder, path);
  }
  return path;
}

int DirCmpCtrl::ViewFile(const char* path) {
  MFileViewButton file(path);
  if (file.Open()) return 1;
  if (m_hWnd != nullptr) Message::DisplayErrorMessage(IDS_DOCUMENT_NOT_OPENED, path);
  return 0;
}

int DirCmpCtrl::CopyFileA(const char* source, const char* destination) const {
  return CopyDocument(source, destination);
}
