// What the tests of transfers share.
#pragma once

#include <string>

#include "diag/trace.h"
#include "net/InternetDownload.h"
#include "support/LoopbackServer.h"
#include "support/TempFolder.h"

// A download without windows. It waits as long for an answer as a busy machine may need.
struct TestDownload : InternetDownload {
  TestDownload(const std::string& url, const std::string& destination)
      : InternetDownload(url.c_str(), destination.c_str(), 0) {
    SetNoGui(1);
    SetTimeOut(20, 20);
  }
};

inline std::string BytesOf(size_t size) {
  std::string bytes(size, 0);
  unsigned state = 1;
  for (char& byte : bytes) byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
  return bytes;
}

// The head of an answer that announces a length.
inline std::string HeadOf(size_t length) {
  return "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " + std::to_string(length) +
         "\r\n\r\n";
}

// Serves bytes to every request, and does something with the connection then.
inline LoopbackServer::Serve Answer(
    const std::string& bytes, LoopbackServer::Serve then = [](LoopbackConnection&) {}) {
  return [=](LoopbackConnection& client) {
    if (client.ReadRequest() && client.Send(bytes)) then(client);
  };
}

inline void GoSilent(LoopbackConnection& client) { client.StaySilent(); }

// The trace log of a scope.
class TraceLog {
 public:
  TraceLog() { TraceFunction::logFileName = (m_folder / "trace.log").c_str(); }
  ~TraceLog() { TraceFunction::logFileName.Empty(); }
  bool Has(const std::string& text) const { return Text().find(text) != std::string::npos; }
  std::string Text() const { return m_folder.Read("trace.log"); }

 private:
  TempFolder m_folder;
};

class NoWindows {
 public:
  NoWindows() { AssertVerifyTrace::BlockGuiMessages(1); }
  ~NoWindows() { AssertVerifyTrace::BlockGuiMessages(0); }
};
