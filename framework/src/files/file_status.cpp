// What the file system knows of files, and changing it.

#include <afxwin.h>

#include "files/file_paths.h"
#include "system/owned_handle.h"
#include "time/file_time.h"

bool FullPath(LPCSTR name, CString& path) {
  if (*name == '\0') {
    SetLastError(ERROR_PATH_NOT_FOUND);
    return false;
  }
  char full[MAX_PATH];
  char* file;
  const DWORD length = GetFullPathName(name, MAX_PATH, full, &file);
  if (length >= MAX_PATH) SetLastError(ERROR_FILENAME_EXCED_RANGE);
  if (length == 0 || length >= MAX_PATH) return false;
  path = full;
  return true;
}

namespace {

// From what the system says of an open file or of a path.
template <class Information>
void fillIn(CFileStatus& status, const Information& information, LPCSTR path) {
  status = {};
  lstrcpyn(status.m_szFullName, path, MAX_PATH);
  status.m_mtime = CTime(information.ftLastWriteTime);
  status.m_ctime = CTime(information.ftCreationTime);
  status.m_atime = CTime(information.ftLastAccessTime);
  if (status.m_ctime.GetTime() == 0) status.m_ctime = status.m_mtime;
  if (status.m_atime.GetTime() == 0) status.m_atime = status.m_mtime;
  status.m_size = static_cast<LONG>(information.nFileSizeLow);
  // "Normal" is no attribute here.
  status.m_attribute =
      static_cast<BYTE>(information.dwFileAttributes & ~FILE_ATTRIBUTE_NORMAL & 0xFF);
}

[[noreturn]] void throwLastError(LPCTSTR fileName) {
  CFileException::ThrowOsError(static_cast<LONG>(GetLastError()), fileName);
}

void setTimes(LPCTSTR fileName, const CFileStatus& status, bool isFolder) {
  OwnedFileHandle file(CreateFile(
      fileName, FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
      nullptr, OPEN_EXISTING, isFolder ? FILE_FLAG_BACKUP_SEMANTICS : 0, nullptr));
  if (!file.IsValid()) throwLastError(fileName);
  FILETIME created, read, written;
  const auto pointerTo = [](CTime time, FILETIME& fileTime) {
    fileTime = FileTimeOf(time);
    return time.GetTime() == 0 ? nullptr : &fileTime;
  };
  if (!SetFileTime(file.Get(), pointerTo(status.m_ctime, created), pointerTo(status.m_atime, read),
                   pointerTo(status.m_mtime, written)))
    throwLastError(fileName);
}

}  // namespace

BOOL CFile::GetStatus(CFileStatus& rStatus) const {
  BY_HANDLE_FILE_INFORMATION information;
  HANDLE handle = reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(m_hFile));
  if (!GetFileInformationByHandle(handle, &information)) return FALSE;
  fillIn(rStatus, information, m_strFileName);
  return TRUE;
}

BOOL PASCAL CFile::GetStatus(LPCTSTR lpszFileName, CFileStatus& rStatus) {
  WIN32_FILE_ATTRIBUTE_DATA information;
  CString path;
  if (!FullPath(lpszFileName, path) ||
      !GetFileAttributesEx(lpszFileName, GetFileExInfoStandard, &information))
    return FALSE;
  fillIn(rStatus, information, path);
  return TRUE;
}

void PASCAL CFile::SetStatus(LPCTSTR lpszFileName, const CFileStatus& status) {
  const DWORD attributes = GetFileAttributes(lpszFileName);
  if (attributes == INVALID_FILE_ATTRIBUTES) throwLastError(lpszFileName);
  if (status.m_mtime.GetTime() != 0)
    setTimes(lpszFileName, status, (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0);
  if (status.m_attribute != (attributes & ~FILE_ATTRIBUTE_NORMAL & 0xFF) &&
      !SetFileAttributes(lpszFileName, status.m_attribute))
    throwLastError(lpszFileName);
}

void PASCAL CFile::Rename(LPCTSTR lpszOldName, LPCTSTR lpszNewName) {
  if (!MoveFile(lpszOldName, lpszNewName)) throwLastError(lpszOldName);
}

void PASCAL CFile::Remove(LPCTSTR lpszFileName) {
  if (!DeleteFile(lpszFileName)) throwLastError(lpszFileName);
}
