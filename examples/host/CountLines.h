// Counts the lines of text files behind a progress window.
#pragma once

#include <afxtempl.h>

#include <vector>

#include "ops/MultiOp.h"

using FileNames = CArray<CString, const char*>;

// A file a step. The user may stop it: what was counted until then stays.
class CountLines : public MMultiOperation {
 public:
  enum { kNotCounted = -1 };

  // files stays the caller's and must outlive the operation.
  explicit CountLines(const FileNames& files);

  // By the number of the file.
  const std::vector<int>& Lines() const { return m_lines; }

 protected:
  OperationReturnState Operation(unsigned index) override;

 private:
  const FileNames& m_files;
  std::vector<int> m_lines;
};
