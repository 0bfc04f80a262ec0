// Entry names that would lead out of the folder that an archive is extracted into: they are skipped
// and reported, and the entries beside them are extracted.
#include <afxwin.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "diag/AssertVerifyTrace.h"
#include "hostile_builder.h"
#include "support/TempFolder.h"
#include "zip/XUnzip.h"
#include "zip/ZipFiles.h"

namespace hostile {
namespace {

// Below the target's parents lie files of these names, with the text "keep".
constexpr char kVictim[] = "victim.txt";
constexpr char kKeep[] = "keep";
constexpr char kEvil[] = "evil";

const char* const kLeaving[] = {
    "../victim.txt",
    "..\\victim.txt",
    "../../victim.txt",
    "..\\../victim.txt",
    "sub/../../victim.txt",
    "sub\\..\\..\\victim.txt",
    "sub/inner/../../../victim.txt",
    "./../victim.txt",
    ".././victim.txt",
    "//..//victim.txt",
    ".. /victim.txt",
    ".. ./victim.txt",
    "sub/.. /../victim.txt",
    "..",
    "../",
    "../..",
    "/victim.txt",
    "\\victim.txt",
    "//server/share/victim.txt",
    "\\\\server\\share\\victim.txt",
    "\\\\?\\C:\\victim.txt",
    "//./C:/victim.txt",
    "C:/victim.txt",
    "C:\\victim.txt",
    "C:victim.txt",
    "z:victim.txt",
    "victim.txt:stream",
    "sub/victim.txt::$DATA",
    "sub:stream/victim.txt",
    "CON",
    "con.txt",
    "sub/NUL",
    "nul.tar.gz",
    "Aux",
    "prn.",
    "aux ",
    "COM1",
    "com9.log",
    "LPT1",
    "sub/lpt9.txt",
    "nul/victim.txt",
    "CONIN$",
    "conout$",
};

const char* const kStaying[] = {
    "good.txt",      "sub/good.txt",  "sub\\back.txt", "..good.txt", "a..b/good.txt",
    "console.txt",   "com.txt",       "COM10.txt",     "null.txt",   "deep/er/and/deeper.txt",
    "...hidden.txt", "sub/auxiliary", "victim.txt",    "x.con",
};

// The files below a folder, by relative path, with their bytes.
std::map<std::string, std::string> FilesBelow(const std::string& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    files[std::filesystem::relative(entry.path(), folder).string()] = bytes.str();
  }
  return files;
}

class ZipNames : public testing::Test {
 protected:
  ZipNames() {
    for (const char* place : {"", "one\\", "one\\two\\"}) {
      m_folder.Write(std::string(place) + kVictim, kKeep);
    }
    std::filesystem::create_directories(m_target);
  }

  // Extracts an archive and returns the files of the whole temporary folder.
  std::map<std::string, std::string> Extract(const Archive& archive) {
    const std::string path = m_folder.Write("archive.zip", archive.Bytes());
    AssertVerifyTrace::InitTrace((m_folder / "assert.log").c_str(), 1, 0);
    CString last;
    EXPECT_EQ(OpenZipFile(path.c_str(), m_target.c_str(), last), 1);
    AssertVerifyTrace::logFileName.Empty();
    std::filesystem::remove(path);
    m_log = m_folder.Read("assert.log");
    std::filesystem::remove(m_folder / "assert.log");
    return FilesBelow(m_folder.path());
  }

  size_t Reports() const {
    size_t reports = 0;
    for (size_t at = 0; (at = m_log.find("ASSERT: ", at)) != std::string::npos; ++at) ++reports;
    return reports;
  }

  const TempFolder m_folder;
  const std::string m_target = m_folder / "one\\two\\target";
  std::string m_log;
};

TEST_F(ZipNames, LeavingTheTargetAreSkippedOneByOne) {
  const std::map<std::string, std::string> before = FilesBelow(m_folder.path());
  for (const char* name : kLeaving) {
    SCOPED_TRACE(name);
    Archive archive;
    archive.entries = {Stored(name, kEvil)};
    EXPECT_EQ(Extract(archive), before);
    EXPECT_EQ(Reports(), 1u) << m_log;
  }
  for (const char* path : {"\\victim.txt", "C:\\victim.txt", "C:victim.txt", "Z:\\victim.txt"}) {
    EXPECT_EQ(GetFileAttributesA(path), INVALID_FILE_ATTRIBUTES) << path;
  }
}

TEST_F(ZipNames, StayingAreExtractedBesideThem) {
  std::map<std::string, std::string> expected = FilesBelow(m_folder.path());
  Archive archive;
  for (const char* name : kLeaving) archive.entries.push_back(Deflated(name, kEvil));
  for (const char* name : kStaying) {
    archive.entries.push_back(Deflated(name, name));
    std::string path = std::string("one\\two\\target\\") + name;
    std::replace(path.begin(), path.end(), '/', '\\');
    expected[path] = name;
  }
  EXPECT_EQ(Extract(archive), expected);
  EXPECT_EQ(Reports(), std::size(kLeaving)) << m_log;
}

// Names that Windows maps to another one, or to none: whatever becomes of them stays below the
// target.
TEST_F(ZipNames, OddOnesStayBelowTheTarget) {
  std::map<std::string, std::string> before = FilesBelow(m_folder.path());
  Archive archive;
  const std::string high =
      "gr\xFC\xDF"
      "e/\xE9.txt";
  for (const std::string& name : {std::string(),
                                  std::string("."),
                                  std::string("./"),
                                  std::string("./dot.txt"),
                                  std::string("sub//twice.txt"),
                                  std::string("trailing.txt. ."),
                                  std::string("dots.../x.txt"),
                                  std::string(" "),
                                  std::string("..."),
                                  std::string("a\0/../../victim.txt", 19),
                                  std::string("wild*?.txt"),
                                  std::string("bell\7.txt"),
                                  std::string(255, 'n'),
                                  std::string(300, 'n'),
                                  std::string(40000, 'n'),
                                  std::string("a/") + std::string(254, 'n'),
                                  std::string(200, '/') + "x",
                                  std::string("../") + std::string(300, 'n'),
                                  high,
                                  std::string("sub/con")}) {
    archive.entries.push_back(Stored(name, kEvil));
  }
  archive.entries.push_back(Stored("last.txt", "good"));
  std::map<std::string, std::string> after = Extract(archive);
  EXPECT_EQ(after["one\\two\\target\\last.txt"], "good");
  std::erase_if(after,
                [](const auto& file) { return file.first.starts_with("one\\two\\target\\"); });
  EXPECT_EQ(after, before);
}

// Extracting the same archive again replaces its files, and a broken entry leaves the others.
TEST_F(ZipNames, BrokenEntriesLeaveTheOthers) {
  Archive archive = GoodArchive();
  archive.entries[kNoise].Both(&Header::crc, 1);
  archive.entries[kInner].Both(&Header::method, 99);
  for (int run = 0; run < 2; ++run) {
    const std::map<std::string, std::string> files = Extract(archive);
    for (const size_t good : {kText, kEmpty, kStreamed}) {
      const Entry& entry = archive.entries[good];
      const auto file = files.find("one\\two\\target\\" + entry.central.name);
      ASSERT_NE(file, files.end()) << entry.central.name;
      EXPECT_EQ(file->second, entry.plain) << entry.central.name;
    }
  }
}

}  // namespace
}  // namespace hostile
