#pragma once

#include <afxstr_.h>

// The absolute path of a file that need not exist. False, with the system's last error set, when
// the name is empty or the path would be longer than MAX_PATH.
bool FullPath(LPCSTR name, CString& path);
