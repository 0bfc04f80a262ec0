#include "dircmp/FolderComparison.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "diag/AssertVerifyTrace.h"
#include "entry/Handles.h"
#include "entry/strutils.h"

namespace {

// A folder with one backslash at its end; empty for an empty path.
std::string FolderOf(const char* path) {
  std::string folder = static_cast<LPCSTR>(WithBackslashes(path));
  if (folder.empty()) return folder;
  // The last byte of a Japanese name may be a backslash, too.
  while (!folder.empty() && *CharPrevA(folder.c_str(), folder.c_str() + folder.size()) == '\\') {
    folder.pop_back();
  }
  return folder + "\\";
}

CString WithoutBackslash(const std::string& folder) {
  return CString(folder.c_str(), std::max(0, static_cast<int>(folder.size()) - 1));
}

// What follows the folder in a path below it; the folder may have been given with a backslash.
const char* PathBelow(const std::string& folder, const char* path) {
  path += folder.size();
  while (*path == '\\') ++path;
  return path;
}

std::string Lower(std::string path) {
  CharLowerBuffA(path.data(), static_cast<DWORD>(path.size()));
  return path;
}

// Whether a search has to go into it.
bool IsFolder(const WIN32_FIND_DATAA& found) {
  return (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}
bool IsToBeEntered(const WIN32_FIND_DATAA& found) {
  const std::string_view name = found.cFileName;
  // A link to another folder may lead back into this tree.
  const bool isLink = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  return name != "." && name != ".." && !isLink;
}

}  // namespace

DocumentName::DocumentName(const char* relativePath) {
  SplitAtLastBackslash(relativePath, folder, name);
  if (name.IsEmpty()) std::swap(folder, name);
  const int dot = name.ReverseFind('.');
  if (dot < 0) return;
  extension = name.Mid(dot + 1);
  extension.MakeLower();
  name = name.Left(dot);
}

FolderComparison::FolderComparison(const char* base, const char* revised, const DirCmpPrm& prm,
                                   ContentCompare::StopPoll stop)
    : m_base(FolderOf(base)),
      m_revised(FolderOf(revised)),
      m_prm(prm),
      m_stop(std::move(stop)),
      m_contents({.ignoreCase = prm.m_ignoreCase != 0, .whiteSpaceMode = prm.m_whiteSpaceMode},
                 m_stop) {}

// A stop lasts.
bool FolderComparison::IsStopped() {
  m_isStopped = m_isStopped || (m_stop && m_stop());
  return m_isStopped;
}

bool FolderComparison::Scan() {
  return WalkFolders(m_base, &FolderComparison::AddBaseFile) &&
         WalkFolders(m_revised, &FolderComparison::AddRevisedFile);
}

void FolderComparison::AddBase(const char* path) { AddBaseFile(PathBelow(m_base, path)); }

void FolderComparison::AddRevised(const char* path) { AddRevisedFile(PathBelow(m_revised, path)); }

bool FolderComparison::WalkFolders(const std::string& root, Visit visit) {
  if (root.empty()) {
    // Without a name it would be the current folder.
    m_problems.push_back({root, ERROR_PATH_NOT_FOUND});
    return true;
  }
  std::vector<std::string> folders = {""};  // relative, with a backslash at the end
  while (!folders.empty()) {
    const std::string folder = std::move(folders.back());
    folders.pop_back();
    std::vector<std::string> subFolders;
    if (!ReadFolder(root, folder, visit, subFolders)) return false;
    if ((m_prm.m_scanFlags & kScanSubFolders) == 0) break;
    folders.insert(folders.end(), subFolders.rbegin(), subFolders.rend());
  }
  return true;
}

// False: stopped.
bool FolderComparison::ReadFolder(const std::string& root, const std::string& folder, Visit visit,
                                  std::vector<std::string>& subFolders) {
  WIN32_FIND_DATAA found;
  const std::string pattern = root + folder + "*.*";
  const unique_find search(FindFirstFileA(pattern.c_str(), &found));
  BOOL hasEntry = search ? TRUE : FALSE;
  for (; hasEntry; hasEntry = FindNextFileA(search.get(), &found)) {
    if (IsStopped()) return false;
    if (!IsFolder(found)) {
      (this->*visit)(folder + found.cFileName);
    } else if (IsToBeEntered(found)) {
      subFolders.push_back(folder + found.cFileName + "\\");
    }
  }
  const DWORD error = GetLastError();
  // The root of an empty drive has no entries at all.
  const bool isRead = error == ERROR_NO_MORE_FILES || (!search && error == ERROR_FILE_NOT_FOUND);
  if (!isRead) m_problems.push_back({root + folder, error});
  return true;
}

void FolderComparison::AddBaseFile(const std::string& relativePath) {
  const auto [place, isNew] = m_byPath.try_emplace(Lower(relativePath), nullptr);
  if (!isNew) return;  // on a disk that tells names by letter case, too
  place->second = &m_records.emplace_back();
  place->second->relativePath = relativePath.c_str();
  place->second->state = FileState::Deleted;
}

void FolderComparison::AddRevisedFile(const std::string& relativePath) {
  const auto [place, isNew] = m_byPath.try_emplace(Lower(relativePath), nullptr);
  if (isNew) {
    place->second = &m_records.emplace_back();
    place->second->relativePath = relativePath.c_str();
    place->second->state = FileState::New;
  } else if (place->second->state == FileState::Deleted) {
    place->second->state = FileState::Unknown;
  }
}

bool FolderComparison::IsCompared(const DocumentRecord& record) const {
  return m_prm.PassesTypeFilter(DocumentName(record.relativePath).extension) != 0;
}

bool FolderComparison::Evaluate(DocumentRecord& record) {
  if (record.state == FileState::New) {
    record.modified = record.revisedModified = TimeOf(RevisedPath(record));
  } else if (record.state == FileState::Deleted) {
    record.modified = record.baseModified = TimeOf(BasePath(record));
  } else {
    ComparePair(record);
    m_isStopped = m_isStopped || record.state == FileState::Unknown;
    if (m_isStopped) return false;
  }
  record.isEvaluated = true;
  return true;
}

bool FolderComparison::EvaluateAll() {
  for (DocumentRecord& record : m_records) {
    if (!IsCompared(record)) continue;
    if (IsStopped() || !Evaluate(record)) record.state = FileState::Unknown;
  }
  return !m_isStopped;
}

void FolderComparison::ComparePair(DocumentRecord& record) {
  const CString base = BasePath(record), revised = RevisedPath(record);
  const ContentCompare::Result result = m_contents.Files(base, revised);
  if (result == ContentCompare::Result::Unreadable) {
    m_problems.push_back({static_cast<LPCSTR>(record.relativePath), GetLastError()});
  }
  if (result == ContentCompare::Result::Stopped) return;
  record.state = result == ContentCompare::Result::Equal ? FileState::Same : FileState::Modified;
  record.baseModified = TimeOf(base);
  record.revisedModified = TimeOf(revised);
  record.modified = std::max(record.baseModified, record.revisedModified);
  if (record.state == FileState::Same)
    record.baseModified = record.revisedModified = record.modified;
}

// 0 when it can't be found out.
CTime FolderComparison::TimeOf(const CString& path) {
  WIN32_FILE_ATTRIBUTE_DATA data;
  const BOOL isKnown = GetFileAttributesExA(path, GetFileExInfoStandard, &data);
  VERIFY(isKnown);
  return isKnown ? CTime(data.ftLastWriteTime) : CTime();
}

CString FolderComparison::baseFolder() const { return WithoutBackslash(m_base); }

CString FolderComparison::revisedFolder() const { return WithoutBackslash(m_revised); }

CString FolderComparison::BasePath(const DocumentRecord& record) const {
  return m_base.c_str() + record.relativePath;
}

CString FolderComparison::RevisedPath(const DocumentRecord& record) const {
  return m_revised.c_str() + record.relativePath;
}
