// Downloads from good servers and bad ones.
#include "net/InternetDownload.h"

#include <wininet.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "net/TestDownload.h"
#include "support/AssertionLog.h"
#include "support/LongRun.h"
#include "support/LoopbackServer.h"
#include "support/OpenHandles.h"
#include "support/TempFolder.h"

namespace {

using Client = LoopbackConnection;

constexpr char kChunked[] =
    "HTTP/1.1 200 OK\r\nConnection: TE, close\r\nTransfer-Encoding: chunked\r\n\r\n";
constexpr char kChunkedAndKept[] = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";

size_t filesIn(const TempFolder& folder) {
  return static_cast<size_t>(std::distance(std::filesystem::directory_iterator(folder.path()), {}));
}

LoopbackServer::Serve answer(const std::string& bytes) {
  return [bytes](Client& client) {
    if (client.ReadRequest()) client.Send(bytes);
  };
}

std::string headers(size_t size) {
  std::string lines;
  while (lines.size() < size) lines += "X-Header: " + std::string(1000, 'x') + "\r\n";
  return lines;
}

// WinInet keeps connections for a minute, which would count as handles of a test.
void closeKeptConnections() {
  InternetSetOptionA(nullptr, INTERNET_OPTION_SETTINGS_CHANGED, nullptr, 0);
}

class DownloadMode : public testing::TestWithParam<int> {};

}  // namespace

TEST_P(DownloadMode, BringsWhatTheServerSends) {
  const std::string bytes = BytesOf(123457);
  const struct {
    const char* name;
    std::string answer;
    std::string file;
  } kCases[] = {
      {"length", HeadOf(bytes.size()) + bytes, bytes},
      {"one block", HeadOf(50000) + bytes.substr(0, 50000), bytes.substr(0, 50000)},
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
  for (const auto& each : kCases) {
    SCOPED_TRACE(each.name);
    const AssertionLog log;
    const TempFolder folder;
    folder.Write("file", "old");
    LoopbackServer server(answer(each.answer));
    TestDownload download(server.Url("file"), folder / "file");
    download.SetAsyncMode(GetParam());
    EXPECT_EQ(folder / "file", std::string(download.GetFile()));
    EXPECT_EQ(0, download.GetError());
    EXPECT_TRUE(each.file == folder.Read("file")) << folder.Read("file").size() << " bytes";
    EXPECT_EQ(1u, filesIn(folder));
    EXPECT_EQ(1, server.Connections());
    EXPECT_EQ("", log.Text());
  }
  closeKeptConnections();
}
// Whatever a server does, the download ends in time, with an error that says it, and the file is
// what it was.
TEST_P(DownloadMode, FailsForWhatABadServerDoes) {
  const std::string head = "HTTP/1.1 200 OK\r\nContent-Le";
  const std::string body = HeadOf(100000) + BytesOf(60000);
  const std::set<int> kLost = {ERROR_INTERNET_CONNECTION_ABORTED, ERROR_INTERNET_CONNECTION_RESET};
  const std::set<int> kTimeOut = {ERROR_INTERNET_TIMEOUT};
  const std::string chunk = std::string(kChunkedAndKept) + "3\r\nabc\r\n";
  const auto then = [](const std::string& bytes, void (*end)(Client&)) {
    return [=](Client& client) {
      if (client.ReadRequest() && client.Send(bytes)) end(client);
    };
  };
  constexpr auto kSilent = [](Client& client) { client.StaySilent(); };
  constexpr auto kReset = [](Client& client) {
    Sleep(50);  // what was sent is to arrive
    client.Reset();
  };
  const struct {
    const char* name;
    LoopbackServer::Serve serve;
    std::set<int> errors;
    int attempts;
  } kCases[] = {
      {"silent from the start", kSilent, kTimeOut, 1},
      {"silent in the head", then(head, kSilent), kTimeOut, 1},
      {"silent in the body", then(body, kSilent), kTimeOut, 1},
      {"a byte now and then",
       [](Client& client) {
         if (!client.ReadRequest() || !client.Send(HeadOf(100))) return;
         for (int i = 0; i < 10 && client.Send("x"); ++i) client.StaySilent(300);
       },
       kTimeOut, 1},
      {"closed at once", [](Client&) {}, kLost, 2},
      {"closed in the head", answer(head), kLost, 1},
      {"closed in the body", answer(body), kLost, 1},
      {"closed in a chunk", answer(std::string(kChunkedAndKept) + "100\r\nabc"), kLost, 1},
      {"closed before the last chunk", answer(chunk), kLost, 1},
      {"closed in a chunk's length", answer(chunk + "1"), kLost, 1},
      {"shorter than 4 GB", answer(HeadOf(0xFFFFFFFF) + "abc"), kLost, 1},
      {"reset at once", kReset, kLost, 1},
      {"reset before the answer", then("", kReset), kLost, 1},
      {"reset in the head", then(head, kReset), kLost, 1},
      {"reset in the body", then(body, kReset), kLost, 2},
      {"not found",
       answer("HTTP/1.1 404 Not Found\r\nContent-Length: 2\r\nConnection: close\r\n\r\nno"),
       {ERROR_INTERNET_ITEM_NOT_FOUND},
       1},
      {"unchanged, though nobody asked for that",
       answer("HTTP/1.1 304 Not Modified\r\nConnection: close\r\n\r\n"),
       {ERROR_INTERNET_ITEM_NOT_FOUND},
       1},
      {"no content",
       answer("HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n"),
       {ERROR_INTERNET_ITEM_NOT_FOUND},
       1},
      {"its own error",
       answer("HTTP/1.1 500 Sorry\r\nContent-Length: 2\r\nConnection: close\r\n\r\nno"),
       {ERROR_INTERNET_EXTENDED_ERROR},
       2},
  };
  for (const auto& each : kCases) {
    if (each.errors == kTimeOut && GetParam() == 0) continue;  // WinInet's own, of half a minute
    SCOPED_TRACE(each.name);
    const AssertionLog log;
    const TempFolder folder;
    folder.Write("file", "old");
    LoopbackServer server(each.serve);
    TestDownload download(server.Url("file"), folder / "file");
    download.SetAsyncMode(GetParam());
    const bool isFinal = each.errors.count(ERROR_INTERNET_ITEM_NOT_FOUND) > 0;
    download.SetRetryNum(isFinal ? 2 : each.attempts);
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
  closeKeptConnections();
}

INSTANTIATE_TEST_SUITE_P(Synchronous, DownloadMode, testing::Values(0));
INSTANTIATE_TEST_SUITE_P(Asynchronous, DownloadMode, testing::Values(1));

// WinInet under Wine would go on for ever, also behind the operation's back.
TEST(DownloadFails, ForRedirectionsInACircle) {
  LoopbackServer server(
      answer("HTTP/1.1 302 Found\r\nLocation: /file\r\nContent-Length: 0\r\n\r\n"));
  const TempFolder folder;
  TestDownload download(server.Url("file"), folder / "file");
  EXPECT_STREQ("", download.GetFile());
  EXPECT_EQ(ERROR_INTERNET_ITEM_NOT_FOUND, download.GetError());
  Sleep(200);
  EXPECT_EQ(21, server.Connections());
  closeKeptConnections();
}

TEST(DownloadFails, ForWhatIsNoServer) {
  std::string gone;
  {
    LoopbackServer server([](Client&) {});
    gone = server.Url("x");
  }
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
    EXPECT_STREQ("", download.GetFile());
    EXPECT_EQ(each.error, download.GetError());
    EXPECT_EQ(0u, filesIn(folder));
  }
}

TEST(Download, IsTriedAgainAfterAPauseThatGrows) {
  for (const int failures : {1, 2}) {
    const TempFolder folder;
    std::atomic<int> count = 0;
    LoopbackServer server([&](Client& client) {
      if (++count <= failures) return client.Reset();
      if (client.ReadRequest()) client.SendReply("now");
    });
    TestDownload download(server.Url("file"), folder / "file");
    const DWORD start = GetTickCount();
    EXPECT_STRNE("", download.GetFile());
    EXPECT_GE(GetTickCount() - start, failures == 1 ? 240u : 740u) << "milliseconds";
    EXPECT_EQ(0, download.GetError());
    EXPECT_EQ("now", folder.Read("file"));
  }
  for (const int retries : {-1, 1, 2}) {
    LoopbackServer server([&](Client& client) { client.Reset(); });
    const TempFolder folder;
    TestDownload download(server.Url("file"), folder / "file");
    download.SetRetryNum(retries);
    EXPECT_STREQ("", download.GetFile());
    EXPECT_EQ(std::max(retries, 1), server.Connections());
  }
}

TEST(Download, WithoutDestinationMakesAFileWithTheExtensionOfTheUrl) {
  LoopbackServer server(answer(HeadOf(3) + "abc"));
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
    EXPECT_EQ(3u, std::filesystem::file_size(path));
    EXPECT_TRUE(paths.insert(path).second);
    EXPECT_STREQ(path.c_str(), download.GetDestination());
  }
  for (const std::string& path : paths) EXPECT_TRUE(DeleteFileA(path.c_str()));
}

