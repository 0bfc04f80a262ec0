// Commands to a server page, and what it answers.
#include "net/InternetDownload.h"

#include <wininet.h>

#include <string>

#include <gtest/gtest.h>

#include "net/TestDownload.h"

namespace {

std::string page(const std::string& body) { return HeadOf(body.size()) + body; }

struct Command : AspCommand {
  Command(const std::string& url, CString& reply) : AspCommand(url.c_str(), reply) {
    SetNoGui(1);
    SetTimeOut(20, 20);
    SetRetryNum(1);
  }
};

}  // namespace

TEST(AspCommand, StatusReplyAndTraceOfAnAnswer) {
  const std::string lead(49990, '.');  // the marker lies across two reads
  const std::string longText(60000, 'x');
  const std::string data = "<span id=result>DATA</span>\r\n" + BytesOf(60000);
  const struct {
    const char* name;
    std::string answer;
    AspCommand::Status status;
    std::string reply;  // "-": left alone
    const char* trace;
    int error = 0;
  } kCases[] = {
      {"text", page("<html><span id=result>a reply</span></html>"), AspCommand::StatusReply,
       "a reply", "Reply: a reply"},
      {"data in small letters", page("<span id=result>data</span>\r\nabc"), AspCommand::StatusReply,
       "data", "Reply: data"},
      {"across two reads", page(lead + "<span id=result>far</span>"), AspCommand::StatusReply,
       "far", "Reply: far"},
      {"a text that ends in the second read", page("<span id=result>" + longText + "</span>"),
       AspCommand::StatusReply, longText, "Reply: x"},
      {"status of an error page",
       "HTTP/1.1 500 Sorry\r\nConnection: close\r\n\r\n<span id=result>no</span>",
       AspCommand::StatusReply, "no", "Reply: no"},
      {"empty result", page("<span id=result></span>"), AspCommand::StatusServerReplyFail, "",
       "Error: SrvReplyFail"},
      {"no end", page("</span><span id=result>x"), AspCommand::StatusFormatError, "-",
       "Error: FormatError"},
      {"empty answer", page(""), AspCommand::StatusFormatError, "-", "Error: FormatError"},
      {"endless without marker", HeadOf(1u << 31) + BytesOf(3 << 20), AspCommand::StatusFormatError,
       "-", "Error: FormatError"},
      {"closed session beside a result",
       page("<span id=result>x</span><span id=SessionClosed></span>"),
       AspCommand::StatusSessionClosed, "-", "Error: Session Timeout!"},
      {"cut in the head", "HTTP/1.1 200 OK\r\nCo", AspCommand::StatusInternetError, "-",
       "Error: InternetError", ERROR_INTERNET_CONNECTION_ABORTED},
      {"cut before the result", HeadOf(100) + "<span id=", AspCommand::StatusInternetError, "-",
       "Error: InternetError", ERROR_INTERNET_CONNECTION_ABORTED},
      {"data cut", HeadOf(data.size() + 10) + data, AspCommand::StatusInternetError, "DATA",
       "Error: ClientFileSize", ERROR_INTERNET_CONNECTION_ABORTED},
      {"data that stop", HeadOf(data.size() + 10) + data, AspCommand::StatusInternetError, "DATA",
       "Error: ReadError", ERROR_INTERNET_TIMEOUT},
  };
  for (const auto& each : kCases) {
    SCOPED_TRACE(each.name);
    const TraceLog trace;
    const bool stops = each.error == ERROR_INTERNET_TIMEOUT;
    LoopbackServer server(stops ? Answer(each.answer, GoSilent) : Answer(each.answer));
    CString reply("-");
    Command command(server.Url("page.asp?command=1"), reply);
    if (stops) command.SetTimeOut(1, 1);
    EXPECT_EQ(each.status, command.Execute());
    EXPECT_TRUE(each.reply == std::string(reply)) << reply.Left(100);
    EXPECT_TRUE(trace.Has(each.trace)) << trace.Text();
    EXPECT_EQ(each.error, command.GetError());
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
      const std::string head =
          withLength ? HeadOf(lead.size() + file.size()) : "HTTP/1.0 200 OK\r\n\r\n";
      LoopbackServer server(Answer(head + lead + file));
      CString reply;
      Command command(server.Url("page.asp"), reply);
      std::string paths[2];
      for (std::string& path : paths) {
        ASSERT_EQ(AspCommand::StatusData, command.Execute());
        EXPECT_STREQ("DATA", reply);
        path = command.GetDestination();
      }
      EXPECT_NE(paths[0], paths[1]);
      for (const std::string& path : paths) {
        EXPECT_TRUE(file == TempFolder::ReadFile(path));
        EXPECT_TRUE(DeleteFileA(path.c_str()));
      }
    }
  }
}
