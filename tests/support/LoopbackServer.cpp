#include <winsock2.h>

#include "support/LoopbackServer.h"

#include <atomic>
#include <cstdlib>
#include <future>
#include <thread>
#include <vector>

struct LoopbackServer::State {
  Serve serve;
  SOCKET listener = INVALID_SOCKET;
  int port = 0;
  std::atomic<bool> ends = false;
  std::atomic<int> connections = 0;
  std::thread acceptor;
  std::vector<std::future<void>> servers;  // of the acceptor's thread, until that has ended
};

namespace {

constexpr int kPollMilliseconds = 20;

// Whether there is something to read, or the end of the connection to see, within the time.
bool isReadable(SOCKET socket, int milliseconds) {
  fd_set set;
  FD_ZERO(&set);
  FD_SET(socket, &set);
  timeval time = {milliseconds / 1000, milliseconds % 1000 * 1000};
  return select(0, &set, nullptr, nullptr, &time) > 0;
}

}  // namespace

LoopbackServer::LoopbackServer(Serve serve) : m_state(std::make_unique<State>()) {
  WSADATA data;
  WSAStartup(MAKEWORD(2, 2), &data);
  State& state = *m_state;
  state.serve = std::move(serve);
  state.listener = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  int size = sizeof address;
  if (bind(state.listener, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
      listen(state.listener, SOMAXCONN) != 0) {
    abort();
  }
  getsockname(state.listener, reinterpret_cast<sockaddr*>(&address), &size);
  state.port = ntohs(address.sin_port);
  state.acceptor = std::thread([this, &state] {
    while (!state.ends) {
      if (!isReadable(state.listener, kPollMilliseconds)) continue;
      const SOCKET client = accept(state.listener, nullptr, nullptr);
      if (client == INVALID_SOCKET) continue;
      ++state.connections;
      // A thread keeps its handle until it has been joined.
      std::erase_if(state.servers, [](const std::future<void>& server) {
        return server.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
      });
      state.servers.push_back(std::async(std::launch::async, [this, &state, client] {
        LoopbackConnection connection(*this, client);
        state.serve(connection);
        if (connection.m_socket == INVALID_SOCKET) return;
        shutdown(client, SD_SEND);
        // Closing with something unread would reset the connection under what was sent.
        const DWORD start = GetTickCount();
        while (!state.ends && GetTickCount() - start < 2000 && connection.Receive()) {
        }
        closesocket(client);
      }));
    }
  });
}

LoopbackServer::~LoopbackServer() {
  m_state->ends = true;
  m_state->acceptor.join();
  m_state->servers.clear();  // joins them
  closesocket(m_state->listener);
  WSACleanup();
}

int LoopbackServer::Port() const { return m_state->port; }

std::string LoopbackServer::HostAndPort() const { return "127.0.0.1:" + std::to_string(Port()); }

std::string LoopbackServer::Url(const std::string& object) const {
  return "http://" + HostAndPort() + "/" + object;
}

int LoopbackServer::Connections() const { return m_state->connections; }

// --- A connection ---

bool LoopbackConnection::Receive() {
  while (!isReadable(m_socket, kPollMilliseconds)) {
    if (m_server.m_state->ends) return false;
  }
  char block[16384];
  const int got = recv(m_socket, block, sizeof block, 0);
  if (got <= 0) return false;
  m_received.append(block, static_cast<size_t>(got));
  return true;
}

bool LoopbackConnection::ReadRequest() {
  size_t end;
  while ((end = m_received.find("\r\n\r\n")) == std::string::npos) {
    if (!Receive()) return false;
  }
  end += 4;
  m_head = m_received.substr(0, end);
  size_t length = 0;
  constexpr std::string_view kLength = "Content-Length: ";
  if (const size_t place = m_head.find(kLength); place != std::string::npos) {
    length = strtoul(m_head.c_str() + place + kLength.size(), nullptr, 10);
  }
  while (m_received.size() < end + length) {
    if (!Receive()) return false;
  }
  m_body = m_received.substr(end, length);
  m_received.erase(0, end + length);
  return true;
}

std::string LoopbackConnection::Object() const {
  const size_t start = m_head.find(' ') + 1;
  return m_head.substr(start, m_head.find(' ', start) - start);
}

bool LoopbackConnection::Send(std::string_view bytes) {
  while (!bytes.empty() && !m_server.m_state->ends) {
    const int sent = send(m_socket, bytes.data(), static_cast<int>(bytes.size()), 0);
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<size_t>(sent));
  }
  return bytes.empty();
}

bool LoopbackConnection::SendReply(std::string_view body, const char* status) {
  return Send("HTTP/1.1 " + std::string(status) + "\r\nContent-Length: " +
              std::to_string(body.size()) + "\r\nConnection: close\r\n\r\n" + std::string(body));
}

void LoopbackConnection::StaySilent(int milliseconds) {
  const DWORD start = GetTickCount();
  while (!m_server.m_state->ends && GetTickCount() - start < static_cast<DWORD>(milliseconds)) {
    if (!isReadable(m_socket, kPollMilliseconds)) continue;
    if (!Receive()) return;
  }
}

void LoopbackConnection::Reset() {
  const linger now = {1, 0};
  setsockopt(m_socket, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&now), sizeof now);
  closesocket(m_socket);
  m_socket = INVALID_SOCKET;
}
