// Threads that call a function, waits that serve windows, and the desktop's busy cursor.
#include "ops/mthread.h"

#include <gtest/gtest.h>

#include <atomic>

#include "entry/Handles.h"
#include "ops/SysWaitCursor.h"
#include "support/AssertionLog.h"
#include "support/Watchdog.h"
#include "windows/GuiObjects.h"

namespace {

struct Calls {
  std::atomic<int> count = 0;
  DWORD duration = 0;
  MThread* thread = nullptr;
  int stopAt = 0;
};

void call(void* parameter) {
  auto& calls = *static_cast<Calls*>(parameter);
  ::Sleep(calls.duration);
  if (++calls.count == calls.stopAt) calls.thread->Stop(0);
  if (calls.count == 2) throw "an exception is no reason to stop";
}

std::atomic<int> ticks;
void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) { ++ticks; }

}  // namespace

TEST(Thread, OnceAndAgainAndAgain) {
  AssertionLog log;
  Calls once;
  EXPECT_EQ((new MThread(&call, &once))->ActivateThreadAndWait(10), 1);
  EXPECT_EQ(once.count, 1);

  Calls often;
  often.stopAt = 5;
  often.thread = new MThread(&call, &often);
  often.thread->SetMiliTimeout(10, 0, 1);
  EXPECT_EQ(often.thread->ActivateThreadAndWait(10), 1);
  EXPECT_EQ(often.count, 5);
  EXPECT_TRUE(log.Names("mthread"));
}

// Stopped in a pause: one more call or none, as asked for.
TEST(Thread, StopInAPause) {
  for (const int runOnceMore : {0, 1}) {
    Calls calls;
    auto* const thread = new MThread(&call, &calls);
    thread->SetMiliTimeout(150, 0, 1);
    thread->Go();
    while (calls.count == 0) ::Sleep(1);
    thread->Stop(runOnceMore);
    while (calls.count < 1 + runOnceMore) ::Sleep(5);
    ::Sleep(300);
    EXPECT_EQ(calls.count, 1 + runOnceMore);
  }
}

// The thread outlasts the wait; whoever else waits meanwhile is not woken by it.
TEST(Thread, TimeRunsOut) {
  Calls slow, slower;
  slow.duration = 1300;
  slower.duration = 1900;
  EXPECT_EQ((new MThread(&call, &slow))->ActivateThreadAndWait(1), 0);
  EXPECT_EQ((new MThread(&call, &slower))->ActivateThreadAndWait(1), 0);
  EXPECT_EQ(slower.count, 0);
  while (slow.count == 0 || slower.count == 0) ::Sleep(5);
}

TEST(Thread, WaitsServeWindows) {
  ticks = 0;
  const UINT_PTR timer = SetTimer(nullptr, 0, 20, tick);
  const DWORD start = GetTickCount();
  MThread::Sleep(300);
  EXPECT_GE(GetTickCount() - start, 250u);
  EXPECT_GE(ticks, 2);
  KillTimer(nullptr, timer);

  const watchdog::ExpectWindows windows;
  // A window that is never painted asks for it for ever.
  const HWND unpainted = CreateWindow("Static", "", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                      nullptr, nullptr, nullptr);
  SetWindowLongPtr(unpainted, GWLP_WNDPROC,
                   reinterpret_cast<LONG_PTR>(+[](HWND w, UINT m, WPARAM p, LPARAM l) -> LRESULT {
                     return m == WM_PAINT ? 0 : DefWindowProc(w, m, p, l);
                   }));
  InvalidateRect(unpainted, nullptr, TRUE);
  const unique_kernel_handle event(CreateEvent(nullptr, FALSE, TRUE, nullptr));
  EXPECT_EQ(MThread::WaitForEvent(event.get(), 200), 1);
  EXPECT_EQ(MThread::WaitForEvent(event.get(), 200), 0);
  DestroyWindow(unpainted);

  PostQuitMessage(3);
  EXPECT_EQ(MThread::WaitForEvent(event.get(), 50), 0);
  MSG message;
  ASSERT_TRUE(PeekMessage(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, 3u);
}

// Nothing is used up by it. (Whether the cursor is seen depends on the system: Wine 8 shows none.)
TEST(WaitCursor, LeavesNothing) {
  const int before = UserObjects();
  for (int i = 0; i < 400; ++i) const SysWaitCursor cursor(i % 2);
  EXPECT_LT(UserObjects() - before, 300);
}
