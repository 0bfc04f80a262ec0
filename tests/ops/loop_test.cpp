// The loop of an operation: what is called, in which order, and what comes of it. No windows.
#include <gtest/gtest.h>

#include <memory>
#include <new>

#include "ops/Work.h"
#include "support/AssertionLog.h"

namespace {

constexpr auto kOther = static_cast<OperationReturnState>(4);

// Which items fail, and how: the others are done.
struct Case {
  const char* name;
  std::vector<OperationReturnState> states;
  int keepsNothing;  // what CancelOperation answers
  std::string calls;
  int result;
  unsigned doneCount;
};

const Case kCases[] = {
    {"all done", {OperationDone, OperationDone, OperationDone}, 0, "P012E", 1, 3},
    {"one fails", {OperationDone, OperationFailed, OperationDone}, 0, "P012E", 0, 2},
    {"fails and stops", {OperationDone, OperationFailedStop, OperationDone}, 0, "P01E", 0, 1},
    {"cancelled", {OperationDone, OperationCancelled, OperationDone}, 0, "P01CE", 0, 1},
    {"cancelled, in vain", {OperationDone, OperationCancelled, OperationDone}, 1, "P01CE", 0, 0},
    {"neither", {kOther, OperationDone, kOther}, 0, "P012E", 1, 1},
};

class Quiet : public testing::Test {
 protected:
  Quiet() { AssertVerifyTrace::BlockGuiMessages(1); }
  ~Quiet() override { AssertVerifyTrace::BlockGuiMessages(0); }
};

}  // namespace

TEST_F(Quiet, ResultsOfItems) {
  for (const Case& c : kCases) {
    Work work(0, 3, [&](unsigned index) { return c.states[index]; });
    work.onCancel = [&] { return c.keepsNothing; };
    for (int run = 0; run < 2; ++run) {  // the second run starts anew
      EXPECT_EQ(work.DoOperation(run), c.result) << c.name;
      EXPECT_EQ(work.Calls(), c.calls) << c.name;
      EXPECT_EQ(work.DoneCount(), c.doneCount) << c.name;
      EXPECT_EQ(work.ThreadId(), GetCurrentThreadId()) << c.name;
    }
  }
}

TEST_F(Quiet, NothingToDo) {
  AssertionLog log;
  Work empty(7, 7, done);
  EXPECT_EQ(empty.DoOperation(1), 1);
  EXPECT_EQ(empty.Calls(), "");
  EXPECT_TRUE(log.Empty());

  Work backwards(7, 3, done);
  EXPECT_TRUE(log.Names("MultiOp"));
  EXPECT_EQ(backwards.DoOperation(1), 1);
  EXPECT_EQ(backwards.Calls(), "PE");

  Work refused(0, 3, done);
  refused.before = [] { return 0; };
  EXPECT_EQ(refused.DoOperation(1), 0);
  EXPECT_TRUE(refused.PreOperationCanceled());
  EXPECT_EQ(refused.Calls(), "P");
  refused.before = [] { return 1; };
  EXPECT_EQ(refused.DoOperation(1), 1);
  EXPECT_FALSE(refused.PreOperationCanceled());
}

TEST_F(Quiet, StopLetsTheItemEnd) {
  Work stopped(0, 5, [&](unsigned index) {
    EXPECT_EQ(WaitForSingleObject(stopped.StopEvent(), 0), DWORD{WAIT_TIMEOUT});
    if (index == 2) stopped.StopLoop();
    return OperationDone;
  });
  for (int run = 0; run < 2; ++run) {  // the event is clear again in the second run
    EXPECT_EQ(stopped.DoOperation(0), 1);
    EXPECT_EQ(stopped.Calls(), "P012E");
    EXPECT_EQ(stopped.DoneCount(), 3u);
    EXPECT_TRUE(stopped.wasAborted());
    EXPECT_EQ(WaitForSingleObject(stopped.StopEvent(), 0), DWORD{WAIT_OBJECT_0});
  }
  EXPECT_EQ(stopped.stops, 2);
}

TEST_F(Quiet, ExceptionsAreFailures) {
  AssertionLog log;
  const std::function<int()> throwers[] = {
      []() -> int { throw 1; },
      []() -> int { throw std::bad_alloc(); },
      []() -> int {
        AfxThrowResourceException();
        return 0;
      },
  };
  for (const auto& thrower : throwers) {
    Work inItem(0, 3, [&](unsigned index) {
      return index == 1 ? static_cast<OperationReturnState>(thrower()) : OperationDone;
    });
    EXPECT_EQ(inItem.DoOperation(0), 0);
    EXPECT_EQ(inItem.Calls(), "P01E");

    Work before(0, 3, done), after(0, 3, done);
    before.before = after.after = thrower;
    EXPECT_EQ(before.DoOperation(0), 0);
    EXPECT_EQ(before.Calls(), "P");
    EXPECT_EQ(after.DoOperation(0), 0);
    EXPECT_EQ(after.Calls(), "P012E");
  }
  EXPECT_TRUE(log.Names("MultiOp"));
}

// A copy sees the same event and leaves closing it to the original.
TEST_F(Quiet, CopiesShareTheStopEvent) {
  Work original(0, 3, done);
  const HANDLE event = original.StopEvent();
  {
    Work copy(0, 1, done);
    copy.StopEvent();  // is closed when another one takes its place
    static_cast<MMultiOperation&>(copy) = original;
    EXPECT_EQ(copy.StopEvent(), event);
    copy.StopLoop();
    copy.Reset();
    EXPECT_NE(copy.StopEvent(), event) << "one of its own from now on";
  }
  EXPECT_EQ(WaitForSingleObject(event, 0), DWORD{WAIT_OBJECT_0});
}
