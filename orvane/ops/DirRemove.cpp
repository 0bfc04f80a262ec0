// Deleting: whole trees, and entries of a name or a mask.
#include "entry/strutils.h"
#include "markup/NoException.h"
#include "ops/DirOp.h"
#include "ops/FolderEntries.h"
#include "ops/TreeFiles.h"
#include "ops/TreeReports.h"

namespace {

bool IsEmptyText(const char* text) { return text == nullptr || *text == 0; }

// Whether what could not be opened is worth a report: a folder that somebody else has removed
// meanwhile is not.
bool ReportUnread(const FolderEntries& entries, const char* folder) {
  if (entries.Unreadable()) REPORT_TREE_FAILURE("Folder not read", folder);
  return entries.Unreadable();
}

// Deletes what a folder holds, as far as it can be. False when the folder could not be opened.
bool EmptyFolder(const CString& folder, bool recurse) {
  FolderEntries entries(folder);
  while (entries.Next()) {
    const CString path = entries.Path();
    if (!entries.IsFolder()) {
      DeleteTreeFile(path, entries.Data().dwFileAttributes);
    } else if (recurse && entries.IsLink()) {
      RemoveTreeLink(path);
    } else if (recurse) {
      EmptyFolder(path, true);
      RemoveTreeFolder(path);
    }
  }
  ReportUnread(entries, folder);
  return entries.Opened();
}

bool CleanFolder(const CString& folder, const char* name, int recurse, bool& opened) {
  bool isClean = true;
  FolderEntries entries(folder);
  opened = entries.Opened();
  while (entries.Next()) {
    const CString path = entries.Path();
    const bool isMeant = CString(entries.Name()).CompareNoCase(name) == 0;
    if (!entries.IsFolder()) {
      if (isMeant) isClean &= DeleteTreeFile(path, entries.Data().dwFileAttributes);
    } else if (isMeant) {
      isClean &= RemoveDirectoryA(path, recurse) != 0;
    } else if (recurse != 0 && !entries.IsLink()) {
      bool subfolderOpened;
      isClean &= CleanFolder(path, name, recurse, subfolderOpened);
    }
  }
  return !ReportUnread(entries, folder) && isClean;
}

bool CleanMask(const char* folder, const char* mask) {
  // With a folder in it, the names that it finds would be looked for in the wrong one.
  CString maskFolder, maskName;
  SplitAtLastBackslash(WithBackslashes(mask), maskFolder, maskName);
  if (!maskName.IsEmpty()) {
    REPORT_TREE_FAILURE("Mask with a folder", mask);
    return false;
  }
  bool isClean = true;
  FolderEntries entries(folder, mask);
  while (entries.Next()) {
    if (!entries.IsFolder())
      isClean &= DeleteTreeFile(entries.Path(), entries.Data().dwFileAttributes);
  }
  return !ReportUnread(entries, folder) && entries.Opened() && isClean;
}

}  // namespace

int RemoveDirectoryA(const char* path, int recurse) {
  return WithoutException([&] {
    if (IsFolderLink(path)) return RemoveTreeLink(path);
    // What could not be deleted keeps the folder from being removed.
    return EmptyFolder(path, recurse != 0) && RemoveTreeFolder(path);
  });
}

int DirectoryCleanup(const char* folder, const char* name, int recurse, int) {
  if (IsEmptyText(name)) return 0;
  return WithoutException([&] {
    bool opened;
    return CleanFolder(folder, name, recurse, opened) && opened;
  });
}

int DirectoryCleanupMask(const char* folder, const char* mask) {
  if (IsEmptyText(mask)) return 0;
  return WithoutException([&] { return CleanMask(folder, mask); });
}
