// Folders that the user names, and names for temporary folders and files.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

// --- Folders that the user names ---

// Checks the path of a folder and tells the user what is wrong with it: 1 valid, 0 not. All "/" in
// the buffer become "\". In this order: the path is there, absolute and without a slash or dot at
// its end, its drive or share can be reached; then
//   checkLongNames    long file names are possible there, or the user goes on without them;
//   mustExist         the folder exists;
//   askCreate         a missing one is created only when the user agrees; otherwise the answer is
//                     0 with failIfNotCreated, and 1 without it, although there is no folder;
//   checkWritable     files can be created in it.
// A missing folder that need not exist is created with its parents. Uses the current directory of
// the process for a moment.
ORVANE_API int ValidatePath(char* path, int mustExist, int checkLongNames, int checkWritable,
                            int askCreate, int failIfNotCreated);

// The same for the text of a dialog's control, when the exchange saves: a path that is not valid
// makes the exchange fail on the control.
ORVANE_API void ValidatePath(CDataExchange* dx, int controlId, int mustExist, int checkLongNames,
                             int checkWritable, int askCreate, int failIfNotCreated);

// The same without questions, for servers: long names are not asked for, a missing folder is
// created, and it must be writable. errorText: what is wrong with the path, which is shown too,
// where messages are; else empty.
ORVANE_API int ValidatePathServer(char* path, CString& errorText);

// 1 when there is a folder of this path, else 0.
ORVANE_API int IsFolder(CString path);

// --- Temporary folders and files ---

// The system's folder for temporary files, with a backslash at its end; created where it is
// missing. Found once for the life of the process.
ORVANE_API CString GetSystemTempFolder();

// Creates a folder that nobody else has, named prefix and a number, in the system's temporary
// folder or in another one (which is created too; a missing backslash at its end is added). The
// path; empty after 100 numbers that were taken, and when no folder can be created.
ORVANE_API CString GetTempFolderName(CString prefix);
ORVANE_API CString GetTempFolderNameUnderFolder(CString prefix, CString folder);

// Creates an empty file that nobody else has, and gives its path; empty when it can't be created.
// folder: null or empty for the system's temporary folder. prefix: its first three characters are
// used.
ORVANE_API CString GetTempName(const char* prefix, const char* folder);

// The same, with prefix of exactly three characters (ASSERT). With an extension (without a dot)
// name is one that no file has: it is not reserved. name: empty when there is none.
ORVANE_API void GetTempName(const char* folder, const char* prefix, CString& name,
                            const char* extension);
ORVANE_API void GetNameInSystemTempFolder(const char* prefix, CString& name, const char* extension);

// The path of name in the system's temporary folder, whether there is such a file or not; for a
// null or empty name that of a new empty file. Called as the system's function is by design: the
// arguments tell them apart.
ORVANE_API CString GetTempFileNameA(const char* name);
