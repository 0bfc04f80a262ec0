#include "net/InternetTransfer.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <map>
#include <string>

#include "diag/trace.h"
#include "net/InternetErrors.h"

namespace {

constexpr DWORD kBlock = 50000;  // bytes asked for at a time

// A buffer ends with a byte that is never asked for.
struct Buffer {
  INTERNET_BUFFERSA record = {};
  char data[kBlock + 1];

  INTERNET_BUFFERSA* Offer() {
    record = {};
    record.dwStructSize = sizeof record;
    record.lpvBuffer = data;
    record.dwBufferLength = kBlock;
    return &record;
  }
};

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

enum Pending { kNothing, kOpening, kReading };

}  // namespace

// What the operation and WinInet's thread share. WinInet's thread writes result and error before it
// clears pending; the operation reads them after that.
struct InternetTransfer::Exchange {
  std::string url;
  HANDLE wake = nullptr;       // null: synchronous
  HINTERNET handle = nullptr;  // the URL, once it is open
  bool isAbandoned = false;    // nobody waits any more
  std::atomic<Pending> pending = kNothing;
  DWORD_PTR result = 0;
  DWORD error = 0;
  Buffer buffers[2];
};

// The exchanges that WinInet may still call back about, by the number that goes with its calls: a
// call that comes late finds none, where it would find a pointer to something else.
class InternetTransfer::Exchanges {
 public:
  static Exchanges& All() {
    static Exchanges& all = *new Exchanges;  // never destroyed: calls may come at the very end
    return all;
  }

  DWORD_PTR Add(const std::shared_ptr<Exchange>& exchange) {
    const Lock lock(*this);
    m_exchanges[++m_last] = exchange;
    return m_last;
  }

  // The transfer ends. An answer that is being read keeps its buffers until its handle has closed.
  void Abandon(Exchange& abandoned) {
    const Lock lock(*this);
    const Pending pending = abandoned.pending;
    if (pending != kNothing) stayLoaded();
    abandoned.isAbandoned = true;
    if (pending == kReading && abandoned.wake != nullptr) return;
    std::erase_if(m_exchanges, [&](const auto& each) { return each.second.get() == &abandoned; });
  }

  // Calls work with the exchange, if it is there, while nobody can abandon it.
  template <class Work>
  void With(DWORD_PTR number, Work work) {
    const Lock lock(*this);
    const auto found = m_exchanges.find(number);
    if (found == m_exchanges.end()) return;
    const bool isOver = work(*found->second);
    if (isOver) m_exchanges.erase(found);
  }

 private:
  struct Lock {
    explicit Lock(Exchanges& all) : all(all) { AcquireSRWLockExclusive(&all.m_lock); }
    ~Lock() { ReleaseSRWLockExclusive(&all.m_lock); }
    Exchanges& all;
  };

  // WinInet will call into this library once more, whoever unloads it.
  static void stayLoaded() {
    HMODULE module = nullptr;
    VERIFY(GetModuleHandleExA(
        GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
        reinterpret_cast<const char*>(&InternetTransfer::InetCallback), &module));
  }

  SRWLOCK m_lock = SRWLOCK_INIT;
  DWORD_PTR m_last = 0;
  std::map<DWORD_PTR, std::shared_ptr<Exchange>> m_exchanges;
};

InternetTransfer::InternetTransfer(const char* url, HANDLE wake, const TimeOuts& timeOuts)
    : m_url(url), m_timeOuts(timeOuts), m_exchange(std::make_shared<Exchange>()) {
  m_exchange->url = url;
  m_exchange->wake = wake;
  m_session.reset(InternetOpenA("BW_Session", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr,
                                wake != nullptr ? INTERNET_FLAG_ASYNC : 0));
  if (!m_session) {
    m_error = GetLastError();
    return;
  }
  // WinInet's thread, too, is not to wait for ever for a call that nobody else waits for any more.
  setTimeOut(m_session.get(), INTERNET_OPTION_CONNECT_TIMEOUT, m_timeOuts.open);
  setTimeOut(m_session.get(), INTERNET_OPTION_RECEIVE_TIMEOUT,
             std::max(m_timeOuts.open, m_timeOuts.read));
  m_context = Exchanges::All().Add(m_exchange);
  if (wake != nullptr && !InstallCallback()) m_session.reset();
}

InternetTransfer::~InternetTransfer() {
  Exchanges::All().Abandon(*m_exchange);
  m_handle.reset();
  m_session.reset();
}

bool InternetTransfer::InstallCallback() {
  const INTERNET_STATUS_CALLBACK before = InternetSetStatusCallback(m_session.get(), &InetCallback);
  if (before == INTERNET_INVALID_STATUS_CALLBACK) return Fail(GetLastError());
  ASSERT(before == nullptr);
  return true;
}

