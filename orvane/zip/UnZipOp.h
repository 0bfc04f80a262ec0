// Extracts an archive into a folder, one entry a step.
#pragma once

#include <afxtempl.h>

#include "ops/MultiOp.h"
#include "zip/XUnzip.h"

// Files that stand in the way are replaced, read-only ones too. Entries whose path would leave the
// folder are skipped. Neither that nor an entry that can't be extracted makes the operation fail,
// by design as in OpenZipFile: both are reported in the assertion log.
class ORVANE_API CUnZipOp : public MMultiOperation {
 public:
  // Opens the archive; it is closed with the object. targetFolder: empty for the current directory.
  CUnZipOp(const char* archiveName, const char* targetFolder);
  ~CUnZipOp() override;
  CUnZipOp(const CUnZipOp&) = delete;
  CUnZipOp& operator=(const CUnZipOp&) = delete;

  // As that of the base; 0 at once when the archive can't be read or has no entries.
  int DoOperation(int interactive);

  // Fills files with the path of every entry, in the order of their indices: the target folder,
  // "\" when it is not empty, and the entry's name with "\" for "/". 0 when the archive can't be
  // opened.
  int GetFileList(CArray<CString, const char*>& files);

  // Opens the archive, unless it is open, and gives its number of entries; 0 when it can't be read.
  int GetNumberOfFilesInZip();

 protected:
  OperationReturnState Operation(unsigned int index) override;

  HZIP m_archive = nullptr;
  CString m_archiveName;
  CString m_targetFolder;
  int m_count = 0;
  ZIPENTRY m_entry = {};

 private:
  void UnZipInit();
};
