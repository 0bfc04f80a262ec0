#include "zip/XUnzip.h"

#include "zip/ZipArchive.h"
#include "zip/ZipMessages.h"
#include "zip/ZipReader.h"

namespace {

ZipResult g_lastResult = kZipOk;

}  // namespace

HZIP OpenZipU(const void* source, unsigned int length, unsigned long kind, const char* rootFolder) {
  HZIP archive = nullptr;
  RunZipCall(g_lastResult, [&] {
    auto reader = std::make_unique<ZipReader>();
    const ZipResult result = reader->Open(source, length, kind, rootFolder);
    if (result == kZipOk) archive = reader.release();
    return result;
  });
  return archive;
}

unsigned long GetZipItemA(HZIP archive, int index, ZIPENTRY* entry) {
  return RunZipCall<ZipReader>(g_lastResult, archive, [&](ZipReader& reader) {
    return entry != nullptr ? reader.GetItem(index, *entry) : kZipBadArguments;
  });
}

unsigned long GetZipItemW(HZIP archive, int index, ZIPENTRYW* entry) {
  return GetZipItemA(archive, index, entry);
}

unsigned long FindZipItemA(HZIP archive, const char* name, bool ignoreCase, int* index,
                           ZIPENTRY* entry) {
  return RunZipCall<ZipReader>(g_lastResult, archive, [&](ZipReader& reader) {
    return reader.FindItem(name, ignoreCase, index, entry);
  });
}

unsigned long FindZipItemW(HZIP archive, const char* name, bool ignoreCase, int* index,
                           ZIPENTRYW* entry) {
  return FindZipItemA(archive, name, ignoreCase, index, entry);
}

unsigned long UnzipItem(HZIP archive, int index, void* destination, unsigned int length,
                        unsigned long kind) {
  return RunZipCall<ZipReader>(g_lastResult, archive, [&](ZipReader& reader) {
    return reader.Unzip(index, destination, length, kind);
  });
}

unsigned long CloseZipU(HZIP archive) {
  return RunZipCall<ZipReader>(g_lastResult, archive, [&](ZipReader& reader) {
    delete &reader;
    return kZipOk;
  });
}

bool IsZipHandleU(HZIP archive) { return IsZipArchiveOf(archive, ZipArchiveKind::kReader); }

unsigned int FormatZipMessageU(unsigned long code, char* buffer, unsigned int size) {
  return FormatZipMessage(code == kZipRecent ? g_lastResult : code, buffer, size);
}
