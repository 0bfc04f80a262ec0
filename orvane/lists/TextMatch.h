// How a pattern is looked for in a text of the system's code page.
#pragma once

// Letters are the same in either case as the system folds them; double-byte characters are compared
// as they are, and a byte is never taken for half of one.
bool EqualsNoCase(const char* text, const char* pattern);
bool BeginsWith(const char* text, const char* pattern);
bool BeginsWithNoCase(const char* text, const char* pattern);
// Begins with the pattern, and ends there or goes on with "\".
bool IsPathPrefix(const char* text, const char* pattern);
bool Contains(const char* text, const char* pattern);
