#include "net/InternetTransfer.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "diag/trace.h"
#include "net/InternetExchange.h"

namespace {

constexpr DWORD kPermanentRedirect = 308;  // RFC 9110, section 15.4.9

// WinInet gives up so much later than the operation, whose word it is that counts.
constexpr DWORD kLater = 2000;

void setTimeOut(HINTERNET handle, DWORD option, DWORD milliseconds) {
  milliseconds += kLater;
  InternetSetOptionA(handle, option, &milliseconds, sizeof milliseconds);
}

// Some errors of the connection come as they are from the sockets below.
DWORD errorOfInternet(DWORD error) {
  switch (error) {
    case WSAECONNRESET:
      return ERROR_INTERNET_CONNECTION_RESET;
    case WSAECONNABORTED:
      return ERROR_INTERNET_CONNECTION_ABORTED;
    case WSAECONNREFUSED:
      return ERROR_INTERNET_CANNOT_CONNECT;
    case WSAETIMEDOUT:
      return ERROR_INTERNET_TIMEOUT;
    default:
      return error;
  }
}

// What is wrong with a URL; 0: nothing. Wine would never complete the opening of some, and line
// ends in one would put headers into the request.
DWORD errorOfUrl(const char* url) {
  for (const char* c = url; *c != 0; ++c) {
    if (static_cast<unsigned char>(*c) < ' ') return ERROR_INTERNET_INVALID_URL;
  }
  URL_COMPONENTSA parts = {};
  parts.dwStructSize = sizeof parts;
  parts.dwHostNameLength = 1;  // wanted
  if (!InternetCrackUrlA(url, 0, 0, &parts)) {
    const DWORD error = GetLastError();
    return error >= INTERNET_ERROR_BASE ? error : ERROR_INTERNET_INVALID_URL;
  }
  switch (parts.nScheme) {
    case INTERNET_SCHEME_HTTP:
    case INTERNET_SCHEME_HTTPS:
    case INTERNET_SCHEME_FTP:
      return parts.dwHostNameLength > 0 ? 0 : ERROR_INTERNET_INVALID_URL;
    default:
      return ERROR_INTERNET_UNRECOGNIZED_SCHEME;
  }
}

}  // namespace

InternetTransfer::InternetTransfer(const char* url, HANDLE wake, bool isAsync,
                                   const TimeOuts& timeOuts)
    : m_timeOuts(timeOuts), m_exchange(std::make_shared<InternetExchange>()) {
  InternetExchange& exchange = *m_exchange;
  exchange.url = url;
  exchange.wake = wake;
  exchange.isAsync = isAsync;
  exchange.session.reset(InternetOpenA("BW_Session", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr,
                                       isAsync ? INTERNET_FLAG_ASYNC : 0));
  const HINTERNET session = exchange.session.get();
  if (session == nullptr) {
    m_error = GetLastError();
    return;
  }
  // WinInet's thread, too, is not to wait for ever for a call that nobody else waits for any more.
  setTimeOut(session, INTERNET_OPTION_CONNECT_TIMEOUT, m_timeOuts.open);
  setTimeOut(session, INTERNET_OPTION_RECEIVE_TIMEOUT, std::max(m_timeOuts.open, m_timeOuts.read));
  InternetExchanges::All().Add(m_exchange);
  const INTERNET_STATUS_CALLBACK before =
      InternetSetStatusCallback(session, &InternetExchanges::InetCallback);
  if (before == INTERNET_INVALID_STATUS_CALLBACK) {
    m_error = GetLastError();
    exchange.session.reset();
    return;
  }
  ASSERT(before == nullptr);
}

InternetTransfer::~InternetTransfer() { InternetExchanges::All().Abandon(*m_exchange); }

HINTERNET InternetTransfer::Handle() const { return m_exchange->handle.get(); }

bool InternetTransfer::Fail(DWORD error) {
  m_error = errorOfInternet(error);
  return false;
}

bool InternetTransfer::IsPending() const {
  return m_exchange->pending != InternetExchange::kNothing;
}

bool InternetTransfer::IsOpen() const { return Handle() != nullptr; }

void InternetTransfer::StartOpen() {
  InternetExchange& exchange = *m_exchange;
  if (!exchange.session) return;
  exchange.error = errorOfUrl(exchange.url.c_str());
  if (exchange.error != 0) return;
  exchange.pending = InternetExchange::kOpening;
  InternetExchanges::All().StartCall(m_exchange);
}

