// The main of every test program: leaks, damaged blocks, hangs and stray windows are failures of
// the test that caused them.
#include <windows.h>

#include <cstdlib>
#include <gtest/gtest.h>

#include "support/Allocations.h"
#include "support/LongRun.h"
#include "support/OpenHandles.h"
#include "support/Watchdog.h"

namespace {

constexpr unsigned kSecondsPerTest = 120;
constexpr unsigned kSecondsPerLongTest = 3600;

class Guard : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo& test) override {
    m_name = std::string(test.test_suite_name()) + "." + test.name();
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
    if (live.blocks > m_live.blocks) {
      ADD_FAILURE() << live.blocks - m_live.blocks << " blocks leaked:\n"
                    << allocations::DescribeSince(m_mark);
    }
    const unsigned handles = allocations::OpenHandles();
    if (handles > m_handles) ADD_FAILURE() << handles - m_handles << " handles leaked";
  }

  std::string m_name;
  allocations::Live m_live = {0, 0};
  unsigned m_mark = 0;
  unsigned m_handles = 0;
};

// What GoogleTest allocates at its first use and keeps.
void WarmUp() { SCOPED_TRACE("warming up"); }

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new Guard);
  watchdog::Start(IsLongRun() ? kSecondsPerLongTest : kSecondsPerTest);
  WarmUp();
  allocations::Install();
  return RUN_ALL_TESTS();
}
