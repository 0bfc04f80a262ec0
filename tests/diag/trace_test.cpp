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
  SYSTEMTIME before, after;
  GetLocalTime(&before);
  TraceEvent(m_path.c_str(), "t", "x");
  GetLocalTime(&after);
  int hour = 0, minute = 0, second = 0, milliseconds = 0;
  ASSERT_EQ(sscanf(m_folder.Read("t.log").c_str(), "\r\n%2d:%2d:%2d:%3d:   t: x", &hour, &minute,
                   &second, &milliseconds),
            4);
  const auto day = [](int h, int m, int s, int ms) { return ((h * 60 + m) * 60 + s) * 1000 + ms; };
  const int stamp = day(hour, minute, second, milliseconds);
  const int from = day(before.wHour, before.wMinute, before.wSecond, before.wMilliseconds);
  const int to = day(after.wHour, after.wMinute, after.wSecond, after.wMilliseconds);
  if (from <= to) {
    EXPECT_TRUE(from <= stamp && stamp <= to) << from << " " << stamp << " " << to;
  }
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
  _putenv("ORVANE_TEST_VARIABLE=with blanks = and signs");
  m_folder.Write("t.log", "old");
  EXPECT_EQ(InitTrace(m_path.c_str(), 1), 1);
  _putenv("ORVANE_TEST_VARIABLE=");

  std::string expected = "\n#  Windows version: ";
  const std::string text = Text();
  ASSERT_EQ(text.substr(0, expected.size()), expected);
  int major = 0, minor = 0, build = 0, version = 0;
  ASSERT_EQ(
      sscanf(text.c_str() + expected.size(), "%d.%d.%d (%d)", &major, &minor, &build, &version), 4);
  EXPECT_EQ(version, major * 256 + minor);
  EXPECT_NE(text.find("\n#  Environ Info: ORVANE_TEST_VARIABLE=with blanks = and signs"),
            std::string::npos);

  size_t entries = 0;
  for (char** entry = _environ; *entry != nullptr; ++entry) ++entries;
  size_t written = 0;
  for (size_t at = 0; (at = text.find("#  Environ Info: ", at)) != std::string::npos; ++at) {
    ++written;
  }
  EXPECT_EQ(written, entries + 1);  // the variable is gone again
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

TEST_F(TraceLog, SwitchedOffItCostsNothing) {
  const TraceFunction scope("Scope");
  EXPECT_EQ(TraceFunction::TraceEvent("t", "x"), 0);
  EXPECT_EQ(TraceFunction::TraceEvent("t", 1, ""), 0);
  EXPECT_EQ(TraceFunction::TraceOutput("file"), 0);
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

TEST_F(TraceLog, OutputSwitchReportsSuccess) {
  TraceFunction::InitTrace(m_path.c_str(), 0, 0);
  const std::string before = Text();
  EXPECT_EQ(TraceFunction::TraceOutput("file"), 1);
  EXPECT_EQ(TraceFunction::TraceZip("file"), 1);
  EXPECT_EQ(Text(), before);
}

TEST_F(TraceLog, LinesOfTwoThreadsStayWhole) {
  constexpr int kLines = 400;
  const std::string titles[] = {"first", "second"};
  const auto line = [](const std::string& title, const char* number) {
    return title + ": line " + number + ", long enough to be cut in two";
  };
  const auto write = [&](const std::string& title) {
    const std::string format = line("", "%d").substr(2);
    for (int i = 0; i < kLines; ++i) {
      EXPECT_EQ(TraceEvent(m_path.c_str(), title.c_str(), i, format.c_str()), 1);
    }
  };
  std::thread first(write, titles[0]);
  std::thread second(write, titles[1]);
  first.join();
  second.join();

  int next[] = {0, 0};
  std::istringstream text(Text().substr(1));
  for (std::string found; std::getline(text, found);) {
    const int thread = found.find(titles[0]) == std::string::npos;
    ASSERT_EQ(found, "#  " + line(titles[thread], std::to_string(next[thread]++).c_str()));
  }
  EXPECT_EQ(next[0], kLines);
  EXPECT_EQ(next[1], kLines);
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
