// Downloads from good servers and bad ones.
#include "net/InternetDownload.h"

#include <wininet.h>

#include <atomic>
#include <filesystem>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "net/TestDownload.h"
#include "support/AssertionLog.h"

namespace {

using Client = LoopbackConnection;

constexpr char kChunked[] =
    "HTTP/1.1 200 OK\r\nConnection: TE, close\r\nTransfer-Encoding: chunked\r\n\r\n";
constexpr char kChunkedAndKept[] = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";

void reset(Client& client) {
  Sleep(50);  // what was sent is to arrive
  client.Reset();
}

size_t filesIn(const TempFolder& folder) {
  return static_cast<size_t>(std::distance(std::filesystem::directory_iterator(folder.path()), {}));
}

std::string headers(size_t size) {
  std::string lines;
  while (lines.size() < size) lines += "X-Header: " + std::string(1000, 'x') + "\r\n";
  return lines;
}

std::string answerWithStatus(const char* status) {
  return std::string("HTTP/1.1 ") + status + "\r\nConnection: close\r\nContent-Length: 2\r\n\r\nno";
}

class DownloadTest : public testing::Test {
 protected:
  // WinInet keeps connections for a minute, which would count as handles of a test.
  void TearDown() override {
    InternetSetOptionA(nullptr, INTERNET_OPTION_SETTINGS_CHANGED, nullptr, 0);
  }
};

class DownloadMode : public DownloadTest, public testing::WithParamInterface<int> {};

}  // namespace

TEST_P(DownloadMode, BringsWhatTheServerSends) {
  const std::string bytes = BytesOf(123457);
  const struct {
    const char* name;
    std::string answer;
    std::string file;
  } kCases[] = {
      {"length", HeadOf(bytes.size()) + bytes, bytes},
      {"two blocks", HeadOf(100000) + bytes.substr(0, 100000), bytes.substr(0, 100000)},
      {"nothing", HeadOf(0), ""},
      {"more than announced", HeadOf(4) + "abcdefgh", "abcd"},
      {"no length", "HTTP/1.0 200 OK\r\n\r\n" + bytes, bytes},
      {"length that is none", "HTTP/1.0 200 OK\r\nContent-Length: -5\r\n\r\nabc", "abc"},
      {"chunks", std::string(kChunked) + "3\r\nabc\r\n2\r\nde\r\n0\r\n\r\n", "abcde"},
      {"no chunk", std::string(kChunked) + "0\r\n\r\n", ""},
      {"chunks, closed unannounced", std::string(kChunkedAndKept) + "3\r\nabc\r\n0\r\n\r\n", "abc"},
      {"chunks, and a length that counts less",
       "HTTP/1.1 200 OK\r\nContent-Length: 2\r\nTransfer-Encoding: chunked\r\n\r\n"
       "3\r\nabc\r\n0\r\n\r\n",
       "abc"},
      {"10 MB of headers",
       "HTTP/1.0 200 OK\r\n" + headers(10 << 20) + "Content-Length: 3\r\n\r\nabc", "abc"},
  };
  const AssertionLog log;
  for (const auto& each : kCases) {
    SCOPED_TRACE(each.name);
    const TempFolder folder;
    folder.Write("file", "old");
    LoopbackServer server(Answer(each.answer));
    TestDownload download(server.Url("file"), folder / "file");
    download.SetAsyncMode(GetParam());
    EXPECT_EQ(folder / "file", std::string(download.GetFile()));
    EXPECT_EQ(0, download.GetError());
    EXPECT_TRUE(each.file == folder.Read("file")) << folder.Read("file").size() << " bytes";
    EXPECT_EQ(1u, filesIn(folder));
    EXPECT_EQ(1, server.Connections());
    EXPECT_EQ("", log.Text());
  }
}

