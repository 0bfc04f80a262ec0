#include <afxwin.h>
#include <shlwapi.h>

#include "tree_zipper.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "entry/PathUtils.h"
#include "operation_run.h"
#include "ops/FolderEntries.h"
#include "zip_messages.h"

namespace {

struct Names {
  std::vector<std::string> files;
  std::vector<std::string> folders;
};

// What a folder holds, each list in order; false when it can't be read.
bool ReadFolder(const std::string& folder, Names& names) {
  FolderEntries entries(folder.c_str());
  if (!entries.Opened()) return false;
  while (entries.Next()) {
    // A link to another folder is not followed: it may lead back into this tree.
    if (entries.IsFolder() && entries.IsLink()) continue;
    (entries.IsFolder() ? names.folders : names.files).push_back(entries.Name());
  }
  if (entries.Unreadable()) return false;
  std::sort(names.files.begin(), names.files.end());
  std::sort(names.folders.begin(), names.folders.end());
  return true;
}

}  // namespace

TreeZipper::TreeZipper(std::string folder, std::string pattern, std::string skipped)
    : m_folder(std::move(folder)),
      m_pattern(std::move(pattern)),
      m_skipped(FullPathOf(skipped.c_str())) {
  m_read = ListFolder("");
  SetRange(0, static_cast<unsigned>(m_names.size()));
  SetTitle("Zipping", m_folder.c_str());
}

bool TreeZipper::ListFolder(const std::string& prefix) {
  Names names;
  if (!ReadFolder(PathOf(prefix), names)) return false;
  if (names.files.empty() && names.folders.empty() && !prefix.empty()) m_names.push_back(prefix);
  for (const std::string& file : names.files) {
    if (PathMatchSpecA(file.c_str(), m_pattern.c_str())) ListFile(prefix + file);
  }
  for (const std::string& folder : names.folders) {
    if (ListFolder(prefix + folder + "/")) continue;
    Complain(prefix + folder, "the folder can't be read");
    ++m_notAdded;
  }
  return true;
}

void TreeZipper::ListFile(const std::string& name) {
  if (lstrcmpiA(FullPathOf(PathOf(name).c_str()), m_skipped) != 0) m_names.push_back(name);
}

void TreeZipper::Run(HZIP archive) {
  m_archive = archive;
  RunOperation(*this);
}

OperationReturnState TreeZipper::Operation(unsigned int index) {
  const std::string& name = m_names[index];
  std::string path = PathOf(name);
  const unsigned long result = name.back() == '/'
                                   ? ZipAdd(m_archive, name.c_str(), nullptr, 0, kZipFolder)
                                   : ZipAdd(m_archive, name.c_str(), path.data(), 0, kZipFileName);
  ShowProgress("zipping", index + 1, m_end);
  if (result == kZipOk) {
    ++m_added;
    return OperationDone;
  }
  Complain(name, ZipText(result));
  ++m_notAdded;
  m_writeFailed = result == kZipWriteError;
  return m_writeFailed ? OperationFailedStop : OperationFailed;
}

std::string TreeZipper::PathOf(const std::string& name) const {
  // Only "/" ends the names of folders: a "\" may be the second half of a character.
  std::string relative = name.substr(0, name.find_last_not_of('/') + 1);
  std::replace(relative.begin(), relative.end(), '/', '\\');
  return relative.empty() ? m_folder : m_folder + "\\" + relative;
}
