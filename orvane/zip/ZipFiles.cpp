#include "zip/ZipFiles.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <utility>

#include "diag/trace.h"
#include "entry/PathUtils.h"
#include "entry/SetGetCurrentDir.h"
#include "entry/strutils.h"
#include "ops/FolderEntries.h"
#include "zip/FolderTarget.h"
#include "zip/XUnzip.h"
#include "zip/ZipArchive.h"
#include "zip/ZipWriter.h"

namespace {

// Runs the body of a public function: what fails inside, an allocation too, is its result 0.
template <class Body>
int Guarded(Body&& body) {
  try {
    return body();
  } catch (CException* exception) {
    exception->Delete();
  } catch (const std::exception&) {
  }
  return 0;
}

const char* OrEmpty(const char* text) { return text != nullptr ? text : ""; }

// An archive that is written. Unless it is closed, nothing is left of it.
class NewArchive {
 public:
  explicit NewArchive(const char* name)
      : m_handle(CreateZipZ(const_cast<char*>(name), 0, kZipFileName)) {}
  ~NewArchive() { DropZip(m_handle); }
  NewArchive(const NewArchive&) = delete;
  NewArchive& operator=(const NewArchive&) = delete;

  HZIP get() const { return m_handle; }

  // Whether the archive is whole, as far as files could be added to it.
  bool Close() {
    const HZIP handle = std::exchange(m_handle, nullptr);
    return handle != nullptr && CloseZipZ(handle) == kZipOk;
  }

 private:
  HZIP m_handle;
};

// An archive that is read, closed at the end of the scope.
class OpenArchive {
 public:
  OpenArchive(const char* name, const char* rootFolder)
      : m_handle(OpenZipU(name, 0, kZipFileName, rootFolder)) {}
  ~OpenArchive() {
    if (m_handle != nullptr) CloseZipU(m_handle);
  }
  OpenArchive(const OpenArchive&) = delete;
  OpenArchive& operator=(const OpenArchive&) = delete;

  HZIP get() const { return m_handle; }

  int Count() const {
    ZIPENTRY entry;
    return GetZipItemA(m_handle, -1, &entry) == kZipOk ? entry.index : 0;
  }

 private:
  HZIP m_handle;
};

// Entry and source are both what follows the prefix of the path.
void AddWithoutPrefix(HZIP archive, const char* path, size_t prefixLength) {
  const char* const name = path + std::min(prefixLength, std::strlen(path));
  ZipAdd(archive, name, name, 0, kZipFileName);
}

}  // namespace

int ZipDir(const char* archive, const char* folder, const char* pattern) {
  return Guarded([&] {
    const SetGetCurrentDir guard(folder);
    NewArchive target(archive);
    const int result =
        DoZipDir(target.get(), folder, pattern, static_cast<int>(std::strlen(OrEmpty(folder))) + 1);
    return result != 0 && target.Close() ? result : 0;
  });
}

int DoZipDir(HZIP archive, const char* folder, const char* pattern, int prefixLength) {
  return Guarded([&] {
    FolderEntries entries(OrEmpty(folder), OrEmpty(pattern));
    if (!entries.Opened()) return 0;
    while (entries.Next()) {
      if (!entries.IsFolder())
        AddWithoutPrefix(archive, entries.Path(), static_cast<size_t>(std::max(prefixLength, 0)));
      else if (!entries.IsLink())
        DoZipDir(archive, entries.Path(), pattern, prefixLength);
    }
    return 1;
  });
}

int ZipFiles(const char* archive, const char* folder, const CArray<CString, const char*>& files) {
  return Guarded([&] {
    const SetGetCurrentDir guard(folder);
    const CString archivePath = WithBackslashes(OrEmpty(archive));
    if (!archivePath.IsEmpty()) EnsureFileFolder(archivePath);
    NewArchive target(archivePath);
    if (target.get() == nullptr) return 0;
    const size_t prefixLength = std::strlen(OrEmpty(folder)) + 1;
    for (int i = 0; i < files.GetSize(); ++i)
      AddWithoutPrefix(target.get(), files[i], prefixLength);
    return target.Close() ? 1 : 0;
  });
}

int ZipFile(const char* archive, const char* file) {
  return Guarded([&] {
    CString folder, name;
    SplitAtLastBackslash(file, folder, name);
    if (name.IsEmpty()) folder.Empty();
    CArray<CString, const char*> files;
    files.Add(file);
    return ZipFiles(archive, folder, files);
  });
}

int OpenZipFile(const char* archive, const char* folder, CString& lastPath) {
  return Guarded([&] {
    const OpenArchive source(archive, folder);
    if (source.get() == nullptr) return 0;
    const CString begin = EntryPathBegin(OrEmpty(folder));
    const int count = source.Count();
    for (int i = 0; i < count; ++i) ExtractBelow(source.get(), i, begin, lastPath);
    return 1;
  });
}

int UnZipFileList(const char* archive, const char* folder, CArray<CString, const char*>& files) {
  return Guarded([&] {
    const OpenArchive source(archive, folder);
    if (source.get() == nullptr) return 0;
    const CString begin = CString(OrEmpty(folder)) + "\\";
    const int count = source.Count();
    for (int i = 0; i < count; ++i) {
      ZIPENTRY entry;
      if (GetZipItemA(source.get(), i, &entry) == kZipOk) files.Add(begin + entry.name);
    }
    return 1;
  });
}
