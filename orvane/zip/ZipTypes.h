// What the zip writer and the zip reader share: the handle, the kinds of source and target, and the
// result codes with their texts.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

// An archive being written (CreateZipZ) or read (OpenZipU). Opaque; closed with CloseZipZ or
// CloseZipU by whoever opened it. A handle of one kind is refused by the functions of the other.
struct ZipArchive;
using HZIP = ZipArchive*;

// Kinds of target (where an archive or an entry goes) and of source (where it comes from).
enum ZipKind : unsigned long {
  kZipHandle = 1,    // an open file or pipe: the pointer argument is the HANDLE itself
  kZipFileName = 2,  // the pointer argument is a path, in the ANSI code page
  kZipMemory = 3,    // the pointer argument is a block of bytes
  kZipFolder = 4,    // sources only: an empty folder, the pointer argument is not used
};

// Result codes of the zip functions. The texts are those of FormatZipMessageZ and
// FormatZipMessageU.
enum ZipResult : unsigned long {
  kZipOk = 0,
  kZipRecent = 1,  // not a result: asks FormatZipMessage for the text of the last one

  // Failures of the system or of the archive.
  kZipNoDuplicate = 0x100,
  kZipNoFile = 0x200,
  kZipNoMemory = 0x300,
  kZipWriteError = 0x400,
  kZipNotFound = 0x500,
  kZipMore = 0x600,  // no failure: more of the entry is to be read
  kZipCorrupt = 0x700,
  kZipReadError = 0x800,

  // Mistakes of the caller.
  kZipBadArguments = 0x10000,
  kZipNotMemory = 0x20000,
  kZipMemoryFull = 0x30000,
  kZipEarlierError = 0x40000,
  kZipEnded = 0x50000,
  kZipSizeDiffers = 0x60000,
  kZipPartlyUnzipped = 0x70000,
  kZipWrongKind = 0x80000,

  // Failures inside.
  kZipNotInitialised = 0x1000000,
  kZipNoSeek = 0x2000000,
  kZipNoChange = 0x4000000,
  kZipFlateError = 0x5000000,
};
