// The internet classes: sessions, HTTP connections and the requests on them, on WinInet.
#pragma once

#include <afxwin.h>

#include <wininet.h>

// The access type of a session that is set up as the system is.
#define PRE_CONFIG_INTERNET_ACCESS INTERNET_OPEN_TYPE_PRECONFIG

class CHttpConnection;
class CHttpFile;

// What went wrong with a connection.
class AFX_CORE_DATA CInternetException : public CException {
  DECLARE_DYNAMIC(CInternetException)
 public:
  explicit CInternetException(DWORD dwError);

  // WinInet's own text, or the system's. FALSE when neither has one.
  BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) override;

  DWORD m_dwError;    // of WinInet (12001 and up) or of the system
  DWORD m_dwContext;  // of the object that has failed
};

// dwError 0: the calling thread's last error.
[[noreturn]] AFX_CORE_DATA void AFXAPI AfxThrowInternetException(DWORD dwContext,
                                                                 DWORD dwError = 0);

// A program's access to the internet. Members throw CInternetException when they fail, unless they
// say otherwise. Everything here waits for what it asks for, so the session is not for
// INTERNET_FLAG_ASYNC.
class AFX_CORE_DATA CInternetSession : public CObject {
  DECLARE_DYNAMIC(CInternetSession)
 public:
  // pstrAgent: what the program calls itself towards servers; null: the application's name.
  // dwContext: handed on to the connections and, by default, to their requests.
  explicit CInternetSession(LPCTSTR pstrAgent = nullptr, DWORD dwContext = 1,
                            DWORD dwAccessType = PRE_CONFIG_INTERNET_ACCESS,
                            LPCTSTR pstrProxyName = nullptr, LPCTSTR pstrProxyBypass = nullptr,
                            DWORD dwFlags = 0);
  ~CInternetSession() override;

  // A connection to a server, which is not talked to yet. The caller deletes it, before the
  // session. nPort: INTERNET_INVALID_PORT_NUMBER: the port of the protocol. dwFlags: flags of
  // WinInet's for all requests on it, INTERNET_FLAG_SECURE among them.
  CHttpConnection* GetHttpConnection(LPCTSTR pstrServer,
                                     INTERNET_PORT nPort = INTERNET_INVALID_PORT_NUMBER,
                                     LPCTSTR pstrUserName = nullptr,
                                     LPCTSTR pstrPassword = nullptr);
  CHttpConnection* GetHttpConnection(LPCTSTR pstrServer, DWORD dwFlags,
                                     INTERNET_PORT nPort = INTERNET_INVALID_PORT_NUMBER,
                                     LPCTSTR pstrUserName = nullptr,
                                     LPCTSTR pstrPassword = nullptr);

  // Does not throw; nor does a second call.
  virtual void Close();

  operator HINTERNET() const { return m_hSession; }
  DWORD GetContext() const { return m_dwContext; }

 protected:
  DWORD m_dwContext;
  HINTERNET m_hSession;
};

// A connection of a session to a server.
class AFX_CORE_DATA CInternetConnection : public CObject {
  DECLARE_DYNAMIC(CInternetConnection)
 public:
  ~CInternetConnection() override;

  // Does not throw; nor does a second call.
  virtual void Close();

  operator HINTERNET() const { return m_hConnection; }
  DWORD GetContext() const { return m_dwContext; }
  CInternetSession* GetSession() const { return m_pSession; }
  CString GetServerName() const { return m_strServerName; }

 protected:
  CInternetConnection(CInternetSession* pSession, LPCTSTR pstrServer, DWORD dwContext);

  HINTERNET m_hConnection;
  DWORD m_dwContext;
  CInternetSession* m_pSession;
  CString m_strServerName;
};

// Made by CInternetSession::GetHttpConnection.
class AFX_CORE_DATA CHttpConnection : public CInternetConnection {
  DECLARE_DYNAMIC(CHttpConnection)
 public:
  enum {
    HTTP_VERB_POST = 0,
    HTTP_VERB_GET = 1,
    HTTP_VERB_HEAD = 2,
    HTTP_VERB_PUT = 3,
    HTTP_VERB_LINK = 4,
    HTTP_VERB_DELETE = 5,
    HTTP_VERB_UNLINK = 6
  };

