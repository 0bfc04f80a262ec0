// Requests over the internet classes, to a server on this machine.
#include <afxinet.h>

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "support/LoopbackServer.h"

namespace {

// The error and context of the exception that work throws.
template <class Work>
std::pair<DWORD, DWORD> thrownBy(Work work) {
  try {
    work();
  } catch (CInternetException* exception) {
    const std::pair<DWORD, DWORD> thrown(exception->m_dwError, exception->m_dwContext);
    exception->Delete();
    return thrown;
  }
  return {0, 0};
}

}  // namespace

TEST(Internet, PostedBodyAndItsAnswer) {
  std::string head, body;
  LoopbackServer server([&](LoopbackConnection& client) {
    if (!client.ReadRequest()) return;
    head = client.Head();
    body = client.Body();
    client.SendReply("the answer", "201 Made");
  });
  CInternetSession session("agent of the test");
  const std::unique_ptr<CHttpConnection> connection(
      session.GetHttpConnection("127.0.0.1", static_cast<INTERNET_PORT>(server.Port())));
  const std::unique_ptr<CHttpFile> file(
      connection->OpenRequest(CHttpConnection::HTTP_VERB_POST, "/page"));
  std::string sent("a\0b\xff", 4);
  CString header("X-Own: 1\r\n");
  EXPECT_TRUE(file->SendRequest(header, sent.data(), sent.size()));
  DWORD status = 0;
  EXPECT_TRUE(file->QueryInfoStatusCode(status));
  EXPECT_EQ(201u, status);
  CString length;
  EXPECT_TRUE(file->QueryInfo(HTTP_QUERY_CONTENT_LENGTH, length));
  EXPECT_STREQ("10", length);
  EXPECT_FALSE(file->QueryInfo(HTTP_QUERY_LOCATION, length));
  char answer[20] = "";
  EXPECT_EQ(10u, file->Read(answer, sizeof answer));
  EXPECT_STREQ("the answer", answer);
  EXPECT_EQ(0u, head.find("POST /page HTTP/1.0\r\n")) << head;
  EXPECT_NE(std::string::npos, head.find("User-Agent: agent of the test\r\n")) << head;
  EXPECT_NE(std::string::npos, head.find("X-Own: 1\r\n")) << head;
  EXPECT_EQ(sent, body);
}

TEST(Internet, FailuresAreExceptionsWithErrorAndContext) {
  int port = 0;
  {
    LoopbackServer gone([](LoopbackConnection&) {});
    port = gone.Port();
  }
  CInternetSession session("test", 77);
  const std::unique_ptr<CHttpConnection> connection(
      session.GetHttpConnection("127.0.0.1", static_cast<INTERNET_PORT>(port)));
  const std::unique_ptr<CHttpFile> file(connection->OpenRequest("GET", "/"));
  EXPECT_EQ(std::pair(DWORD{ERROR_INTERNET_CANNOT_CONNECT}, DWORD{77}),
            thrownBy([&] { file->SendRequest(); }));
  EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER},
            thrownBy([&] { connection->OpenRequest(99, "/"); }).first);
  try {
    file->Seek(0, CFile::begin);
    ADD_FAILURE() << "an answer cannot be sought in";
  } catch (CNotSupportedException* exception) {
    exception->Delete();
  }
  file->Close();
  file->Close();
  EXPECT_NE(0u, thrownBy([&] { file->SendRequest(); }).first);
}
