// The archive that the zip benchmarks write and read.
#pragma once

#include <afxwin.h>

#include <string>

#include "ZipData.h"
#include "zip/ZipWriter.h"

namespace bench {

inline void WriteArchive(const Files& files, std::string target) {
  HZIP zip = CreateZipZ(target.data(), 0, kZipFileName);
  Require(zip != nullptr, "the archive can't be created");
  for (std::string path : files.paths) {
    Require(ZipAdd(zip, NameOf(path).c_str(), path.data(), 0, kZipFileName) == kZipOk,
            "a file can't be added");
  }
  Require(CloseZipZ(zip) == kZipOk, "the archive can't be closed");
}

}  // namespace bench
