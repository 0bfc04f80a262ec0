#include <afxwin.h>

#include <errno.h>
#include <stdlib.h>

#include "exceptions/exception_texts.h"

IMPLEMENT_DYNAMIC(CFileException, CException)

CFileException::CFileException(int cause, LONG lOsError, LPCTSTR lpszFileName)
    : m_cause(cause), m_lOsError(lOsError), m_strFileName(lpszFileName) {}

int PASCAL CFileException::OsErrorToException(LONG lOsError) {
  switch (lOsError) {
    case NO_ERROR:
      return none;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_NO_MORE_FILES:
      return fileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_DIRECTORY:
      return badPath;
    case ERROR_TOO_MANY_OPEN_FILES:
      return tooManyOpenFiles;
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
    case ERROR_CANNOT_MAKE:
      return accessDenied;
    case ERROR_INVALID_HANDLE:
      return invalidFile;
    case ERROR_CURRENT_DIRECTORY:
      return removeCurrentDir;
    case ERROR_SEEK:
    case ERROR_NEGATIVE_SEEK:
    case ERROR_SEEK_ON_DEVICE:
      return badSeek;
    case ERROR_BAD_UNIT:
    case ERROR_NOT_READY:
    case ERROR_CRC:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_WRITE_FAULT:
    case ERROR_READ_FAULT:
    case ERROR_GEN_FAILURE:
    case ERROR_IO_DEVICE:
      return hardIO;
    case ERROR_SHARING_VIOLATION:
      return sharingViolation;
    case ERROR_LOCK_VIOLATION:
    case ERROR_NOT_LOCKED:
      return lockViolation;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return diskFull;
    case ERROR_HANDLE_EOF:
      return endOfFile;
    default:
      return genericException;
  }
}

int PASCAL CFileException::ErrnoToException(int nErrno) {
  switch (nErrno) {
    case 0:
      return none;
    case EPERM:
    case EACCES:
      return accessDenied;
    case EBADF:
      return invalidFile;
    case EDEADLOCK:
      return sharingViolation;
    case EMFILE:
    case ENFILE:
      return tooManyOpenFiles;
    case ENOENT:
      return fileNotFound;
    case ENOTDIR:
      return badPath;
    case ENOSPC:
      return diskFull;
    case EINVAL:
    case EIO:
      return hardIO;
    default:
      return genericException;
  }
}

void PASCAL CFileException::ThrowOsError(LONG lOsError, LPCTSTR lpszFileName) {
  AfxThrowFileException(OsErrorToException(lOsError), lOsError, lpszFileName);
}

void PASCAL CFileException::ThrowErrno(int nErrno, LPCTSTR lpszFileName) {
  AfxThrowFileException(ErrnoToException(nErrno), static_cast<LONG>(_doserrno), lpszFileName);
}

void AFXAPI AfxThrowFileException(int cause, LONG lOsError, LPCTSTR lpszFileName) {
  throw new CFileException(cause, lOsError, lpszFileName);
}

BOOL CFileException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext) {
  static const LPCSTR kTexts[] = {
      "No error occurred.",
      "An unspecified error occurred while accessing %s.",
      "%s was not found.",
      "%s contains an invalid path.",
      "%s could not be opened because there are too many open files.",
      "Access to %s was denied.",
      "An invalid file handle was associated with %s.",
      "%s could not be removed because it is the current directory.",
      "%s could not be created because the directory is full.",
      "Seek failed on %s.",
      "A hardware input or output error was reported while accessing %s.",
      "A sharing violation occurred while accessing %s.",
      "A locking violation occurred while accessing %s.",
      "Disk full while accessing %s.",
      "An attempt was made to access %s past its end.",
  };
  const int count = static_cast<int>(sizeof kTexts / sizeof kTexts[0]);
  const int cause = m_cause >= 0 && m_cause < count ? m_cause : genericException;
  if (pnHelpContext != nullptr) *pnHelpContext = 0;
  CString text;
  text.Format(kTexts[cause],
              m_strFileName.IsEmpty() ? "an unnamed file" : static_cast<LPCTSTR>(m_strFileName));
  CopyText(text, lpszError, nMaxError);
  return TRUE;
}
