#include <afxinet.h>

#include "internet/close_handle.h"

IMPLEMENT_DYNAMIC(CInternetFile, CStdioFile)

CInternetFile::CInternetFile(HINTERNET hFile, DWORD dwContext)
    : m_hFile(hFile), m_dwContext(dwContext) {}

CInternetFile::~CInternetFile() { Close(); }

// One call of WinInet's may give less than was asked for long before the end.
UINT CInternetFile::Read(void* lpBuf, UINT nCount) {
  UINT filled = 0;
  while (filled < nCount) {
    DWORD got = 0;
    if (!InternetReadFile(m_hFile, static_cast<char*>(lpBuf) + filled, nCount - filled, &got))
      AfxThrowInternetException(m_dwContext);
    if (got == 0) break;
    filled += got;
  }
  return filled;
}

void CInternetFile::Close() { CloseInternetHandle(m_hFile); }

void CInternetFile::Abort() { Close(); }

BOOL CInternetFile::SetOption(DWORD dwOption, DWORD dwValue) {
  return InternetSetOptionA(m_hFile, dwOption, &dwValue, sizeof dwValue);
}

void CInternetFile::Write(const void*, UINT) { AfxThrowNotSupportedException(); }
void CInternetFile::WriteString(LPCTSTR) { AfxThrowNotSupportedException(); }
LPTSTR CInternetFile::ReadString(LPTSTR, UINT) { AfxThrowNotSupportedException(); }
BOOL CInternetFile::ReadString(CString&) { AfxThrowNotSupportedException(); }
BOOL CInternetFile::Open(LPCTSTR, UINT, CFileException*) { AfxThrowNotSupportedException(); }
DWORD CInternetFile::GetPosition() const { AfxThrowNotSupportedException(); }
LONG CInternetFile::Seek(LONG, UINT) { AfxThrowNotSupportedException(); }
DWORD CInternetFile::GetLength() const { AfxThrowNotSupportedException(); }
void CInternetFile::SetLength(DWORD) { AfxThrowNotSupportedException(); }
void CInternetFile::Flush() { AfxThrowNotSupportedException(); }
