// The trace log's lines, byte for byte.
#include "diag/trace.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "support/AssertionLog.h"
#include "zip/ZipWriter.h"

namespace {

// Stamps and times become "#", line ends "\n".
std::string Plain(std::string text) {
  std::erase(text, '\r');
  text = std::regex_replace(text, std::regex(R"(\d\d:\d\d:\d\d:\d{3}: )"), "#");
  return std::regex_replace(text, std::regex(R"(\(\d\d:\d\d:\d\d\))"), "(#)");
}

class TraceLog : public testing::Test {
 protected:
  void TearDown() override {
    TraceFunction::logFileName.Empty();
    TraceFunction::orgLogFileName.Empty();
    TraceFunction::traceOutput = 1;
  }

  std::string Text(const char* name = "t.log") const { return Plain(m_folder.Read(name)); }

  TempFolder m_folder;
  const std::string m_path = m_folder / "t.log";
};

}  // namespace

TEST_F(TraceLog, EventLines) {
  const std::string path = m_folder / "new/sub/t.log";
  EXPECT_EQ(TraceEvent(path.c_str(), "Title", "text"), 1);
  EXPECT_EQ(TraceEvent(path.c_str(), "", nullptr), 1);
  EXPECT_EQ(TraceEvent(path.c_str(), "Number", -7), 1);
  EXPECT_EQ(TraceEvent(path.c_str(), "Number", 8, ""), 1);
  EXPECT_EQ(TraceEvent(path.c_str(), nullptr, 255, "0x%04X bytes"), 1);
  EXPECT_EQ(Text("new\\sub\\t.log"),
            "\n#  Title: text"
            "\n#  <null>: <null>"
            "\n#  Number: -7"
            "\n#  Number: 8"
            "\n#  <null>: 0x00FF bytes");
}

TEST_F(TraceLog, StampIsTheLocalTime) {
  const auto now = [] {
    SYSTEMTIME time;
    GetLocalTime(&time);
    char text[20];
    sprintf(text, "%02d:%02d:%02d:%03d", time.wHour, time.wMinute, time.wSecond,
            time.wMilliseconds);
    return std::string(text);
  };
  const std::string before = now();
  TraceEvent(m_path.c_str(), "t", "x");
  const std::string stamp = m_folder.Read("t.log").substr(2, before.size()), after = now();
  if (before > after) return;  // midnight
  EXPECT_TRUE(before <= stamp && stamp <= after) << before << " " << stamp << " " << after;
}

TEST_F(TraceLog, NothingIsWrittenWithoutAPathOrWhereItCannotBe) {
  EXPECT_EQ(TraceEvent(nullptr, "t", "x"), 0);
  EXPECT_EQ(TraceEvent("", "t", "x"), 0);
  EXPECT_EQ(TraceEvent("", "t", 1, ""), 0);
  EXPECT_EQ(TraceOutput("", "file"), 0);
  EXPECT_EQ(TraceZip(nullptr, "file"), 0);
  EXPECT_EQ(InitTrace("", 1), 0);
  EXPECT_EQ(TraceEvent(m_folder.path().c_str(), "t", "a folder is no file"), 0);
  EXPECT_EQ(TraceEvent((m_folder / std::string(300, 'x')).c_str(), "t", "x"), 0);
}

TEST_F(TraceLog, LongNumberFormatIsAnAssertionAndCut) {
  const AssertionLog assertions;
  std::string format(1100, 'x');
  format += "%d";
  EXPECT_EQ(TraceEvent(m_path.c_str(), "t", 5, format.c_str()), 1);
  EXPECT_TRUE(assertions.Names("trace")) << assertions.Text();
  EXPECT_EQ(Text(), "\n#  t: " + std::string(1023, 'x'));
}

TEST_F(TraceLog, StartOfANewLogHoldsTheEnvironment) {
  m_folder.Write("t.log", "old");
  EXPECT_EQ(InitTrace(m_path.c_str(), 1), 1);

  std::string expected = "\n#  Windows version: ";
  const std::string text = Text();
  ASSERT_EQ(text.substr(0, expected.size()), expected);
  int major = 0, minor = 0, build = 0, version = 0;
  ASSERT_EQ(
      sscanf(text.c_str() + expected.size(), "%d.%d.%d (%d)", &major, &minor, &build, &version), 4);
  EXPECT_EQ(version, major * 256 + minor);
  size_t at = 0;
  for (char** entry = _environ; *entry != nullptr; ++entry) {
    at = text.find(std::string("\n#  Environ Info: ") + *entry, at);
    ASSERT_NE(at, std::string::npos) << *entry << ", in its place";
  }
}

TEST_F(TraceLog, StartOnAnOldLogIsTheDateAndTheCommandLine) {
  m_folder.Write("t.log", "old");
  EXPECT_EQ(InitTrace(m_path.c_str(), 0), 1);
  char date[9];
  _strdate(date);
  EXPECT_EQ(Text(), "old\n#  \n\n====================Date:" + std::string(date) +
                        "=====================\n: " + m_path +
                        "\n#  Start trace by: " + GetCommandLineA());
}

