// Extracting entries into a folder, for the functions and operations that do whole archives.
#pragma once

#include "zip/XUnzip.h"

// What stands before the name of an entry in its path below folder.
ORVANE_API CString EntryPathBegin(const char* folder);

// Extracts an entry to the path begin + its name, creating the folders on the way and replacing
// what stands there, read-only files included. path receives the path. An entry whose path would
// leave the folder is skipped and reported in the assertion log. What UnzipItem returned; kZipOk
// for what was skipped.
ORVANE_API unsigned long ExtractBelow(HZIP archive, int index, const CString& begin, CString& path);
