// Files sent to a server page.
#include "net/InternetUpload.h"

#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "net/TestDownload.h"
#include "support/AssertionLog.h"
#include "zip/ZipFiles.h"

namespace {

// A server page that takes a form, and answers with a status.
struct Page {
  explicit Page(const char* status = "200 OK")
      : server([this, status](LoopbackConnection& client) {
          if (!client.ReadRequest()) return;
          head = client.Head();
          body = client.Body();
          client.SendReply("taken", status);
        }) {}

  std::string head, body;
  LoopbackServer server;
};

int upload(const std::string& path, const char* name, const std::string& server) {
  return InternetUploadFile(path.c_str(), name, server.c_str(), "/upload.asp", 1);
}

}  // namespace

// Whatever the file is called, it brings no header and no part of its own.
TEST(Upload, SendsTheFileAsAForm) {
  const TempFolder folder;
  const struct {
    const char* name;
    const char* sent;
    size_t size;
  } kCases[] = {
      {"a.zip", "a.zip", 300000},
      {"a\"; name=\"b", "a%22; name=%22b", 0},
      {"a\r\nX-Own: 1\r\n\r\n--AaB03x--\r\n", "a%0D%0AX-Own: 1%0D%0A%0D%0A--AaB03x--%0D%0A", 5},
      {"100%s%n%d%%", "100%s%n%d%%", 5},
      {"\xe4\xf6\xfc \x83\x5c", "\xe4\xf6\xfc \x83\x5c", 5},
      {nullptr, "", 5},
  };
  for (const auto& each : kCases) {
    const std::string bytes = BytesOf(each.size), path = folder.Write("file", bytes);
    const std::ofstream writer(path, std::ios::app);  // may have it open
    Page page;
    EXPECT_EQ(1, upload(path, each.name, page.server.HostAndPort()));
    EXPECT_TRUE(page.head.starts_with("POST /upload.asp HTTP/1.0\r\n")) << page.head;
    EXPECT_NE(std::string::npos, page.head.find("User-Agent: Sample Web Service Client\r\n"));
    EXPECT_EQ(std::string::npos, page.head.find("multipart")) << page.head;
    EXPECT_EQ("--AaB03x\r\nContent-Disposition: form-data; name=\"attach1\"; filename=\"" +
                  std::string(each.sent) + "\"\r\nContent-Type: application/octet-stream\r\n\r\n" +
                  bytes + "\r\n--AaB03x--\r\n",
              page.body);
  }
}

TEST(Upload, FailsUnlessTheServerSaysOk) {
  const TempFolder folder;
  const std::string path = folder.Write("file", "bytes");
  for (const char* status : {"201 Created", "302 Found", "404 Not Found", "500 Sorry"}) {
    const AssertionLog log;
    Page page(status);
    EXPECT_EQ(0, upload(path, "a", page.server.HostAndPort())) << status;
    EXPECT_TRUE(log.Names("InternetUpload"));
  }
  LoopbackServer resetting([](LoopbackConnection& client) { client.Reset(); });
  EXPECT_EQ(0, upload(path, "a", resetting.HostAndPort()));
  for (const char* server : {"", ":80", "127.0.0.1:0", "127.0.0.1:x", "127.0.0.1:65616"})
    EXPECT_EQ(0, upload(path, "a", server)) << server;
}

TEST(Upload, FailsForAFileThatItCannotOpenForUpdate) {
  const TempFolder folder;
  const std::string path = folder.Write("file", "bytes");
  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
  Page page;
  for (const std::string& each : {path, folder / "no such file", folder.path()})
    EXPECT_EQ(0, upload(each, "a", page.server.HostAndPort())) << each;
  EXPECT_EQ(0, page.server.Connections());
}

// The message goes to the trace where no window may be shown.
TEST(Upload, RefusesAFileThatIsTooLarge) {
  const TempFolder folder;
  const std::string path = folder.Write("file", "");
  std::filesystem::resize_file(path, (1ull << 32) + 10);  // of which the disk holds nothing
  const TraceLog trace;
  const NoWindows noWindows;
  Page page;
  EXPECT_EQ(0, upload(path, "a", page.server.HostAndPort()));
  EXPECT_EQ(0, page.server.Connections());
  EXPECT_TRUE(trace.Has("is too large to be uploaded.")) << trace.Text();
}

namespace {

struct Uploading : UploadOp {
  Uploading(const CArray<CString, const char*>& files, const std::string& zipPath, const Page& page,
            const std::string& root, unsigned long sizeLimit)
      : UploadOp(files, zipPath.c_str(), page.server.HostAndPort().c_str(), "/upload.asp",
                 root.c_str(), sizeLimit) {
    SetNoGui(1);
  }
  int ServerAction(const char* zip) override {
    sent.push_back(zip);
    CArray<CString, const char*> entries;
    EXPECT_EQ(1, UnZipFileList(zip, "", entries));
    count += entries.GetSize();
    if (result < 0) throw result;
    return result;
  }
  std::vector<std::string> sent;
  int count = 0;
  int result = 1;
};

}  // namespace

TEST(UploadOp, SendsArchivesOfTheFiles) {
  const TempFolder folder;
  CArray<CString, const char*> files;
  for (const char* name : {"a", "b", "c"}) files.Add(folder.Write(name, BytesOf(1000)).c_str());
  const std::string named = folder / "named.zip";
  const struct {
    const char* name;
    std::string zipPath;
    const char* status;
    unsigned long limit;
    int action;
    int done;
    size_t archives;
  } kCases[] = {
      {"one archive", "", "200 OK", 1000000, 1, 1, 1},
      {"an archive for each", "", "200 OK", 0, 1, 1, 3},
      {"a name of its own", named, "200 OK", 0, 1, 1, 3},
      {"not taken", "", "500 Sorry", 1000000, 1, 0, 0},
      {"taken, but no more", "", "200 OK", 1000000, 0, 0, 1},
      {"an exception", named, "200 OK", 1000000, -1, 0, 1},
  };
  for (const auto& each : kCases) {
    SCOPED_TRACE(each.name);
    Page page(each.status);
    Uploading upload(files, each.zipPath, page, folder.path(), each.limit);
    upload.result = each.action;
    EXPECT_EQ(each.done, upload.DoOperation(0));
    ASSERT_EQ(each.archives, upload.sent.size());
    EXPECT_EQ(each.archives == 0 ? 0 : files.GetSize(), upload.count);
    for (const std::string& path : upload.sent)
      EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA(path.c_str())) << path;
    if (each.archives == 0) continue;
    const std::string name = upload.sent.back().substr(upload.sent.back().rfind('\\') + 1);
    EXPECT_NE(std::string::npos, page.body.find("filename=\"" + name + "\"\r\n"));
    EXPECT_TRUE(each.zipPath.empty() || name == "named.zip") << name;
  }
}

TEST(UploadOp, KeepsWhatStandsWhereTheArchiveIsToBe) {
  const TempFolder folder;
  CArray<CString, const char*> files;
  files.Add(folder.Write("a", "bytes").c_str());
  const std::string mine = folder.Write("mine.zip", "mine");
  Page page;
  Uploading upload(files, mine, page, folder.path(), 0);
  EXPECT_EQ(0, upload.DoOperation(0));
  EXPECT_EQ("mine", folder.Read("mine.zip"));
  EXPECT_EQ(0, page.server.Connections());
}
