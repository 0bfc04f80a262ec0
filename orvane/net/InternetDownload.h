// Fetching a URL into a file, and asking a server page for something.
//
//   InternetDownload download("http://server/manual.zip", "C:\\docs\\manual.zip", 1);
//   if (download.GetFile().IsEmpty()) AfxMessageBox(download.GetErrorStr());
//
// Through WinInet, set up as the system is: proxies, and https with the system's certificates.
#pragma once

#include <afxwin.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "entry/export.h"
#include "net/InternetBlock.h"
#include "ops/MultiOp.h"

class InternetTransfer;

// The operation's range is the length of the file in bytes, as far as the server tells it. Stop
// ends every wait at once.
//
// The destination is replaced as a whole, at the end: after a failure, a stop or the death of the
// process it is what it was before.
class ORVANE_API InternetDownload : public MMultiOperation {
 public:
  // destination: empty: a fresh file in the system's temporary folder, with the URL's extension
  // where that is htm, html, xml, doc or zip. showProgress: not 0: with a progress window.
  InternetDownload(const char* url, const char* destination, int showProgress);
  ~InternetDownload() override;

  // From the start: 1. In synchronous mode (0) the time-outs are WinInet's own, of half a minute.
  void SetAsyncMode(int async);
  // How often a transfer is tried, at least once; from the start: 3. Between two attempts there is
  // a pause, of 250 ms and then each time twice as long.
  void SetRetryNum(int n);
  // For the opening of the URL, and for each read of up to 50,000 bytes; from the start: 3 and 15.
  // Only for asynchronous mode (ASSERT).
  void SetTimeOut(int openSeconds, int readSeconds);

  // Fetches the URL. The path of the file, or an empty string: GetErrorStr says why. An answer of
  // the server that is not the file is an error, too: 12003 for its own troubles (status 5xx),
  // 12028 for the other statuses that mean no success. Redirections are followed, up to 20, but not
  // from https to http (12040).
  CString GetFile();
  // The file that is or was written; empty: none has been made yet.
  CString GetDestination() const;

  // Of the last run: an error of WinInet's or the system's; 0: none, or stopped by the user between
  // two waits.
  int GetError() const;
  // That error for the user.
  CString GetErrorStr() const;
  // WinInet's errors from 12001 to 12044, else what the system has to say.
  static CString GetErrorDscr(int code);
  // Whether the same request may succeed when it is made again.
  static int MayRetry(int code);

 protected:
  void DoLoopOperation() override;
  OperationReturnState Operation(unsigned int index) override;  // not used

  // Reads the answer of the URL that has been opened: 1, or 0. A derived class may do something
  // else with it than to write it into the destination.
  virtual int ReadFile();

  // For ReadFile.
  // Whether the server has answered with what was asked for, not with a page about an error: 1, or
  // 0 and the error.
  int CheckStatus();
  // The length of the answer in bytes. None: the server has not said it.
  std::optional<uint64_t> AnswerLength() const;
  // One read at a time: StartRead, then FinishRead, which waits for the block. It stays until the
  // second StartRead from then. Null: the read has failed, or was stopped.
  void StartRead();
  std::optional<InternetBlock> FinishRead();
  // After the last block: whether so many bytes are all of the answer: 1, or 0 and the error. An
  // answer of unknown length that ends with its connection cannot be told from one that has broken
  // off.
  int CheckEnd(uint64_t received);
  // The destination, made where there was none. 0: the error says why not.
  int EnsureDestination();
  // Notes the error of a failure. Gives 0.
  int Fail(unsigned long error);

  const CString m_url;
  CString m_destination;

 private:
  void TryAttempts();
  int DownloadUrl();
  int InitUrl();
  int OpenUrl(const char* url, unsigned long start);
  int WaitForCall(unsigned long milliseconds);
  int ReadOpenedUrl();
  bool WaitWhile(bool (*goesOn)(const InternetDownload&), unsigned long milliseconds);
  void GiveUpMadeDestination();

  bool m_madeDestination = false;  // in this run
  int m_async = 1;
  int m_retries = 3;
  unsigned long m_openTimeOut = 3000;  // milliseconds
  unsigned long m_readTimeOut = 15000;
  std::unique_ptr<InternetTransfer> m_transfer;  // of an attempt
  int m_readOk = 0;
  unsigned long m_error = 0;
};

// Requests a page of a server that answers commands, and finds the result in what it answers:
// <span id=result>RESULT</span>.
class ORVANE_API AspCommand : public InternetDownload {
 public:
  enum Status {
    // The request or a read has failed, the answer has broken off, or the data could not be kept.
    StatusInternetError = 0,
    StatusFormatError = 1,      // there is no result in the answer
    StatusServerReplyFail = 2,  // the result is empty
    StatusReply = 3,            // the result is a text
    StatusData = 4,             // the result is "DATA": a file follows, GetDestination names it
    StatusSessionClosed = 5     // the server has closed the session
  };

  // reply: receives the result, during Execute, and must last until then.
  AspCommand(const char* url, CString& reply);

  // Data go to a fresh file in the system's temporary folder each time; it is left to the caller.
  // Of an answer, the result is looked for in its first megabyte.
  Status Execute();

 protected:
  int ReadFile() override;

 private:
  int ReadAnswer();
  int ReadData(std::string_view first, uint64_t received, bool isWhole);
  int Finish(Status status, const char* title, const char* text);

  Status m_status = StatusInternetError;
  CString& m_reply;
};
