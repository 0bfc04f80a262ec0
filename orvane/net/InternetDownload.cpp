#include "net/InternetDownload.h"

#include <algorithm>
#include <limits>

#include "diag/trace.h"
#include "entry/DestinationFile.h"
#include "net/InternetErrors.h"
#include "net/InternetTransfer.h"
#include "net/TemporaryFile.h"
#include "ops/SysWaitCursor.h"
#include "ops/mthread.h"
#include "resources/resource.h"
#include "settings/MString.h"
#include "settings/MakerAddresses.h"

namespace {

constexpr unsigned kWholeRange = std::numeric_limits<unsigned>::max();
constexpr DWORD kFirstPause = 250, kLongestPause = 16000;  // milliseconds
// In synchronous mode WinInet's own time-outs are all there is.
constexpr InternetTransfer::TimeOuts kSynchronousTimeOuts = {30000, 30000};
constexpr int kMostRedirections = 20;
constexpr DWORD kForEver = std::numeric_limits<int>::max();

CString textOf(UINT id, const char* fallback) {
  MString text;
  VERIFY(text.LoadString(id));
  return text.IsEmpty() ? CString(fallback) : text;
}

unsigned inRange(uint64_t bytes) {
  return static_cast<unsigned>(std::min<uint64_t>(bytes, kWholeRange));
}

bool isSecure(const char* url) { return _strnicmp(url, "https:", 6) == 0; }

// The error that stands for a status of HTTP (RFC 9110, section 15); 0: the answer is the file.
DWORD errorOfStatus(DWORD status) {
  if (status >= HTTP_STATUS_OK && status < HTTP_STATUS_NO_CONTENT) return 0;
  if (status == 0) return ERROR_INTERNET_CONNECTION_ABORTED;  // it ended before the status
  return status >= 500 ? ERROR_INTERNET_EXTENDED_ERROR : ERROR_INTERNET_ITEM_NOT_FOUND;
}

}  // namespace

InternetDownload::InternetDownload(const char* url, const char* destination, int showProgress)
    : m_url(url), m_destination(destination) {
  SetShowProgress(showProgress);
  if (showProgress != 0) SetMessage(textOf(IDS_DOWNLOADING, "Downloading..."));
}

InternetDownload::~InternetDownload() = default;

void InternetDownload::SetAsyncMode(int async) { m_async = async; }

void InternetDownload::SetRetryNum(int n) { m_retries = std::max(n, 1); }

void InternetDownload::SetTimeOut(int openSeconds, int readSeconds) {
  ASSERT(m_async != 0);
  const auto milliseconds = [](int seconds) {
    return static_cast<DWORD>(std::clamp(seconds, 0, std::numeric_limits<int>::max() / 1000)) *
           1000;
  };
  m_openTimeOut = milliseconds(openSeconds);
  m_readTimeOut = milliseconds(readSeconds);
}

CString InternetDownload::GetFile() {
  SetRange(0, kWholeRange);
  m_readOk = 0;
  m_error = 0;
  DoOperation(1);
  return m_readOk != 0 ? m_destination : CString();
}

CString InternetDownload::GetDestination() const { return m_destination; }

// --- The attempts ---

OperationReturnState InternetDownload::Operation(unsigned int) {
  return static_cast<OperationReturnState>(4);  // neither done nor failed
}

void InternetDownload::DoLoopOperation() {
  m_workerThreadId = GetCurrentThreadId();
  m_failed = 1;  // until an attempt succeeds
  m_madeDestination = false;
  if (m_stopEvent == nullptr) m_stopEvent = CreateEventA(nullptr, FALSE, FALSE, nullptr);
  try {
    TryAttempts();
  } catch (...) {  // no memory, or what a derived class throws: the caller reports it
    Fail(ERROR_NOT_ENOUGH_MEMORY);
    m_transfer.reset();
    GiveUpMadeDestination();
    throw;
  }
  if (m_readOk == 0) GiveUpMadeDestination();
}

