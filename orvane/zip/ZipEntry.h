// One entry as the local header and the directory describe it together.
#pragma once

#include "zip/XUnzip.h"
#include "zip/ZipDirectory.h"
#include "zip/ZipInput.h"
#include "zip/ZipTime.h"

// Where the parts of an entry lie that only its local header tells. Positions in the archive.
struct ZipLocalHeader {
  uint64_t extra;  // the extra field, which reaches to the data
  uint64_t data;
};

// kZipCorrupt when there is no local header, or it reaches beyond the archive; kZipReadError.
ZipResult ReadLocalHeader(ZipInput& input, const ZipDirectory& directory,
                          const ZipCentralRecord& record, ZipLocalHeader& header);

// Fills the public record of an entry. The same failures, and kZipCorrupt when it isn't readable.
ZipResult ReadZipEntry(ZipInput& input, const ZipDirectory& directory, const ZipTimeZone& timeZone,
                       int index, ZIPENTRY& entry);
