// Single entries of a tree: how they are deleted and how their permission changes. What fails is
// reported as an assertion of "pathutils".
#pragma once

#include <afxwin.h>

// Deletes a file, a read-only one too. One that somebody else has deleted meanwhile is fine.
bool DeleteTreeFile(const char* path, DWORD attributes);

// Gives a file the permission to be read only, or to be read and written.
bool SetTreeFileReadOnly(const char* path, bool readOnly);

// Removes a link to a folder, and nothing of what it leads to.
bool RemoveTreeLink(const char* path);

// Removes an empty folder, a read-only one too. One that is gone already is fine.
bool RemoveTreeFolder(const char* path);