void InternetDownload::TryAttempts() {
  DWORD pause = kFirstPause;
  for (int attempt = 1;; ++attempt) {
    m_readOk = DownloadUrl();
    if (m_readOk != 0) {
      m_failed = 0;
      break;
    }
    if (m_aborted == 0) TraceInternetError("InternetDownload::DoLoopOperation", m_url, m_error);
    if (MayRetry(GetError()) == 0 || attempt >= m_retries) break;
    if (m_aborted == 0) {
      TraceFunction::TraceEvent("Retry", m_url);
      WaitWhile([](const InternetDownload&) { return true; }, pause);
    }
    if (m_aborted != 0) {  // which is why there is no further attempt, whatever this one came to
      Fail(ERROR_INTERNET_OPERATION_CANCELLED);
      break;
    }
    pause = std::min(2 * pause, kLongestPause);
  }
}

int InternetDownload::DownloadUrl() {
  const TraceFunction trace("InternetDownload::DownloadUrl");
  TraceFunction::TraceEvent("URL", m_url);
  m_error = 0;
  m_current = static_cast<unsigned>(m_first);
  const int readOk = InitUrl() != 0 ? ReadOpenedUrl() : 0;
  m_transfer.reset();
  TraceFunction::TraceEvent("readOk", readOk, nullptr);
  TraceFunction::TraceEvent("loopCnt", static_cast<int>(m_current), "%u");
  return readOk;
}

int InternetDownload::InitUrl() {
  const SysWaitCursor cursor(0);
  const DWORD start = GetTickCount();
  CString url = m_url;
  for (int redirections = 0; redirections <= kMostRedirections; ++redirections) {
    if (OpenUrl(url, start) == 0) return 0;
    const CString next = m_transfer->Redirection();
    if (next.IsEmpty()) return 1;
    TraceFunction::TraceEvent("Redirection", next);
    if (isSecure(url) && !isSecure(next)) return Fail(ERROR_INTERNET_HTTPS_TO_HTTP_ON_REDIR);
    url = next;
  }
  return Fail(ERROR_INTERNET_ITEM_NOT_FOUND);
}

// The time-out runs from the start: it is one for all redirections.
int InternetDownload::OpenUrl(const char* url, DWORD start) {
  m_transfer = std::make_unique<InternetTransfer>(
      url, HANDLE(m_stopEvent), m_async != 0,
      m_async != 0 ? InternetTransfer::TimeOuts{m_openTimeOut, m_readTimeOut}
                   : kSynchronousTimeOuts);
  m_transfer->StartOpen();
  const DWORD left = m_openTimeOut - std::min(m_openTimeOut, GetTickCount() - start);
  if (m_transfer->IsPending() && WaitForCall(left) == 0) return 0;
  return m_transfer->FinishOpen() ? 1 : Fail(m_transfer->Error());
}

int InternetDownload::ReadOpenedUrl() {
  std::optional<SysWaitCursor> cursor;
  if (m_showProgress == 0) {
    cursor.emplace(0);
  } else if (const auto length = AnswerLength()) {
    SetRange(0, inRange(*length));
    TraceFunction::TraceEvent("File len", static_cast<int>(inRange(*length)), "%u");
  } else {
    SetRange(0, kWholeRange);
  }
  const int readOk = ReadFile();
  if (readOk == 0 && m_error == 0 && m_aborted == 0) m_error = GetLastError();
  return readOk;
}

// --- Waiting ---

// Until the time has passed, the user has stopped the operation or the condition has gone: only the
// first gives true. The event may be signalled for an earlier reason.
bool InternetDownload::WaitWhile(bool (*goesOn)(const InternetDownload&), DWORD milliseconds) {
  const DWORD start = GetTickCount();
  while (m_aborted == 0 && goesOn(*this)) {
    const DWORD passed = GetTickCount() - start;
    if (passed >= milliseconds) return true;
    MThread::WaitForEvent(m_stopEvent, static_cast<int>(milliseconds - passed));
  }
  return false;
}

// Waits for the call that is under way, for so long in asynchronous mode: 1 it has come to its end,
// 0 it has not.
int InternetDownload::WaitForCall(DWORD milliseconds) {
  WaitWhile([](const InternetDownload& self) { return self.m_transfer->IsPending(); },
            m_async != 0 ? milliseconds : kForEver);
  if (!m_transfer->IsPending()) return 1;
  Fail(m_aborted != 0 ? ERROR_INTERNET_OPERATION_CANCELLED : ERROR_INTERNET_TIMEOUT);
  TraceInternetError("InternetDownload::PostAsyncInetOperation", m_url, m_error);
  return 0;
}

