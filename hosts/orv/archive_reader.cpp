#include <afxwin.h>

#include "archive_reader.h"

#include "zip_messages.h"

ArchiveReader::ArchiveReader(const std::string& name) : m_name(name) {
  m_archive = OpenZipU(m_name.data(), 0, kZipFileName, nullptr);
}

ArchiveReader::~ArchiveReader() {
  if (m_archive != nullptr) CloseZipU(m_archive);
}

bool ArchiveReader::ForEach(const std::function<unsigned long(HZIP, const ZIPENTRY&)>& visit) {
  if (m_archive == nullptr) {
    Complain(m_name, ZipText(kZipRecent));
    return false;
  }
  ZIPENTRY entry = {};
  GetZipItemA(m_archive, -1, &entry);
  const int entries = entry.index;
  bool good = true;
  for (int i = 0; i < entries; ++i) {
    unsigned long result = GetZipItemA(m_archive, i, &entry);
    const std::string subject = result == kZipOk ? entry.name : "entry " + std::to_string(i);
    if (result == kZipOk) result = visit(m_archive, entry);
    if (result == kZipOk) continue;
    Complain(subject, ZipText(result));
    good = false;
  }
  return good;
}
