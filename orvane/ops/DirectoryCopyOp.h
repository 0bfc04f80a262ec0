// Copies the files of a folder tree.
#pragma once

#include "ops/DirectoryOp.h"

// DoOperation gives 0 when there is no source, for an empty destination, when a file can't be
// copied, which ends the copying, and when a folder can't be read. Reported are these, too
// (ASSERT).
//
// Folders are created as files come into them: empty ones are not copied, nor are links to folders.
// A file that stands at the target is replaced, a read-only one too, once the new one is whole;
// what can't be copied whole is not left there half. Below source, destination is left out.
class ORVANE_API DirectoryCopyOp : public DirectoryOp {
 public:
  // subfoldersOnly: not 0: the files that stand directly in source are left out.
  DirectoryCopyOp(const char* source, const char* destination, int subfoldersOnly, int recurse);

 protected:
  void DoLoopOperation() override;

  // Copies one file of the source; a derived class that shows its progress does so around it.
  // Not 0: success.
  virtual int CopyOne(const char* path);

 private:
  static int OnFile(void* self, const char* path);
  void ExcludeDestination();

  CString m_destination;
  int m_subfoldersOnly;
};
