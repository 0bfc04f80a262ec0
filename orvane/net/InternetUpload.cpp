#include "net/InternetUpload.h"

#include <afxinet.h>

#include <cstdlib>
#include <memory>

#include "diag/trace.h"
#include "messages/message.h"
#include "net/FormBody.h"
#include "net/InternetErrors.h"
#include "resources/resource.h"

namespace {

constexpr char kAgent[] = "Sample Web Service Client";
constexpr DWORD kContext = 1;
constexpr DWORD kTimeOut = 30000;  // milliseconds
constexpr char kTrace[] = "InternetUploadFile";

// "host" or "host:port". Port 0: there is none of that number.
struct ServerName {
  explicit ServerName(const char* server) : host(server) {
    const int colon = host.Find(':');
    if (colon < 0) return;
    char* end = nullptr;
    const unsigned long number = strtoul(server + colon + 1, &end, 10);
    port = static_cast<INTERNET_PORT>(*end == 0 && number <= 0xFFFF ? number : 0);
    host = host.Left(colon);
  }
  CString host;
  INTERNET_PORT port = INTERNET_DEFAULT_HTTP_PORT;
};

// The status that the server answers with; 0: none.
DWORD post(const ServerName& server, const char* page, FormBody& body) {
  CInternetSession session(kAgent, kContext, PRE_CONFIG_INTERNET_ACCESS, nullptr, nullptr,
                           INTERNET_FLAG_DONT_CACHE);
  const std::unique_ptr<CHttpConnection> connection(
      session.GetHttpConnection(server.host, INTERNET_FLAG_NO_AUTO_REDIRECT, server.port));
  const std::unique_ptr<CHttpFile> request(
      connection->OpenRequest("POST", page, nullptr, kContext, nullptr, nullptr,
                              INTERNET_FLAG_RELOAD | INTERNET_FLAG_EXISTING_CONNECT |
                                  INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_KEEP_CONNECTION));
  for (const DWORD option : {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT,
                             INTERNET_OPTION_RECEIVE_TIMEOUT})
    request->SetOption(option, kTimeOut);
  request->SendRequest(nullptr, 0, body.Bytes(), body.Size());
  DWORD status = 0;
  request->QueryInfoStatusCode(status);
  request->Close();
  connection->Close();
  session.Close();
  return status;
}

}  // namespace

int InternetUploadFile(const char* path, const char* fileName, const char* server, const char* page,
                       int) {
  try {
    FormBody body;
    switch (body.Read(path, fileName)) {
      case FormResult::Done:
        break;
      case FormResult::NoFile:
        TraceInternetError(kTrace, path, GetLastError());
        return 0;
      case FormResult::TooLarge:
        Message::DisplayErrorMessage(IDS_FILE_TOO_LARGE, path);
        return 0;
    }
    const ServerName name(server);
    if (name.host.IsEmpty() || name.port == 0) {
      TraceInternetError(kTrace, server, ERROR_INTERNET_INVALID_URL);
      return 0;
    }
    const DWORD status = post(name, page, body);
    ASSERT(status == HTTP_STATUS_OK);
    return status == HTTP_STATUS_OK;
  } catch (CInternetException* exception) {
    TraceInternetError(kTrace, server, exception->m_dwError);
    exception->Delete();
  } catch (CException* exception) {
    exception->Delete();
  } catch (...) {
    // Out of memory, or a text that a host has taken out of the string table.
  }
  return 0;
}
