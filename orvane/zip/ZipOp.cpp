#include "zip/ZipOp.h"

#include <algorithm>

#include "diag/trace.h"
#include "entry/PathUtils.h"
#include "entry/ScopedFile.h"
#include "entry/SetGetCurrentDir.h"
#include "util/pathutils.h"
#include "zip/ZipArchive.h"

namespace {

bool EqualsIgnoringCase(const CString& one, const CString& other) {
  CString first = one, second = other;
  first.MakeLower();
  second.MakeLower();
  return first == second;
}

}  // namespace

ZipOp::ZipOp(const CArray<CString, const char*>& files, const char* rootPath,
             unsigned long sizeLimit)
    : MMultiOperation(0, static_cast<unsigned>(files.GetSize())),
      m_sizeLimit(sizeLimit),
      m_rootPath(rootPath),
      m_files(files) {}

ZipOp::~ZipOp() { DropArchive(); }

CString ZipOp::GetRootPath() const { return m_rootPath; }

OperationReturnState ZipOp::Operation(unsigned int index) {
  const SetGetCurrentDir guard(m_rootPath);
  if (m_archive == nullptr) OpenArchive();

  const char* const name = EntryName(m_files[static_cast<int>(index)]);
  unsigned long written = 0;
  const bool added = ZipAdd(m_archive, name, name, 0, kZipFileName, written) == kZipOk;
  m_holdsEntries |= added;

  const bool isLast = index + 1 == m_end;
  const bool isFull = added && written >= m_sizeLimit;
  if (!isLast && !isFull) return added ? OperationDone : OperationFailed;
  if (!m_holdsEntries) return OperationFailed;
  const OperationReturnState state = FinishArchive();
  return !added && state == OperationDone ? OperationFailed : state;
}

// What a stopped or failed run has begun is of no use.
void ZipOp::PostOperationLoop() { DropArchive(); }

const char* ZipOp::EntryName(const CString& file) const {
  const char* const text = file;
  if (m_rootPath.IsEmpty()) return text;
  if (*text == '\\' && text[1] != '\\') return text + 1;
  const int length = m_rootPath.GetLength();
  ASSERT(EqualsIgnoringCase(file.Left(length), m_rootPath));
  const char* const rest = text + std::min(length, file.GetLength());
  return *rest == '\\' ? rest + 1 : rest;
}

// Without an archive every addition fails.
void ZipOp::OpenArchive() {
  GetNameInSystemTempFolder("fzs", m_archivePath, "zip");
  m_archive = CreateZipZ(m_archivePath.GetBuffer(0), 0, kZipFileName);
  m_holdsEntries = false;
}

OperationReturnState ZipOp::FinishArchive() {
  const HZIP archive = m_archive;
  m_archive = nullptr;
  m_holdsEntries = false;
  const ScopedFile file(m_archivePath);  // gone also when a derived class throws
  const bool isWhole = CloseZipZ(archive) == kZipOk;
  VERIFY(isWhole);
  return isWhole ? ProcessZipFile(m_archivePath) : OperationFailed;
}

void ZipOp::DropArchive() {
  if (m_archive == nullptr) return;
  DropZip(m_archive);
  m_archive = nullptr;
  ForceDeleteFile(m_archivePath);
}
