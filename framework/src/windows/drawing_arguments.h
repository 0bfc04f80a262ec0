// Objects for the handles that messages carry.
#pragma once

#include <afxwin.h>

CDC* DCFromHandle(HDC dc);
CMenu* MenuFromHandle(HMENU menu);
HMENU HandleOf(const CMenu* menu);
