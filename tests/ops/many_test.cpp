// Many runs of many kinds: none hangs, and none leaves a handle, a thread or a window behind.
#include <gtest/gtest.h>

#include <tlhelp32.h>

#include <algorithm>
#include <random>

#include "controls/MDialog.h"
#include "entry/Handles.h"
#include "ops/User.h"
#include "ops/Work.h"
#include "support/LongRun.h"
#include "support/OpenHandles.h"
#include "windows/GuiObjects.h"
#include "windows/Steps.h"

namespace {

// What a run may leave behind.
struct Held {
  unsigned threads, handles;
  int userObjects, gdiObjects;  // windows are among the former
};

unsigned threads() {
  const unique_file snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
  THREADENTRY32 entry = {};
  entry.dwSize = sizeof entry;
  unsigned count = 0;
  for (BOOL more = Thread32First(snapshot.get(), &entry); more;
       more = Thread32Next(snapshot.get(), &entry))
    count += entry.th32OwnerProcessID == GetCurrentProcessId();
  return count;
}

Held held() { return {threads(), allocations::OpenHandles(), UserObjects(), GdiObjects()}; }

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
      if (item == asking) {
        MDialog dialog;
        dialog.SetDialog(-1, -1, 100, 40, "Question", 1, 1);
        dialog.SetOkButton(10, 20, 40, 14, "OK");
        EXPECT_EQ(work.GetUserInput(dialog), IDOK);
      }
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

// The system keeps things at first use: that is not the test's to answer for.
class Many : public testing::Test {
 protected:
  static void SetUpTestSuite() { Run(20); }

  static void Run(int runs) {
    const watchdog::ExpectWindows expected;
    static std::mt19937 random(4);
    for (int i = 0; i < runs && !HasFailure(); ++i) RandomRun(random).Run();
    DeleteTemporaryObjects();
    ::Sleep(500);  // the last threads give back what they held a moment after their end
  }
};

}  // namespace

TEST_F(Many, RunsLeaveNothing) {
  const Held before = held();
  Run(IsLongRun() ? 2000 : 60);
  const Held after = held();
  EXPECT_LE(after.threads, before.threads);
  // A lock of the runtime gets its handle when two threads meet at it for the first time.
  EXPECT_LE(after.handles, before.handles + 3);
  EXPECT_LT(after.userObjects - before.userObjects, 200);
  EXPECT_LT(after.gdiObjects - before.gdiObjects, 20);
}
