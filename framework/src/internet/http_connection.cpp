#include <afxinet.h>

#include <iterator>

#include "internet/close_handle.h"

IMPLEMENT_DYNAMIC(CInternetConnection, CObject)
IMPLEMENT_DYNAMIC(CHttpConnection, CInternetConnection)

CInternetConnection::CInternetConnection(CInternetSession* pSession, LPCTSTR pstrServer,
                                         DWORD dwContext)
    : m_hConnection(nullptr),
      m_dwContext(dwContext),
      m_pSession(pSession),
      m_strServerName(pstrServer) {}

CInternetConnection::~CInternetConnection() { Close(); }

void CInternetConnection::Close() { CloseInternetHandle(m_hConnection); }

CHttpConnection::CHttpConnection(CInternetSession* pSession, LPCTSTR pstrServer,
                                 INTERNET_PORT nPort, LPCTSTR pstrUserName, LPCTSTR pstrPassword,
                                 DWORD dwFlags)
    : CInternetConnection(pSession, pstrServer, pSession->GetContext()), m_dwFlags(dwFlags) {
  if (nPort == INTERNET_INVALID_PORT_NUMBER) {
    const bool secure = (dwFlags & INTERNET_FLAG_SECURE) != 0;
    nPort = secure ? INTERNET_DEFAULT_HTTPS_PORT : INTERNET_DEFAULT_HTTP_PORT;
  }
  m_hConnection = InternetConnectA(*pSession, pstrServer, nPort, pstrUserName, pstrPassword,
                                   INTERNET_SERVICE_HTTP, dwFlags, m_dwContext);
  if (m_hConnection == nullptr) AfxThrowInternetException(m_dwContext);
}

CHttpFile* CHttpConnection::OpenRequest(LPCTSTR pstrVerb, LPCTSTR pstrObjectName,
                                        LPCTSTR pstrReferer, DWORD dwContext,
                                        LPCTSTR* ppstrAcceptTypes, LPCTSTR pstrVersion,
                                        DWORD dwFlags) {
  static LPCTSTR kText[] = {"text/*", nullptr};
  if (dwContext == 1) dwContext = m_dwContext;
  if (ppstrAcceptTypes == nullptr) ppstrAcceptTypes = kText;
  if (pstrVersion == nullptr) pstrVersion = "HTTP/1.0";
  HINTERNET request =
      HttpOpenRequestA(m_hConnection, pstrVerb, pstrObjectName, pstrVersion, pstrReferer,
                       ppstrAcceptTypes, dwFlags | m_dwFlags, dwContext);
  if (request == nullptr) AfxThrowInternetException(dwContext);
  try {
    return new CHttpFile(request, pstrVerb, pstrObjectName, dwContext);
  } catch (...) {
    CloseInternetHandle(request);
    throw;
  }
}

CHttpFile* CHttpConnection::OpenRequest(int nVerb, LPCTSTR pstrObjectName, LPCTSTR pstrReferer,
                                        DWORD dwContext, LPCTSTR* ppstrAcceptTypes,
                                        LPCTSTR pstrVersion, DWORD dwFlags) {
  static constexpr LPCTSTR kVerbs[] = {"POST", "GET", "HEAD", "PUT", "LINK", "DELETE", "UNLINK"};
  if (nVerb < 0 || nVerb >= static_cast<int>(std::size(kVerbs)))
    AfxThrowInternetException(dwContext, ERROR_INVALID_PARAMETER);
  return OpenRequest(kVerbs[nVerb], pstrObjectName, pstrReferer, dwContext, ppstrAcceptTypes,
                     pstrVersion, dwFlags);
}
