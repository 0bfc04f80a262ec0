// The walk through one folder of a comparison, as an operation.
#pragma once

#include "dircmp/FolderComparison.h"
#include "ops/DirectoryOp.h"

// Adds the folder's files to the comparison, which is to outlive it; a stop of either is the
// other's. Folders that can't be read, and a root that is none, are the comparison's problems.
class FolderScan : public DirectoryOp {
 public:
  enum class Side { Base, Revised };  // in this order

  FolderScan(FolderComparison& comparison, Side side);

 protected:
  void DoLoopOperation() override;
  void StopLoopOperation() override;
  void FolderNotRead(const char* folder) override;

 private:
  static int AddBase(void* comparison, const char* path);
  static int AddRevised(void* comparison, const char* path);

  FolderComparison& m_comparison;
};
