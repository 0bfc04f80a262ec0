#include "ops/DirectoryOp.h"

#include "ops/FolderEntries.h"
#include "ops/TreeReports.h"
#include "resources/resource.h"
#include "settings/MString.h"

namespace {

constexpr unsigned kPercents = 100;
constexpr OperationReturnState kNotAnItem = static_cast<OperationReturnState>(4);

CString LowerCase(const char* text) {
  CString result(text);
  result.MakeLower();
  return result;
}

CString ScanningMessage() {
  MString message;
  return message.LoadString(IDS_SCANNING_FOLDERS) ? CString(message)
                                                  : CString("Scanning folders...");
}

}  // namespace

DirectoryOp::DirectoryOp(const char* root, int recurse, DirectoryOpCallback callback, void* context)
    : MMultiOperation(0, kPercents),
      m_root(root),
      m_recurse(recurse),
      m_callback(callback),
      m_context(context),
      m_wildcard("*.*") {
  SetMessage(ScanningMessage());
}

void DirectoryOp::ExcludeDir(const char* path) { AddToDirMap(m_folderSet, path); }

void DirectoryOp::SetFilterExt(const char* ext) { m_filterExt = LowerCase(ext); }

void DirectoryOp::SetWildcard(const char* pattern) { m_wildcard = pattern; }

void DirectoryOp::StopLoopOnFailure(int stop) { m_stopOnFailure = stop; }

void DirectoryOp::AddToDirMap(CStrMap<int>& map, const char* path) {
  map.SetAt(LowerCase(path), 0);
}

void DirectoryOp::DoLoopOperation() {
  m_workerThreadId = GetCurrentThreadId();
  WalkFolder(m_root);
}

OperationReturnState DirectoryOp::Operation(unsigned int) { return kNotAnItem; }

void DirectoryOp::FolderNotRead(const char*) {}

void DirectoryOp::WalkFolder(const CString& folder) {
  const CString key = LowerCase(folder);
  int found;
  if (m_folderSet.Lookup(key, found)) return;
  m_folderSet.SetAt(key, 0);

  if (m_wildcard.IsEmpty()) REPORT_TREE_FAILURE("Empty wildcard", folder);
  FolderEntries entries(folder, m_wildcard);
  m_foldersFound += entries.Opened();
  while (m_aborted == 0 && entries.Next()) {
    if (!entries.IsFolder()) {
      if (!PassesFilter(entries.Name())) continue;
      m_fileAttributes = entries.Data().dwFileAttributes;
      if (m_callback(m_context, entries.Path()) == 0 && m_stopOnFailure != 0) m_aborted = 1;
    } else if (m_recurse != 0 && entries.IsRealFolder()) {
      WalkFolder(entries.Path());
    }
  }
  if (entries.Unreadable()) {
    const DWORD error = GetLastError();
    ++m_foldersUnread;
    REPORT_TREE_FAILURE("Folder not read", folder);
    SetLastError(error);
    FolderNotRead(folder);
  }
  if (!entries.Opened()) return;
  ++m_foldersFinished;
  m_current =
      static_cast<unsigned>(m_foldersFinished * static_cast<int>(kPercents) / m_foldersFound);
}

// The extension is what follows the last dot of the name.
bool DirectoryOp::PassesFilter(const char* name) const {
  if (m_filterExt.IsEmpty()) return true;
  const CString lower = LowerCase(name);
  const int dot = lower.ReverseFind('.');
  return dot >= 0 && lower.Mid(dot + 1) == m_filterExt;
}
