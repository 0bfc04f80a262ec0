#include <afxwin.h>

#include "archive_reader.h"

#include "zip_messages.h"

ArchiveReader::ArchiveReader(const std::string& name) : m_name(name) {
  m_archive = OpenZipU(m_name.data(), 0, kZipFileName, nullptr);
}

ArchiveReader::~ArchiveReader() {
  if (m_archive != nullptr) CloseZipU(m_archive);
}

bool ArchiveReader::ForEach(const Visit& visit) {
  const int entries = Count();
  bool good = isOpen();
  for (int i = 0; i < entries; ++i) good &= VisitEntry(i, visit);
  return good;
}

int ArchiveReader::Count() {
  if (!isOpen()) {
    Complain(m_name, ZipText(kZipRecent));
    return 0;
  }
  ZIPENTRY entry = {};
  GetZipItemA(m_archive, -1, &entry);
  return entry.index;
}

bool ArchiveReader::VisitEntry(int index, const Visit& visit) {
  ZIPENTRY entry = {};
  unsigned long result = GetZipItemA(m_archive, index, &entry);
  const std::string subject = result == kZipOk ? entry.name : "entry " + std::to_string(index);
  if (result == kZipOk) result = visit(m_archive, entry);
  if (result == kZipOk) return true;
  Complain(subject, ZipText(result));
  return false;
}