// --- Reading ---

int InternetDownload::CheckStatus() {
  const DWORD error = errorOfStatus(m_transfer->HttpStatus().value_or(HTTP_STATUS_OK));
  return error == 0 ? 1 : Fail(error);
}

void InternetDownload::StartRead() { m_transfer->StartRead(); }

std::optional<InternetBlock> InternetDownload::FinishRead() {
  if (m_transfer->IsPending() && WaitForCall(m_readTimeOut) == 0) return std::nullopt;
  const auto block = m_transfer->FinishRead();
  if (!block) Fail(m_transfer->Error());
  return block;
}

std::optional<uint64_t> InternetDownload::AnswerLength() const { return m_transfer->Length(); }

int InternetDownload::CheckEnd(uint64_t received) {
  const auto length = AnswerLength();
  // No byte and no word about it: the answer has broken off in its head.
  const bool isCut = length ? received != *length : received == 0 && !m_transfer->IsChunked();
  return !isCut && m_transfer->IsWhole() ? 1 : Fail(ERROR_INTERNET_CONNECTION_ABORTED);
}

int InternetDownload::EnsureDestination() {
  if (!m_destination.IsEmpty()) return 1;
  m_destination = MakeTemporaryFileFor(m_url);
  if (m_destination.IsEmpty()) return Fail(GetLastError());
  m_madeDestination = true;
  return 1;
}

void InternetDownload::GiveUpMadeDestination() {
  if (!m_madeDestination) return;
  VERIFY(DeleteFileA(m_destination));
  m_destination.Empty();
}

int InternetDownload::Fail(unsigned long error) {
  m_error = error;
  return 0;
}

int InternetDownload::ReadFile() {
  if (CheckStatus() == 0 || EnsureDestination() == 0) return 0;
  DestinationFile file;
  if (!file.Open(m_destination, {.locks = false, .alwaysBeside = true}))
    return Fail(GetLastError());

  const auto length = AnswerLength();
  uint64_t received = 0;
  bool isWhole = false;
  StartRead();
  while (!isWhole) {
    const auto block = FinishRead();
    if (!block || m_aborted != 0) return 0;
    // What a server sends beyond the length is no part of the answer.
    const DWORD size =
        static_cast<DWORD>(std::min<uint64_t>(block->size, length.value_or(UINT64_MAX) - received));
    received += size;
    m_current = inRange(received);
    isWhole = block->size == 0 || received == length;
    if (!isWhole) StartRead();  // the next block comes in while this one is written
    if (!file.Write(block->bytes, size)) return Fail(GetLastError());
  }
  if (CheckEnd(received) == 0) return 0;
  return file.Commit() ? 1 : Fail(GetLastError());
}

// --- Errors ---

int InternetDownload::GetError() const { return static_cast<int>(m_error); }

CString InternetDownload::GetErrorStr() const {
  if (m_error == 0) return textOf(IDS_ABORTED_BY_USER, "Aborted by user");
  if (m_error == ERROR_INTERNET_NAME_NOT_RESOLVED &&
      !InternetCheckConnectionA(MakerAddress(IDS_CONNECTION_CHECK), FLAG_ICC_FORCE_CONNECTION, 0)) {
    return textOf(IDS_NO_INTERNET,
                  "Cannot connect to the Internet. Please make sure the computer network cable is "
                  "plugged.");
  }
  CString text;
  text.Format(textOf(IDS_INTERNET_FAILED, "Internet connection failed! (Error code = %d)\n%s"),
              GetError(), static_cast<const char*>(GetErrorDscr(GetError())));
  return text;
}

CString InternetDownload::GetErrorDscr(int code) {
  if (const auto* row = FindInternetError(static_cast<DWORD>(code))) return row->text;
  char system[1024];
  const DWORD length =
      FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                     static_cast<DWORD>(code), 0, system, sizeof system, nullptr);
  system[length] = 0;
  CString text;
  text.Format("%s(Error code = %d)", system, code);
  return text;
}

int InternetDownload::MayRetry(int code) {
  const auto* row = FindInternetError(static_cast<DWORD>(code));
  return row != nullptr && row->mayRetry;
}