TEST(Download, WithoutDestinationLeavesNothingWhenItFails) {
  LoopbackServer server(answer(HeadOf(30) + "abc"));
  TestDownload download(server.Url("a.zip"), "");
  download.SetRetryNum(1);
  EXPECT_STREQ("", download.GetFile());
  EXPECT_STREQ("", download.GetDestination());
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
    LoopbackServer server(answer(HeadOf(3) + "new"));
    TestDownload download(server.Url("x"), each.path);
    EXPECT_STREQ("", download.GetFile());
    EXPECT_EQ(each.error, download.GetError());
    EXPECT_EQ(1, server.Connections());
    EXPECT_NE(-1, download.GetErrorStr().Find("(Error code = "));
  }
  EXPECT_EQ("kept", folder.Read("read-only"));
  EXPECT_EQ(2u, filesIn(folder));
}

TEST(Download, ManyTimesKeepsNoHandle) {
  const TempFolder folder;
  LoopbackServer server([](Client& client) {
    if (client.ReadRequest()) client.SendReply(BytesOf(60000));
  });
  const auto fetch = [&](int times) {
    for (int i = 0; i < times; ++i) {
      TestDownload download(server.Url("file"), folder / "file");
      ASSERT_STRNE("", download.GetFile()) << i;
    }
  };
  fetch(20);
  Sleep(500);
  const unsigned before = allocations::OpenHandles();
  fetch(IsLongRun() ? 500 : 60);
  Sleep(500);
  EXPECT_LE(allocations::OpenHandles(), before + 5);
}
