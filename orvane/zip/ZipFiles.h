// Whole folders and lists of files into an archive, and whole archives into a folder, in one call.
//
// All of them change the current directory of the process for their duration, so they are not for
// two threads at once. Paths are ANSI, with backslashes.
#pragma once

#include <afxtempl.h>

#include "zip/ZipTypes.h"

// Zips the files of folder (an absolute path) and its sub-folders that match pattern ("*.*" is
// every one) into a new archive, a relative archive name being taken inside folder. Entries are
// named relative to folder. Empty folders are not kept, links to folders not entered, and a
// sub-folder is entered only when it matches pattern itself: one search per level, by design.
// Returns the result of DoZipDir, or 0 when the archive could not be written. With 0, one that
// stood there stays, as it does for the next two functions.
ORVANE_API int ZipDir(const char* archive, const char* folder, const char* pattern);

// The same into an open archive; entry names, and the paths that files are read from, are what
// follows the first prefixLength characters of each path. 1, or 0 when folder can't be searched.
ORVANE_API int DoZipDir(HZIP archive, const char* folder, const char* pattern, int prefixLength);

// Zips a list of files that all begin with folder + "\" (not checked: the length of folder and one
// character are skipped, by design of the prefix rule). 1, or 0 when the archive can't be written.
ORVANE_API int ZipFiles(const char* archive, const char* folder,
                        const CArray<CString, const char*>& files);

// Zips one file. A path without folder loses its first character, by design of the prefix rule.
ORVANE_API int ZipFile(const char* archive, const char* file);

// Extracts every entry into folder, replacing what stands there, read-only files included. lastPath
// receives the path of the last entry. Entries whose path would leave folder are skipped and
// reported in the assertion log. 1, or 0 when the archive can't be opened.
ORVANE_API int OpenZipFile(const char* archive, const char* folder, CString& lastPath);

// Appends folder + "\" + name of every entry to files. 1, or 0 when the archive can't be opened.
ORVANE_API int UnZipFileList(const char* archive, const char* folder,
                             CArray<CString, const char*>& files);
