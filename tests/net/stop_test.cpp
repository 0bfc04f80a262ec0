// Stop, at every moment of a download, from code and from the progress window.
#include <winsock2.h>

#include "net/InternetDownload.h"

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "net/TestDownload.h"
#include "support/LoopbackServer.h"
#include "support/TempFolder.h"
#include "support/Watchdog.h"
#include "windows/Steps.h"

namespace {

constexpr DWORD kAtMost = 300;  // milliseconds from Stop to the end of the work

// A port where connections neither come about nor fail: its queue is full.
class FullPort {
 public:
  FullPort() {
    WSADATA data;
    WSAStartup(MAKEWORD(2, 2), &data);
    m_sockets.push_back(socket(AF_INET, SOCK_STREAM, IPPROTO_TCP));
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    bind(m_sockets[0], reinterpret_cast<sockaddr*>(&address), size);
    listen(m_sockets[0], 0);
    getsockname(m_sockets[0], reinterpret_cast<sockaddr*>(&address), &size);
    m_port = ntohs(address.sin_port);
    for (int i = 0; i < 8; ++i) {
      const SOCKET filler = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
      u_long nonBlocking = 1;
      ioctlsocket(filler, FIONBIO, &nonBlocking);
      connect(filler, reinterpret_cast<sockaddr*>(&address), size);
      m_sockets.push_back(filler);
    }
    Sleep(50);
  }
  ~FullPort() {
    for (const SOCKET each : m_sockets) closesocket(each);
    WSACleanup();
  }
  std::string Url() const { return "http://127.0.0.1:" + std::to_string(m_port) + "/file"; }

 private:
  std::vector<SOCKET> m_sockets;
  int m_port = 0;
};

// Notes when the work has ended.
struct Stoppable : TestDownload {
  Stoppable(const std::string& url, const std::string& destination, int async = 1)
      : TestDownload(url, destination) {
    SetTimeOut(20, 20);
    SetAsyncMode(async);
    SetRetryNum(5);
  }
  void DoLoopOperation() override {
    InternetDownload::DoLoopOperation();
    ended = GetTickCount();
  }
  std::atomic<DWORD> ended = 0;
};

void serveSlowly(LoopbackConnection& client) {
  if (!client.ReadRequest()) return;
  const std::string object = client.Object();
  if (object == "/waiting") return client.StaySilent();
  if (object == "/pausing") return client.Reset();
  if (object == "/reading") {
    client.Send(HeadOf(1000000) + BytesOf(70000));
    return client.StaySilent();
  }
  client.Send("HTTP/1.1 200 OK\r\n\r\n");  // endless
  while (client.Send(BytesOf(10000))) {
  }
}

}  // namespace

class StopMode : public testing::TestWithParam<int> {};

TEST_P(StopMode, EndsEveryWaitAtOnce) {
  auto full = std::make_unique<FullPort>();
  LoopbackServer server(serveSlowly);
  const struct {
    std::string url;
    DWORD after;
    int error;  // 0: of any kind, or none: the moment decides
  } kCases[] = {
      {full->Url(), 300, 12017},           {server.Url("waiting"), 300, 12017},
      {server.Url("reading"), 300, 12017}, {server.Url("endless"), 300, 0},
      {server.Url("pausing"), 900, 0},
  };
  for (const auto& each : kCases) {
    SCOPED_TRACE(each.url);
    const TempFolder folder;
    folder.Write("file", "old");
    Stoppable download(each.url, folder / "file", GetParam());
    DWORD stopped = 0;
    std::thread stopper([&] {
      Sleep(each.after);
      stopped = GetTickCount();
      download.StopLoop();
    });
    const int before = server.Connections();
    EXPECT_STREQ("", download.GetFile());
    stopper.join();
    EXPECT_GE(download.ended, stopped);
    EXPECT_LE(download.ended - stopped, kAtMost);
    EXPECT_TRUE(download.wasAborted());
    if (each.error != 0) {
      EXPECT_EQ(each.error, download.GetError());
      EXPECT_LE(server.Connections(), before + 1) << "a further attempt";
    }
    EXPECT_EQ("old", folder.Read("file"));
    full.reset();  // the system, too, stops connecting now
  }
}
INSTANTIATE_TEST_SUITE_P(Synchronous, StopMode, testing::Values(0));
INSTANTIATE_TEST_SUITE_P(Asynchronous, StopMode, testing::Values(1));

// A user who presses the button in the real window.
TEST(Stop, PressedInTheProgressWindow) {
  auto full = std::make_unique<FullPort>();
  LoopbackServer server(serveSlowly);
  for (const std::string& url : {full->Url(), server.Url("waiting"), server.Url("reading")}) {
    SCOPED_TRACE(url);
    const watchdog::ExpectWindows windows;
    const TempFolder folder;
    Stoppable download(url, folder / "file");
    download.SetNoGui(0);
    download.SetShowProgress(1);
    const char* const expected =
        url.ends_with("reading") ? "5% Completed - Progress" : "0% Completed - Progress";
    std::atomic<DWORD> pressed = 0;
    std::string caption;
    std::thread user([&] {
      HWND window = nullptr;
      for (int i = 0; i < 100 && window == nullptr; ++i) {
        Sleep(50);
        window = FindWindowA("#32770", nullptr);
      }
      char text[100] = "";
      for (int i = 0; i < 40 && strcmp(text, expected) != 0; ++i) {
        Sleep(50);
        GetWindowTextA(window, text, sizeof text);
      }
      Sleep(300);
      caption = text;
      pressed = GetTickCount();
      PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_STREQ("", download.GetFile());
    user.join();
    EXPECT_LE(download.ended - pressed, kAtMost);
    EXPECT_EQ(expected, caption);
    EXPECT_EQ(12017, download.GetError());
    DeleteTemporaryObjects();
    full.reset();
  }
}
