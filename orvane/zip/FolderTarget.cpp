#include "zip/FolderTarget.h"

#include "entry/PathUtils.h"
#include "zip/EntryPath.h"

namespace {

// Absolute, so that UnzipItem doesn't make the folders of a relative path once more below its root.
CString FullPathOf(const char* path) {
  char full[MAX_PATH];
  const DWORD length = GetFullPathNameA(path, sizeof full, full, nullptr);
  return length > 0 && length < sizeof full ? full : path;
}

}  // namespace

CString EntryPathBegin(const char* folder) {
  CString begin(folder);
  if (!begin.IsEmpty()) begin += "\\";
  return begin;
}

unsigned long ExtractBelow(HZIP archive, int index, const CString& begin, CString& path) {
  ZIPENTRY entry;
  const unsigned long found = GetZipItemA(archive, index, &entry);
  if (found != kZipOk) return found;
  if (!StaysBelowTarget(entry.name)) {
    ReportSkippedEntry(entry.name);
    return kZipOk;
  }
  path = begin + entry.name;
  const DWORD attributes = GetFileAttributesA(path);
  if (attributes == INVALID_FILE_ATTRIBUTES) EnsureFileFolder(path);
  const bool isReadOnly =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  CString full = FullPathOf(path);
  if (isReadOnly) SetFileAttributesA(full, attributes & ~FILE_ATTRIBUTE_READONLY);
  const unsigned long result = UnzipItem(archive, index, full.GetBuffer(0), 0, kZipFileName);
  if (isReadOnly && result != kZipOk) SetFileAttributesA(full, attributes);
  return result;
}
