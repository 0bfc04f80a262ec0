// Moving a tree.
#include "entry/PathUtils.h"
#include "entry/strutils.h"
#include "markup/NoException.h"
#include "ops/DirOp.h"
#include "ops/FolderEntries.h"
#include "ops/TreeFiles.h"
#include "ops/TreePaths.h"
#include "ops/TreeReports.h"

namespace {

bool Refuse(const char* why, const char* path) {
  REPORT_TREE_FAILURE(why, path);
  return false;
}

// What a move is to keep of an entry.
class EntryMarks {
 public:
  explicit EntryMarks(const char* path)
      : m_known(GetFileAttributesExA(path, GetFileExInfoStandard, &m_data) != FALSE) {}

  // To the folder or file that has arrived at path.
  void GiveTo(const char* path) const {
    if (!m_known) return;
    const bool given = GiveTimes(path) && SetFileAttributesA(path, m_data.dwFileAttributes);
    if (!given) REPORT_TREE_FAILURE("Times and permission not kept", path);
  }

  // Whether the entry at path has them, as far as a move may lose them.
  bool AreThoseOf(const char* path) const {
    const EntryMarks other(path);
    return m_known && other.m_known && m_data.dwFileAttributes == other.m_data.dwFileAttributes &&
           CompareFileTime(&m_data.ftLastWriteTime, &other.m_data.ftLastWriteTime) == 0;
  }

  bool IsReadOnly() const {
    return m_known && (m_data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
  }

 private:
  bool GiveTimes(const char* path) const {
    const unique_file file(CreateFileA(
        path, FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return file && SetFileTime(file.get(), &m_data.ftCreationTime, &m_data.ftLastAccessTime,
                               &m_data.ftLastWriteTime);
  }

  WIN32_FILE_ATTRIBUTE_DATA m_data;
  bool m_known;
};

// A move to another disk copies, and what it has copied of the file may be left. What stood at the
// new place before is not that: a name that differs in letter case only, for example.
void RemoveHalfMoved(const char* from, const char* to, DWORD error) {
  if (error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS) return;
  const DWORD stayed = GetFileAttributesA(from), left = GetFileAttributesA(to);
  if (stayed != INVALID_FILE_ATTRIBUTES && left != INVALID_FILE_ATTRIBUTES)
    DeleteTreeFile(to, left);
}

bool MoveTreeFile(const char* from, const char* to) {
  const EntryMarks marks(from);
  // A read-only file would be left behind at its old place when the move goes to another disk.
  if (marks.IsReadOnly() && !SetTreeFileReadOnly(from, false)) return false;
  const bool canAct = CanActOnFile(from);
  if (canAct && MoveFileA(from, to)) {
    if (!marks.AreThoseOf(to)) marks.GiveTo(to);
    return true;
  }
  const DWORD error = GetLastError();
  REPORT_TREE_FAILURE("File not moved", from);
  if (canAct) RemoveHalfMoved(from, to, error);
  if (marks.IsReadOnly()) SetTreeFileReadOnly(from, true);
  return false;
}

bool MoveTreeLink(const char* from, const char* to) {
  if (CanActOnFolderLink(from) && MoveFileA(from, to)) return true;
  REPORT_TREE_FAILURE("Link to a folder not moved", from);
  return false;
}

// Moves what a folder holds. False when something has stayed at the old place.
bool MoveEntries(const CString& from, const CString& to);

bool MoveTreeFolder(const CString& from, const CString& to) {
  const EntryMarks marks(from);
  if (!CreateDirectoryA(to)) return Refuse("Folder not created", to);
  const bool whole = MoveEntries(from, to);
  marks.GiveTo(to);
  return whole && RemoveTreeFolder(from);
}

bool MoveEntries(const CString& from, const CString& to) {
  bool whole = true;
  FolderEntries entries(from);
  while (entries.Next()) {
    const CString path = entries.Path();
    const CString target = to + "\\" + entries.Name();
    if (!entries.IsFolder())
      whole &= MoveTreeFile(path, target);
    else if (entries.IsLink())
      whole &= MoveTreeLink(path, target);
    else
      whole &= MoveTreeFolder(path, target);
  }
  if (entries.Opened() && !entries.Unreadable()) return whole;
  return Refuse("Folder not read", from);
}

// The same folder under a name that differs in letter case, or not at all.
bool RenameToItself(const char* oldFolder, const char* newFolder) {
  const CString oldPath = FullFolderOf(oldFolder);
  const CString newPath = FullFolderOf(newFolder);
  const bool otherCase = oldPath != newPath && ComparedPath(oldPath) == ComparedPath(newPath);
  if (!otherCase) return true;
  if (IsFolderLink(oldPath)) return MoveTreeLink(oldPath, newPath);
  return MoveFileA(oldPath, newPath) || Refuse("Letter case not changed", oldFolder);
}

bool Rename(const char* oldFolder, const char* newFolder) {
  if (oldFolder == nullptr || newFolder == nullptr || *oldFolder == 0 || *newFolder == 0)
    return false;
  const bool isLink = IsFolderLink(oldFolder);
  if (!isLink && !IsRealFolder(oldFolder)) return Refuse("No folder to rename", oldFolder);
  if (ComparedPath(oldFolder) == ComparedPath(newFolder))
    return RenameToItself(oldFolder, newFolder);
  if (!isLink && IsSameFolder(oldFolder, newFolder)) return RenameToItself(oldFolder, newFolder);
  if (!isLink && HoldsFolder(oldFolder, newFolder))
    return Refuse("A folder can't be moved into itself", newFolder);
  if (HoldsFolder(newFolder, oldFolder))
    return Refuse("A folder can't take the place of the one that holds it", newFolder);

  const DWORD attributes = GetFileAttributesA(newFolder);
  if (attributes != INVALID_FILE_ATTRIBUTES) {
    if (RemoveDirectoryA(newFolder, 1) == 0)
      return Refuse("What stands there can't be removed", newFolder);
  } else {
    EnsureFileFolder(newFolder);
  }
  return isLink ? MoveTreeLink(oldFolder, newFolder) : MoveTreeFolder(oldFolder, newFolder);
}

}  // namespace

int DirectoryRename(const char* oldFolder, const char* newFolder) {
  return WithoutException([&] { return Rename(oldFolder, newFolder); });
}
