// Stop, at every moment of a download, from code and from the progress window.
#include <winsock2.h>

#include "net/InternetDownload.h"

#include <algorithm>
#include <atomic>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "net/TestDownload.h"
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
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    for (SOCKET& each : m_sockets) {
      each = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
      if (&each == m_sockets) {
        bind(each, reinterpret_cast<sockaddr*>(&address), size);
        listen(each, 0);
        getsockname(each, reinterpret_cast<sockaddr*>(&address), &size);
      } else {
        u_long nonBlocking = 1;
        ioctlsocket(each, FIONBIO, &nonBlocking);
        connect(each, reinterpret_cast<sockaddr*>(&address), size);
      }
    }
    m_port = ntohs(address.sin_port);
    Sleep(50);
  }
  ~FullPort() {
    for (const SOCKET each : m_sockets) closesocket(each);
    WSACleanup();
  }
  std::string Url() const { return "http://127.0.0.1:" + std::to_string(m_port) + "/file"; }

 private:
  SOCKET m_sockets[9];  // the one that listens, and those that wait for it
  int m_port = 0;
};

// Notes when the work has ended.
struct Stoppable : TestDownload {
  Stoppable(const std::string& url, const std::string& destination, int async = 1)
      : TestDownload(url, destination) {
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

// Gives, for an object of that server, or a connection that does not come about, the milliseconds
// from Stop to the end of the work. A busy machine may be late by itself; a wait that Stop does not
// end is late each time.
template <class Run>
void ExpectStopAtOnce(const LoopbackServer& server, const std::string& object, Run run) {
  SCOPED_TRACE(object);
  DWORD best = INFINITE;
  for (int tries = 0; tries < 3 && best > kAtMost; ++tries) {
    std::optional<FullPort> full;
    if (object == "connecting") full.emplace();
    const TempFolder folder;
    folder.Write("file", "old");
    best = std::min(best, run(full ? full->Url() : server.Url(object), folder / "file"));
    EXPECT_EQ("old", folder.Read("file"));
  }
  EXPECT_LE(best, kAtMost) << "milliseconds";
}

class StopMode : public testing::TestWithParam<int> {};

}  // namespace

TEST_P(StopMode, EndsEveryWaitAtOnce) {
  LoopbackServer server(serveSlowly);
  const struct {
    const char* object;
    int attempts;  // at most
    int error;     // 0: none either, where the moment decides
    DWORD after = 200;
  } kCases[] = {
      {"connecting", 0, 12017}, {"waiting", 1, 12017},      {"reading", 1, 12017},
      {"endless", 1, 0},        {"pausing", 3, 12017, 500},
  };
  for (const auto& each : kCases) {
    ExpectStopAtOnce(server, each.object, [&](const std::string& url, const std::string& path) {
      Stoppable download(url, path, GetParam());
      DWORD stopped = 0;
      std::thread stopper([&] {
        Sleep(each.after);
        stopped = GetTickCount();
        download.StopLoop();
      });
      const int before = server.Connections();
      EXPECT_STREQ("", download.GetFile());
      stopper.join();
      EXPECT_TRUE(download.wasAborted());
      EXPECT_TRUE(each.error == 0 || each.error == download.GetError()) << download.GetError();
      EXPECT_LE(server.Connections(), before + each.attempts) << "a further attempt";
      return download.ended - stopped;
    });
  }
}
INSTANTIATE_TEST_SUITE_P(Synchronous, StopMode, testing::Values(0));
INSTANTIATE_TEST_SUITE_P(Asynchronous, StopMode, testing::Values(1));

// A user who presses the button in the real window.
TEST(Stop, PressedInTheProgressWindow) {
  LoopbackServer server(serveSlowly);
  ExpectStopAtOnce(server, "reading", [&](const std::string& url, const std::string& path) {
    const watchdog::ExpectWindows windows;
    Stoppable download(url, path);
    download.SetNoGui(0);
    download.SetShowProgress(1);
    DWORD pressed = 0;
    std::string caption;
    std::thread user([&] {
      HWND window = nullptr;
      for (int i = 0; i < 200 && caption != "5% Completed - Progress"; ++i) {
        Sleep(25);
        if (window == nullptr) window = FindWindowA("#32770", nullptr);
        char text[100] = "";
        GetWindowTextA(window, text, sizeof text);
        caption = text;
      }
      pressed = GetTickCount();
      PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_STREQ("", download.GetFile());
    user.join();
    EXPECT_EQ("5% Completed - Progress", caption);
    EXPECT_EQ(12017, download.GetError());
    DeleteTemporaryObjects();
    return download.ended - pressed;
  });
}
