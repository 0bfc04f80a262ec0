#include <afxwin.h>

#include <cstdio>
#include <string>

#include "archive_reader.h"
#include "commands.h"
#include "operation_run.h"
#include "ops/DirOp.h"
#include "zip/EntryPath.h"
#include "zip/FolderTarget.h"
#include "zip_messages.h"

namespace {

bool IsFolderEntry(const ZIPENTRY& entry) { return (entry.attr & FILE_ATTRIBUTE_DIRECTORY) != 0; }

class UnzipOperation : public MMultiOperation {
 public:
  UnzipOperation(const char* archive, const char* folder) : m_archive(archive), m_folder(folder) {
    SetRange(0, static_cast<unsigned>(m_archive.Count()));
    SetTitle("Extracting", m_folder.c_str());
  }

  bool opened() const { return m_archive.isOpen(); }
  int extracted() const { return m_extracted; }

 protected:
  OperationReturnState Operation(unsigned int index) override {
    const bool good = m_archive.VisitEntry(
        static_cast<int>(index),
        [&](HZIP archive, const ZIPENTRY& entry) { return ExtractEntry(archive, entry); });
    ShowProgress("extracting", index + 1, m_end);
    return good ? OperationDone : OperationFailed;
  }

 private:
  unsigned long ExtractEntry(HZIP archive, const ZIPENTRY& entry) {
    if (!StaysBelowTarget(entry.name)) {
      Complain(entry.name, "skipped: the path leaves the folder or names a device");
      m_failed = 1;
      return kZipOk;
    }
    const CString begin = EntryPathBegin(m_folder.c_str());
    CString path = begin + entry.name;
    if (IsFolderEntry(entry))
      return CreateDirectoryA(static_cast<const char*>(path)) ? kZipOk : kZipNoFile;
    const unsigned long result = ExtractBelow(archive, entry.index, begin, path);
    m_extracted += result == kZipOk;
    return result;
  }

  ArchiveReader m_archive;
  std::string m_folder;
  int m_extracted = 0;
};

}  // namespace

int UnzipCommand(int, char** arguments) {
  UnzipOperation operation(arguments[0], arguments[1]);
  const bool good = operation.opened() && RunOperation(operation) != 0;
  if (operation.wasAborted()) Complain("stopped", "the rest is not extracted");
  fprintf(stderr, "%d files extracted\n", operation.extracted());
  return good && !operation.wasAborted() ? kDone : kFailed;
}
