// Small helpers for texts and paths.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

// Splits text at its last "\", which belongs to neither side. Without one, left is the whole text
// and right is empty: callers that split a file path then take left as the name. text is neither
// null nor empty (ASSERT).
ORVANE_API void SplitAtLastBackslash(const char* text, CString& left, CString& right);

// The place in text just past the first occurrence of prefix. Null for a null or empty text; null,
// with an ASSERT, when prefix is null or not there.
ORVANE_API const char* TextAfter(const char* text, const char* prefix);

// text with every "/" turned into "\".
ORVANE_API CString WithBackslashes(const char* text);
