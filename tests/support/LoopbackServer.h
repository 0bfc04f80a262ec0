// A server on this machine, as good or as bad as a test needs it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

class LoopbackServer;

// One connection of a client to the server, for the function that serves it.
class LoopbackConnection {
 public:
  // Reads a request with its body, as far as Content-Length says. False: the client has gone.
  bool ReadRequest();
  const std::string& Head() const { return m_head; }
  const std::string& Body() const { return m_body; }
  // The object that the request line names.
  std::string Object() const;

  // False: the client has gone, or the server ends.
  bool Send(std::string_view bytes);
  // A whole answer with its length.
  bool SendReply(std::string_view body, const char* status = "200 OK");
  // Says nothing until the client goes or the server ends; at most for some seconds.
  void StaySilent(int milliseconds = 60000);
  // Breaks the connection off; the client is told so.
  void Reset();

 private:
  friend class LoopbackServer;
  LoopbackConnection(LoopbackServer& server, uintptr_t socket)
      : m_server(server), m_socket(socket) {}
  bool Receive();

  LoopbackServer& m_server;
  uintptr_t m_socket;
  std::string m_received;
  std::string m_head;
  std::string m_body;
};

// Serves each connection on a thread of its own, with a function that ends the connection by
// returning. The server's own end waits for all of them.
class LoopbackServer {
 public:
  using Serve = std::function<void(LoopbackConnection&)>;

  explicit LoopbackServer(Serve serve);
  ~LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  int Port() const;
  // The URL of an object ("a.zip") on this server.
  std::string Url(const std::string& object) const;
  // "127.0.0.1:PORT".
  std::string HostAndPort() const;
  // How many connections there have been.
  int Connections() const;

 private:
  friend class LoopbackConnection;
  struct State;
  std::unique_ptr<State> m_state;
};
