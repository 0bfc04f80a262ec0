// One attempt's conversation with WinInet.
#pragma once

#include <afxwin.h>
#include <wininet.h>

#include <cstdint>
#include <memory>
#include <optional>

#include "entry/Handles.h"
#include "net/InternetBlock.h"

struct InternetHandleTraits {
  using Handle = HINTERNET;
  static Handle None() { return nullptr; }
  static void Release(Handle handle) { InternetCloseHandle(handle); }
};
using unique_internet_handle = unique_handle_of<InternetHandleTraits>;

// A session and a URL in it, whose answer is read through two buffers in turn: while the block in
// one is worked on the other is filled.
//
// In asynchronous mode a call may be under way when it returns (IsPending). WinInet's thread then
// completes it and signals the wake event. A transfer may be destroyed with a call under way: what
// comes of the call later is dropped, and its buffer stays until WinInet is through with it.
class InternetTransfer {
 public:
  struct TimeOuts {
    DWORD open, read;  // milliseconds
  };

  // wake: not reset by the transfer; only in asynchronous mode, else null.
  // timeOuts: a while after these WinInet itself gives up.
  InternetTransfer(const char* url, HANDLE wake, const TimeOuts& timeOuts);
  ~InternetTransfer();
  InternetTransfer(const InternetTransfer&) = delete;
  InternetTransfer& operator=(const InternetTransfer&) = delete;

  // Opens the URL; FinishOpen after that, when nothing is pending, says what came of it.
  void StartOpen();
  bool FinishOpen();

  // After the opening. One read at a time.
  void StartRead();
  // The block that was read; none: the read has failed. It stays until the second StartRead from
  // now.
  std::optional<InternetBlock> FinishRead();

  bool IsPending() const;
  bool IsOpen() const { return static_cast<bool>(m_handle); }
  // Why the last Finish... has failed: an error of WinInet's or the system's.
  DWORD Error() const { return m_error; }

  // About the answer, after the opening. None: the server has not said so.
  std::optional<uint64_t> Length() const;
  std::optional<DWORD> HttpStatus() const;
  // Whether the answer says itself where it ends.
  bool IsChunked() const;

 private:
  struct Exchange;
  class Exchanges;
  static void CALLBACK InetCallback(HINTERNET handle, DWORD_PTR context, DWORD status, void* info,
                                    DWORD size);
  bool InstallCallback();
  bool Fail(DWORD error);

  const CString m_url;
  const TimeOuts m_timeOuts;
  std::shared_ptr<Exchange> m_exchange;  // shared with WinInet's calls that are under way
  unique_internet_handle m_session;
  unique_internet_handle m_handle;  // the URL
  DWORD_PTR m_context = 0;
  int m_buffer = 0;  // the one that is read into
  DWORD m_error = 0;
};
