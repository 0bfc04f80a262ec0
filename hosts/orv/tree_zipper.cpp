#include <afxwin.h>
#include <shlwapi.h>

#include "tree_zipper.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "entry/Handles.h"
#include "zip_messages.h"

namespace {

std::string FullPath(const std::string& path) {
  char full[MAX_PATH] = "";
  const DWORD length = GetFullPathNameA(path.c_str(), MAX_PATH, full, nullptr);
  return length > 0 && length < MAX_PATH ? full : path;
}

struct Names {
  std::vector<std::string> files;
  std::vector<std::string> folders;
};

// What a folder holds, each list in order; false when it can't be read.
bool ReadFolder(const std::string& folder, Names& names) {
  WIN32_FIND_DATAA found;
  const unique_find search(FindFirstFileA((folder + "\\*.*").c_str(), &found));
  if (!search) return false;
  do {
    const std::string name = found.cFileName;
    const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (isFolder && (name == "." || name == "..")) continue;
    // A link to another folder is not followed: it may lead back into this tree.
    if (isFolder && (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) continue;
    (isFolder ? names.folders : names.files).push_back(name);
  } while (FindNextFileA(search.get(), &found));
  std::sort(names.files.begin(), names.files.end());
  std::sort(names.folders.begin(), names.folders.end());
  return true;
}

}  // namespace

TreeZipper::TreeZipper(HZIP archive, std::string folder, std::string pattern, std::string skipped)
    : m_archive(archive),
      m_folder(std::move(folder)),
      m_pattern(std::move(pattern)),
      m_skipped(FullPath(skipped)) {}

bool TreeZipper::Run() { return AddFolder(""); }

bool TreeZipper::AddFolder(const std::string& prefix) {
  Names names;
  if (!ReadFolder(PathOf(prefix), names)) return false;
  if (names.files.empty() && names.folders.empty() && !prefix.empty()) {
    Count(prefix, ZipAdd(m_archive, prefix.c_str(), nullptr, 0, kZipFolder));
  }
  for (const std::string& file : names.files) {
    if (PathMatchSpecA(file.c_str(), m_pattern.c_str())) AddFile(prefix + file);
  }
  for (const std::string& folder : names.folders) {
    if (AddFolder(prefix + folder + "/")) continue;
    Complain(prefix + folder, "the folder can't be read");
    ++m_failed;
  }
  return true;
}

void TreeZipper::AddFile(const std::string& name) {
  std::string path = PathOf(name);
  if (_stricmp(FullPath(path).c_str(), m_skipped.c_str()) == 0) return;
  Count(name, ZipAdd(m_archive, name.c_str(), path.data(), 0, kZipFileName));
}

void TreeZipper::Count(const std::string& name, unsigned long result) {
  if (result == kZipOk) {
    ++m_added;
    return;
  }
  Complain(name, ZipText(result));
  ++m_failed;
}

std::string TreeZipper::PathOf(const std::string& name) const {
  std::string path = m_folder + "\\" + name;
  std::replace(path.begin() + static_cast<std::ptrdiff_t>(m_folder.size()), path.end(), '/', '\\');
  while (!path.empty() && path.back() == '\\') path.pop_back();
  return path;
}
