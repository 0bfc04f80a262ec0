// Paths of folders as the user gives them.
#pragma once

#include <afxwin.h>

// The full path of what was typed: without blanks and quotation marks around it, with backslashes,
// and without one at its end unless it is a root. Empty for an empty text; as typed when the system
// makes nothing of it.
CString AbsoluteFolder(const char* typed);

// Why a folder can't be opened: the system's error; ERROR_DIRECTORY: it is something else.
// ERROR_SUCCESS: it can.
DWORD FolderError(const char* path);

bool IsSameFolder(const char* one, const char* two);

// The last name in a path; of a root the path.
CString FolderName(const char* path);
