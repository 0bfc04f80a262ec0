#include "ops/FolderEntries.h"

#include <cstring>

#include "entry/strutils.h"
#include "ops/TreePaths.h"

namespace {

constexpr DWORD kFolderLink = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;

// Opens what stands at path, the link itself and not what it leads to.
unique_file OpenLinkItself(const char* path) {
  return unique_file(CreateFileA(
      path, FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
      OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

// The tag is asked for through a handle: the reserved field of the search's record, where it is to
// stand too, is not filled in by every system. Where it is not known, better a link too many.
bool HasLinkTag(const char* path) {
  const unique_file link = OpenLinkItself(path);
  FILE_ATTRIBUTE_TAG_INFO info = {};
  if (!link || !GetFileInformationByHandleEx(link.get(), FileAttributeTagInfo, &info, sizeof info))
    return true;
  return info.ReparseTag == 0 || IsReparseTagNameSurrogate(info.ReparseTag);
}

bool RunsUnderWine() {
  static const bool runs =
      GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
  return runs;
}

// Where path really leads, in lower case; empty when it can't be told.
CString RealPath(const char* path) {
  char text[2 * MAX_PATH] = "";
  const unique_file file = OpenLinkItself(path);
  const DWORD length = GetFinalPathNameByHandleA(file.get(), text, sizeof text, 0);
  if (length == 0 || length >= sizeof text) return CString();
  const char kPrefix[] = R"(\\?\)";
  CString result(std::strncmp(text, kPrefix, sizeof kPrefix - 1) == 0 ? text + sizeof kPrefix - 1
                                                                      : text);
  result.MakeLower();
  return result;
}

bool IsDotOrDots(const char* name) {
  return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

}  // namespace

FolderEntries::FolderEntries(const CString& folder, const char* pattern) : m_begin(folder + "\\") {
  // Without a name it would be the root of the current drive.
  if (folder.IsEmpty()) return;
  m_search.reset(FindFirstFileA(m_begin + pattern, &m_found));
  if (m_search) return;
  const DWORD error = GetLastError();
  const bool isLong = m_begin.GetLength() + std::strlen(pattern) >= MAX_PATH;
  m_unreadable = isLong || (error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND &&
                            error != ERROR_NO_MORE_FILES);
}

bool FolderEntries::Next() {
  if (!m_search) return false;
  do {
    if (m_atFirst) {
      m_atFirst = false;
    } else if (!FindNextFileA(m_search.get(), &m_found)) {
      m_unreadable = GetLastError() != ERROR_NO_MORE_FILES;
      return false;
    }
  } while (IsDotOrDots(m_found.cFileName));
  return true;
}

bool FolderEntries::IsLink() const {
  return (m_found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && HasLinkTag(Path());
}

bool IsFolderLink(const char* path) {
  const DWORD attributes = GetFileAttributesA(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & kFolderLink) == kFolderLink &&
         HasLinkTag(path);
}

bool IsRealFolder(const char* path) {
  const DWORD attributes = GetFileAttributesA(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
         !IsFolderLink(path);
}

bool CanActOnFolderLink(const char* path) {
  const unique_file link = OpenLinkItself(path);
  BY_HANDLE_FILE_INFORMATION info;
  return link && GetFileInformationByHandle(link.get(), &info) &&
         (info.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

bool CanActOnFile(const char* path) {
  if (!RunsUnderWine()) return true;
  const CString real = RealPath(path);
  if (real.IsEmpty() || real == ComparedPath(path)) return true;
  // The folder may be reached through a link, the file may not be one.
  CString folder, name, realFolder, realName;
  SplitAtLastBackslash(ComparedPath(path), folder, name);
  SplitAtLastBackslash(real, realFolder, realName);
  return name == realName && RealPath(folder + "\\") == realFolder;
}
