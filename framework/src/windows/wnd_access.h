// What the framework's own functions need of a CWnd that is not public, and its modal loops.
#pragma once

#include <afxwin.h>

struct _AfxWndAccess {
  static LRESULT WindowProc(CWnd& window, UINT message, WPARAM wParam, LPARAM lParam) {
    return window.WindowProc(message, wParam, lParam);
  }
  static WNDPROC& SuperProcedure(CWnd& window) { return *window.GetSuperWndProcAddr(); }
  static void PreSubclass(CWnd& window) { window.PreSubclassWindow(); }
};

// A modal loop on the stack, which learns from its window and object that they are gone. At its end
// the object's flags say again what they said before.
struct _AfxModalLoop {
  explicit _AfxModalLoop(CWnd& window);
  ~_AfxModalLoop();
  _AfxModalLoop(const _AfxModalLoop&) = delete;
  _AfxModalLoop& operator=(const _AfxModalLoop&) = delete;

  static void WindowEnds(_AfxModalLoop* innermost);
  static void ObjectEnds(_AfxModalLoop* innermost);

  CWnd* object;  // null: deleted
  bool hasWindow = true;
  _AfxModalLoop* outer;
  UINT flagsBefore;
};

// m_nFlags
constexpr UINT WF_MODALLOOP = 0x10;      // RunModalLoop is running
constexpr UINT WF_CONTINUEMODAL = 0x20;  // and is to go on
constexpr UINT WF_PLACED = 0x40;         // the dialog's template says where it is to stand

// Whether the window's procedure is the framework's.
bool IsSubclassed(HWND window);
// Puts the framework's procedure in the place of the window's, which the object keeps; back again,
// unless somebody else's has taken that place since.
void ReplaceProcedure(CWnd& window);
void RestoreProcedure(CWnd& window);

// Between the two, the next window that the thread creates is the object's.
// HookCreation: false: the system has refused.
bool HookCreation(CWnd& window);
// False: no window has come.
bool UnhookCreation();