  // A request, which is sent by its SendRequest. The caller deletes it, before the connection.
  // pstrObjectName: the path on the server. dwContext 1: the connection's. ppstrAcceptTypes: a list
  // that ends with null; null: text of any kind. pstrVersion: null: HTTP/1.0. dwFlags: of WinInet.
  // Throws CInternetException.
  CHttpFile* OpenRequest(LPCTSTR pstrVerb, LPCTSTR pstrObjectName, LPCTSTR pstrReferer = nullptr,
                         DWORD dwContext = 1, LPCTSTR* ppstrAcceptTypes = nullptr,
                         LPCTSTR pstrVersion = nullptr,
                         DWORD dwFlags = INTERNET_FLAG_EXISTING_CONNECT);
  // nVerb: a value of the enumeration.
  CHttpFile* OpenRequest(int nVerb, LPCTSTR pstrObjectName, LPCTSTR pstrReferer = nullptr,
                         DWORD dwContext = 1, LPCTSTR* ppstrAcceptTypes = nullptr,
                         LPCTSTR pstrVersion = nullptr,
                         DWORD dwFlags = INTERNET_FLAG_EXISTING_CONNECT);

 private:
  friend class CInternetSession;
  CHttpConnection(CInternetSession* pSession, LPCTSTR pstrServer, INTERNET_PORT nPort,
                  LPCTSTR pstrUserName, LPCTSTR pstrPassword, DWORD dwFlags);

  DWORD m_dwFlags;
};

// What a server answers, read from its beginning to its end. Of CStdioFile's members only those
// declared here can be used; the others throw CNotSupportedException.
class AFX_CORE_DATA CInternetFile : public CStdioFile {
  DECLARE_DYNAMIC(CInternetFile)
 public:
  ~CInternetFile() override;

  // The bytes read: fewer than nCount only at the end of the answer. Throws CInternetException.
  UINT Read(void* lpBuf, UINT nCount) override;
  // These do not throw; nor does a second call.
  void Close() override;
  void Abort() override;

  // An option of WinInet's (INTERNET_OPTION_...). FALSE when it cannot be set; does not throw.
  BOOL SetOption(DWORD dwOption, DWORD dwValue);

  void Write(const void* lpBuf, UINT nCount) override;
  void WriteString(LPCTSTR lpsz) override;
  LPTSTR ReadString(LPTSTR lpsz, UINT nMax) override;
  BOOL ReadString(CString& rString) override;
  BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError = nullptr) override;
  DWORD GetPosition() const override;
  LONG Seek(LONG lOff, UINT nFrom) override;
  DWORD GetLength() const override;
  void SetLength(DWORD dwNewLen) override;
  void Flush() override;

  operator HINTERNET() const { return m_hFile; }
  DWORD GetContext() const { return m_dwContext; }

 protected:
  CInternetFile(HINTERNET hFile, DWORD dwContext);

  HINTERNET m_hFile;
  DWORD m_dwContext;
};

// A request and its answer, made by CHttpConnection::OpenRequest.
class AFX_CORE_DATA CHttpFile : public CInternetFile {
  DECLARE_DYNAMIC(CHttpFile)
 public:
  // Sends the request and waits for the head of the answer. Headers: lines that end with CR LF; a
  // length of -1: up to the terminating 0. lpOptional: the body, which stays the caller's.
  // TRUE; a failure throws CInternetException.
  BOOL SendRequest(LPCTSTR pstrHeaders = nullptr, DWORD dwHeadersLen = 0,
                   LPVOID lpOptional = nullptr, DWORD dwOptionalLen = 0);
  BOOL SendRequest(CString& strHeaders, LPVOID lpOptional = nullptr, DWORD dwOptionalLen = 0);

  // About the answer: the status code, and what HTTP_QUERY_... asks for. FALSE when the answer does
  // not have it; these do not throw.
  BOOL QueryInfoStatusCode(DWORD& dwStatusCode) const;
  BOOL QueryInfo(DWORD dwInfoLevel, CString& str, LPDWORD lpdwIndex = nullptr) const;

  CString GetVerb() const { return m_strVerb; }
  CString GetObject() const { return m_strObject; }

 private:
  friend class CHttpConnection;
  CHttpFile(HINTERNET hFile, LPCTSTR pstrVerb, LPCTSTR pstrObject, DWORD dwContext);

  CString m_strVerb;
  CString m_strObject;
};
