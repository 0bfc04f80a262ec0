#include "zip/FolderTarget.h"

#include "entry/PathUtils.h"
#include "zip/EntryPath.h"

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
  // Neither a folder nor, with all attributes, what is not there.
  const bool isReadOnly = (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) ==
                          FILE_ATTRIBUTE_READONLY;
  // In full, so that UnzipItem doesn't make the folders of a relative path once more below its
  // root.
  CString full = FullPathOf(path);
  if (isReadOnly) SetFileAttributesA(full, attributes & ~FILE_ATTRIBUTE_READONLY);
  const unsigned long result = UnzipItem(archive, index, full.GetBuffer(0), 0, kZipFileName);
  if (isReadOnly && result != kZipOk) SetFileAttributesA(full, attributes);
  return result;
}
