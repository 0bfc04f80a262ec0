// What a window asks when it gets the questions about owner-drawn items of menus.
#pragma once

#include <afxmenu_.h>

// Pass a question on to the thread's object of the menu that has the item. False: there is none.
bool DrawMenuItem(DRAWITEMSTRUCT* item);
bool MeasureMenuItem(MEASUREITEMSTRUCT* item);
