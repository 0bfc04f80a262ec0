// One entry as the local header and the directory describe it together.
#pragma once

#include "zip/XUnzip.h"
#include "zip/ZipDirectory.h"
#include "zip/ZipInput.h"

// Where the parts of an entry lie that only its local header tells. Positions in the archive.
struct ZipLocalHeader {
  uint64_t extra;
  uint32_t extraSize;
  uint64_t data;
};

// kZipCorrupt when there is no local header, or it reaches beyond the archive; kZipReadError.
ZipResult readLocalHeader(ZipInput& input, const ZipDirectory& directory,
                          const ZipCentralRecord& record, ZipLocalHeader& header);

// Fills the public record of an entry. The same failures, and kZipCorrupt when it isn't readable.
ZipResult readZipEntry(ZipInput& input, const ZipDirectory& directory, int index, ZIPENTRY& entry);
