// Helpers for files and the folders they stand in.
#pragma once

#include "entry/export.h"

// Deletes a file, a read-only one too. A file that is not there is left alone silently; one that
// cannot be deleted is reported by VERIFY.
ORVANE_API void ForceDeleteFile(const char* path);

// Makes sure that the folder of a file path exists, with all its parents; "/" counts as "\". For a
// path without any folder there is nothing to do.
ORVANE_API void EnsureFileFolder(const char* filePath);
