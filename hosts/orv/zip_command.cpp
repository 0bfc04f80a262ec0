#include <afxwin.h>

#include <cstdio>
#include <string>

#include "commands.h"
#include "tree_zipper.h"
#include "zip_messages.h"

namespace {

// Zips into an open archive and closes it. True when everything is in it.
bool ZipInto(HZIP archive, const std::string& folder, const std::string& pattern,
             const std::string& skipped) {
  TreeZipper zipper(archive, folder, pattern, skipped);
  const bool read = zipper.Run();
  if (!read) Complain(folder, "the folder can't be read");
  const unsigned long closed = CloseZipZ(archive);
  if (closed != kZipOk) Complain("closing the archive", ZipText(closed));
  fprintf(stderr, "%d entries added, %d failed\n", zipper.added(), zipper.failed());
  return read && closed == kZipOk && zipper.failed() == 0;
}

int ZipToOutput(const std::string& folder, const std::string& pattern) {
  const HZIP archive = CreateZipZ(GetStdHandle(STD_OUTPUT_HANDLE), 0, kZipHandle);
  if (archive == nullptr) {
    Complain("stdout", ZipText(kZipNoDuplicate));
    return kFailed;
  }
  return ZipInto(archive, folder, pattern, "") ? kDone : kFailed;
}

// The archive is written beside its name and put in place when it is whole, so that a run that is
// broken off leaves what stood there.
int ZipToFile(const std::string& name, const std::string& folder, const std::string& pattern) {
  std::string part = name + ".part";
  const HZIP archive = CreateZipZ(part.data(), 0, kZipFileName);
  if (archive == nullptr) {
    Complain(part, ZipText(kZipNoFile));
    return kFailed;
  }
  const bool whole = ZipInto(archive, folder, pattern, part);
  if (!MoveFileExA(part.c_str(), name.c_str(), MOVEFILE_REPLACE_EXISTING)) {
    Complain(name, "the archive can't be put in place; it is " + part);
    return kFailed;
  }
  return whole ? kDone : kFailed;
}

}  // namespace

int ZipCommand(int count, char** arguments) {
  const std::string name = arguments[0];
  const std::string folder = arguments[1];
  const std::string pattern = count > 2 ? arguments[2] : "*.*";
  return name == "-" ? ZipToOutput(folder, pattern) : ZipToFile(name, folder, pattern);
}
