#include <afxinet.h>

#include "internet/close_handle.h"

IMPLEMENT_DYNAMIC(CInternetSession, CObject)

CInternetSession::CInternetSession(LPCTSTR pstrAgent, DWORD dwContext, DWORD dwAccessType,
                                   LPCTSTR pstrProxyName, LPCTSTR pstrProxyBypass, DWORD dwFlags)
    : m_dwContext(dwContext) {
  if (pstrAgent == nullptr) pstrAgent = AfxGetAppName();
  m_hSession = InternetOpenA(pstrAgent, dwAccessType, pstrProxyName, pstrProxyBypass, dwFlags);
  if (m_hSession == nullptr) AfxThrowInternetException(m_dwContext);
}

CInternetSession::~CInternetSession() { Close(); }

void CInternetSession::Close() { CloseInternetHandle(m_hSession); }

CHttpConnection* CInternetSession::GetHttpConnection(LPCTSTR pstrServer, INTERNET_PORT nPort,
                                                     LPCTSTR pstrUserName, LPCTSTR pstrPassword) {
  return GetHttpConnection(pstrServer, DWORD{0}, nPort, pstrUserName, pstrPassword);
}

CHttpConnection* CInternetSession::GetHttpConnection(LPCTSTR pstrServer, DWORD dwFlags,
                                                     INTERNET_PORT nPort, LPCTSTR pstrUserName,
                                                     LPCTSTR pstrPassword) {
  return new CHttpConnection(this, pstrServer, nPort, pstrUserName, pstrPassword, dwFlags);
}
