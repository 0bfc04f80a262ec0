// System libraries: their versions, and fetching them.
#include "net/SysDllDscr.h"

#include <string>

#include <gtest/gtest.h>

#include "net/TestDownload.h"
#include "settings/MakerAddresses.h"
#include "support/AssertionLog.h"
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

}  // namespace

TEST(SystemLibraries, VersionsCompareByTheirFourParts) {
  const SysDllDescriptor library("x.dll", 6, 0, 8972, 0);
  const struct {
    unsigned short version[4];
    int ok;
  } kCases[] = {
      {{6, 0, 8972, 0}, 1}, {{6, 0, 8971, 9}, 0},   {{7, 0, 0, 0}, 1},
      {{5, 9, 9999, 9}, 0}, {{0xFFFF, 0, 0, 0}, 1}, {{6, 0, 0xFFFF, 0}, 1},
  };
  for (const auto& each : kCases) {
    const auto* v = each.version;
    const unsigned long ms = MAKELONG(v[1], v[0]), ls = MAKELONG(v[3], v[2]);
    EXPECT_EQ(each.ok, library.DstVersionOk(ms, ls)) << SysDllDescriptor::Version(ms, ls);
  }
  EXPECT_STREQ("65535.40.4275.1", SysDllDescriptor::Version(0xFFFF0028, 0x10B30001));
}

TEST(SystemLibraries, TableByNumberAndByName) {
  EXPECT_EQ(&SysDllDescriptor::GetLibDescriptor(0), SysDllDescriptor::GetDscr("mfc42.DLL"));
  EXPECT_EQ(&SysDllDescriptor::GetLibDescriptor(4), SysDllDescriptor::GetDscr("oleaut32.dll"));
  EXPECT_EQ(nullptr, SysDllDescriptor::GetDscr("mfc42"));
  char system[MAX_PATH];
  GetSystemDirectoryA(system, MAX_PATH);
  EXPECT_STREQ((std::string(system) + "\\MSVCRT.dll").c_str(),
               SysDllDescriptor::GetDscr("msvcrt.dll")->GetDestination());
}

TEST(SystemLibraries, StateOfRealFiles) {
  const AssertionLog log;
  const std::string path(SysDllDescriptor::GetCurrentDll("orvane.dll"));
  unsigned long ms = 1, ls = 1;
  EXPECT_EQ(1, SysDllDescriptor::GetVersionInfo(path.c_str(), ms, ls));
  const std::string version(SysDllDescriptor::Version(ms, ls));
  const TempFolder folder;
  EXPECT_EQ(0, SysDllDescriptor::GetVersionInfo(folder.Write("x.dll", "MZ").c_str(), ms, ls));
  EXPECT_EQ(0u, ms | ls);

  const char kWithoutRecord[] = "libgcc_s_dw2-1.dll";
  const struct {
    const char* name;
    unsigned short major;
    std::string line;
    int ok;
  } kCases[] = {
      {"orvane.dll", 0, path + " (" + version + ") - OK", 1},
      {"orvane.dll", 99, path + " (" + version + ") - Outdated", 0},
      {"no such.dll", 1, "no such.dll (0.0.0.0) - Missing", 0},
      {kWithoutRecord, 0,
       std::string(SysDllDescriptor::GetCurrentDll(kWithoutRecord)) + " (0.0.0.0) - Missing", 0},
  };
  for (const auto& each : kCases) {
    EXPECT_EQ("", log.Text());
    CString line;
    int ok = -1;
    SysDllDescriptor(each.name, each.major, 0, 0, 0).InfoVersion(line, ok);
    EXPECT_EQ(each.line, std::string(line));
    EXPECT_EQ(each.ok, ok);
  }
  EXPECT_TRUE(log.Names("SysDllDscr")) << "one that is there has no version: " << log.Text();

  CString first;
  int ok = -1;
  SysDllDescriptor::TestLibFiles(first, ok);
  EXPECT_STREQ("MFC42.dll (0.0.0.0) - Missing", first);  // which Wine lacks
  EXPECT_EQ(0, ok);
}

// A table of resources that claims more than the file holds.
TEST(SystemLibraries, AnInflatedVersionRecordIsNone) {
  const std::string library =
      TempFolder::ReadFile(std::string(SysDllDescriptor::GetCurrentDll("orvane.dll")));
  const std::string key("V\0S\0_\0V\0E\0R\0S\0I\0O\0N\0", 20);
  const size_t record = library.find(key) - 6;
  ASSERT_LT(record, library.size());
  // The entry of the table: the record's size, a code page of 0 and a reserved 0.
  const std::string size = library.substr(record, 2) + std::string(10, 0);
  const size_t entry = library.find(size);
  ASSERT_LT(entry, library.size());
  const TempFolder folder;
  for (const char* inflated : {"\xF0\xFF\xFF\x7F", "\xFF\xFF\xFF\xFF"}) {
    std::string changed = library;
    changed.replace(entry, 4, inflated, 4);
    unsigned long ms = 1, ls = 1;
    EXPECT_EQ(0, SysDllDescriptor::GetVersionInfo(folder.Write("x.dll", changed).c_str(), ms, ls));
    EXPECT_EQ(0u, ms | ls);
  }
}

TEST(SystemLibraries, AreFetchedAndUnpacked) {
  const NoWindows noWindows;
  const TempFolder folder;
  folder.Write("in\\MFC42.dll", "a library");
  folder.Write("in\\sub\\readme.txt", "text");
  ASSERT_EQ(1, ZipDir((folder / "libs.zip").c_str(), (folder / "in").c_str(), "*.*"));
  std::string answer = folder.Read("libs.zip"), asked, status = "200 OK";
  LoopbackServer server([&](LoopbackConnection& client) {
    if (!client.ReadRequest()) return;
    asked = client.Object();
    client.SendReply(answer, status.c_str());
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

  status = "404 Not Found";
  EXPECT_EQ(0, SysDllDescriptor::DownloadLibs((folder / "out").c_str(), error, url));
  EXPECT_STREQ(
      "Internet connection failed! (Error code = 12028)\n"
      "Error: The requested item could not be located.",
      error);
}
