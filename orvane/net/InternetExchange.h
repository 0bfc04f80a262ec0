// What a transfer shares with the threads that complete its calls.
#pragma once

#include <afxwin.h>
#include <wininet.h>

#include <atomic>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "entry/Handles.h"

struct InternetHandleTraits {
  using Handle = HINTERNET;
  static Handle None() { return nullptr; }
  static void Release(Handle handle) { InternetCloseHandle(handle); }
};
using unique_internet_handle = unique_handle_of<InternetHandleTraits>;

// The calls of one attempt. One is under way at a time; whoever completes it writes result and
// error before pending is cleared, and the transfer reads them after that.
struct InternetExchange {
  enum Pending { kNothing, kOpening, kReading };

  // A buffer ends with a byte that is never asked for.
  struct Buffer {
    static constexpr DWORD kBlock = 50000;  // bytes asked for at a time
    INTERNET_BUFFERSA record = {};
    char data[kBlock + 1];
  };

  struct Outcome {
    DWORD_PTR result;  // 0: the call has failed
    DWORD error;
  };

  // Makes the pending call. None: WinInet will complete it.
  std::optional<Outcome> Call();
  void Complete(const Outcome& outcome);

  std::string url;
  HANDLE wake = nullptr;
  bool isAsync = true;
  DWORD_PTR context = 0;  // goes with every call
  unique_internet_handle session;
  unique_internet_handle handle;            // the URL
  std::atomic<HINTERNET> opened = nullptr;  // the same, also after it has been closed
  std::atomic<bool> isClosed = false;       // WinInet is through with it
  // WinInet has not kept the URL's connection for another request.
  std::atomic<bool> isConnectionClosed = false;
  bool isAbandoned = false;  // nobody waits any more
  std::atomic<Pending> pending = kNothing;
  DWORD_PTR result = 0;
  DWORD error = 0;
  int buffer = 0;  // the one that is read into
  Buffer buffers[2];
};

// The exchanges that may still be called back about, by the number that goes with their calls: a
// call that comes late finds none, where it would find a pointer to something else.
class InternetExchanges {
 public:
  static InternetExchanges& All();

  // Gives the exchange its context.
  void Add(const std::shared_ptr<InternetExchange>& exchange);

  // Starts the call that pending names.
  void StartCall(const std::shared_ptr<InternetExchange>& exchange);

  // The transfer ends: closes the exchange's handles, now or when its call has come back. Buffers
  // that WinInet reads into stay until then.
  void Abandon(InternetExchange& exchange);

  // WinInet's status callback.
  static void CALLBACK InetCallback(HINTERNET handle, DWORD_PTR context, DWORD status, void* info,
                                    DWORD size);

 private:
  struct Lock;
  static DWORD WINAPI CallInThread(void* exchange);

  SRWLOCK m_lock = SRWLOCK_INIT;
  DWORD_PTR m_last = 0;
  std::map<DWORD_PTR, std::shared_ptr<InternetExchange>> m_exchanges;
};
