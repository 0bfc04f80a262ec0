// The place of the main window from one run to the next.
#pragma once

#include <afxwin.h>

// The place that was kept, moved and shrunk into the work area of a screen; as the system has put
// the window when nothing usable was kept. Gives how the window is to be shown: cmdShow, or
// maximized when it was and the user hasn't asked otherwise.
int RestoreWindowPlace(CWnd& window, int cmdShow);
void StoreWindowPlace(const CWnd& window);
