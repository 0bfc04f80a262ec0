// Commands to a server page, and what it answers.
#include "net/InternetDownload.h"

#include <wininet.h>

#include <string>

#include <gtest/gtest.h>

#include "diag/trace.h"
#include "net/TestDownload.h"
#include "support/LoopbackServer.h"
#include "support/TempFolder.h"

namespace {

std::string page(const std::string& body) { return HeadOf(body.size()) + body; }

struct Command : AspCommand {
  Command(const std::string& url, CString& reply) : AspCommand(url.c_str(), reply) {
    SetNoGui(1);
    SetTimeOut(20, 20);
    SetRetryNum(1);
  }
};

// The trace log of a scope.
class TraceLog {
 public:
  TraceLog() { TraceFunction::logFileName = (m_folder / "trace.log").c_str(); }
  ~TraceLog() { TraceFunction::logFileName.Empty(); }
  std::string Text() const { return m_folder.Read("trace.log"); }

 private:
  TempFolder m_folder;
};

}  // namespace

TEST(AspCommand, StatusReplyAndTraceOfAnAnswer) {
  const std::string lead(49990, '.');  // the marker lies across two reads
  const struct {
    const char* name;
    std::string answer;
    AspCommand::Status status;
    std::string reply;  // "-": left alone
    const char* trace;
  } kCases[] = {
      {"text", page("<html><span id=result>a reply</span></html>"), AspCommand::StatusReply,
       "a reply", "Reply: a reply"},
      {"data in small letters", page("<span id=result>data</span>\r\nabc"), AspCommand::StatusReply,
       "data", "Reply: data"},
      {"across two reads", page(lead + "<span id=result>far</span>"), AspCommand::StatusReply,
       "far", "Reply: far"},
      {"a text that ends in the second read",
       page("<span id=result>" + std::string(60000, 'x') + "</span>"), AspCommand::StatusReply,
       std::string(60000, 'x'), "Reply: x"},
      {"status of an error page",
       "HTTP/1.1 500 Sorry\r\nConnection: close\r\n\r\n<span id=result>no</span>",
       AspCommand::StatusReply, "no", "Reply: no"},
      {"empty result", page("<span id=result></span>"), AspCommand::StatusServerReplyFail, "",
       "Error: SrvReplyFail"},
      {"no marker", page("<span id=other>x</span>"), AspCommand::StatusFormatError, "-",
       "Error: FormatError"},
      {"no end", page("</span><span id=result>x"), AspCommand::StatusFormatError, "-",
       "Error: FormatError"},
      {"empty answer", page(""), AspCommand::StatusFormatError, "-", "Error: FormatError"},
      {"endless without marker", HeadOf(1u << 31) + BytesOf(3 << 20), AspCommand::StatusFormatError,
       "-", "Error: FormatError"},
      {"closed session beside a result",
       page("<span id=result>x</span><span id=SessionClosed></span>"),
       AspCommand::StatusSessionClosed, "-", "Error: Session Timeout!"},
      {"cut in the head", "HTTP/1.1 200 OK\r\nCo", AspCommand::StatusFormatError, "-",
       "Error: FormatError"},
  };
  for (const auto& each : kCases) {
    SCOPED_TRACE(each.name);
    const TraceLog trace;
    LoopbackServer server([&](LoopbackConnection& client) {
      if (client.ReadRequest()) client.Send(each.answer);
    });
    CString reply("-");
    Command command(server.Url("page.asp?command=1"), reply);
    EXPECT_EQ(each.status, command.Execute());
    EXPECT_TRUE(each.reply == std::string(reply)) << reply.Left(100);
    EXPECT_NE(std::string::npos, trace.Text().find(each.trace)) << trace.Text();
    EXPECT_STREQ("", command.GetDestination());
    EXPECT_EQ(1, server.Connections());
  }
}

TEST(AspCommand, DataGoToAFreshFileByteForByte) {
  const std::string lead = "<span id=result>DATA</span>\r\n";
  const std::string files[] = {"",
                               "100% of %s and %n",
                               std::string("a\0b", 3),
                               "<span id=SessionClosed></span>",
                               BytesOf(50000 - lead.size()),
                               BytesOf(200001)};
  for (const std::string& file : files) {
    SCOPED_TRACE(file.size());
    for (const bool withLength : {true, false}) {
      LoopbackServer server([&](LoopbackConnection& client) {
        if (!client.ReadRequest()) return;
        client.Send((withLength ? HeadOf(lead.size() + file.size()) : "HTTP/1.0 200 OK\r\n\r\n") +
                    lead + file);
      });
      CString reply;
      Command command(server.Url("page.asp"), reply);
      std::string before;
      for (int times = 0; times < 2; ++times) {
        ASSERT_EQ(AspCommand::StatusData, command.Execute());
        EXPECT_STREQ("DATA", reply);
        const std::string path(command.GetDestination());
        EXPECT_NE(before, path);
        std::ifstream stream(path, std::ios::binary);
        EXPECT_TRUE(file == std::string(std::istreambuf_iterator<char>(stream), {}));
        stream.close();
        EXPECT_TRUE(DeleteFileA(path.c_str()));
        before = path;
        std::ofstream(path) << "taken";
      }
      DeleteFileA(before.c_str());
    }
  }
}

TEST(AspCommand, IncompleteDataAreAnErrorAndLeaveNoFile) {
  const std::string data = "<span id=result>DATA</span>\r\n" + BytesOf(60000);
  const struct {
    const char* name;
    std::string answer;
    bool goesSilent;
    int error;
    const char* trace;
  } kCases[] = {
      {"too short", HeadOf(data.size() + 10) + data, false, ERROR_INTERNET_CONNECTION_ABORTED,
       "Error: ClientFileSize"},
      {"stops", HeadOf(data.size() + 10) + data, true, ERROR_INTERNET_TIMEOUT, "Error: ReadError"},
      {"stops before the result", HeadOf(100) + "<span id=", true, ERROR_INTERNET_TIMEOUT,
       "Error: InternetError"},
  };
  for (const auto& each : kCases) {
    SCOPED_TRACE(each.name);
    const TraceLog trace;
    LoopbackServer server([&](LoopbackConnection& client) {
      if (!client.ReadRequest()) return;
      client.Send(each.answer);
      if (each.goesSilent) client.StaySilent();
    });
    CString reply;
    Command command(server.Url("page.asp"), reply);
    if (each.goesSilent) command.SetTimeOut(1, 1);
    EXPECT_EQ(AspCommand::StatusInternetError, command.Execute());
    EXPECT_EQ(each.error, command.GetError());
    EXPECT_STREQ("", command.GetDestination());
    EXPECT_NE(std::string::npos, trace.Text().find(each.trace)) << trace.Text();
  }
}
