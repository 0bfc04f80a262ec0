// Fetches a file from a server on this machine, with the progress window open.
//
// Floor: a bare loop of InternetReadFile into one buffer of the same size, each block written with
// WriteFile before the next is read.
#include <winsock2.h>

#include <afxwin.h>
#include <wininet.h>

#include <string>
#include <thread>
#include <vector>

#include "Measure.h"
#include "entry/Handles.h"
#include "net/InternetDownload.h"

namespace {

constexpr int kRounds = 5;
constexpr double kAim = 1.05;
constexpr size_t kSize = 300u << 20;
constexpr DWORD kBlock = 50000;

// Sends the same bytes to whoever asks for anything.
class Server {
 public:
  Server() : m_block(1 << 20, 'x') {
    WSADATA data;
    WSAStartup(MAKEWORD(2, 2), &data);
    m_listener = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    bench::Require(bind(m_listener, reinterpret_cast<sockaddr*>(&address), size) == 0 &&
                       listen(m_listener, SOMAXCONN) == 0,
                   "no port to listen on");
    getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &size);
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] { Serve(); });
  }
  ~Server() {
    closesocket(m_listener);
    m_thread.join();
  }
  std::string Url() const { return "http://127.0.0.1:" + std::to_string(m_port) + "/file"; }

 private:
  void Serve() {
    for (;;) {
      const SOCKET client = accept(m_listener, nullptr, nullptr);
      if (client == INVALID_SOCKET) return;
      char request[4096];
      recv(client, request, sizeof request, 0);
      const std::string head =
          "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " + std::to_string(kSize) +
          "\r\n\r\n";
      send(client, head.data(), static_cast<int>(head.size()), 0);
      for (size_t sent = 0; sent < kSize; sent += m_block.size())
        send(client, m_block.data(), static_cast<int>(m_block.size()), 0);
      shutdown(client, SD_SEND);
      while (recv(client, request, sizeof request, 0) > 0) {
      }
      closesocket(client);
    }
  }

  std::vector<char> m_block;
  SOCKET m_listener = INVALID_SOCKET;
  int m_port = 0;
  std::thread m_thread;
};

// Both make a new file: replacing one is another thing, that goes through to the disk.
void Fetch(const std::string& url, const std::string& path, bool withWindow) {
  DeleteFileA(path.c_str());
  InternetDownload download(url.c_str(), path.c_str(), 1);
  download.SetNoGui(!withWindow);
  bench::Require(!download.GetFile().IsEmpty(), "the download has failed");
}

void BareLoop(const std::string& url, const std::string& path) {
  DeleteFileA(path.c_str());
  const HINTERNET session =
      InternetOpenA("bench", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
  const HINTERNET handle =
      InternetOpenUrlA(session, url.c_str(), nullptr, 0, INTERNET_FLAG_NO_CACHE_WRITE, 0);
  bench::Require(handle != nullptr, "the URL can't be opened");
  const unique_file file(
      CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  std::vector<char> block(kBlock);
  size_t received = 0;
  DWORD got = 0, written = 0;
  while (InternetReadFile(handle, block.data(), kBlock, &got) && got > 0) {
    bench::Require(WriteFile(file.get(), block.data(), got, &written, nullptr), "can't write");
    received += got;
  }
  bench::Require(received == kSize, "not all bytes have come");
  InternetCloseHandle(handle);
  InternetCloseHandle(session);
}

}  // namespace

int main() {
  char folder[MAX_PATH];
  GetTempPathA(MAX_PATH, folder);
  const std::string subject = std::string(folder) + "orvane-bench-subject";
  const std::string floor = std::string(folder) + "orvane-bench-floor";
  CWinApp application("bench");
  {
    const Server server;
    bench::PrintHeader();
    for (const bool withWindow : {true, false}) {
      const auto times = bench::Compare(
          kRounds, [&] { Fetch(server.Url(), subject, withWindow); },
          [&] { BareLoop(server.Url(), floor); });
      bench::PrintRow(withWindow ? "300 MB over HTTP, with window" : "300 MB over HTTP", times,
                      kAim);
    }
  }
  DeleteFileA(subject.c_str());
  DeleteFileA(floor.c_str());
}
