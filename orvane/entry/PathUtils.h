// Helpers for files and the folders they stand in.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

// A path in full: absolute, with single backslashes. False, with the system's last error, for what
// is no path or is longer than 259 characters.
ORVANE_API bool GetFullPath(const char* path, char (&full)[MAX_PATH]);

// The same as a text; where it can't be had, path with backslashes.
ORVANE_API CString FullPathOf(const char* path);

// That of a folder, without a backslash at its end: "C:" for the root of a drive.
ORVANE_API CString FullFolderOf(const char* path);

// Deletes a file, a read-only one too. A file that is not there is left alone silently; one that
// cannot be deleted is reported by VERIFY.
ORVANE_API void ForceDeleteFile(const char* path);

// Makes sure that the folder of a file path exists, with all its parents; "/" counts as "\". For a
// path without any folder there is nothing to do.
ORVANE_API void EnsureFileFolder(const char* filePath);