// Whatever a server does, the download ends in time, with an error that says it, and the file is
// what it was.
TEST_P(DownloadMode, FailsForWhatABadServerDoes) {
  const std::string head = "HTTP/1.1 200 OK\r\nContent-Le";
  const std::string body = HeadOf(100000) + BytesOf(60000);
  const std::string chunk = std::string(kChunkedAndKept) + "3\r\nabc\r\n";
  const std::set<int> kLost = {ERROR_INTERNET_CONNECTION_ABORTED, ERROR_INTERNET_CONNECTION_RESET};
  const std::set<int> kTimeOut = {ERROR_INTERNET_TIMEOUT};
  const std::set<int> kMissing = {ERROR_INTERNET_ITEM_NOT_FOUND};
  const struct {
    const char* name;
    LoopbackServer::Serve serve;
    std::set<int> errors;
    int attempts = 1;
  } kCases[] = {
      {"silent in the head", Answer(head, GoSilent), kTimeOut},
      {"a byte now and then",
       Answer(HeadOf(100),
              [](Client& client) {
                for (int i = 0; i < 10 && client.Send("x"); ++i) client.StaySilent(300);
              }),
       kTimeOut},
      {"closed at once", [](Client&) {}, kLost, 2},
      {"closed in the head", Answer(head), kLost},
      {"closed in the body", Answer(body), kLost},
      {"closed in a chunk", Answer(std::string(kChunkedAndKept) + "100\r\nabc"), kLost},
      {"closed before the last chunk", Answer(chunk), kLost},
      {"closed in a chunk's length", Answer(chunk + "1"), kLost},
      {"shorter than 4 GB", Answer(HeadOf(0xFFFFFFFF) + "abc"), kLost},
      {"reset at once", reset, kLost},
      {"reset before the answer", Answer("", reset), kLost},
      {"reset in the head", Answer(head, reset), kLost},
      {"reset in the body", Answer(body, reset), kLost},
      {"not found", Answer(answerWithStatus("404 Not Found")), kMissing},
      {"unchanged", Answer("HTTP/1.1 304 Not Modified\r\nConnection: close\r\n\r\n"), kMissing},
      {"no content", Answer("HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n"), kMissing},
      {"its own error", Answer(answerWithStatus("500 Sorry")), {ERROR_INTERNET_EXTENDED_ERROR}, 2},
  };
  const AssertionLog log;
  for (const auto& each : kCases) {
    if (each.errors == kTimeOut && GetParam() == 0) continue;  // WinInet's own, of half a minute
    SCOPED_TRACE(each.name);
    const TempFolder folder;
    folder.Write("file", "old");
    LoopbackServer server(each.serve);
    TestDownload download(server.Url("file"), folder / "file");
    download.SetAsyncMode(GetParam());
    download.SetRetryNum(each.errors == kMissing ? 2 : each.attempts);
    if (each.errors == kTimeOut) download.SetTimeOut(1, 1);
    const DWORD start = GetTickCount();
    EXPECT_STREQ("", download.GetFile());
    EXPECT_LT(GetTickCount() - start, 15'000u) << "milliseconds";
    EXPECT_TRUE(each.errors.count(download.GetError())) << download.GetError();
    const CString text = InternetDownload::GetErrorDscr(download.GetError());
    EXPECT_NE(-1, download.GetErrorStr().Find(text)) << download.GetErrorStr();
    EXPECT_EQ(each.attempts, server.Connections());
    EXPECT_EQ("old", folder.Read("file"));
    EXPECT_EQ(1u, filesIn(folder));
    EXPECT_EQ("", log.Text());
  }
}

INSTANTIATE_TEST_SUITE_P(Synchronous, DownloadMode, testing::Values(0));
INSTANTIATE_TEST_SUITE_P(Asynchronous, DownloadMode, testing::Values(1));

// WinInet under Wine would go on for ever, also behind the operation's back.
TEST_F(DownloadTest, FailsForRedirectionsInACircle) {
  LoopbackServer server(
      Answer("HTTP/1.1 302 Found\r\nLocation: /file\r\nContent-Length: 0\r\n\r\n"));
  const TempFolder folder;
  TestDownload download(server.Url("file"), folder / "file");
  EXPECT_STREQ("", download.GetFile());
  EXPECT_EQ(ERROR_INTERNET_ITEM_NOT_FOUND, download.GetError());
  Sleep(200);
  EXPECT_EQ(21, server.Connections());
}

TEST(Download, FailsForWhatIsNoServer) {
  const std::string gone = LoopbackServer([](Client&) {}).Url("x");
  const struct {
    std::string url;
    int error;
  } kCases[] = {
      {gone, ERROR_INTERNET_CANNOT_CONNECT},
      {"", ERROR_INTERNET_INVALID_URL},
      {"http://", ERROR_INTERNET_INVALID_URL},
      {gone + "\r\nX-Own: 1", ERROR_INTERNET_INVALID_URL},
      {"nonsense:x", ERROR_INTERNET_UNRECOGNIZED_SCHEME},
      {"http://no-such-host.invalid/x", ERROR_INTERNET_NAME_NOT_RESOLVED},
  };
  for (const auto& each : kCases) {
    SCOPED_TRACE(each.url);
    const TempFolder folder;
    TestDownload download(each.url, folder / "file");
    download.SetRetryNum(-1);
    EXPECT_STREQ("", download.GetFile());
    EXPECT_EQ(each.error, download.GetError());
    EXPECT_EQ(0u, filesIn(folder));
  }
}

TEST(Download, IsTriedAgainAfterPausesThatGrow) {
  const TempFolder folder;
  std::atomic<int> count = 0;
  LoopbackServer server([&](Client& client) {
    if (++count <= 2) return client.Reset();
    if (client.ReadRequest()) client.SendReply("now");
  });
  TestDownload download(server.Url("file"), folder / "file");
  const DWORD start = GetTickCount();
  EXPECT_STRNE("", download.GetFile());
  EXPECT_GE(GetTickCount() - start, 740u) << "milliseconds";
  EXPECT_EQ(0, download.GetError());
  EXPECT_EQ("now", folder.Read("file"));
}

TEST(Download, WithoutDestinationMakesAFileWithTheExtensionOfTheUrl) {
  LoopbackServer server(Answer(HeadOf(3) + "abc"));
  const struct {
    const char* object;
    const char* extension;
  } kCases[] = {
      {"a.zip", ".zip"},     {"a.HTML", ".html"},        {"a.b/c.htm?d=e.doc#f.xml", ".htm"},
      {"a.tar.xml", ".xml"}, {"a.exe", ".tmp"},          {"a.zip/b", ".tmp"},
      {"doc", ".tmp"},       {"page.asp?x.doc", ".tmp"},
  };
  std::set<std::string> paths;
  for (const auto& each : kCases) {
    SCOPED_TRACE(each.object);
    TestDownload download(server.Url(each.object), "");
    const std::string path(download.GetFile());
    EXPECT_EQ(each.extension, std::filesystem::path(path).extension().string());
    EXPECT_EQ("abc", TempFolder::ReadFile(path));
    EXPECT_TRUE(paths.insert(path).second);
    EXPECT_STREQ(path.c_str(), download.GetDestination());
  }
  for (const std::string& path : paths) EXPECT_TRUE(DeleteFileA(path.c_str()));
}

TEST(Download, WithoutDestinationLeavesNothingWhenItFails) {
  struct Fetch : TestDownload {
    using TestDownload::TestDownload;
    int ReadFile() override {
      if (!isThrowing) return TestDownload::ReadFile();
      EnsureDestination();
      path = GetDestination();
      throw 1;
    }
    bool isThrowing = false;
    CString path;
  };
  LoopbackServer server(Answer(HeadOf(30) + "abc"));
  Fetch fetch(server.Url("a.zip"), "");
  fetch.SetRetryNum(1);
  for (const int error : {12030, 8}) {
    fetch.isThrowing = error == 8;  // no memory
    EXPECT_STREQ("", fetch.GetFile());
    EXPECT_EQ(error, fetch.GetError());
    EXPECT_STREQ("", fetch.GetDestination());
  }
  EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA(fetch.path));
}

TEST(Download, LeavesAloneWhatItMustNotReplace) {
  const TempFolder folder;
  const std::string kept = folder.Write("read-only", "kept");
  SetFileAttributesA(kept.c_str(), FILE_ATTRIBUTE_READONLY);
  std::filesystem::create_directory(folder / "folder");
  const struct {
    std::string path;
    int error;
  } kCases[] = {
      {kept, ERROR_ACCESS_DENIED},
      {folder / "folder", ERROR_ACCESS_DENIED},
      {folder / "no folder\\file", ERROR_PATH_NOT_FOUND},
      {folder / std::string(300, 'x'), ERROR_FILENAME_EXCED_RANGE},
  };
  for (const auto& each : kCases) {
    SCOPED_TRACE(each.path);
    LoopbackServer server(Answer(HeadOf(3) + "new"));
    TestDownload download(server.Url("x"), each.path);
    EXPECT_STREQ("", download.GetFile());
    EXPECT_EQ(each.error, download.GetError());
    EXPECT_EQ(1, server.Connections());
    EXPECT_NE(-1, download.GetErrorStr().Find("(Error code = "));
  }
  EXPECT_EQ("kept", folder.Read("read-only"));
  EXPECT_EQ(2u, filesIn(folder));
}