bool InternetTransfer::Fail(DWORD error) {
  m_error = errorOfInternet(error);
  return false;
}

bool InternetTransfer::IsPending() const { return m_exchange->pending != kNothing; }

void InternetTransfer::StartOpen() {
  if (!m_session) return;
  Exchange& exchange = *m_exchange;
  exchange.error = errorOfUrl(m_url);
  if (exchange.error != 0) return;
  exchange.pending = kOpening;
  const HINTERNET handle =
      InternetOpenUrlA(m_session.get(), m_url, nullptr, 0,
                       INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_PRAGMA_NOCACHE, m_context);
  if (handle == nullptr && GetLastError() == ERROR_IO_PENDING) return;
  exchange.result = reinterpret_cast<DWORD_PTR>(handle);
  exchange.error = handle == nullptr ? GetLastError() : 0;
  exchange.pending = kNothing;
}

bool InternetTransfer::FinishOpen() {
  if (!m_session) return false;
  m_handle.reset(reinterpret_cast<HINTERNET>(m_exchange->result));
  if (!m_handle) return Fail(m_exchange->error);
  m_exchange->handle = m_handle.get();
  // Wine does not take it over from the session.
  setTimeOut(m_handle.get(), INTERNET_OPTION_RECEIVE_TIMEOUT, m_timeOuts.read);
  return true;
}

void InternetTransfer::StartRead() {
  Exchange& exchange = *m_exchange;
  m_buffer ^= 1;
  exchange.pending = kReading;
  const DWORD flags = exchange.wake != nullptr ? IRF_ASYNC : IRF_SYNC;
  const BOOL read =
      InternetReadFileExA(m_handle.get(), exchange.buffers[m_buffer].Offer(), flags, m_context);
  if (!read && GetLastError() == ERROR_IO_PENDING) return;
  exchange.result = static_cast<DWORD_PTR>(read);
  exchange.error = read ? 0 : GetLastError();
  exchange.pending = kNothing;
}

std::optional<InternetBlock> InternetTransfer::FinishRead() {
  if (m_exchange->result == 0) {
    Fail(m_exchange->error);
    return std::nullopt;
  }
  const Buffer& buffer = m_exchange->buffers[m_buffer];
  return InternetBlock{buffer.data, buffer.record.dwBufferLength};
}

void CALLBACK InternetTransfer::InetCallback(HINTERNET handle, DWORD_PTR context, DWORD status,
                                             void* info, [[maybe_unused]] DWORD size) {
  DWORD failed = 0;
  std::string url;
  Exchanges::All().With(context, [&](Exchange& exchange) {
    if (status == INTERNET_STATUS_HANDLE_CLOSING)
      return exchange.isAbandoned && handle == exchange.handle;
    if (exchange.isAbandoned) return false;
    if (status == INTERNET_STATUS_RESPONSE_RECEIVED && exchange.pending == kReading)
      ASSERT(size == sizeof(DWORD));
    if (status != INTERNET_STATUS_REQUEST_COMPLETE) return false;
    ASSERT(exchange.pending != kNothing);
    if (exchange.pending == kNothing) return false;
    const auto& completed = *static_cast<const INTERNET_ASYNC_RESULT*>(info);
    exchange.error = completed.dwError;
    exchange.result = completed.dwError == 0 ? completed.dwResult : 0;
    if (completed.dwError != 0) {
      failed = completed.dwError;
      url = exchange.url;
    }
    exchange.pending = kNothing;
    SetEvent(exchange.wake);
    return false;
  });
  if (failed != 0) TraceInternetError("InternetDownload::InetCallback", url.c_str(), failed);
}

// --- About the answer ---

std::optional<uint64_t> InternetTransfer::Length() const {
  char text[64];
  DWORD size = sizeof text;
  if (!HttpQueryInfoA(m_handle.get(), HTTP_QUERY_CONTENT_LENGTH, text, &size, nullptr))
    return std::nullopt;
  char* end = nullptr;
  errno = 0;
  const uint64_t length = std::strtoull(text, &end, 10);
  const bool isNumber = *text >= '0' && *text <= '9' && *end == 0 && errno == 0;
  return isNumber ? std::optional(length) : std::nullopt;
}

std::optional<DWORD> InternetTransfer::HttpStatus() const {
  DWORD status = 0;
  DWORD size = sizeof status;
  return HttpQueryInfoA(m_handle.get(), HTTP_QUERY_STATUS_CODE | HTTP_QUERY_FLAG_NUMBER, &status,
                        &size, nullptr)
             ? std::optional(status)
             : std::nullopt;
}

bool InternetTransfer::IsChunked() const {
  char coding[64];
  DWORD size = sizeof coding;
  return HttpQueryInfoA(m_handle.get(), HTTP_QUERY_TRANSFER_ENCODING, coding, &size, nullptr) &&
         _stricmp(coding, "chunked") == 0;
}
