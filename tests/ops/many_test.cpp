// Many runs of many kinds: none hangs, and none leaves a window behind. (Blocks and handles are the
// business of the test's main.)
#include <gtest/gtest.h>

#include <random>

#include "ops/User.h"
#include "ops/Work.h"
#include "support/LongRun.h"
#include "windows/GuiObjects.h"
#include "windows/Steps.h"

namespace {

// One run, all of whose properties are drawn.
class RandomRun {
 public:
  explicit RandomRun(std::mt19937& random) : m_random(random) {}

  void Run() {
    const unsigned items = Draw(0, 60);
    const DWORD pause = Draw(0, 4);
    const unsigned failing = Draw(0, 200), throwing = Draw(0, 400);
    const unsigned stopping = Draw(0, 150), asksForStop = Draw(0, 2);
    const unsigned asking = Draw(0, 200);
    const bool sleepsOnEvent = Draw(0, 4) == 0;
    Work work(3, 3 + items, [&](unsigned index) {
      const unsigned item = index - 3;
      if (item == stopping) work.StopLoop();
      if (item == throwing) throw item;
      EXPECT_TRUE(item != asking || ask(work) == IDOK);
      if (sleepsOnEvent)
        WaitForSingleObject(work.StopEvent(), pause);
      else
        ::Sleep(pause);
      return item == failing ? OperationFailedStop : OperationDone;
    });
    if (Draw(0, 3) == 0) work.SetShowProgress(0);
    if (Draw(0, 5) == 0) work.SetNoGui(1);
    work.SetDisplayProgressOnSingle(Draw(0, 1));
    work.SetTitle(Draw(0, 1) != 0 ? "title" : "", Draw(0, 1) != 0 ? "message" : "");

    // Somebody presses Stop sooner or later, or tells the operation itself.
    const DWORD patience = Draw(0, 80);
    const DWORD start = GetTickCount();
    std::atomic<bool> told = false;
    User user([&](const Seen& seen) {
      if (seen.prompt != nullptr) User::Click(GetDlgItem(seen.prompt, IDOK));
      if (told || GetTickCount() - start < patience) return;
      told = true;
      if (asksForStop == 0) User::Click(seen.Stop());
      if (asksForStop == 1) User::Press(seen.Stop(), VK_ESCAPE);
      if (asksForStop == 2) work.StopLoop();
    });
    for (unsigned runs = Draw(1, 2); runs > 0; --runs) {
      const int result = work.DoOperation(Draw(0, 1));
      const bool ends = work.wasAborted() || work.Started() == items;
      EXPECT_EQ(result, ends && work.DoneCount() == work.Started());
    }
    user.Leave();  // before the operation goes
  }

 private:
  unsigned Draw(unsigned least, unsigned most) {
    return std::uniform_int_distribution<unsigned>(least, most)(m_random);
  }
  std::mt19937& m_random;
};

void run(int runs) {
  const watchdog::ExpectWindows expected;
  static std::mt19937 random(4);
  for (int i = 0; i < runs && !testing::Test::HasFailure(); ++i) RandomRun(random).Run();
  DeleteTemporaryObjects();
}

}  // namespace

TEST(Many, RunsLeaveNothing) {
  run(20);  // the system keeps things at first use
  const int userObjects = UserObjects(), gdiObjects = GdiObjects();
  run(IsLongRun() ? 2000 : 60);
  EXPECT_LT(UserObjects() - userObjects, 200);
  EXPECT_LT(GdiObjects() - gdiObjects, 20);
}
