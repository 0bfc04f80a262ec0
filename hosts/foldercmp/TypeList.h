// Lists of document types as the user writes them.
#pragma once

#include <afxwin.h>

// The list as a comparison takes it: "*." and an extension, separated by ";". Types may be written
// as "c", ".c" or "*.c", and separated by ";", "," or blanks. All types ("*", "*.*") are an empty
// list.
CString NormalizedTypeList(const char* typed);
