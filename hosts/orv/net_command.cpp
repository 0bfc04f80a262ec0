#include <afxwin.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <thread>

#include "commands.h"
#include "entry/strutils.h"
#include "net/InternetDownload.h"
#include "net/InternetUpload.h"
#include "net/SysDllDscr.h"
#include "operation_run.h"

namespace {

constexpr std::chrono::milliseconds kLook(100);

// "line\r\n" and the like would take the message's last line apart.
int reportFailure(const char* what, CString why) {
  why.TrimRight();
  fprintf(stderr, "orv: %s: %s\n", what, static_cast<const char*>(why));
  return kFailed;
}

// Shows how far it is while it goes on.
class Fetch : public InternetDownload {
 public:
  Fetch(const char* url, const char* file) : InternetDownload(url, file, 1) {}

 protected:
  void DoLoopOperation() override {
    const std::jthread line([this](const std::stop_token& end) {
      std::mutex mutex;
      std::condition_variable_any wake;
      std::unique_lock lock(mutex);
      while (!wake.wait_for(lock, end, kLook, [&] { return end.stop_requested(); }))
        ShowProgress("get", m_current, m_end);
    });
    InternetDownload::DoLoopOperation();
  }
};

}  // namespace

// Without FILE: into a fresh file. Prints the file's path.
int GetCommand(int count, char** arguments) {
  Fetch fetch(arguments[0], count > 1 ? arguments[1] : "");
  fetch.SetRange(0, ~0u);
  if (RunOperation(fetch) == 0) return reportFailure(arguments[0], fetch.GetErrorStr());
  puts(fetch.GetDestination());
  return kDone;
}

// The result of the page, or the name of the file with the data that it sent.
int AskCommand(int, char** arguments) {
  CString reply;
  AspCommand command(arguments[0], reply);
  command.SetNoGui(1);
  const CtrlCStops stops(command);
  switch (command.Execute()) {
    case AspCommand::StatusReply:
      puts(reply);
      return kDone;
    case AspCommand::StatusData:
      puts(command.GetDestination());
      return kDone;
    case AspCommand::StatusFormatError:
      return reportFailure(arguments[0], "the answer has no result");
    case AspCommand::StatusServerReplyFail:
      return reportFailure(arguments[0], "the result is empty");
    case AspCommand::StatusSessionClosed:
      return reportFailure(arguments[0], "the server has closed the session");
    case AspCommand::StatusInternetError:
      break;
  }
  return reportFailure(arguments[0], command.GetErrorStr());
}

int SendCommand(int, char** arguments) {
  const char* const path = arguments[0];
  const CString backslashed = WithBackslashes(path);
  const CString name = backslashed.Mid(backslashed.ReverseFind('\\') + 1);
  if (InternetUploadFile(path, name, arguments[1], arguments[2], 1) != 0) return kDone;
  return reportFailure(path, "not sent, or not taken by the server");
}

int LibsCommand(int, char**) {
  bool allOk = true;
  for (int i = 0; i < SysDllDescriptor::LibDescriptorNum(); ++i) {
    CString line;
    int ok = 0;
    SysDllDescriptor::GetLibDescriptor(i).InfoVersion(line, ok);
    puts(line);
    allOk = allOk && ok != 0;
  }
  return allOk ? kDone : kFailed;
}
