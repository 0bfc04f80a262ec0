#include "ops/mthread.h"

#include <algorithm>
#include <climits>
#include <new>
#include <optional>

#include "diag/trace.h"
#include "entry/Handles.h"

namespace {

// Reset by the wait that it ends, and not signalled yet.
unique_kernel_handle makeEvent(const char* name) {
  return unique_kernel_handle(CreateEventA(nullptr, FALSE, FALSE, name));
}

// An event by that name that is there already is somebody else's wait, whose signal would end this
// one, or the other way round.
std::shared_ptr<void> makeCompletionEvent() {
  unique_kernel_handle event = makeEvent("MThreadWait");
  if (!event || GetLastError() == ERROR_ALREADY_EXISTS) event = makeEvent(nullptr);
  try {
    return std::shared_ptr<void>(event.release(),
                                 [](HANDLE handle) { const unique_kernel_handle closed(handle); });
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

// Until a tick count; 0 when it has passed.
DWORD millisecondsUntil(DWORD deadline) {
  return static_cast<DWORD>(std::max(0, static_cast<int>(deadline - GetTickCount())));
}

}  // namespace

MThread::MThread(void (*fn)(void*), void* arg) : m_function(fn), m_argument(arg) {}

void MThread::SetMiliTimeout(int intervalMs, int stop, int runFirstAtOnce) {
  m_interval = intervalMs;
  m_stop = stop;
  m_runFirstAtOnce = runFirstAtOnce;
}

void MThread::Go() {
  CWinThread* started = nullptr;
  try {
    started = AfxBeginThread(&Main, this);
  } catch (CException* failure) {
    failure->Delete();
  } catch (...) {
  }
  VERIFY(started != nullptr);
  if (started != nullptr) return;
  if (m_stop == 0) {
    m_interval = 0;
    Stop(0);
  }
  Body();
}

UINT AFX_CDECL MThread::Main(LPVOID thread) {
  const UINT result = static_cast<MThread*>(thread)->Body();
  AfxEndThread(result, TRUE);
  return result;
}

UINT MThread::Body() {
  const std::unique_ptr<MThread> self(this);
  do {
    if (m_interval != 0 && m_runFirstAtOnce == 0) Sleep(m_interval);
    m_runFirstAtOnce = 0;
    if (m_skip == 0) Call();
  } while (m_stop == 0);
  if (m_completionEvent != nullptr) VERIFY(SetEvent(m_completionEvent.get()));
  return 0;
}

void MThread::Call() {
  try {
    m_function(m_argument);
  } catch (CException* exception) {
    ASSERT(!"an exception");
    exception->Delete();
  } catch (...) {
    ASSERT(!"an exception");
  }
}

// The thread, and with it this object, may be gone as soon as the stop flag is set.
void MThread::Stop(int runOnceMore) {
  m_skip = runOnceMore == 0;
  m_stop = 1;
}

int MThread::ActivateThreadAndWait(int seconds) {
  const SysWaitCursor cursor(0);
  const std::shared_ptr<void> event = makeCompletionEvent();
  VERIFY(event != nullptr);
  m_completionEvent = event;
  Go();
  constexpr int kMostSeconds = INT_MAX / 1000;
  return WaitForEvent(event.get(), std::min(seconds, kMostSeconds) * 1000);
}

int MThread::WaitForEvent(HANDLE event, int ms) {
  const DWORD deadline = GetTickCount() + static_cast<DWORD>(ms);
  std::optional<WPARAM> quit;
  DWORD ended;
  do {
    MSG message;
    // A window that asks to be painted for ever must not keep the wait from ending.
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
      if (message.message == WM_QUIT)
        quit = message.wParam;
      else
        DispatchMessageA(&message);
      if (millisecondsUntil(deadline) == 0) break;
    }
    ended = MsgWaitForMultipleObjects(1, &event, FALSE, millisecondsUntil(deadline), QS_ALLINPUT);
  } while (ended == WAIT_OBJECT_0 + 1 && millisecondsUntil(deadline) > 0);
  if (quit) PostQuitMessage(static_cast<int>(*quit));
  // Serving the windows can use up the time, with the event there all along.
  return ended == WAIT_OBJECT_0 || WaitForSingleObject(event, 0) == WAIT_OBJECT_0;
}

void MThread::Sleep(int ms) {
  const unique_kernel_handle never = makeEvent(nullptr);
  WaitForEvent(never.get(), ms);
}
