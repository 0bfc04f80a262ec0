#include "zip/UnZipOp.h"

#include "diag/trace.h"
#include "entry/strutils.h"
#include "zip/FolderTarget.h"

CUnZipOp::CUnZipOp(const char* archiveName, const char* targetFolder)
    : m_archiveName(archiveName), m_targetFolder(targetFolder) {
  UnZipInit();
}

CUnZipOp::~CUnZipOp() {
  if (m_archive != nullptr) CloseZipU(m_archive);
}

void CUnZipOp::UnZipInit() {
  m_count = GetNumberOfFilesInZip();
  SetRange(0, static_cast<unsigned>(m_count));
  SetMessage("Uzipping...");  // hosts know the text as it stands, by design
  SetShowProgress(1);
}

int CUnZipOp::DoOperation(int interactive) {
  return m_count == 0 ? 0 : MMultiOperation::DoOperation(interactive);
}

int CUnZipOp::GetFileList(CArray<CString, const char*>& files) {
  files.RemoveAll();
  const int count = GetNumberOfFilesInZip();
  if (m_archive == nullptr) return 0;
  const CString begin = EntryPathBegin(m_targetFolder);
  for (int i = 0; i < count; ++i) {
    if (GetZipItemA(m_archive, i, &m_entry) != kZipOk) m_entry.name[0] = 0;
    files.Add(begin + WithBackslashes(m_entry.name));
  }
  return 1;
}

int CUnZipOp::GetNumberOfFilesInZip() {
  if (m_archive == nullptr) m_archive = OpenZipU(m_archiveName, 0, kZipFileName, m_targetFolder);
  const bool counted = m_archive != nullptr && GetZipItemA(m_archive, -1, &m_entry) == kZipOk;
  return counted ? m_entry.index : 0;
}

OperationReturnState CUnZipOp::Operation(unsigned int index) {
  CString path;
  VERIFY(ExtractBelow(m_archive, static_cast<int>(index), EntryPathBegin(m_targetFolder), path) ==
         kZipOk);
  return OperationDone;
}