TEST_F(TraceLog, FunctionTrace) {
  m_folder.Write("t.log", "");
  TraceFunction::logFileName = m_path.c_str();
  {
    const TraceFunction outer("Outer");
    TraceFunction::TraceEvent("Title", "text");
    TraceFunction::TraceEvent("Number", 3, nullptr);
    TraceFunction::TraceEvent(nullptr, nullptr);
  }
  EXPECT_EQ(Text(),
            "\n#  >>>>Entry: Outer"
            "\n#    Title: text"
            "\n#    Number: 3"
            "\n#    : <null>"
            "\n#  <<<<Exit: Outer\n");
}

TEST_F(TraceLog, SwitchTraceName) {
  const struct {
    const char* base;
    const char* name;
    const char* result;
  } kCases[] = {
      {"C:\\dir\\base.log", "other", "C:\\dir\\other.log"},
      {"C:\\dir\\base.log", "", "C:\\dir\\.log"},
      {"C:\\dir\\base.log", nullptr, "C:\\dir\\.log"},
      {"base.log", "other", "\\other.log"},
  };
  for (const auto& c : kCases) {
    TraceFunction::orgLogFileName = c.base;
    TraceFunction::logFileName = "elsewhere";
    TraceFunction::SwitchTraceName(c.name);
    EXPECT_STREQ(TraceFunction::GetLogFileName(), c.result);
    EXPECT_STREQ(TraceFunction::orgLogFileName, c.base);
  }
}

TEST_F(TraceLog, FileDumps) {
  const std::string file = m_folder.Write("dumped.txt", "one\r\n\r\nthree");
  EXPECT_EQ(TraceOutput(m_path.c_str(), file.c_str()), 1);
  EXPECT_EQ(TraceOutput(m_path.c_str(), (m_folder / "missing").c_str()), 1);
  EXPECT_EQ(TraceOutput(m_path.c_str(), nullptr), 1);
  EXPECT_EQ(Text(), "\n  >> Output file: " + file +
                        " (#)\n\tone\n\t\n\tthree  << Output end"
                        "\n  >> Output file: " +
                        (m_folder / "missing") +
                        " (#)\n\tFile does not exists.\n   << Output end"
                        "\n  >> Output file: <null> (#)\n\t");
}

TEST_F(TraceLog, DumpOfTheLogIntoItselfEnds) {
  m_folder.Write("t.log", "line\r\n");
  EXPECT_EQ(TraceOutput(m_path.c_str(), m_path.c_str()), 1);
  EXPECT_LT(Text().size(), 300u);
}

TEST_F(TraceLog, ZipDumps) {
  std::string archive = m_folder / "a.zip";
  char bytes[] = "x";
  const HZIP zip = CreateZipZ(archive.data(), 0, kZipFileName);
  ZipAdd(zip, "dir\\one.txt", bytes, 1, kZipMemory);
  ZipAdd(zip, "two", bytes, 1, kZipMemory);
  CloseZipZ(zip);
  m_folder.Write("broken.zip", "no archive");
  const std::string broken = m_folder / "broken.zip";

  EXPECT_EQ(TraceZip(m_path.c_str(), archive.c_str()), 1);
  EXPECT_EQ(TraceZip(m_path.c_str(), broken.c_str()), 1);
  EXPECT_EQ(TraceZip(m_path.c_str(), ""), 1);
  const std::string heading = "\n  >> Output of ZIP file: ";
  EXPECT_EQ(Text(), heading + archive + " (#)\n\t\\dir/one.txt\n\t\\two\n\t  << Output end" +
                        heading + broken + " (#)\n\t  << Output end" + heading + "<null> (#)\n\t");
}

TEST_F(TraceLog, Switches) {
  EXPECT_EQ(TraceFunction::TraceEvent("off", "x"), 0);
  EXPECT_EQ(TraceFunction::TraceOutput("off"), 0);
  TraceFunction::InitTrace(m_path.c_str(), 0, 0);
  const std::string before = Text();
  EXPECT_EQ(TraceFunction::TraceOutput("file"), 1);
  EXPECT_EQ(TraceFunction::TraceZip("file"), 1);
  EXPECT_EQ(Text(), before);
}

TEST_F(TraceLog, LinesOfTwoThreadsStayWhole) {
  constexpr int kLines = 400;
  const std::string rest(50, '.');
  const auto write = [&](const char* title) {
    for (int i = 0; i < kLines; ++i)
      EXPECT_EQ(TraceEvent(m_path.c_str(), title, i, ("%d" + rest).c_str()), 1);
  };
  std::thread first(write, "0"), second(write, "1");
  first.join();
  second.join();

  int next[] = {0, 0};
  std::istringstream text(Text().substr(1));
  for (std::string found; std::getline(text, found);) {
    const int thread = found[3] == '1';
    ASSERT_EQ(found, "#  " + std::to_string(thread) + ": " + std::to_string(next[thread]++) + rest);
  }
  EXPECT_EQ(next[0] + next[1], 2 * kLines);
}

TEST_F(TraceLog, SurvivesDeletionAndReadersBetweenEvents) {
  TraceEvent(m_path.c_str(), "t", "1");
  DeleteFileA(m_path.c_str());
  TraceEvent(m_path.c_str(), "t", "2");
  EXPECT_EQ(Text(), "\n#  t: 2");
  const HANDLE writer =
      CreateFileA(m_path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                  nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_EQ(TraceEvent(m_path.c_str(), "t", "while another writes"), 1);
  CloseHandle(writer);
  EXPECT_EQ(Text(), "\n#  t: 2\n#  t: while another writes");
}
