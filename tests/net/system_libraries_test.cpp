// System libraries: their versions, and fetching them.
#include "net/SysDllDscr.h"

#include <string>

#include <gtest/gtest.h>

#include "diag/trace.h"
#include "settings/MakerAddresses.h"
#include "support/AssertionLog.h"
#include "support/LoopbackServer.h"
#include "support/TempFolder.h"
#include "zip/ZipFiles.h"

namespace {

// While one exists, a server of the test is the maker's, from which things are downloaded.
class Maker {
 public:
  explicit Maker(const LoopbackServer& server) {
    SetMakerAddresses(nullptr, nullptr, server.Url("").c_str());
  }
  ~Maker() { SetMakerAddresses(nullptr, nullptr, nullptr); }
};

class NoWindows {
 public:
  NoWindows() { AssertVerifyTrace::BlockGuiMessages(1); }
  ~NoWindows() { AssertVerifyTrace::BlockGuiMessages(0); }
};

}  // namespace

TEST(SystemLibraries, VersionsCompareByTheirFourParts) {
  const SysDllDescriptor library("x.dll", 6, 0, 8972, 0);
  const struct {
    unsigned short version[4];
    int ok;
  } kCases[] = {
      {{6, 0, 8972, 0}, 1}, {{6, 0, 8972, 1}, 1}, {{6, 0, 8971, 9}, 0},   {{7, 0, 0, 0}, 1},
      {{6, 1, 0, 0}, 1},    {{5, 9, 9999, 9}, 0}, {{0xFFFF, 0, 0, 0}, 1}, {{6, 0, 0xFFFF, 0}, 1},
  };
  for (const auto& each : kCases) {
    const auto* v = each.version;
    const unsigned long ms = MAKELONG(v[1], v[0]), ls = MAKELONG(v[3], v[2]);
    EXPECT_EQ(each.ok, library.DstVersionOk(ms, ls)) << SysDllDescriptor::Version(ms, ls);
  }
  EXPECT_STREQ("65535.40.4275.1", SysDllDescriptor::Version(0xFFFF0028, 0x10B30001));
}

TEST(SystemLibraries, TableByNumberAndByName) {
  EXPECT_EQ(5, SysDllDescriptor::LibDescriptorNum());
  EXPECT_EQ(&SysDllDescriptor::GetLibDescriptor(0), SysDllDescriptor::GetDscr("mfc42.DLL"));
  EXPECT_EQ(&SysDllDescriptor::GetLibDescriptor(4), SysDllDescriptor::GetDscr("oleaut32.dll"));
  EXPECT_EQ(nullptr, SysDllDescriptor::GetDscr("mfc42"));
  EXPECT_STREQ("d:\\x\\MFC42.dll", SysDllDescriptor::GetLibDescriptor(0).GetPath("d:\\x"));
  char system[MAX_PATH];
  GetSystemDirectoryA(system, MAX_PATH);
  EXPECT_STREQ((std::string(system) + "\\MSVCRT.dll").c_str(),
               SysDllDescriptor::GetDscr("msvcrt.dll")->GetDestination());
}

