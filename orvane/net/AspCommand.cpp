#include <afxwin.h>
#include <wininet.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "diag/trace.h"
#include "entry/DestinationFile.h"
#include "net/InternetDownload.h"

namespace {

constexpr std::string_view kResult = "<span id=result>", kEnd = "</span>",
                           kSessionClosed = "<span id=SessionClosed>", kData = "DATA";
// Data begin behind the closing tag and the line break that pages write after it.
constexpr size_t kToData = kEnd.size() + 2;
// At least so much of an answer, or all of it, is looked at, and at most so much for a result.
constexpr size_t kAtLeast = 50000, kAtMost = 1 << 20;

// Where the text between the tags starts and ends; npos: it does not.
struct ResultPlace {
  explicit ResultPlace(std::string_view answer) : start(answer.find(kResult)) {
    if (start == answer.npos) return;
    start += kResult.size();
    end = answer.find(kEnd, start);
  }
  size_t start;
  size_t end = std::string_view::npos;
};

bool isEnough(std::string_view answer) {
  if (answer.size() >= kAtMost) return true;
  if (answer.size() < kAtLeast) return false;
  const size_t end = ResultPlace(answer).end;
  return end != answer.npos && answer.size() >= end + kToData;
}

}  // namespace

AspCommand::AspCommand(const char* url, CString& reply)
    : InternetDownload(url, "", 0), m_reply(reply) {}

AspCommand::Status AspCommand::Execute() {
  m_status = StatusInternetError;
  m_destination.Empty();
  SetRange(0, ~0u);
  DoOperation(1);
  return m_status;
}

// Only a reply and whole data are a success.
int AspCommand::Finish(Status status, const char* title, const char* text) {
  m_status = status;
  TraceFunction::TraceEvent(title, text);
  return status == StatusReply || status == StatusData;
}

int AspCommand::ReadFile() {
  const int isOk = ReadAnswer();
  // What the server's page lacks is no error of the transfer, and no reason for a second attempt.
  SetLastError(0);
  return isOk;
}

int AspCommand::ReadAnswer() {
  const TraceFunction trace("AspCommand::ReadFile");
  TraceFunction::TraceEvent("URL", m_url);
  std::string answer;
  bool isWhole = false;
  while (!isWhole && !isEnough(answer)) {
    StartRead();
    const auto block = FinishRead();
    if (!block || m_aborted != 0) return Finish(StatusInternetError, "Error", "InternetError");
    answer.append(block->bytes, block->size);
    isWhole = block->size == 0;
  }

  const std::string_view read = answer;
  const ResultPlace place(read);
  const bool hasResult = place.end != read.npos;
  const std::string_view result =
      hasResult ? read.substr(place.start, place.end - place.start) : std::string_view();
  // What a file holds is not the page's word.
  const bool isData = result == kData;
  if (read.substr(0, isData ? place.end : read.npos).find(kSessionClosed) != read.npos)
    return Finish(StatusSessionClosed, "Error", "Session Timeout!");
  if (!hasResult) {
    // What has broken off may have been on its way to a result.
    if (isWhole && CheckEnd(read.size()) == 0)
      return Finish(StatusInternetError, "Error", "InternetError");
    return Finish(StatusFormatError, "Error", "FormatError");
  }
  m_reply = CString(result.data(), static_cast<int>(result.size()));
  if (isData) {
    const size_t start = std::min(place.end + kToData, read.size());
    return ReadData(read.substr(start), read.size(), isWhole);
  }
  if (result.empty()) return Finish(StatusServerReplyFail, "Error", "SrvReplyFail");
  return Finish(StatusReply, "Reply", m_reply);
}

// first: the data that have come with the result; received: the bytes of the answer so far.
int AspCommand::ReadData(std::string_view first, uint64_t received, bool isWhole) {
  const auto fail = [this](const char* what) { return Finish(StatusInternetError, "Error", what); };
  DestinationFile file;
  const auto failOutput = [&] {
    Fail(GetLastError());
    return fail("OutputError");
  };
  if (EnsureDestination() == 0) return fail("OutputError");
  if (!file.Open(m_destination, {.locks = false, .alwaysBeside = true})) return failOutput();
  if (!file.Write(first.data(), static_cast<DWORD>(first.size()))) return failOutput();
  if (!isWhole) StartRead();
  while (!isWhole) {
    const auto block = FinishRead();
    if (!block || m_aborted != 0) return fail("ReadError");
    received += block->size;
    isWhole = block->size == 0;
    if (!isWhole) StartRead();
    if (!file.Write(block->bytes, block->size)) return failOutput();
  }
  if (CheckEnd(received) == 0) return fail("ClientFileSize");
  if (!file.Commit()) return failOutput();
  return Finish(StatusData, "Reply", kData.data());
}
