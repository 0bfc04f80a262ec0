// Trees on the disk, seen as the list of what is in them.
#pragma once

#include <afxwin.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "entry/Handles.h"
#include "ops/DirOp.h"
#include "support/AssertionLog.h"
#include "support/TempFolder.h"

using Names = std::vector<std::string>;

inline Names Sorted(Names names) {
  std::sort(names.begin(), names.end());
  return names;
}

inline void AppendTree(const std::string& folder, const std::string& prefix, Names& names) {
  WIN32_FIND_DATAA found;
  const unique_find search(FindFirstFileA((folder + "\\*").c_str(), &found));
  if (!search) return;
  do {
    const std::string name = found.cFileName;
    if (name == "." || name == "..") continue;
    const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    names.push_back(prefix + name + (isFolder ? "\\" : ""));
    if (isFolder) AppendTree(folder + "\\" + name, prefix + name + "\\", names);
  } while (FindNextFileA(search.get(), &found));
}

// The paths below folder, sorted; those of folders end in a backslash.
inline Names Tree(const std::string& folder) {
  Names names;
  AppendTree(folder, "", names);
  return Sorted(names);
}

inline void SetReadOnly(const std::string& path) {
  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
}

inline bool IsReadOnly(const std::string& path) {
  return (GetFileAttributesA(path.c_str()) & FILE_ATTRIBUTE_READONLY) != 0;
}

// Holds a file open as another program may: it can be read, but not deleted or replaced.
inline unique_file Hold(const std::string& path) {
  return unique_file(
      CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
}
