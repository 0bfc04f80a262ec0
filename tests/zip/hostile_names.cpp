// Entry names that would lead out of the folder that an archive is extracted into: they are skipped
// and reported, and the entries beside them are extracted.
#include "zip_tools.h"

#include <algorithm>
#include <map>

#include "support/AssertionLog.h"
#include "support/CodePage.h"
#include "zip/EntryPath.h"
#include "zip/ZipFiles.h"

namespace {

using namespace hostile;

const std::string kEvil = "evil";

// Some of them lead to a file that is there; others name devices.
const char* const kLeaving[] = {
    "../victim.txt",   "..\\../victim.txt",     "sub/inner/../../../victim.txt",
    ".././victim.txt", "//..//victim.txt",      ".. ./victim.txt",
    "\\victim.txt",    "\\\\?\\C:\\victim.txt", "//server/share/victim.txt",
    "C:victim.txt",    "sub/victim.txt::$DATA", "sub:stream/victim.txt",
    "nul/victim.txt",
};
const char* const kLeavingToo[] = {
    "..",       "../",      "a/. .",     "/a",         "CON",    "con.txt", "sub/NUL",
    "nul  ..x", "Aux",      "prn.",      "aux ",       "COM1",   "Lpt9",    "CONIN$",
    "conout$",  "com9.log", "a/....\\b", "nul.tar.gz", "Clock$",
};

const char* const kStaying[] = {
    "good.txt",      "sub/good.txt",  "sub\\back.txt", "..good.txt", "a..b/good.txt",
    "console.txt",   "com.txt",       "COM10.txt",     "com0",       "deep/er/and/deeper.txt",
    "...hidden.txt", "sub/auxiliary", "victim.txt",    "x.con",      "con x",
};

// The files below a folder, by relative path, with their bytes.
std::map<std::string, std::string> FilesBelow(const TempFolder& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
    const std::string name = entry.path().lexically_relative(folder.path()).string();
    if (entry.is_regular_file()) files[name] = folder.Read(name);
  }
  return files;
}

class ZipNames : public testing::Test {
 protected:
  ZipNames() {
    for (const char* place : {"", "one\\", "one\\two\\"})
      m_folder.Write(place + std::string("victim.txt"), "keep");
    std::filesystem::create_directories(m_target);
    m_files = FilesBelow(m_folder);
  }

  // Extracts an archive: the files of the whole folder then, and the number of reports.
  std::map<std::string, std::string> Extract(const Archive& archive) {
    const std::string path = m_archives.Write("archive.zip", archive.Bytes());
    const AssertionLog log;
    CString last;
    EXPECT_EQ(OpenZipFile(path.c_str(), m_target.c_str(), last), 1);
    const std::string text = log.Text();
    m_reports = 0;
    for (size_t at = 0; (at = text.find("ASSERT: File: EntryPath", at)) != std::string::npos; ++at)
      ++m_reports;
    return FilesBelow(m_folder);
  }

  const TempFolder m_folder, m_archives;
  const std::string m_target = m_folder / "one\\two\\target";
  std::map<std::string, std::string> m_files;  // before anything is extracted
  size_t m_reports = 0;
};

TEST_F(ZipNames, LeavingAreSkippedAndStayingExtracted) {
  Archive archive;
  for (const char* name : kLeaving) archive.entries.push_back(Deflated(name, kEvil));
  for (const char* name : kLeavingToo) archive.entries.push_back(Deflated(name, kEvil));
  // A broken entry leaves the others, too.
  archive.entries.push_back(Stored("broken", kEvil));
  archive.entries.back().Both(&Header::crc, 1);
  for (const char* name : kStaying) {
    archive.entries.push_back(Deflated(name, name));
    std::string path = std::string("one\\two\\target\\") + name;
    std::replace(path.begin(), path.end(), '/', '\\');
    m_files[path] = name;
  }
  EXPECT_EQ(Extract(archive), m_files);
  EXPECT_EQ(m_reports, std::size(kLeaving) + std::size(kLeavingToo));
  for (const char* path : {"\\victim.txt", "C:\\victim.txt", "C:victim.txt"})
    EXPECT_EQ(GetFileAttributesA(path), INVALID_FILE_ATTRIBUTES) << path;

  // What can't be in every code page, or fills a record and so may have been cut.
  const std::string one = Ansi(L"a/coM\u00B9"), three = Ansi(L"lpt\u00B3 .txt/b");
  for (const std::string& name : {one, three, std::string(259, 'n'), std::string()})
    EXPECT_FALSE(StaysBelowTarget(name.c_str())) << name;
  EXPECT_TRUE(StaysBelowTarget(std::string(258, 'n').c_str()));
}

// Names that Windows maps to another one, or to none: whatever becomes of them stays below the
// target.
TEST_F(ZipNames, OddOnesStayBelowTheTarget) {
  const std::string high =
      "gr\xFC\xDF"
      "e/\xE9.txt";
  Archive archive;
  for (const std::string& name :
       {std::string("."), std::string("./dot.txt"), std::string("sub//twice.txt"),
        std::string("trailing.txt. ."), std::string("dots.../x.txt"), std::string(" "),
        std::string("..."), std::string("a\0/../../victim.txt", 19), std::string("wild*?.txt"),
        std::string("bell\7.txt"), std::string(255, 'n'), std::string(40000, 'n'),
        "a/" + std::string(254, 'n'), std::string(200, '/') + "x", "../" + std::string(300, 'n'),
        high})
    archive.entries.push_back(Stored(name, kEvil));
  archive.entries.push_back(Stored("last.txt", "good"));
  std::map<std::string, std::string> after = Extract(archive);
  EXPECT_EQ(after["one\\two\\target\\last.txt"], "good");
  std::erase_if(after, [](const auto& f) { return f.first.starts_with("one\\two\\target\\"); });
  EXPECT_EQ(after, m_files);
}

}  // namespace
