// The main of every test program: leaks, damaged blocks, hangs, crashes and stray windows are
// failures of the test that caused them.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "support/Allocations.h"
#include "support/LongRun.h"
#include "support/OpenHandles.h"
#include "support/Watchdog.h"

namespace {

constexpr unsigned kSecondsPerTest = 120;
constexpr unsigned kSecondsPerLongTest = 3600;
constexpr int kRuns = 3;
constexpr DWORD kFirstWaitMilliseconds = 1000;  // at most
constexpr DWORD kLaterWaitMilliseconds = 10000;

std::string FullName(const testing::TestInfo& test) {
  return std::string(test.test_suite_name()) + "." + test.name();
}

struct Kept {
  unsigned handles;
  size_t blocks;
};

// What is there beyond so much. Threads that are ending give back what they have a moment later,
// which on a busy machine can be long.
Kept KeptBeyond(unsigned handles, size_t blocks, DWORD milliseconds) {
  const DWORD start = GetTickCount();
  for (;;) {
    const unsigned open = allocations::OpenHandles();
    const size_t live = allocations::Count().blocks;
    const Kept kept = {open > handles ? open - handles : 0, live > blocks ? live - blocks : 0};
    const bool isNothing = kept.handles == 0 && kept.blocks == 0;
    if (isNothing || GetTickCount() - start > milliseconds) return kept;
    Sleep(5);
  }
}

// Looks at what each test leaves behind. The system and the runtime keep blocks and handles at the
// first use of many of their parts, and now and then later, so a test that seems to leak is a
// suspect and runs twice more: only what is kept each time is a leak.
class Guard : public testing::EmptyTestEventListener {
 public:
  // The suspects as a test filter; they run again.
  std::string TakeSuspects() {
    ++m_earlierRuns;
    return std::exchange(m_suspects, {});
  }

 private:
  void OnTestStart(const testing::TestInfo& test) override {
    m_name = FullName(test);
    watchdog::Watch(m_name.c_str());
    allocations::TakeDamage();
    m_handles = allocations::OpenHandles();
    m_blocks = allocations::Count().blocks;
    m_mark = allocations::Mark();
  }

  void OnTestEnd(const testing::TestInfo& test) override {
    watchdog::Watch(nullptr);
    const std::string windows = watchdog::TakeStrayWindows();
    if (!windows.empty()) ADD_FAILURE() << "windows that no one asked for:\n" << windows;
    const std::string damage = allocations::TakeDamage();
    if (!damage.empty()) ADD_FAILURE() << damage;
    // The messages of a failed test are kept; a failure is enough to look at.
    if (test.result()->Failed()) return;
    // To run a test again takes as long as the test: there is no point in waiting longer.
    const auto again = static_cast<DWORD>(test.result()->elapsed_time());
    const Kept kept = KeptBeyond(
        m_handles, m_blocks,
        m_earlierRuns > 0 ? kLaterWaitMilliseconds : std::min(again, kFirstWaitMilliseconds));
    if (kept.handles == 0 && kept.blocks == 0) return;
    if (m_earlierRuns < kRuns - 1) {
      m_suspects += (m_suspects.empty() ? "" : ":") + FullName(test);
    } else if (kept.handles > 0) {
      ADD_FAILURE() << kept.handles << " handles leaked";
    } else {
      ADD_FAILURE() << kept.blocks << " blocks leaked:\n" << allocations::DescribeSince(m_mark);
    }
  }

  std::string m_name;
  std::string m_suspects;
  int m_earlierRuns = 0;
  size_t m_blocks = 0;
  unsigned m_mark = 0;
  unsigned m_handles = 0;
};

// Here the runtime gets what it keeps from the first exception on, GoogleTest its list of traces
// with a thread, and the system its keys for the settings of mouse and sounds.
void WarmUp() {
  SCOPED_TRACE(std::uncaught_exceptions());
  SCOPED_TRACE("a trace in another one");
  GetDoubleClickTime();
  BOOL beeps;
  SystemParametersInfoA(SPI_GETBEEP, 0, &beeps, 0);
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  auto* const guard = new Guard;  // GoogleTest owns it
  testing::UnitTest::GetInstance()->listeners().Append(guard);
  watchdog::Start(IsLongRun() ? kSecondsPerLongTest : kSecondsPerTest);
  WarmUp();
  allocations::Install();

  int status = RUN_ALL_TESTS();
  for (int run = 1; run < kRuns && status == 0; ++run) {
    const std::string suspects = guard->TakeSuspects();
    if (suspects.empty()) break;
    puts("Once more, those that kept something:");
    testing::GTEST_FLAG(filter) = suspects;
    status = RUN_ALL_TESTS();
  }
  return status;
}
