// Null until the classes of drawing and menus are here.
#include "windows/drawing_arguments.h"

CDC* DCFromHandle(HDC) { return nullptr; }
CMenu* MenuFromHandle(HMENU) { return nullptr; }
HMENU HandleOf(const CMenu*) { return nullptr; }
