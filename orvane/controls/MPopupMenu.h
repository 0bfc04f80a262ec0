// A popup menu that is built entry by entry.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

class ORVANE_API MPopupMenu : public CMenu {
 public:
  // No entries. The system's menu is made with the object; without it (no more menus) all
  // functions fail.
  MPopupMenu() { CreatePopupMenu(); }

  // Appends an entry; "&" in text marks its letter. The functions that append give 1, 0: failed.
  int AppendItem(UINT command, const char* text, int enabled = 1);
  // Nothing, and 1, when the menu is empty or ends in a separator already.
  int AppendSeparator();
  // Appends an entry that opens a copy of another menu: each of the two is destroyed on its own.
  int AppendCopy(const CMenu& submenu, const char* text);
  static int AppendCopy(CMenu& menu, const CMenu& submenu, const char* text);

  int GetCount() const { return static_cast<int>(GetMenuItemCount()); }
  // By position, counted from 0. The text as it was appended; empty, and the command 0, where there
  // is none.
  CString GetText(int position) const;
  UINT GetCommand(int position) const;
  // -1: no entry has the command.
  int FindCommand(UINT command) const;
  // Marks one entry with a radio bullet and no other; -1: none at all.
  void RadioCheck(int position);
  void RemoveAll();

  // Shows the menu at a place of the screen. The command that the user has chosen, 0: none; it is
  // not sent to the window.
  UINT Choose(CPoint place, CWnd* window);
};
