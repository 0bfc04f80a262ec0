#include <afxwin.h>

#include <cstdio>
#include <string>

#include "commands.h"
#include "entry/DestinationFile.h"
#include "tree_zipper.h"
#include "zip_messages.h"

namespace {

// Zips into an open archive and closes it. True when it is a good archive, be it without some of
// the files.
bool ZipInto(HZIP archive, TreeZipper& zipper) {
  zipper.Run(archive);
  const unsigned long closed = CloseZipZ(archive);
  if (zipper.wasAborted()) Complain("stopped", "the archive is not whole");
  if (closed != kZipOk) Complain("closing the archive", ZipText(closed));
  return closed == kZipOk && !zipper.writeFailed() && !zipper.wasAborted();
}

bool ZipToOutput(TreeZipper& zipper) {
  const HZIP archive = CreateZipZ(GetStdHandle(STD_OUTPUT_HANDLE), 0, kZipHandle);
  if (archive == nullptr) {
    Complain("stdout", ZipText(kZipNoDuplicate));
    return false;
  }
  return ZipInto(archive, zipper);
}

// The archive is written beside its name and put in place when it is finished, so that a run that
// is stopped or broken off leaves what stood there.
bool ZipToFile(const std::string& name, TreeZipper& zipper) {
  DestinationFile file;
  const HZIP archive = file.Open(name.c_str(), {.alwaysBeside = true})
                           ? CreateZipZ(file.Handle(), 0, kZipHandle)
                           : nullptr;
  if (archive == nullptr) {
    Complain(name, ZipText(kZipNoFile));
    return false;
  }
  if (!ZipInto(archive, zipper)) return false;
  if (file.Commit()) return true;
  Complain(name, "the archive can't be put in place");
  return false;
}

bool Zip(const std::string& name, const std::string& folder, const std::string& pattern) {
  const bool toOutput = name == "-";
  TreeZipper zipper(folder, pattern, toOutput ? "" : name);
  if (!zipper.read()) {
    Complain(folder, "the folder can't be read");
    return false;
  }
  const bool good = toOutput ? ZipToOutput(zipper) : ZipToFile(name, zipper);
  fprintf(stderr, "%d entries added, %d failed\n", zipper.added(), zipper.failed());
  return good && zipper.failed() == 0;
}

}  // namespace

int ZipCommand(int count, char** arguments) {
  return Zip(arguments[0], arguments[1], count > 2 ? arguments[2] : "*.*") ? kDone : kFailed;
}
