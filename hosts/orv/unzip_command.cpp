#include <afxwin.h>

#include <cstdio>
#include <string>

#include "archive_reader.h"
#include "commands.h"
#include "entry/PathUtils.h"
#include "ops/DirOp.h"
#include "zip/EntryPath.h"
#include "zip_messages.h"

namespace {

bool IsFolderEntry(const ZIPENTRY& entry) { return (entry.attr & FILE_ATTRIBUTE_DIRECTORY) != 0; }

// Extracts beside the final name and puts the file in place when it is whole: what stood there
// stays until then.
unsigned long ExtractFile(HZIP archive, const ZIPENTRY& entry, const std::string& path) {
  EnsureFileFolder(path.c_str());
  std::string part = path + ".part";
  const unsigned long result = UnzipItem(archive, entry.index, part.data(), 0, kZipFileName);
  if (result != kZipOk) {
    ForceDeleteFile(part.c_str());
    return result;
  }
  ForceDeleteFile(path.c_str());
  if (MoveFileExA(part.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING)) return kZipOk;
  ForceDeleteFile(part.c_str());
  return kZipNoFile;
}

}  // namespace

int UnzipCommand(int, char** arguments) {
  const std::string folder = arguments[1];
  int extracted = 0;
  int skipped = 0;
  const bool good = ArchiveReader(arguments[0]).ForEach([&](HZIP archive, const ZIPENTRY& entry) {
    if (!StaysBelowTarget(entry.name)) {
      Complain(entry.name, "skipped: the path leaves the folder or names a device");
      ++skipped;
      return static_cast<unsigned long>(kZipOk);
    }
    const std::string path = folder + "\\" + entry.name;
    if (IsFolderEntry(entry)) {
      return static_cast<unsigned long>(CreateDirectoryA(path.c_str()) ? kZipOk : kZipNoFile);
    }
    const unsigned long result = ExtractFile(archive, entry, path);
    extracted += result == kZipOk;
    return result;
  });
  fprintf(stderr, "%d files extracted\n", extracted);
  return good && skipped == 0 ? kDone : kFailed;
}
