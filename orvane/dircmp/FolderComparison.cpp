#include "dircmp/FolderComparison.h"

#include <algorithm>
#include <utility>

#include "diag/AssertVerifyTrace.h"
#include "dircmp/FolderScan.h"
#include "entry/PathUtils.h"
#include "entry/strutils.h"

namespace {

// A folder with one backslash at its end; empty for an empty path.
std::string FolderOf(const char* path) {
  std::string folder = static_cast<LPCSTR>(WithBackslashes(path));
  if (folder.empty()) return folder;
  // The root of the current drive, or the current folder of a drive, which have to be named.
  if (folder == "\\" || folder.back() == ':') folder = FullPathOf(path);
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
      m_contents(OptionsOf(prm), [this] { return IsStopped(); }) {}

// A stop lasts.
bool FolderComparison::IsStopped() {
  if (!m_isStopped && m_stop && m_stop()) Stop();
  return m_isStopped;
}

bool FolderComparison::Scan() {
  for (const auto side : {FolderScan::Side::Base, FolderScan::Side::Revised}) {
    FolderScan scan(*this, side);
    scan.SetNoGui(1);
    if (!IsStopped() && !scan.DoOperation(0)) Stop();
  }
  return !IsStopped();
}

void FolderComparison::AddBase(const char* path) {
  const char* const relativePath = PathBelow(m_base, path);
  const auto [place, isNew] = m_byPath.try_emplace(Lower(relativePath), nullptr);
  if (!isNew) return;  // on a disk that tells names by letter case, too
  place->second = &m_records.emplace_back();
  place->second->relativePath = relativePath;
  place->second->state = FileState::Deleted;
}

void FolderComparison::AddRevised(const char* path) {
  const char* const relativePath = PathBelow(m_revised, path);
  const auto [place, isNew] = m_byPath.try_emplace(Lower(relativePath), nullptr);
  if (isNew) {
    place->second = &m_records.emplace_back();
    place->second->relativePath = relativePath;
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
    if (record.state == FileState::Unknown) return false;
  }
  record.isEvaluated = true;
  return true;
}

bool FolderComparison::EvaluateAll() {
  for (DocumentRecord& record : m_records) {
    if (IsStopped()) break;
    if (IsCompared(record)) Evaluate(record);
  }
  if (IsStopped()) LeaveRestUnknown();
  return !IsStopped();
}

void FolderComparison::LeaveRestUnknown() {
  for (DocumentRecord& record : m_records) {
    if (!record.isEvaluated) record.state = FileState::Unknown;
  }
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
