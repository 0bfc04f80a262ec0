// Reads zip archives from a file, an open handle or memory: lists and finds entries, and extracts
// them one at a time.
//
// Format: PKWARE APPNOTE 4.x, stored and deflated entries. Entries that need more (encryption,
// other methods, several disks, 64-bit fields) give kZipCorrupt when they are opened, and so do
// entries whose data overlap another's or the directory. The archive is not trusted: whatever it
// holds, the functions give a result code and touch nothing but their target.
//
// Every function sets the reader's last result, whose text FormatZipMessageU(kZipRecent, ...)
// gives; the writer keeps its own. One thread at a time.
#pragma once

#include "zip/ZipFiles.h"  // whole archives in one call
#include "zip/ZipTypes.h"

// An entry of an archive.
struct ZIPENTRY {
  int index;            // from 0; the number of entries in the record of index -1
  char name[MAX_PATH];  // as stored, "/" separators; cut at 259 characters
  unsigned long attr;   // FILE_ATTRIBUTE_... flags
  FILETIME atime;       // last access
  FILETIME ctime;       // creation
  FILETIME mtime;       // last write
  int comp_size;        // bytes in the archive; sizes of 2 GiB and more are negative
  int unc_size;         // bytes when extracted
};

// The same record under the name that wide-character hosts use: its name is 8-bit too, by design.
struct ZIPENTRYW : ZIPENTRY {};

// Opens an archive.
//
//   kZipHandle    source is an open HANDLE of a disk file (kZipNoSeek otherwise). It is duplicated
//                 and stays the caller's, but its file position moves. The archive reaches from the
//                 current position to the end of the file.
//   kZipFileName  source is a path. The file may be read by others meanwhile, not written.
//   kZipMemory    source is a block of length bytes that must stay until CloseZipU.
//
// rootFolder is where UnzipItem creates the folders of relative destinations; null or empty: the
// current directory. At most 259 characters with its closing "\".
//
// Returns the handle, or null: kZipNoDuplicate, kZipNoFile, kZipNoSeek, kZipBadArguments,
// kZipNoMemory, or kZipCorrupt when no end record with a directory is found.
ORVANE_API HZIP OpenZipU(const void* source, unsigned int length, unsigned long kind,
                         const char* rootFolder);

// Fills a record with entry index; with index -1 its index is the number of entries and all else is
// zero. An extraction into memory that is under way is given up. Takes constant time.
// kZipBadArguments, kZipCorrupt, kZipReadError, kZipWrongKind.
ORVANE_API unsigned long GetZipItemA(HZIP archive, int index, ZIPENTRY* entry);
ORVANE_API unsigned long GetZipItemW(HZIP archive, int index, ZIPENTRYW* entry);

// Finds an entry by its name as stored, exactly or without regard to case. index and entry may be
// null. Not found: kZipNotFound, and *index and entry->index are -1. Takes constant time.
ORVANE_API unsigned long FindZipItemA(HZIP archive, const char* name, bool ignoreCase, int* index,
                                      ZIPENTRY* entry);
ORVANE_API unsigned long FindZipItemW(HZIP archive, const char* name, bool ignoreCase, int* index,
                                      ZIPENTRYW* entry);

// Extracts an entry.
//
//   kZipHandle    destination is an open HANDLE, which stays the caller's; length is not used.
//   kZipFileName  destination is the path of the file, which is created or replaced with the
//                 entry's attributes and times. Folders of a relative destination without ".." are
//                 made below the root folder of OpenZipU; the path itself is used as it is given.
//                 What stands there is replaced when all of the entry is written and right;
//                 otherwise it stays, and where there was no file there is none.
//   kZipMemory    destination is a block of length bytes, filled with the next bytes of the entry:
//                 kZipMore when there were any, kZipOk when there are no more. Call again with the
//                 same index until it is kZipOk.
//
// A folder entry to a file or handle gives kZipOk and writes nothing. Otherwise:
//   kZipBadArguments  no such index
//   kZipNoFile        the file can't be created
//   kZipCorrupt       the entry can't be opened, or its size or CRC doesn't match at its end: a
//                     handle or a block has its bytes
//   kZipWriteError    the target didn't take the bytes, or the data can't be read or unpacked
//   kZipFlateError    the data can't be read or unpacked into memory
ORVANE_API unsigned long UnzipItem(HZIP archive, int index, void* destination, unsigned int length,
                                   unsigned long kind);

// Closes the archive and frees the handle. kZipBadArguments for null, kZipWrongKind for a writer's.
ORVANE_API unsigned long CloseZipU(HZIP archive);

// Whether a handle is a reader's. A null handle counts as one, by design: hosts test their handle
// variable before its first use.
ORVANE_API bool IsZipHandleU(HZIP archive);

// As FormatZipMessageZ, for the reader's last result.
ORVANE_API unsigned int FormatZipMessageU(unsigned long code, char* buffer, unsigned int size);
