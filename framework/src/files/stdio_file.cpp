#include <afxwin.h>

#include <errno.h>
#include <fcntl.h>
#include <io.h>
#include <string.h>

IMPLEMENT_DYNAMIC(CStdioFile, CFile)

namespace {

// Throws for the runtime's latest error on the stream.
[[noreturn]] void throwError(FILE* stream, const CString& fileName) {
  const int error = errno;
  clearerr(stream);
  CFileException::ThrowErrno(error, fileName);
}

}  // namespace

CStdioFile::CStdioFile() : m_pStream(nullptr) {}

CStdioFile::CStdioFile(FILE* pOpenStream)
    : CFile(static_cast<int>(_get_osfhandle(_fileno(pOpenStream)))), m_pStream(pOpenStream) {}

CStdioFile::CStdioFile(LPCTSTR lpszFileName, UINT nOpenFlags) : CStdioFile() {
  CFileException error;
  if (!CStdioFile::Open(lpszFileName, nOpenFlags, &error))
    AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CStdioFile::~CStdioFile() {
  if (m_bCloseOnDelete) CStdioFile::Abort();
}

BOOL CStdioFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError) {
  if (m_bCloseOnDelete) CStdioFile::Abort();
  m_pStream = nullptr;
  if (!CFile::Open(lpszFileName, nOpenFlags & ~(typeText | typeBinary), pError)) return FALSE;

  // The file exists by now and has its length, so a stream for writing does not cut it.
  const bool binary = (nOpenFlags & typeBinary) != 0;
  const bool reads = (nOpenFlags & (modeWrite | modeReadWrite)) != modeWrite;
  const bool writes = (nOpenFlags & (modeWrite | modeReadWrite)) != modeRead;
  char mode[4] = {reads ? 'r' : 'w', binary ? 'b' : 't', reads && writes ? '+' : '\0', '\0'};
  const int flags = (binary ? _O_BINARY : _O_TEXT) | (writes ? 0 : _O_RDONLY) |
                    (nOpenFlags & modeNoInherit ? _O_NOINHERIT : 0);
  const int descriptor = _open_osfhandle(static_cast<intptr_t>(static_cast<LONG>(m_hFile)), flags);
  if (descriptor != -1) m_pStream = _fdopen(descriptor, mode);
  if (m_pStream != nullptr) return TRUE;

  // Too many files for the runtime: what has the handle by now, closes it.
  if (pError != nullptr) {
    pError->m_cause = CFileException::ErrnoToException(errno);
    pError->m_lOsError = static_cast<LONG>(_doserrno);
    pError->m_strFileName = lpszFileName;
  }
  if (descriptor != -1) {
    _close(descriptor);
    m_hFile = hFileNull;
  }
  CFile::Abort();
  return FALSE;
}

UINT CStdioFile::Read(void* lpBuf, UINT nCount) {
  const size_t done = fread(lpBuf, 1, nCount, m_pStream);
  if (done < nCount && ferror(m_pStream)) throwError(m_pStream, m_strFileName);
  return static_cast<UINT>(done);
}

void CStdioFile::Write(const void* lpBuf, UINT nCount) {
  if (fwrite(lpBuf, 1, nCount, m_pStream) != nCount) throwError(m_pStream, m_strFileName);
}

void CStdioFile::WriteString(LPCTSTR lpsz) {
  if (fputs(lpsz, m_pStream) == EOF) throwError(m_pStream, m_strFileName);
}

LPTSTR CStdioFile::ReadString(LPTSTR lpsz, UINT nMax) {
  LPTSTR line = fgets(lpsz, static_cast<int>(nMax), m_pStream);
  if (line == nullptr && ferror(m_pStream)) throwError(m_pStream, m_strFileName);
  return line;
}

// Character by character, so that a null in the line does not hide what follows it.
BOOL CStdioFile::ReadString(CString& rString) {
  rString.Empty();
  char piece[256];
  int length = 0, c;
  while ((c = getc(m_pStream)) != EOF && c != '\n') {
    piece[length++] = static_cast<char>(c);
    if (length == sizeof piece) {
      rString += CString(piece, length);
      length = 0;
    }
  }
  rString += CString(piece, length);
  if (c == EOF && ferror(m_pStream)) throwError(m_pStream, m_strFileName);
  return c != EOF || !rString.IsEmpty();
}

DWORD CStdioFile::GetPosition() const {
  const long position = ftell(m_pStream);
  if (position == -1) throwError(m_pStream, m_strFileName);
  return static_cast<DWORD>(position);
}

LONG CStdioFile::Seek(LONG lOff, UINT nFrom) {
  if (fseek(m_pStream, lOff, static_cast<int>(nFrom)) != 0)
    AfxThrowFileException(CFileException::badSeek, static_cast<LONG>(_doserrno), m_strFileName);
  return static_cast<LONG>(GetPosition());
}

DWORD CStdioFile::GetLength() const {
  if (fflush(m_pStream) != 0) throwError(m_pStream, m_strFileName);
  return CFile::GetLength();
}

void CStdioFile::SetLength(DWORD dwNewLen) {
  Flush();
  CFile::SetLength(dwNewLen);
  Seek(0, end);
}

void CStdioFile::Flush() {
  if (m_pStream != nullptr && fflush(m_pStream) != 0) throwError(m_pStream, m_strFileName);
}

void CStdioFile::Close() {
  const CString fileName = m_strFileName;
  FILE* stream = m_pStream;
  m_pStream = nullptr;
  m_hFile = hFileNull;  // the stream closes it
  CFile::Close();
  if (stream != nullptr && fclose(stream) != 0) CFileException::ThrowErrno(errno, fileName);
}

void CStdioFile::Abort() {
  if (m_pStream != nullptr) fclose(m_pStream);
  m_pStream = nullptr;
  m_hFile = hFileNull;
  CFile::Abort();
}
