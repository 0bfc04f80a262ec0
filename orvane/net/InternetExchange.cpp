#include "net/InternetExchange.h"

#include "diag/trace.h"
#include "net/InternetErrors.h"

std::optional<InternetExchange::Outcome> InternetExchange::Call() {
  DWORD_PTR result;
  if (pending == kOpening) {
    // Redirections are the operation's: Wine would go round a circle of them for ever, even when
    // everything is closed.
    constexpr DWORD kFlags = INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_PRAGMA_NOCACHE |
                             INTERNET_FLAG_NO_AUTO_REDIRECT;
    result = reinterpret_cast<DWORD_PTR>(
        InternetOpenUrlA(session.get(), url.c_str(), nullptr, 0, kFlags, context));
  } else {
    Buffer& block = buffers[buffer];
    block.record = {};
    block.record.dwStructSize = sizeof block.record;
    block.record.lpvBuffer = block.data;
    block.record.dwBufferLength = Buffer::kBlock;
    result = static_cast<DWORD_PTR>(
        InternetReadFileExA(handle.get(), &block.record, isAsync ? IRF_ASYNC : IRF_SYNC, context));
  }
  const DWORD failed = result != 0 ? 0 : GetLastError();
  if (isAsync && failed == ERROR_IO_PENDING) return std::nullopt;
  return Outcome{result, failed};
}

void InternetExchange::Complete(const Outcome& outcome) {
  result = outcome.result;
  error = outcome.error;
  pending = kNothing;
}

struct InternetExchanges::Lock {
  explicit Lock(InternetExchanges& all) : all(all) { AcquireSRWLockExclusive(&all.m_lock); }
  ~Lock() { ReleaseSRWLockExclusive(&all.m_lock); }
  InternetExchanges& all;
};

InternetExchanges& InternetExchanges::All() {
  // Never destroyed: calls may come at the very end.
  static InternetExchanges& all = *new InternetExchanges;
  return all;
}

void InternetExchanges::Add(const std::shared_ptr<InternetExchange>& exchange) {
  const Lock lock(*this);
  exchange->context = ++m_last;
  m_exchanges[m_last] = exchange;
}

void InternetExchanges::StartCall(const std::shared_ptr<InternetExchange>& exchange) {
  if (exchange->isAsync) {
    if (const auto outcome = exchange->Call()) exchange->Complete(*outcome);
    return;
  }
  auto* const shared = new std::shared_ptr(exchange);
  const unique_kernel_handle thread(CreateThread(nullptr, 0, &CallInThread, shared, 0, nullptr));
  if (!thread) CallInThread(shared);
}

DWORD WINAPI InternetExchanges::CallInThread(void* argument) {
  std::unique_ptr<std::shared_ptr<InternetExchange>> shared(
      static_cast<std::shared_ptr<InternetExchange>*>(argument));
  InternetExchange& exchange = **shared;
  const auto outcome = exchange.Call();
  {
    const Lock lock(All());
    if (!exchange.isAbandoned) {
      shared.reset();  // the transfer has its own share, until it abandons it
      exchange.Complete(*outcome);
      SetEvent(exchange.wake);
      return 0;
    }
  }
  if (exchange.pending == InternetExchange::kOpening)
    exchange.handle.reset(reinterpret_cast<HINTERNET>(outcome->result));
  return 0;
}

namespace {

// WinInet will call into this library once more, whoever unloads it.
void stayLoaded() {
  HMODULE module = nullptr;
  VERIFY(GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                            reinterpret_cast<const char*>(&InternetExchanges::InetCallback),
                            &module));
}

}  // namespace

void InternetExchanges::Abandon(InternetExchange& exchange) {
  {
    const Lock lock(*this);
    const bool isReadInto = exchange.isAsync && exchange.pending == InternetExchange::kReading;
    if (!isReadInto) m_exchanges.erase(exchange.context);
    exchange.isAbandoned = true;
    if (exchange.pending != InternetExchange::kNothing) {
      stayLoaded();
      // Under a synchronous call the handles stay open: the thread that makes it has the last share
      // of the exchange and closes them.
      if (!exchange.isAsync) return;
    }
  }
  exchange.handle.reset();
  exchange.session.reset();
}

void CALLBACK InternetExchanges::InetCallback(HINTERNET handle, DWORD_PTR context, DWORD status,
                                              void* info, [[maybe_unused]] DWORD size) {
  DWORD failed = 0;
  std::string url;
  {
    InternetExchanges& all = All();
    const Lock lock(all);
    const auto found = all.m_exchanges.find(context);
    if (found == all.m_exchanges.end()) return;
    InternetExchange& exchange = *found->second;
    switch (status) {
      case INTERNET_STATUS_HANDLE_CLOSING:
        if (handle != exchange.opened) break;
        exchange.isClosed = true;
        if (exchange.isAbandoned) {
          all.m_exchanges.erase(found);
        } else {
          SetEvent(exchange.wake);
        }
        break;
      case INTERNET_STATUS_CLOSING_CONNECTION:
        exchange.isConnectionClosed = exchange.opened != nullptr;
        break;
      case INTERNET_STATUS_RESPONSE_RECEIVED:
        if (exchange.pending == InternetExchange::kReading) ASSERT(size == sizeof(DWORD));
        break;
      case INTERNET_STATUS_REQUEST_COMPLETE: {
        if (exchange.isAbandoned) break;
        const bool isAwaited = exchange.isAsync && exchange.pending != InternetExchange::kNothing;
        ASSERT(isAwaited);
        if (!isAwaited) break;
        const auto& completed = *static_cast<const INTERNET_ASYNC_RESULT*>(info);
        failed = completed.dwError;
        if (failed != 0) url = exchange.url;
        exchange.Complete({failed == 0 ? completed.dwResult : 0, failed});
        SetEvent(exchange.wake);
        break;
      }
    }
  }
  if (failed != 0) TraceInternetError("InternetDownload::InetCallback", url.c_str(), failed);
}
