// A file that is there for a scope.
#pragma once

#include "entry/PathUtils.h"

// Deletes a file at the end of the scope, however that is left. It may be gone by then.
class ScopedFile {
 public:
  explicit ScopedFile(const CString& path) : m_path(path) {}
  ~ScopedFile() { ForceDeleteFile(m_path); }
  ScopedFile(const ScopedFile&) = delete;
  ScopedFile& operator=(const ScopedFile&) = delete;

 private:
  const CString m_path;
};
