// Names for what is downloaded without a destination.
#pragma once

#include <afxwin.h>

// Makes a fresh empty file in the system's temporary folder and gives its path; empty: the last
// error says why there is none. Its extension is that of the URL where it is one of those that
// programs are chosen by.
CString MakeTemporaryFileFor(const char* url);
