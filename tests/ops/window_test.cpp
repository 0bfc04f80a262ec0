// Operations with their progress windows on the screen.
#include <gtest/gtest.h>

#include <utility>

#include "messages/message.h"
#include "ops/User.h"
#include "ops/Work.h"
#include "support/AssertionLog.h"
#include "windows/Steps.h"

namespace {

// Its own look at each message may fail.
struct App : CWinApp {
  App() : CWinApp("ops") {}
  BOOL PreTranslateMessage(MSG* message) override {
    if (std::exchange(throws, false)) throw 1;
    return CWinApp::PreTranslateMessage(message);
  }
  bool throws = false;
};

// A program with a main window.
class Progress : public testing::Test {
 protected:
  Progress() {
    m_owner.CreateEx(0, AfxRegisterWndClass(0), "Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                     CRect(100, 100, 500, 400), nullptr, 0);
    m_app.m_pMainWnd = &m_owner;
  }
  ~Progress() override {
    EXPECT_TRUE(m_owner.IsWindowEnabled());
    EXPECT_EQ(User::Now().window, HWND{});
    m_app.m_pMainWnd = nullptr;
    m_owner.DestroyWindow();
    DeleteTemporaryObjects();
  }

  watchdog::ExpectWindows m_windows;
  App m_app;
  CWnd m_owner;
};

// Each percentage is the caption's, and none is smaller than the one before.
void expectHonest(const std::vector<Seen>& looks, const std::string& rest) {
  int last = 0;
  for (const Seen& seen : looks) {
    EXPECT_EQ(seen.caption, std::to_string(seen.percent) + rest);
    EXPECT_GE(seen.percent, last);
    last = seen.percent;
  }
}

// Waits for something that the user is to see or do; on a busy machine it comes late.
void await(const std::function<bool()>& condition) {
  for (const DWORD start = GetTickCount(); !condition() && GetTickCount() - start < 30'000;)
    ::Sleep(5);
}

}  // namespace

TEST_F(Progress, ShortWorkHasNoWindow) {
  m_owner.SetFocus();
  User user;
  Work work(0, 15, takes(30));
  EXPECT_EQ(work.DoOperation(0), 1);
  EXPECT_TRUE(user.Leave().empty());
  EXPECT_EQ(work.DoneCount(), 15u);
  EXPECT_NE(work.ThreadId(), GetCurrentThreadId());
  EXPECT_EQ(GetFocus(), m_owner.m_hWnd);
}

TEST_F(Progress, LongWorkHasOneAfterTwoSeconds) {
  std::atomic<int> seen = 0;
  User user([&](const Seen&) {
    // The work does not end before the first look.
    EXPECT_TRUE(seen > 0 || !m_owner.IsWindowEnabled());
    ++seen;
  });
  Work work(100, 130, [&](unsigned index) {
    ::Sleep(100);
    if (index == 129) await([&] { return seen > 0; });
    return OperationDone;
  });
  work.SetTitle("100%s done", "");
  EXPECT_EQ(work.DoOperation(0), 1);
  const auto& looks = user.Leave();
  ASSERT_FALSE(looks.empty());
  EXPECT_GE(looks.front().sinceStart, 1900u);
  EXPECT_GE(looks.front().percent, 30) << "it comes with what is done by then";
  expectHonest(looks, "% Completed - 100%s done");
}

// The work finds out in its middle how much there is of it.
TEST_F(Progress, NeverRunsBackwards) {
  std::atomic<int> seen = -1;
  User user([&](const Seen& now) {
    seen = now.percent;
    User::Tick(now.window);
  });
  Work work(0, 20, [&](unsigned index) {
    await([&] { return seen >= (index == 34 ? 80 : index == 14 ? 60 : 0); });
    if (index == 14) work.SetEnd(35);
    ::Sleep(5);
    return OperationDone;
  });
  work.SetTitle("", "A message\nin two lines");
  EXPECT_EQ(work.DoOperation(1), 1);
  const auto& looks = user.Leave();
  ASSERT_FALSE(looks.empty());
  EXPECT_LT(looks.front().percent, 50) << "it does not wait for two seconds";
  EXPECT_GE(looks.back().percent, 80);
  expectHonest(looks, "% Completed - Progress");
}

TEST_F(Progress, SingleItemsHaveOneWhenAskedFor) {
  for (const int display : {0, 1}) {
    std::atomic<bool> seen = false;
    Work work(5, 6, [&](unsigned) {
      ::Sleep(50);
      if (display != 0) await([&] { return seen.load(); });
      return OperationDone;
    });
    work.SetDisplayProgressOnSingle(display);
    User user([&](const Seen&) { seen = true; });
    EXPECT_EQ(work.DoOperation(1), 1);
    EXPECT_EQ(user.Leave().empty(), display == 0);
    EXPECT_EQ(work.ThreadId() == GetCurrentThreadId(), display == 0);
  }
}

TEST_F(Progress, StopIsAcknowledgedAtOnce) {
  const std::function<void(const Seen&)> ways[] = {
      [](const Seen& seen) { User::Click(seen.Stop()); },
      [](const Seen& seen) { User::Press(seen.Stop(), VK_ESCAPE); },
      [](const Seen& seen) { PostMessage(seen.window, WM_SYSCOMMAND, SC_CLOSE, 0); },
  };
  DWORD quickest = INFINITE;
  for (const auto& stop : ways) {
    Work work(0, 100000, takes(1));
    bool pressed = false;
    DWORD milliseconds = 0;
    unsigned startedThen = 0;
    User user([&](const Seen& seen) {
      if (pressed || work.Started() < 200) return;
      pressed = true;
      const HWND button = seen.Stop();
      const DWORD start = GetTickCount();
      stop(seen);
      while (IsWindow(button) && IsWindowEnabled(button) && milliseconds < 5000) {
        ::Sleep(1);
        milliseconds = GetTickCount() - start;
      }
      startedThen = work.Started();
    });
    EXPECT_EQ(work.DoOperation(1), 1);
    user.Leave();
    EXPECT_LE(milliseconds, 2000u);
    quickest = std::min(quickest, milliseconds);
    EXPECT_TRUE(work.wasAborted());
    EXPECT_EQ(work.stops, 1);
    EXPECT_EQ(work.DoneCount(), work.Started());
    // The button is seen to be pressed a moment before the operation hears of it.
    EXPECT_LE(work.Started(), startedThen + 200);
  }
  EXPECT_LE(quickest, 100u);
}

// An item that sleeps on the stop event, and the window of one that does not, which stays until the
// item is over.
TEST_F(Progress, StopReachesALongItem) {
  for (const DWORD uninterrupted : {0, 600}) {
    Work work(0, 10, [&](unsigned) {
      ::Sleep(uninterrupted);
      return WaitForSingleObject(work.StopEvent(), 20000) == WAIT_OBJECT_0 ? OperationDone
                                                                           : OperationFailed;
    });
    work.StopEvent();  // a stop must find it
    DWORD ended = 0;
    User user([&](const Seen& seen) {
      if (ended == 0) User::Click(seen.Stop());
      ended = seen.sinceStart;
    });
    EXPECT_EQ(work.DoOperation(1), 1);
    user.Leave();
    EXPECT_EQ(work.Started(), 1u);
    EXPECT_GE(ended + 400, uninterrupted);
    EXPECT_LT(ended, 15'000u) << "the item would have slept for 20 s";
  }
}

// Before the window has come up, and later; what else is on the screen meanwhile.
TEST_F(Progress, TheWorkerAsks) {
  for (const int interactive : {1, 0}) {
    AssertionLog log;
    int looks = 0, withOthers = 0;
    std::atomic<bool> shown = false;
    User user([&](const Seen& seen) {
      if (seen.window != nullptr) shown = true;
      if (seen.prompt == nullptr) return;
      withOthers += m_owner.IsWindowVisible() || seen.window != nullptr;
      User::Tick(seen.hidden);
      if (++looks % 50 == 0) User::Click(GetDlgItem(seen.prompt, IDOK));
    });
    std::vector<int> given;
    Work work(0, 3, [&](unsigned index) {
      if (index == 0) {
        given.push_back(ask(work));
      } else if (index == 2) {
        Message message(Message::MSG_INFO, "Another question?");
        given.push_back(work.GetUserInput(message));
      } else {
        await([&] { return shown.load(); });
      }
      return OperationDone;
    });
    EXPECT_EQ(work.DoOperation(interactive), 1);
    EXPECT_FALSE(user.Leave().empty());
    EXPECT_EQ(given, std::vector<int>({IDOK, IDOK}));
    // A look may fall between the prompt's coming and the others' going.
    EXPECT_LE(withOthers, looks / 10);
    EXPECT_TRUE(m_owner.IsWindowVisible());
    EXPECT_EQ(log.Names("MultiOp"), interactive == 0) << log.Text();
  }
}

TEST_F(Progress, ExceptionsInTheWorkerEndTheRun) {
  for (const int interactive : {0, 1}) {
    AssertionLog log;
    User user;
    Work work(0, 100, [&](unsigned index) -> OperationReturnState {
      if (index == 3 && interactive != 0) AfxThrowMemoryException();
      if (index == 3) throw std::string("exception");
      return OperationDone;
    });
    EXPECT_EQ(work.DoOperation(interactive), 0);
    EXPECT_EQ(work.Calls(), "P0123E");
    EXPECT_TRUE(log.Names("mthread")) << log.Text();
  }
}

TEST_F(Progress, ExceptionsOfTheProgramDoNotLeaveTheWorkAlone) {
  m_app.throws = true;
  Work work(0, 20, takes(20));
  work.DoOperation(1);
  EXPECT_FALSE(m_app.throws);
  // It was told to stop, and has come to its end.
  EXPECT_LT(work.DoneCount(), 20u);
  EXPECT_EQ(work.Calls().back(), 'E');
}

TEST_F(Progress, OneAfterAnotherAndOneInAnother) {
  User user;
  Work first(0, 50, takes(2)), second(0, 50, takes(2));
  EXPECT_EQ(first.DoOperation(1), 1);
  EXPECT_EQ(second.DoOperation(0), 1);
  unsigned innerDone = 0;
  Work outer(0, 3, [&](unsigned index) {
    Work inner(0, 20, takes(20));
    inner.SetTitle("inner", "");
    EXPECT_EQ(inner.DoOperation(index != 0), 1);
    innerDone += inner.DoneCount();
    // The program is still busy with the outer one.
    EXPECT_FALSE(m_owner.IsWindowEnabled());
    return OperationDone;
  });
  outer.SetTitle("outer", "");
  EXPECT_EQ(outer.DoOperation(1), 1);
  EXPECT_EQ(innerDone, 60u);
}

// The program is told to end, or its main window is destroyed by its own code, in the middle.
TEST_F(Progress, TheProgramEnds) {
  for (const bool destroys : {false, true}) {
    User user([&, acted = false](const Seen& seen) mutable {
      if (acted || seen.sinceStart < 300) return;
      acted = true;
      const DWORD thread = GetWindowThreadProcessId(m_owner.m_hWnd, nullptr);
      if (destroys)
        PostMessage(m_owner.m_hWnd, WM_CLOSE, 0, 0);
      else
        PostThreadMessage(thread, WM_QUIT, 7, 0);
    });
    Work work(0, 100000, takes(1));
    EXPECT_EQ(work.DoOperation(1), 1);
    EXPECT_TRUE(work.wasAborted());
    EXPECT_LT(work.Started(), 100000u);
    MSG message;
    EXPECT_TRUE(PeekMessage(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, destroys ? 0u : 7u);
  }
  m_owner.CreateEx(0, AfxRegisterWndClass(0), "Owner", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0);
}
