#include <afxwin.h>

#include <shlwapi.h>

#include "files/file_paths.h"
#include "system/owned_handle.h"

IMPLEMENT_DYNAMIC(CFile, CObject)

namespace {

HANDLE handleOf(const CFile& file) {
  return reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(file.m_hFile));
}

UINT numberOf(HANDLE handle) { return static_cast<UINT>(reinterpret_cast<UINT_PTR>(handle)); }

[[noreturn]] void throwLastError(const CString& fileName) {
  CFileException::ThrowOsError(static_cast<LONG>(GetLastError()), fileName);
}

// Moves to a position, and returns the new one.
LONGLONG seek(const CFile& file, LONGLONG offset, DWORD from, const CString& fileName) {
  LARGE_INTEGER move, moved;
  move.QuadPart = offset;
  if (!SetFilePointerEx(handleOf(file), move, &moved, from)) throwLastError(fileName);
  return moved.QuadPart;
}

// A position or length for the types of this class.
DWORD narrow(LONGLONG position, const CString& fileName) {
  if (position > MAXDWORD)
    AfxThrowFileException(CFileException::genericException, ERROR_ARITHMETIC_OVERFLOW, fileName);
  return static_cast<DWORD>(position);
}

DWORD accessOf(UINT flags) {
  switch (flags & (CFile::modeWrite | CFile::modeReadWrite)) {
    case CFile::modeRead:
      return GENERIC_READ;
    case CFile::modeWrite:
      return GENERIC_WRITE;
    default:
      return GENERIC_READ | GENERIC_WRITE;
  }
}

DWORD sharingOf(UINT flags) {
  switch (flags & 0x0070) {
    case CFile::shareDenyWrite:
      return FILE_SHARE_READ;
    case CFile::shareDenyRead:
      return FILE_SHARE_WRITE;
    case CFile::shareDenyNone:
      return FILE_SHARE_READ | FILE_SHARE_WRITE;
    default:
      return 0;
  }
}

DWORD creationOf(UINT flags) {
  if (!(flags & CFile::modeCreate)) return OPEN_EXISTING;
  return flags & CFile::modeNoTruncate ? OPEN_ALWAYS : CREATE_ALWAYS;
}

void fillIn(CFileException* exception, LONG error, LPCTSTR fileName) {
  if (exception == nullptr) return;
  exception->m_cause = CFileException::OsErrorToException(error);
  exception->m_lOsError = error;
  exception->m_strFileName = fileName;
}

}  // namespace

CFile::CFile() : m_hFile(hFileNull), m_bCloseOnDelete(FALSE) {}

CFile::CFile(int hFile) : m_hFile(static_cast<UINT>(hFile)), m_bCloseOnDelete(FALSE) {}

CFile::CFile(LPCTSTR lpszFileName, UINT nOpenFlags) : CFile() {
  CFileException error;
  if (!CFile::Open(lpszFileName, nOpenFlags, &error))
    AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile() {
  if (m_bCloseOnDelete) CFile::Abort();
}

BOOL CFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError) {
  if (m_bCloseOnDelete) CFile::Abort();
  m_hFile = hFileNull;
  m_bCloseOnDelete = FALSE;
  m_strFileName.Empty();

  CString path;
  if (!FullPath(lpszFileName, path)) {
    fillIn(pError, static_cast<LONG>(GetLastError()), lpszFileName);
    return FALSE;
  }
  SECURITY_ATTRIBUTES security = {sizeof security, nullptr, !(nOpenFlags & modeNoInherit)};
  OwnedFileHandle file(CreateFile(lpszFileName, accessOf(nOpenFlags), sharingOf(nOpenFlags),
                                  &security, creationOf(nOpenFlags), FILE_ATTRIBUTE_NORMAL,
                                  nullptr));
  if (!file.IsValid()) {
    fillIn(pError, static_cast<LONG>(GetLastError()), lpszFileName);
    return FALSE;
  }
  m_hFile = numberOf(file.Release());
  m_bCloseOnDelete = TRUE;
  m_strFileName = path;
  return TRUE;
}

UINT CFile::Read(void* lpBuf, UINT nCount) {
  if (nCount == 0) return 0;
  DWORD done = 0;
  if (!ReadFile(handleOf(*this), lpBuf, nCount, &done, nullptr)) throwLastError(m_strFileName);
  return done;
}

void CFile::Write(const void* lpBuf, UINT nCount) {
  if (nCount == 0) return;
  DWORD done = 0;
  if (!WriteFile(handleOf(*this), lpBuf, nCount, &done, nullptr)) throwLastError(m_strFileName);
  if (done != nCount)
    AfxThrowFileException(CFileException::diskFull, ERROR_DISK_FULL, m_strFileName);
}

LONG CFile::Seek(LONG lOff, UINT nFrom) {
  return static_cast<LONG>(narrow(seek(*this, lOff, nFrom, m_strFileName), m_strFileName));
}

DWORD CFile::GetPosition() const {
  return narrow(seek(*this, 0, FILE_CURRENT, m_strFileName), m_strFileName);
}

DWORD CFile::GetLength() const {
  LARGE_INTEGER size;
  if (!GetFileSizeEx(handleOf(*this), &size)) throwLastError(m_strFileName);
  return narrow(size.QuadPart, m_strFileName);
}

void CFile::SetLength(DWORD dwNewLen) {
  seek(*this, dwNewLen, FILE_BEGIN, m_strFileName);
  if (!SetEndOfFile(handleOf(*this))) throwLastError(m_strFileName);
}

void CFile::Flush() {
  if (m_hFile != hFileNull && !FlushFileBuffers(handleOf(*this))) throwLastError(m_strFileName);
}

void CFile::Close() {
  const CString fileName = m_strFileName;
  HANDLE handle = handleOf(*this);
  const bool open = m_hFile != hFileNull;
  m_hFile = hFileNull;
  m_bCloseOnDelete = FALSE;
  m_strFileName.Empty();
  if (open && !CloseHandle(handle)) throwLastError(fileName);
}

void CFile::Abort() {
  if (m_hFile != hFileNull) CloseHandle(handleOf(*this));
  m_hFile = hFileNull;
  m_bCloseOnDelete = FALSE;
  m_strFileName.Empty();
}

CString CFile::GetFilePath() const { return m_strFileName; }

CString CFile::GetFileName() const { return PathFindFileName(m_strFileName); }

CString CFile::GetFileTitle() const {
  CString title = GetFileName();
  PathRemoveExtension(title.GetBuffer(0));
  title.ReleaseBuffer();
  return title;
}

void CFile::SetFilePath(LPCTSTR lpszNewName) { m_strFileName = lpszNewName; }
