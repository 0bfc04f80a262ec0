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

  // Is called with an entry and returns a zip result code.
  using Visit = std::function<unsigned long(HZIP, const ZIPENTRY&)>;

  // Calls visit with every entry. Says of each that failed why, and of an archive that can't be
  // opened. True when there was nothing to say.
  bool ForEach(const Visit& visit);

  // The number of entries; says why there are none in an archive that can't be opened.
  int Count();
  // As ForEach, with one entry.
  bool VisitEntry(int index, const Visit& visit);

  bool isOpen() const { return m_archive != nullptr; }

 private:
  std::string m_name;
  HZIP m_archive;
};
