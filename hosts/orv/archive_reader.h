// An archive that is being read, and a visit of its entries.
#pragma once

#include <functional>
#include <string>

#include "zip/XUnzip.h"

class ArchiveReader {
 public:
  explicit ArchiveReader(const std::string& name);
  ~ArchiveReader();
  ArchiveReader(const ArchiveReader&) = delete;
  ArchiveReader& operator=(const ArchiveReader&) = delete;

  // Calls visit with every entry; it returns a zip result code. Says of each that failed why, and
  // of an archive that can't be opened. True when there was nothing to say.
  bool ForEach(const std::function<unsigned long(HZIP, const ZIPENTRY&)>& visit);

 private:
  std::string m_name;
  HZIP m_archive;
};
