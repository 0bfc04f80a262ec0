// Names for temporary folders and files.

#include <cstdlib>
#include <cstring>

#include "diag/trace.h"
#include "entry/PathUtils.h"
#include "ops/DirOp.h"
#include "util/pathutils.h"

namespace {

constexpr char kOtherTempFolder[] = "C:\\Temp\\";
constexpr char kPrefix[] = "bwt";
constexpr int kPrefixLength = 3;
constexpr int kMostTaken = 100;

// An empty folder is the current directory, not the drive's root.
CString WithBackslash(const CString& folder) {
  const bool isWhole = folder.IsEmpty() || folder.ReverseFind('\\') == folder.GetLength() - 1;
  return isWhole ? folder : folder + "\\";
}

CString FindSystemTempFolder() {
  char path[MAX_PATH] = "";
  const DWORD length = GetTempPathA(sizeof path, path);
  if (length > 0 && length < sizeof path && CreateDirectoryA(path)) return WithBackslash(path);
  CreateDirectoryA(kOtherTempFolder);
  return kOtherTempFolder;
}

// Makes a file that nobody else has; empty: it could not. There is room for the name before there
// is a file, which would otherwise be left behind without anybody who knows it.
CString MakeTempFile(const char* folder, const char* prefix) {
  const bool isGiven = folder != nullptr && *folder != 0;
  const CString place = isGiven ? CString(folder) : GetSystemTempFolder();
  CString name;
  char* const text = name.GetBuffer(MAX_PATH);
  if (!GetTempFileNameA(place, prefix == nullptr ? "" : prefix, 0, text)) *text = 0;
  name.ReleaseBuffer();
  return name;
}

CString WithExtension(const CString& name, const char* extension) {
  const int dot = name.ReverseFind('.');
  return (dot < 0 ? CString() : name.Left(dot)) + "." + extension;
}

bool Exists(const char* path) { return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES; }

}  // namespace

CString GetSystemTempFolder() {
  static const CString folder = FindSystemTempFolder();
  return folder;
}

CString GetTempFolderName(CString prefix) {
  return GetTempFolderNameUnderFolder(prefix, GetSystemTempFolder());
}

CString GetTempFolderNameUnderFolder(CString prefix, CString folder) {
  const CString start = WithBackslash(folder) + prefix;
  EnsureFileFolder(start);
  for (int taken = 0; taken <= kMostTaken; ++taken) {
    CString candidate;
    candidate.Format("%s%d", static_cast<const char*>(start), rand());
    // Creating tells whether the name was free, so that nobody can take it in between.
    if (CreateDirectoryA(candidate, nullptr)) return candidate;
    if (GetLastError() != ERROR_ALREADY_EXISTS) break;
  }
  return "";
}

CString GetTempName(const char* prefix, const char* folder) { return MakeTempFile(folder, prefix); }

void GetTempName(const char* folder, const char* prefix, CString& name, const char* extension) {
  // By design under this name: readers of assertion logs look for it there.
  if (AssertVerifyTrace::IsActive() && (prefix == nullptr || strlen(prefix) != kPrefixLength)) {
    AssertVerifyTrace::FailedLine("trace", __LINE__);
  }
  const bool isPlain = extension == nullptr || *extension == 0;
  for (int taken = 0; taken <= kMostTaken; ++taken) {
    name = MakeTempFile(folder, prefix);
    if (isPlain || name.IsEmpty()) return;
    VERIFY(DeleteFileA(name));
    name = WithExtension(name, extension);
    if (!Exists(name)) return;
  }
  name.Empty();
}

void GetNameInSystemTempFolder(const char* prefix, CString& name, const char* extension) {
  GetTempName(GetSystemTempFolder(), prefix, name, extension);
}

CString GetTempFileNameA(const char* name) {
  if (name == nullptr || *name == 0) return GetTempName(kPrefix, nullptr);
  return GetSystemTempFolder() + name;
}
