#include "ops/DirectoryCopyOp.h"

#include "entry/DestinationFile.h"
#include "entry/PathUtils.h"
#include "entry/strutils.h"
#include "ops/FolderEntries.h"
#include "ops/TreeFiles.h"
#include "ops/TreePaths.h"
#include "ops/TreeReports.h"

namespace {

// A walk mostly finds the folder above there already, and looking for all of them takes longer than
// copying a small file.
void CreateFolderOf(const char* file) {
  CString folder, name;
  SplitAtLastBackslash(file, folder, name);
  if (!CreateDirectoryA(folder, nullptr)) EnsureFileFolder(file);
}

// Copies to where nothing stands. The copy has the source's times and attributes.
bool CopyNew(const char* source, const char* target) {
  if (CopyFileA(source, target, TRUE)) return true;
  if (GetLastError() == ERROR_PATH_NOT_FOUND) {
    CreateFolderOf(target);
    if (CopyFileA(source, target, TRUE)) return true;
  }
  const DWORD error = GetLastError();
  // Not every system removes what it has copied of a file when the disk is full.
  const DWORD left = GetFileAttributesA(target);
  if (left != INVALID_FILE_ATTRIBUTES && error != ERROR_FILE_EXISTS) DeleteTreeFile(target, left);
  return false;
}

// A file beside the target until it has taken its place.
class FileBeside {
 public:
  explicit FileBeside(const char* target) : m_isThere(MakeFileBeside(target, "cpy", m_path)) {}
  ~FileBeside() {
    if (!m_isThere) return;
    SetFileAttributesA(m_path, FILE_ATTRIBUTE_NORMAL);  // those of the source have come along
    DeleteFileA(m_path);
  }
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;

  explicit operator bool() const { return m_isThere; }
  const char* path() const { return m_path; }
  bool TakePlaceOf(const char* target) {
    m_isThere = !MoveFileExA(m_path, target, MOVEFILE_REPLACE_EXISTING);
    return !m_isThere;
  }

 private:
  char m_path[MAX_PATH];
  bool m_isThere;
};

// Copies over a file by way of a new one beside it.
bool CopyOver(const char* source, const char* target, DWORD targetAttributes) {
  if (targetAttributes & FILE_ATTRIBUTE_DIRECTORY) return false;
  FileBeside beside(FullPathOf(target));
  if (!beside || !CopyFileA(source, beside.path(), FALSE)) return false;
  if (targetAttributes & FILE_ATTRIBUTE_READONLY) SetTreeFileReadOnly(target, false);
  if (beside.TakePlaceOf(target)) return true;
  REPORT_TREE_FAILURE("File not replaced", target);
  if (targetAttributes & FILE_ATTRIBUTE_READONLY) SetTreeFileReadOnly(target, true);
  return false;
}

}  // namespace

DirectoryCopyOp::DirectoryCopyOp(const char* source, const char* destination, int subfoldersOnly,
                                 int recurse)
    : DirectoryOp(source, recurse, &OnFile, this),
      m_destination(WithBackslashes(destination)),
      m_subfoldersOnly(subfoldersOnly) {
  ExcludeDestination();
}

// A copy that stands in its own source would otherwise be copied again and again.
void DirectoryCopyOp::ExcludeDestination() {
  const CString destination = ComparedPath(m_destination);
  const char* const below = PathBelow(ComparedPath(m_root), destination);
  if (below != nullptr) ExcludeDir(m_root + below);
}

void DirectoryCopyOp::DoLoopOperation() {
  const DWORD attributes = GetFileAttributesA(m_root);
  const bool isFolder =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  // A destination without a name would be the root of the current drive.
  if (!isFolder || m_destination.IsEmpty()) {
    REPORT_TREE_FAILURE(isFolder ? "No destination" : "No folder to copy", m_root);
    m_failed = 1;
    return;
  }
  DirectoryOp::DoLoopOperation();
  if (m_foldersUnread > 0) m_failed = 1;
}

int DirectoryCopyOp::OnFile(void* self, const char* path) {
  auto* const copy = static_cast<DirectoryCopyOp*>(self);
  if (copy->CopyOne(path) != 0) return 1;
  copy->m_failed = 1;
  return 0;
}

int DirectoryCopyOp::CopyOne(const char* path) {
  const char* const relative = path + m_root.GetLength();
  if (m_subfoldersOnly != 0 && CString(relative).Find('\\', 1) < 0) return 1;
  const CString target = m_destination + relative;
  const DWORD targetAttributes = GetFileAttributesA(target);
  const bool copied = targetAttributes == INVALID_FILE_ATTRIBUTES
                          ? CopyNew(path, target)
                          : CopyOver(path, target, targetAttributes);
  if (!copied) {
    REPORT_TREE_FAILURE("File not copied", path);
    return 0;
  }
  // The attributes come along with the bytes, but not on every system.
  if (m_fileAttributes & FILE_ATTRIBUTE_READONLY) SetTreeFileReadOnly(target, true);
  return 1;
}
