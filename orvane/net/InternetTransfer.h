// One attempt's conversation with WinInet.
#pragma once

#include <afxwin.h>
#include <wininet.h>

#include <cstdint>
#include <memory>
#include <optional>

#include "net/InternetBlock.h"

struct InternetExchange;

// A session and a URL in it, whose answer is read through two buffers in turn: while the block in
// one is worked on the other is filled.
//
// A call may be under way when it returns (IsPending): in asynchronous mode WinInet's thread
// completes it, else a thread that lasts as long as the call; both signal the wake event then. A
// transfer may be destroyed with a call under way: what comes of the call later is dropped, and its
// buffer stays until WinInet is through with it.
class InternetTransfer {
 public:
  struct TimeOuts {
    DWORD open, read;  // milliseconds
  };

  // wake: not reset by the transfer.
  // timeOuts: a while after these WinInet itself gives up.
  InternetTransfer(const char* url, HANDLE wake, bool isAsync, const TimeOuts& timeOuts);
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
  bool IsOpen() const;
  // Why the last Finish... has failed: an error of WinInet's or the system's.
  DWORD Error() const { return m_error; }

  // About the answer, after the opening. None: the server has not said so.
  std::optional<uint64_t> Length() const;
  std::optional<DWORD> HttpStatus() const;
  // The URL that the server points to instead of an answer; empty: none.
  CString Redirection() const;
  // Whether the answer says itself where it ends.
  bool IsChunked() const;

  // After the last block, as the last call: whether the answer has not broken off, as far as
  // WinInet can be made to tell.
  bool IsWhole();

 private:
  bool Fail(DWORD error);
  HINTERNET Handle() const;
  CString Header(DWORD which) const;
  bool KeepsConnection() const;

  const TimeOuts m_timeOuts;
  const std::shared_ptr<InternetExchange> m_exchange;  // shared with calls that are under way
  DWORD m_error = 0;
};
