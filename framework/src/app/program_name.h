#pragma once

#include <afxver_.h>

// The program file's name, without folder and extension.
LPCTSTR ProgramName();
