// An archive that is open for reading: what stands behind the functions of XUnzip.h, which say what
// each of these does.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "zip/XUnzip.h"
#include "zip/ZipArchive.h"
#include "zip/ZipDirectory.h"
#include "zip/ZipExtents.h"
#include "zip/ZipExtraction.h"
#include "zip/ZipInput.h"
#include "zip/ZipNameIndex.h"
#include "zip/ZipTime.h"

class ZipReader : public ZipArchive {
 public:
  static constexpr ZipArchiveKind kArchiveKind = ZipArchiveKind::kReader;

  ZipReader() : ZipArchive(kArchiveKind) {}

  ZipResult Open(const void* source, unsigned int length, unsigned long kind,
                 const char* rootFolder);
  ZipResult GetItem(int index, ZIPENTRY& entry);
  ZipResult FindItem(const char* name, bool ignoreCase, int* index, ZIPENTRY* entry);
  ZipResult Unzip(int index, void* destination, unsigned int length, unsigned long kind);

 private:
  ZipResult SetRootFolder(const char* folder);
  const ZipNameIndex& Names(bool ignoreCase);
  ZipResult StartExtraction(int index);
  ZipResult UnzipToMemory(int index, void* destination, unsigned int length);
  ZipResult UnzipToFile(int index, void* destination, unsigned long kind);
  ZipResult CopyTo(HANDLE file);
  void CreateFolderOf(const char* path);

  ZipInput m_input;
  ZipDirectory m_directory;
  const ZipTimeZone m_timeZone;
  ZipExtraction m_extraction{m_input};
  std::string m_rootFolder;  // ends with "\"

  int m_inProgress = -1;  // the entry that is being extracted into memory
  ZIPENTRY m_last = {};   // the entry looked up last
  bool m_hasLast = false;

  // Made when they are first needed.
  std::optional<ZipNameIndex> m_exactNames;
  std::optional<ZipNameIndex> m_foldedNames;
  std::optional<ZipExtents> m_extents;
  std::unique_ptr<uint8_t[]> m_piece;
};
