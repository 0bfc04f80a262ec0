// The main of every test program: leaks, damaged blocks, hangs, crashes and stray windows are
// failures of the test that caused them.
#include <windows.h>

#include <cstdio>
#include <string>

#include <gtest/gtest.h>

#include "support/Allocations.h"
#include "support/LongRun.h"
#include "support/OpenHandles.h"
#include "support/Watchdog.h"

namespace {

constexpr unsigned kSecondsPerTest = 120;
constexpr unsigned kSecondsPerLongTest = 3600;
constexpr DWORD kHandleWaitMilliseconds = 1000;
// Idle threads of the system's pool end some seconds later.
constexpr DWORD kLongHandleWaitMilliseconds = 10000;

std::string FullName(const testing::TestInfo& test) {
  return std::string(test.test_suite_name()) + "." + test.name();
}

// The handles that are open beyond so many. A thread that has ended gives its own back a moment
// later.
unsigned HandlesBeyond(unsigned expected, DWORD milliseconds) {
  const DWORD start = GetTickCount();
  for (;;) {
    const unsigned handles = allocations::OpenHandles();
    if (handles <= expected) return 0;
    if (GetTickCount() - start > milliseconds) return handles - expected;
    Sleep(5);
  }
}

// Looks at what each test leaves behind. The system and the runtime keep blocks and handles at the
// first use of many of their parts, so a test that seems to leak is a suspect and runs once more:
// only what is kept again is a leak.
class Guard : public testing::EmptyTestEventListener {
 public:
  // The suspects as a test filter; from now on a leak is a failure.
  std::string TakeSuspects() {
    m_isSecondRun = true;
    return std::move(m_suspects);
  }

 private:
  void OnTestStart(const testing::TestInfo& test) override {
    m_name = FullName(test);
    watchdog::Watch(m_name.c_str());
    allocations::TakeDamage();
    m_handles = allocations::OpenHandles();
    m_live = allocations::Count();
    m_mark = allocations::Mark();
  }

  void OnTestEnd(const testing::TestInfo& test) override {
    const allocations::Live live = allocations::Count();
    watchdog::Watch(nullptr);
    const std::string windows = watchdog::TakeStrayWindows();
    if (!windows.empty()) ADD_FAILURE() << "windows that no one asked for:\n" << windows;
    const std::string damage = allocations::TakeDamage();
    if (!damage.empty()) ADD_FAILURE() << damage;
    // The messages of a failed test are kept; a failure is enough to look at.
    if (test.result()->Failed()) return;
    const unsigned handles = HandlesBeyond(
        m_handles, m_isSecondRun ? kLongHandleWaitMilliseconds : kHandleWaitMilliseconds);
    if (live.blocks <= m_live.blocks && handles == 0) return;
    if (!m_isSecondRun) {
      m_suspects += (m_suspects.empty() ? "" : ":") + FullName(test);
    } else if (handles > 0) {
      ADD_FAILURE() << handles << " handles leaked";
    } else {
      ADD_FAILURE() << live.blocks - m_live.blocks << " blocks leaked:\n"
                    << allocations::DescribeSince(m_mark);
    }
  }

  std::string m_name;
  std::string m_suspects;
  bool m_isSecondRun = false;
  allocations::Live m_live = {0, 0};
  unsigned m_mark = 0;
  unsigned m_handles = 0;
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  auto* const guard = new Guard;  // GoogleTest owns it
  testing::UnitTest::GetInstance()->listeners().Append(guard);
  watchdog::Start(IsLongRun() ? kSecondsPerLongTest : kSecondsPerTest);
  allocations::Install();

  const int status = RUN_ALL_TESTS();
  const std::string suspects = guard->TakeSuspects();
  if (status != 0 || suspects.empty()) return status;
  puts("Once more, those that kept something at their first run:");
  testing::GTEST_FLAG(filter) = suspects;
  return RUN_ALL_TESTS();
}
