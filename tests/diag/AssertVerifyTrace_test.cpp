#include "diag/AssertVerifyTrace.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/AssertionLog.h"
#include "support/Faults.h"
#include "support/RunProgram.h"

TEST(AssertionLog, InactiveItEvaluatesNoConditionAndWritesNothing) {
  int evaluated = 0;
  ASSERT(++evaluated == 0);
  EXPECT_EQ(evaluated, 0);
  VERIFY(++evaluated == 0);
  EXPECT_EQ(evaluated, 1);
  EXPECT_EQ(AssertVerifyTrace::IsActive(), 0);
  AssertVerifyTrace::FailedLine("source", 1);
  EXPECT_EQ(AssertVerifyTrace::TraceEvent("t", "x"), 0);
  EXPECT_EQ(AssertVerifyTrace::TraceOutput("file"), 0);
}

TEST(AssertionLog, FailuresNameSourceAndLineAndGoOn) {
  const AssertionLog log;
  int evaluated = 0;
  ASSERT(++evaluated == 1);
  VERIFY(++evaluated == 2);
  EXPECT_TRUE(log.Empty());
  const int line = __LINE__;
  ASSERT(evaluated == 0);
  VERIFY(evaluated == 0);
  const auto event = [](int number) {
    return "ASSERT: File: AssertVerifyTrace_test (" + std::to_string(number) + ")";
  };
  EXPECT_NE(log.Text().find("   " + event(line + 1)), std::string::npos) << log.Text();
  EXPECT_NE(log.Text().find("   " + event(line + 2)), std::string::npos) << log.Text();
}

TEST(AssertionLog, ActiveAsSoonAsItHasAName) {
  const TempFolder folder;
  EXPECT_EQ(AssertVerifyTrace::InitTrace((folder / "x?y\\log").c_str(), 0, 0), 0);
  EXPECT_EQ(AssertVerifyTrace::IsActive(), 1);
  EXPECT_EQ(AssertVerifyTrace::traceOutput, 0);
  EXPECT_EQ(AssertVerifyTrace::TraceOutput("file"), 1);
  EXPECT_EQ(AssertVerifyTrace::InitTrace("", 0, 1), 0);
  EXPECT_EQ(AssertVerifyTrace::IsActive(), 0);
}

// Making the log's folder fails an assertion itself, where the way back to the current directory
// fails.
TEST(AssertionLog, AFailureOnTheWayToTheLogIsNotReportedWithoutEnd) {
  const TempFolder folder;
  const auto before = std::filesystem::current_path();
  AssertVerifyTrace::logFileName = (folder / "new\\assert.log").c_str();
  {
    const faults::FailNth fault(faults::Kind::kFolder, 3);
    VERIFY(folder.path().empty());
    EXPECT_STREQ(fault.Function(), "SetCurrentDirectoryA");
  }
  AssertVerifyTrace::logFileName.Empty();
  std::filesystem::current_path(before);
  const std::string text = folder.Read("new\\assert.log");
  EXPECT_EQ(std::count(text.begin(), text.end(), '('), 1) << text;
}

TEST(ServerHost, IsKnownByItsCommandLine) {
  EXPECT_EQ(AssertVerifyTrace::InvokedFromIis(), 0);
  EXPECT_EQ(AssertVerifyTrace::BlockGui(), 0);
  for (const char* host : {"C:\\WINDOWS\\SYSTEM32\\DLLHOST.EXE", "w3wp.exe", "aspnet_wp.exe",
                           "xWebServer.exe.config", "vb6.exe", "INETINFO.exe"}) {
    EXPECT_EQ(RunProgram(std::string("server_host.exe ") + host), 1u) << host;
  }
  EXPECT_EQ(RunProgram("server_host.exe apache.exe"), 0u);
}
