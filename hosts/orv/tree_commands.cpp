// The commands that work on folder trees as they are.
#include <afxwin.h>

#include <cstdio>
#include <cstring>

#include "commands.h"
#include "operation_run.h"
#include "ops/DirOp.h"
#include "util/pathutils.h"
#include "zip_messages.h"

namespace {

bool IsThere(const char* folder) {
  if (IsFolder(folder)) return true;
  Complain(folder, "there is no such folder");
  return false;
}

// Copies on after a file that can't be copied.
class CopyOperation : public DirectoryCopyOp {
 public:
  CopyOperation(const char* source, const char* destination)
      : DirectoryCopyOp(source, destination, 0, 1) {
    StopLoopOnFailure(0);
    SetTitle("Copying", destination);
  }

  int copied() const { return m_copied; }

 protected:
  int CopyOne(const char* path) override {
    const int result = DirectoryCopyOp::CopyOne(path);
    m_copied += result != 0;
    if (result == 0) Complain(path, "can't be copied");
    ShowProgress("copying", m_current, m_end);
    return result;
  }

 private:
  int m_copied = 0;
};

class TreeLister : public DirectoryOp {
 public:
  explicit TreeLister(const char* folder) : DirectoryOp(folder, 1, &PrintFile, this) {
    SetNoGui(1);
  }

  bool PrintAll() {
    DoOperation(0);
    fprintf(stderr, "%d files in %d folders\n", m_files, static_cast<int>(m_foldersFound));
    return m_foldersUnread == 0;
  }

 private:
  static int PrintFile(void* self, const char* path) {
    auto* const lister = static_cast<TreeLister*>(self);
    ++lister->m_files;
    puts(path + lister->m_root.GetLength() + 1);
    return 1;
  }

  int m_files = 0;
};

}  // namespace

int TreeCommand(int count, char** arguments) {
  if (!IsThere(arguments[0])) return kFailed;
  TreeLister lister(arguments[0]);
  if (count > 1) lister.SetFilterExt(arguments[1]);
  if (lister.PrintAll()) return kDone;
  Complain(arguments[0], "some folders can't be read");
  return kFailed;
}

int CopyCommand(int, char** arguments) {
  if (!IsThere(arguments[0])) return kFailed;
  CopyOperation copy(arguments[0], arguments[1]);
  const bool good = RunOperation(copy) != 0 && !copy.wasAborted();
  fprintf(stderr, "%d files copied%s\n", copy.copied(), good ? "" : ", not all");
  return good ? kDone : kFailed;
}

int CleanCommand(int count, char** arguments) {
  const bool byMask = strcmp(arguments[1], "--mask") == 0;
  if (byMask != (count == 3)) return kWrongUsage;
  if (!IsThere(arguments[0])) return kFailed;
  const int result = byMask ? DirectoryCleanupMask(arguments[0], arguments[2])
                            : DirectoryCleanup(arguments[0], arguments[1], 1, 0);
  if (result != 0) return kDone;
  Complain(arguments[0], byMask ? "nothing matches, or not everything could be deleted"
                                : "not everything could be deleted");
  return kFailed;
}

int SizeCommand(int, char** arguments) {
  if (!IsThere(arguments[0])) return kFailed;
  unsigned long size, files;
  if (CalculateDirectorySize(arguments[0], size, files, 1) == 0) {
    Complain(arguments[0], files == 0xFFFFFFFF ? "4 GiB or more" : "a folder can't be read");
    return kFailed;
  }
  printf("%lu\t%lu\n", size, files);
  return kDone;
}
