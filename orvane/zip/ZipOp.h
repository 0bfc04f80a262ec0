// Packs a list of files into archives of bounded size, one file a step.
#pragma once

#include <afxtempl.h>

#include "ops/MultiOp.h"
#include "zip/UnZipOp.h"  // its counterpart
#include "zip/ZipWriter.h"

// The archives are files in the system's temporary folder, given to ProcessZipFile one by one as
// they are finished, and deleted after it. Each is closed after the file with which it reached the
// limit, so it can be larger by that file. A file that can't be added is a failed item; when it is
// the last one, the archive of those before it is given on all the same. A run that is stopped
// leaves nothing.
//
// The current directory of the process is the root while an item is worked on: no other thread may
// depend on it.
class ORVANE_API ZipOp : public MMultiOperation {
 public:
  // files       the paths to pack; stays the caller's and must outlive the operation
  // rootPath    the folder that entry names are relative to, with which every path begins (ASSERT)
  //             save those that begin with one "\": they are relative to it. Empty: paths are
  //             names.
  // sizeLimit   bytes of an archive; 0: one file in each
  ZipOp(const CArray<CString, const char*>& files, const char* rootPath, unsigned long sizeLimit);
  ~ZipOp() override;
  ZipOp(const ZipOp&) = delete;
  ZipOp& operator=(const ZipOp&) = delete;

  CString GetRootPath() const;

 protected:
  OperationReturnState Operation(unsigned int index) override;
  void PostOperationLoop() override;

  // Takes a finished archive. The result counts as that of the item that finished it.
  virtual OperationReturnState ProcessZipFile(const char* archivePath) = 0;

  CString m_archivePath;
  unsigned long m_sizeLimit;
  CString m_rootPath;
  const CArray<CString, const char*>& m_files;
  HZIP m_archive = nullptr;

 private:
  const char* EntryName(const CString& file) const;
  void OpenArchive();
  OperationReturnState FinishArchive();
  void DropArchive();

  bool m_holdsEntries = false;
};