TEST(SystemLibraries, StateOfRealFiles) {
  const AssertionLog log;
  unsigned long ms = 1, ls = 1;
  EXPECT_EQ(1, SysDllDescriptor::GetVersionInfo("orvane.dll", ms, ls));
  const std::string version(SysDllDescriptor::Version(ms, ls));
  const TempFolder folder;
  EXPECT_EQ(0, SysDllDescriptor::GetVersionInfo(folder.Write("x.dll", "MZ").c_str(), ms, ls));
  EXPECT_EQ(0u, ms | ls);
  EXPECT_EQ("", log.Text());

  CString line;
  int ok = -1;
  const CString path = SysDllDescriptor::GetCurrentDll("orvane.dll");
  SysDllDescriptor("orvane.dll", 0, 0, 0, 1).InfoVersion(line, ok);
  EXPECT_STREQ((std::string(path) + " (" + version + ") - OK").c_str(), line);
  EXPECT_EQ(1, ok);
  SysDllDescriptor("orvane.dll", 99, 0, 0, 0).InfoVersion(line, ok);
  EXPECT_STREQ((std::string(path) + " (" + version + ") - Outdated").c_str(), line);
  EXPECT_EQ(0, ok);
  SysDllDescriptor("no such.dll", 1, 0, 0, 0).InfoVersion(line, ok);
  EXPECT_STREQ("no such.dll (0.0.0.0) - Missing", line);
  EXPECT_EQ(0, ok);
  EXPECT_EQ("", log.Text());

  const char kWithoutRecord[] = "libgcc_s_dw2-1.dll";
  SysDllDescriptor(kWithoutRecord, 0, 0, 0, 0).InfoVersion(line, ok);
  EXPECT_STREQ(SysDllDescriptor::GetCurrentDll(kWithoutRecord) + " (0.0.0.0) - Missing", line);
  EXPECT_EQ(0, ok);
  EXPECT_TRUE(log.Names("SysDllDscr")) << log.Text();
}

TEST(SystemLibraries, TheFirstThatIsNotOkIsTold) {
  CString line, told;
  int ok = 1, allOk = -1;
  for (int i = 0; ok != 0 && i < SysDllDescriptor::LibDescriptorNum(); ++i)
    SysDllDescriptor::GetLibDescriptor(i).InfoVersion(line, ok);
  SysDllDescriptor::TestLibFiles(told, allOk);
  EXPECT_STREQ(line, told);
  EXPECT_EQ(ok, allOk);
}

TEST(SystemLibraries, AreFetchedAndUnpacked) {
  const NoWindows noWindows;
  const TempFolder folder;
  folder.Write("in\\MFC42.dll", "a library");
  folder.Write("in\\sub\\readme.txt", "text");
  ASSERT_EQ(1, ZipDir((folder / "libs.zip").c_str(), (folder / "in").c_str(), "*.*"));
  std::string answer = folder.Read("libs.zip"), asked;
  LoopbackServer server([&](LoopbackConnection& client) {
    if (!client.ReadRequest()) return;
    asked = client.Object();
    client.SendReply(answer);
  });
  const Maker maker(server);
  std::filesystem::create_directory(folder / "out");
  CString error, url;
  EXPECT_EQ(1, SysDllDescriptor::DownloadLibs((folder / "out").c_str(), error, url)) << error;
  EXPECT_EQ(server.Url("ftp/mslibs.zip"), std::string(url));
  EXPECT_EQ("/ftp/mslibs.zip", asked);
  EXPECT_EQ("a library", folder.Read("out\\MFC42.dll"));
  EXPECT_EQ("text", folder.Read("out\\sub\\readme.txt"));

  answer = "not an archive";
  EXPECT_EQ(0, SysDllDescriptor::DownloadLibs((folder / "out").c_str(), error, url));
  EXPECT_EQ(0, error.Find("Cannot unzip '"));
  EXPECT_NE(-1, error.Find(".zip' to Pellmark system folder."));
  const CString archive = error.Mid(14, error.Find("' to") - 14);
  EXPECT_TRUE(DeleteFileA(archive)) << archive;
}

TEST(SystemLibraries, ThatCannotBeFetchedAreAnErrorOfTheDownload) {
  const NoWindows noWindows;
  LoopbackServer server([&](LoopbackConnection& client) {
    if (client.ReadRequest()) client.SendReply("no", "404 Not Found");
  });
  const Maker maker(server);
  CString error, url;
  EXPECT_EQ(0, SysDllDescriptor::DownloadLibs("c:\\", error, url));
  EXPECT_STREQ(
      "Internet connection failed! (Error code = 12028)\n"
      "Error: The requested item could not be located.",
      error);
}