bool InternetTransfer::FinishOpen() {
  InternetExchange& exchange = *m_exchange;
  if (!exchange.session) return false;
  const auto handle = reinterpret_cast<HINTERNET>(exchange.result);
  if (handle == nullptr) return Fail(exchange.error);
  exchange.handle.reset(handle);
  exchange.opened = handle;
  // Wine does not take it over from the session.
  setTimeOut(handle, INTERNET_OPTION_RECEIVE_TIMEOUT, m_timeOuts.read);
  return true;
}

void InternetTransfer::StartRead() {
  m_exchange->buffer ^= 1;
  m_exchange->pending = InternetExchange::kReading;
  InternetExchanges::All().StartCall(m_exchange);
}

std::optional<InternetBlock> InternetTransfer::FinishRead() {
  if (m_exchange->result == 0) {
    Fail(m_exchange->error);
    return std::nullopt;
  }
  const auto& buffer = m_exchange->buffers[m_exchange->buffer];
  return InternetBlock{buffer.data, buffer.record.dwBufferLength};
}

// --- About the answer ---

// Empty: the answer does not have it, or it is too long to be what is asked for here.
CString InternetTransfer::Header(DWORD which) const {
  char text[INTERNET_MAX_URL_LENGTH];
  DWORD size = sizeof text;
  return HttpQueryInfoA(Handle(), which, text, &size, nullptr) ? CString(text) : CString();
}

std::optional<uint64_t> InternetTransfer::Length() const {
  if (IsChunked()) return std::nullopt;  // which counts more (RFC 9112, section 6.3)
  const CString text = Header(HTTP_QUERY_CONTENT_LENGTH);
  char* end = nullptr;
  errno = 0;
  const uint64_t length = std::strtoull(text, &end, 10);
  const bool isNumber = text[0] >= '0' && text[0] <= '9' && *end == 0 && errno == 0;
  return isNumber ? std::optional(length) : std::nullopt;
}

std::optional<DWORD> InternetTransfer::HttpStatus() const {
  DWORD status = 0;
  DWORD size = sizeof status;
  return HttpQueryInfoA(Handle(), HTTP_QUERY_STATUS_CODE | HTTP_QUERY_FLAG_NUMBER, &status, &size,
                        nullptr)
             ? std::optional(status)
             : std::nullopt;
}

CString InternetTransfer::Redirection() const {
  switch (HttpStatus().value_or(0)) {
    case HTTP_STATUS_MOVED:
    case HTTP_STATUS_REDIRECT:
    case HTTP_STATUS_REDIRECT_METHOD:
    case HTTP_STATUS_REDIRECT_KEEP_VERB:
    case kPermanentRedirect:
      break;
    default:
      return CString();
  }
  const CString location = Header(HTTP_QUERY_LOCATION);
  if (location.IsEmpty()) return CString();
  char url[INTERNET_MAX_URL_LENGTH];
  DWORD size = sizeof url;
  return InternetCombineUrlA(m_exchange->url.c_str(), location, url, &size, 0) ? CString(url)
                                                                               : CString();
}

bool InternetTransfer::IsChunked() const {
  return Header(HTTP_QUERY_TRANSFER_ENCODING).CompareNoCase("chunked") == 0;
}

// Whether the server lets the connection serve another request (RFC 9112, section 9.3).
bool InternetTransfer::KeepsConnection() const {
  CString options = Header(HTTP_QUERY_CONNECTION) + "," + Header(HTTP_QUERY_PROXY_CONNECTION);
  options.MakeLower();
  return Header(HTTP_QUERY_VERSION).CompareNoCase("HTTP/1.1") == 0 && options.Find("close") < 0;
}

// A chunked answer that breaks off reads like one that has ended (Wine 8 gives no error, in no mode
// and by no function). But when the URL is closed, its connection serves the next request only if
// the last chunk has come: WinInet says when it closes one that could have been kept.
bool InternetTransfer::IsWhole() {
  constexpr DWORD kAtMost = 1000;  // milliseconds; WinInet's own thread may have a hand on the URL
  if (!IsChunked() || !KeepsConnection()) return true;
  InternetExchange& exchange = *m_exchange;
  exchange.handle.reset();
  for (DWORD start = GetTickCount(); !exchange.isClosed && GetTickCount() - start < kAtMost;)
    WaitForSingleObject(exchange.wake, kAtMost);
  return !exchange.isConnectionClosed;
}
