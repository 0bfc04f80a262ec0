// Work on whole folders.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

// Creates every missing folder of path ("/" counts as "\"): 1 when the whole path exists now, else
// 0. Neither the server nor the share of a "\\server\share\..." path is ever created; of a path
// that begins with a dot, the part up to the first backslash is not.
//
// Whether a part exists is tested by making it the current directory for a moment, so this must not
// run while another thread depends on the current directory.
ORVANE_API int CreateDirectoryA(const char* path);
