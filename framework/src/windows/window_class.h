// The framework's own window classes, registered when first asked for. Null: the system refuses.
#pragma once

#include <afxwin.h>

LPCTSTR ChildWindowClass();
// With an icon from the resources of that id, 0 for the system's.
LPCTSTR FrameWindowClass(UINT nIDIcon);
