// Work on whole folders.
//
// Results are truth values: not 0 for success. What could not be done is reported in the assertion
// log, with its path; the work goes on with the rest as far as the functions say so. Paths are of
// at most 259 characters. Links to other folders (junctions, symbolic links) are never entered:
// where a function deletes or moves, it does so with the link itself.
#pragma once

#include <afxtempl.h>

#include "entry/CStrMap.h"
#include "entry/export.h"
#include "ops/DirectoryCopyOp.h"
#include "ops/DirectoryOp.h"

// Creates every missing folder of path ("/" counts as "\"): 1 when the whole path exists now, else
// 0. Neither the server nor the share of a "\\server\share\..." path is ever created; of a path
// that begins with a dot, the part up to the first backslash is not.
//
// Whether a part exists is tested by making it the current directory for a moment, so this must not
// run while another thread depends on the current directory.
ORVANE_API int CreateDirectoryA(const char* path);

// Copies the files of source to the same places below destination; see DirectoryCopyOp. A file that
// can't be copied ends the copying: 0.
//   subfoldersOnly  the files that stand directly in source are left out
//   noGui           no progress window, even when it takes long
//   recurse         the files of sub-folders, too
ORVANE_API int DirectoryCopy(const char* source, const char* destination, int subfoldersOnly,
                             int noGui, int recurse);

// Moves the tree oldFolder to newFolder, in place of the tree that stands there, entry by entry:
// each stays where it is until it has arrived, and what can't be moved stays for good, with
// result 0. Times and permissions are kept. The folders that newFolder stands in are created.
//
// Nothing is touched, and the result is 0, when oldFolder is no folder, when one of the two stands
// in the other, and when what stands at newFolder can't be removed whole (of which a part may be
// gone then). A folder renamed to itself takes on the letter case of the new name, where the file
// system has it so.
ORVANE_API int DirectoryRename(const char* oldFolder, const char* newFolder);

// Makes every file of folder read-only or, with readOnly 0, writable. Folders stay as they are.
// 0 when a folder can't be read or a file not be changed; the others are.
ORVANE_API int SetReadOnlyDir(const char* folder, int readOnly, int recurse);

// The files of folder: their number, and the sum of their sizes in bytes. A file or a sum of 4 GiB
// or more: both are 0xFFFFFFFF and the result is 0. 0 as well when a folder can't be read.
ORVANE_API int CalculateDirectorySize(const char* folder, unsigned long& size,
                                      unsigned long& fileCount, int recurse);

// Deletes every file and every folder called name (in any letter case) in folder and, with recurse,
// in its sub-folders. Without recurse, a folder of the name goes only when it holds nothing but
// files. 1 when all of them are gone; 0 when one is not, when a folder can't be read, and for an
// empty name. handedOn has no effect.
ORVANE_API int DirectoryCleanup(const char* folder, const char* name, int recurse, int handedOn);

// Deletes the files of folder itself that match mask. 1 when something matched, a folder maybe, and
// no file is left of it; 0 when nothing did, and for a mask that is empty or names a folder.
ORVANE_API int DirectoryCleanupMask(const char* folder, const char* mask);

// Deletes the files of path and, with recurse, its sub-folders, then the folder itself. 0 when the
// folder is still there or was not there at all.
ORVANE_API int RemoveDirectoryA(const char* path, int recurse);

// Appends the full paths of all files of folder and its sub-folders, in lower case, save those that
// are keys of excluded (also in lower case). 0 when a folder can't be read.
ORVANE_API int GetDirectoryFiles(CArray<CString, const char*>& files, const char* folder,
                                 const CStrMap<int>& excluded);
