// A thread that calls a function, once or again and again.
#pragma once

#include <afxwin.h>

#include <memory>

#include "entry/export.h"
#include "ops/SharedWord.h"
#include "ops/SysWaitCursor.h"

// Made with new and started with Go or ActivateThreadAndWait, after which it belongs to its thread
// and deletes itself at the thread's end: Stop is only for one that is known to be running.
class ORVANE_API MThread {
 public:
  // An exception that fn lets out counts as its return (ASSERT).
  MThread(void (*fn)(void*), void* arg);

  // Before the start. intervalMs: the pause before each call, 0: none. stop: 0: the calls go on
  // until Stop; else there is one call. runFirstAtOnce: not 0: no pause before the first call.
  void SetMiliTimeout(int intervalMs, int stop, int runFirstAtOnce);

  // Starts the thread. Where the system has no thread to give (ASSERT), a single call takes place
  // at once, on the calling thread, because somebody will be waiting for what it does; repeated
  // calls do not take place.
  void Go();

  // Ends the thread after the current call, or pause. runOnceMore: not 0: a pause that has begun is
  // followed by one more call. Does not wait.
  void Stop(int runOnceMore);

  // Starts the thread and waits for its end, for so many seconds at most: 1 it has ended, 0 it goes
  // on. Messages are dispatched meanwhile; the desktop's arrow shows that something is starting.
  int ActivateThreadAndWait(int seconds);

  // Dispatches the calling thread's messages, untranslated, until the object is signalled: 1, or so
  // many milliseconds have passed: 0. WM_QUIT is found in the queue again afterwards.
  static int WaitForEvent(HANDLE event, int ms);
  // The same for a time only.
  static void Sleep(int ms);

 private:
  static UINT AFX_CDECL Main(LPVOID thread);
  UINT Body();
  void Call();

  void (*m_function)(void*);
  void* m_argument;
  int m_interval = 0;  // milliseconds
  SharedWord<int> m_stop = 1;
  int m_runFirstAtOnce = 0;
  SharedWord<int> m_skip = 0;  // no further call
  // Of this thread and of who waits for it, whichever needs it longer.
  std::shared_ptr<void> m_completionEvent;
};
