#include <afxinet.h>

IMPLEMENT_DYNAMIC(CHttpFile, CInternetFile)

CHttpFile::CHttpFile(HINTERNET hFile, LPCTSTR pstrVerb, LPCTSTR pstrObject, DWORD dwContext)
    : CInternetFile(hFile, dwContext), m_strVerb(pstrVerb), m_strObject(pstrObject) {}

BOOL CHttpFile::SendRequest(LPCTSTR pstrHeaders, DWORD dwHeadersLen, LPVOID lpOptional,
                            DWORD dwOptionalLen) {
  if (!HttpSendRequestA(m_hFile, pstrHeaders, dwHeadersLen, lpOptional, dwOptionalLen))
    AfxThrowInternetException(m_dwContext);
  return TRUE;
}

BOOL CHttpFile::SendRequest(CString& strHeaders, LPVOID lpOptional, DWORD dwOptionalLen) {
  return SendRequest(strHeaders, static_cast<DWORD>(strHeaders.GetLength()), lpOptional,
                     dwOptionalLen);
}

BOOL CHttpFile::QueryInfoStatusCode(DWORD& dwStatusCode) const {
  DWORD size = sizeof dwStatusCode;
  return HttpQueryInfoA(m_hFile, HTTP_QUERY_STATUS_CODE | HTTP_QUERY_FLAG_NUMBER, &dwStatusCode,
                        &size, nullptr);
}

BOOL CHttpFile::QueryInfo(DWORD dwInfoLevel, CString& str, LPDWORD lpdwIndex) const {
  DWORD index = 0;  // the system advances it past what it found
  DWORD* const place = lpdwIndex != nullptr ? lpdwIndex : &index;
  DWORD size = 0;
  if (HttpQueryInfoA(m_hFile, dwInfoLevel, nullptr, &size, place)) return FALSE;
  if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return FALSE;
  const int length = static_cast<int>(size);
  const BOOL found = HttpQueryInfoA(m_hFile, dwInfoLevel, str.GetBuffer(length), &size, place);
  str.ReleaseBuffer(found ? -1 : 0);
  return found;
}
