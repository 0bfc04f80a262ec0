#include "dircmp/FolderScan.h"

namespace {

bool IsFolder(const CString& path) {
  // A drive's name alone stands for its current folder.
  const DWORD attributes = GetFileAttributesA(path + "\\");
  return !path.IsEmpty() && attributes != INVALID_FILE_ATTRIBUTES &&
         (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}  // namespace

FolderScan::FolderScan(FolderComparison& comparison, Side side)
    : DirectoryOp(side == Side::Base ? comparison.baseFolder() : comparison.revisedFolder(),
                  comparison.prm().m_scanFlags, side == Side::Base ? &AddBase : &AddRevised,
                  &comparison),
      m_comparison(comparison) {}

void FolderScan::DoLoopOperation() {
  DirectoryOp::DoLoopOperation();
  if (m_foldersFound == 0 && m_foldersUnread == 0 && !IsFolder(m_root)) {
    m_comparison.AddProblem(m_root, ERROR_PATH_NOT_FOUND);
  }
}

void FolderScan::StopLoopOperation() { m_comparison.Stop(); }

void FolderScan::FolderNotRead(const char* folder) {
  m_comparison.AddProblem(folder, GetLastError());
}

int FolderScan::AddBase(void* comparison, const char* path) {
  auto& target = *static_cast<FolderComparison*>(comparison);
  target.AddBase(path);
  return !target.IsStopped();
}

int FolderScan::AddRevised(void* comparison, const char* path) {
  auto& target = *static_cast<FolderComparison*>(comparison);
  target.AddRevised(path);
  return !target.IsStopped();
}
