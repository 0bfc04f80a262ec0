// What is said of, or done to, every file of a tree.
#include <cstdint>
#include <limits>

#include "markup/NoException.h"
#include "ops/DirOp.h"
#include "ops/FolderEntries.h"
#include "ops/TreeFiles.h"
#include "ops/TreeReports.h"

namespace {

enum class FolderState { kRead, kGone, kUnread };

// Calls onFile with the entry of every file of a tree. It returns whether to go on.
template <class OnFile>
FolderState ForEachFile(const CString& folder, bool recurse, bool& goOn, const OnFile& onFile) {
  bool whole = true;
  FolderEntries entries(folder);
  while (goOn && entries.Next()) {
    if (!entries.IsFolder())
      goOn = onFile(entries);
    else if (recurse && !entries.IsLink())
      whole &= ForEachFile(entries.Path(), true, goOn, onFile) != FolderState::kUnread;
  }
  if (entries.Unreadable()) REPORT_TREE_FAILURE("Folder not read", folder);
  if (entries.Unreadable() || !whole) return FolderState::kUnread;
  return entries.Opened() ? FolderState::kRead : FolderState::kGone;
}

// The same from the root: true when it and all below it could be read. A sub-folder that somebody
// else removes meanwhile counts as read.
template <class OnFile>
bool ForEachFile(const char* folder, bool recurse, const OnFile& onFile) {
  bool goOn = true;
  return ForEachFile(folder, recurse, goOn, onFile) == FolderState::kRead;
}

}  // namespace

int SetReadOnlyDir(const char* folder, int readOnly, int recurse) {
  return WithoutException([&] {
    bool all = true;
    const bool whole = ForEachFile(folder, recurse != 0, [&](const FolderEntries& file) {
      all &= SetTreeFileReadOnly(file.Path(), readOnly != 0);
      return true;
    });
    return whole && all;
  });
}

int CalculateDirectorySize(const char* folder, unsigned long& size, unsigned long& fileCount,
                           int recurse) {
  constexpr unsigned long kTooLarge = std::numeric_limits<unsigned long>::max();
  uint64_t sum = 0;
  fileCount = 0;
  const int whole = WithoutException([&] {
    return ForEachFile(folder, recurse != 0, [&](const FolderEntries& file) {
      ++fileCount;
      sum += uint64_t{file.Data().nFileSizeHigh} << 32 | file.Data().nFileSizeLow;
      return sum <= kTooLarge;
    });
  });
  size = static_cast<unsigned long>(sum);
  if (sum <= kTooLarge) return whole;
  size = fileCount = kTooLarge;
  return 0;
}

int GetDirectoryFiles(CArray<CString, const char*>& files, const char* folder,
                      const CStrMap<int>& excluded) {
  return WithoutException([&] {
    return ForEachFile(folder, true, [&](const FolderEntries& file) {
      CString path = file.Path();
      path.MakeLower();
      int found;
      if (!excluded.Lookup(path, found)) files.Add(path);
      return true;
    });
  });
}
