// Where folders stand to each other.
#pragma once

#include <afxwin.h>

// The path in the one form in which paths are compared: full, in lower case.
CString ComparedPath(const char* path);

// Where inner stands below outer, as text: the rest of its path, which begins with a backslash;
// empty when they are the same. Null when it does not. Both as ComparedPath gives them.
const char* PathBelow(const CString& outer, const CString& inner);

// Whether inner is the folder outer or stands below it, whatever the spellings: links, short names
// and drives that stand for folders don't deceive it.
bool HoldsFolder(const char* outer, const char* inner);

// Whether both paths lead to the same folder.
bool IsSameFolder(const char* one, const char* other);
