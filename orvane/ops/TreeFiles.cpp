#include "ops/TreeFiles.h"

#include <io.h>
#include <sys/stat.h>

#include <cerrno>

#include "ops/FolderEntries.h"
#include "ops/TreeReports.h"

namespace {

// The name under which hosts know these failures.
constexpr char kSource[] = "pathutils";

bool IsGone(const char* path) {
  const DWORD attributes = GetFileAttributesA(path);
  const DWORD error = GetLastError();
  return attributes == INVALID_FILE_ATTRIBUTES &&
         (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND);
}

void MakeFolderWritable(const char* path) {
  const DWORD attributes = GetFileAttributesA(path);
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
    SetFileAttributesA(path, attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
}

}  // namespace

bool DeleteTreeFile(const char* path, DWORD attributes) {
  if (CanActOnFile(path)) {
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) SetTreeFileReadOnly(path, false);
    if (_unlink(path) == 0 || errno == ENOENT) return true;
  }
  ReportTreeFailure(kSource, __LINE__, "File not deleted", path);
  return false;
}

bool SetTreeFileReadOnly(const char* path, bool readOnly) {
  if (CanActOnFile(path) && _chmod(path, readOnly ? _S_IREAD : _S_IREAD | _S_IWRITE) == 0)
    return true;
  ReportTreeFailure(kSource, __LINE__, "Permission not changed", path);
  return false;
}

bool RemoveTreeLink(const char* path) {
  if (CanActOnFolderLink(path) && RemoveTreeFolder(path)) return true;
  ReportTreeFailure(kSource, __LINE__, "Link to a folder not removed", path);
  return false;
}

bool RemoveTreeFolder(const char* path) {
  if (RemoveDirectoryA(path) || IsGone(path)) return true;
  MakeFolderWritable(path);
  if (RemoveDirectoryA(path)) return true;
  ReportTreeFailure(kSource, __LINE__, "Folder not removed", path);
  return false;
}
