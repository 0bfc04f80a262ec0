// What the framework keeps for each thread that has windows.
#pragma once

#include <afxwin.h>

#include <map>
#include <vector>

#include "threads/handle_map.h"

struct ThreadState {
  ThreadState();

  HandleMap<CWnd, HWND> windows;
  // The procedures of windows that the framework has subclassed and whose objects were detached.
  std::map<HWND, WNDPROC> formerProcedures;
  std::vector<CFrameWnd*> frames;

  MSG message;               // the one that is being handled
  CWnd* creating = nullptr;  // waits for its window
  HHOOK creationHook = nullptr;
  char className[64] = "";    // of AfxRegisterWndClass
  HWND exchanging = nullptr;  // a dialog whose values go to its controls

  CWinThread* thread = nullptr;
  POINT lastMouse = {-1, -1};  // of the last mouse message that was followed by idle work
  UINT lastMouseMessage = 0;
};

// The calling thread's.
ThreadState& State();
