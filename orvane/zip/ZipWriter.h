// Writes zip archives, entry by entry, into a file, an open handle or a block of memory.
//
// Format: PKWARE APPNOTE 4.x, sections 4.3.7 (local header), 4.3.9 (data descriptor), 4.3.12
// (central directory) and 4.3.16 (end record), without encryption, disks or 64-bit fields; and the
// "UT" extended time stamp of Info-ZIP. Entries are deflated at level 8, or stored.
//
// Every function sets the writer's last result, whose text FormatZipMessageZ(kZipRecent, ...)
// gives; the reader keeps its own. One thread at a time.
#pragma once

#include "zip/ZipTypes.h"

// Starts an archive.
//
//   kZipHandle    target is an open HANDLE. It is duplicated and stays the caller's; the archive
//                 starts at its current position. A disk file is sought in, anything else (a pipe)
//                 is written straight through, with data descriptors. length is not used.
//   kZipFileName  target is a path. The file is created and not shared. An existing one is replaced
//                 when the archive is closed; until then it is kept from everybody else.
//   kZipMemory    target is the caller's block of length bytes, or null: then the library maps a
//                 block of length bytes of its own, which ZipGetMemory shows. Neither grows.
//
// Returns the handle, or null: kZipNoDuplicate, kZipNoFile, kZipNoMemory, kZipMemoryFull for a
// block of no bytes, or kZipBadArguments.
ORVANE_API HZIP CreateZipZ(void* target, unsigned int length, unsigned long kind);

// Adds an entry.
//
// name is the entry's name, relative, in the ANSI code page; "\" in it becomes "/", and a folder's
// name gets a "/" at its end.
//
//   kZipHandle    source is an open HANDLE, which stays the caller's. A disk file is read from its
//                 start, with its own size, times and attributes (a folder has no bytes);
//                 anything else to its end, length being the number of bytes to come, or 0 when
//                 that is not known.
//   kZipFileName  source is the path of a file that can be opened for reading and is not being
//                 written.
//   kZipMemory    source is a block of length bytes, not null and not empty.
//   kZipFolder    an empty folder; source and length are not used.
//
// Returns a result code:
//   kZipBadArguments  a null handle, an empty name, no source; or what the format can't hold: a
//                     65,536th entry, a name above 65,535 bytes, an entry or archive of 4 GiB
//                     or more
//   kZipNoFile        the source can't be opened
//   kZipReadError     reading the source failed
//   kZipSizeDiffers   the source gave more or fewer bytes than announced
//   kZipWriteError    the target didn't take the bytes (kZipMemoryFull: the block is full); every
//                     later addition gives kZipEarlierError
//   kZipNoSeek, kZipNoMemory, kZipFlateError, kZipEnded, kZipWrongKind
// An entry that failed is not in the archive; the entries before it are, and stay good. What a pipe
// has taken of it stays between the others, in no directory.
ORVANE_API unsigned long ZipAdd(HZIP archive, const char* name, const void* source,
                                unsigned int length, unsigned long kind);

// The same; bytesWritten receives the bytes written to the archive so far.
ORVANE_API unsigned long ZipAdd(HZIP archive, const char* name, const void* source,
                                unsigned int length, unsigned long kind,
                                unsigned long& bytesWritten);

// Ends a memory archive, so that nothing more can be added, and shows its bytes: they are valid
// until CloseZipZ. kZipNotMemory when the target isn't memory.
ORVANE_API unsigned long ZipGetMemory(HZIP archive, void** memory, unsigned long* length);

// Writes the central directory, unless ZipGetMemory did, and frees the handle, whatever the result.
// When that fails, no file is left of an archive that was created by name, and one that it was to
// replace stays. That one also stays when a write has failed before: kZipEarlierError. What ZipAdd
// gives for failed writes; for a handle that is null or a reader's, kZipBadArguments or
// kZipWrongKind, and nothing is freed.
ORVANE_API unsigned long CloseZipZ(HZIP archive);

// Whether a handle is a writer's. A null handle counts as one, by design: hosts test their handle
// variable before its first use.
ORVANE_API bool IsZipHandleZ(HZIP archive);

// The text of a result code (kZipRecent: of the last result of the writer). Copies at most size - 1
// characters and a zero into buffer, which may be null. Returns the full length of the text.
ORVANE_API unsigned int FormatZipMessageZ(unsigned long code, char* buffer, unsigned int size);
