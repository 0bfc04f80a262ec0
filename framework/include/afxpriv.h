// Messages that the framework sends to its own windows, for programs that handle them too.
#pragma once

#include "afxwin.h"

// To the window of a modal loop when the queue is empty: wParam MSGF_DIALOGBOX, lParam how often
// since the last message. 0: nothing more to do.
#define WM_KICKIDLE 0x036A
// To frames and their children when the program is idle: update handlers are to be asked.
// wParam TRUE: disable items without handlers.
#define WM_IDLEUPDATECMDUI 0x0363
// To a frame: shows a text in its status bar. wParam: id of the string, or 0 and lParam the text.
#define WM_SETMESSAGESTRING 0x0362
// To the children that RepositionBars lays out: lParam an AFX_SIZEPARENTPARAMS. Each takes its
// place from the edges of the rectangle.
#define WM_SIZEPARENT 0x0361

struct AFX_SIZEPARENTPARAMS {
  HDWP hDWP;       // null: nothing is moved, the layout is only asked for
  RECT rect;       // what is left of the parent's client area
  SIZE sizeTotal;  // the edges taken away
  BOOL bStretch;
};
