#include <afxwin.h>

#include <cstdio>

#include "archive_reader.h"
#include "commands.h"

namespace {

unsigned long PrintEntry(HZIP, const ZIPENTRY& entry) {
  SYSTEMTIME time = {};
  FileTimeToSystemTime(&entry.mtime, &time);
  // The record's sizes are 32 bits wide and signed; the archive's are not.
  printf("%u\t%u\t%02lx\t%04d-%02d-%02d %02d:%02d:%02d\t%s\n",
         static_cast<unsigned>(entry.unc_size), static_cast<unsigned>(entry.comp_size), entry.attr,
         time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond, entry.name);
  return kZipOk;
}

}  // namespace

int ListCommand(int, char** arguments) {
  return ArchiveReader(arguments[0]).ForEach(PrintEntry) ? kDone : kFailed;
}
