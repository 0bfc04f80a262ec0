#include "zip/ZipReader.h"

#include <algorithm>

#include "entry/DestinationFile.h"
#include "zip/ZipEntry.h"

namespace {

// What is unpacked between two writes. Large, because zlib copies 32 KB each time it is stopped.
constexpr size_t kPieceSize = 256 * 1024;

// The length of the folder part of a path, without the slash behind it; npos: none.
size_t FolderLength(const char* path) {
  size_t result = std::string::npos;
  for (size_t i = 0; path[i] != 0; ++i) {
    if (IsDBCSLeadByte(path[i]) && path[i + 1] != 0)
      ++i;
    else if (path[i] == '/' || path[i] == '\\')
      result = i;
  }
  return result;
}

// Whether the folder part of a destination is to be made below the root folder.
bool IsBelowRoot(const char* path) {
  const bool isAbsolute = path[0] == '/' || path[0] == '\\' || (path[0] != 0 && path[1] == ':');
  return !isAbsolute && strstr(path, "..\\") == nullptr && strstr(path, "../") == nullptr;
}

}  // namespace

ZipResult ZipReader::Open(const void* source, unsigned int length, unsigned long kind,
                          const char* rootFolder) {
  if (const ZipResult result = SetRootFolder(rootFolder); result != kZipOk) return result;
  ZipResult result = kZipBadArguments;
  if (kind == kZipHandle) {
    result = m_input.OpenHandle(const_cast<HANDLE>(source));
  } else if (source != nullptr && kind == kZipFileName) {
    result = m_input.OpenFile(static_cast<const char*>(source));
  } else if (source != nullptr && kind == kZipMemory) {
    result = m_input.OpenMemory(source, length);
  }
  return result == kZipOk ? m_directory.Open(m_input) : result;
}

ZipResult ZipReader::SetRootFolder(const char* folder) {
  if (folder != nullptr && *folder != 0) {
    m_rootFolder = folder;
  } else {
    char current[MAX_PATH];
    const DWORD length = GetCurrentDirectoryA(sizeof current, current);
    if (length >= sizeof current) return kZipBadArguments;
    m_rootFolder.assign(current, length);
  }
  if (FolderLength(m_rootFolder.c_str()) != m_rootFolder.size() - 1) m_rootFolder += '\\';
  return m_rootFolder.size() < MAX_PATH ? kZipOk : kZipBadArguments;
}

ZipResult ZipReader::GetItem(int index, ZIPENTRY& entry) {
  if (index < -1 || index >= m_directory.Count()) return kZipBadArguments;
  m_inProgress = -1;
  if (index == -1) {
    entry = {};
    entry.index = m_directory.Count();
    return kZipOk;
  }
  if (!m_hasLast || m_last.index != index) {
    m_hasLast = false;
    if (const ZipResult result = ReadZipEntry(m_input, m_directory, m_timeZone, index, m_last);
        result != kZipOk)
      return result;
    m_hasLast = true;
  }
  entry = m_last;
  return kZipOk;
}

ZipResult ZipReader::FindItem(const char* name, bool ignoreCase, int* index, ZIPENTRY* entry) {
  if (name == nullptr) return kZipBadArguments;
  const int found = Names(ignoreCase).Find(name);
  if (index != nullptr) *index = found;
  if (found >= 0) return entry != nullptr ? GetItem(found, *entry) : kZipOk;
  if (entry != nullptr) {
    *entry = {};
    entry->index = -1;
  }
  return kZipNotFound;
}

const ZipNameIndex& ZipReader::Names(bool ignoreCase) {
  auto& names = ignoreCase ? m_foldedNames : m_exactNames;
  if (!names) names.emplace(m_directory, ignoreCase);
  return *names;
}

ZipResult ZipReader::Unzip(int index, void* destination, unsigned int length, unsigned long kind) {
  if (kind == kZipMemory) return UnzipToMemory(index, destination, length);
  if (kind == kZipHandle || kind == kZipFileName) return UnzipToFile(index, destination, kind);
  return kZipBadArguments;
}

ZipResult ZipReader::StartExtraction(int index) {
  if (index >= m_directory.ReadableCount()) return kZipCorrupt;
  const ZipCentralRecord record = m_directory.Record(index);
  ZipLocalHeader header;
  if (const ZipResult result = ReadLocalHeader(m_input, m_directory, record, header);
      result != kZipOk)
    return result;
  if (const ZipResult result = m_extraction.Start(record, header.data); result != kZipOk)
    return result;
  if (!m_extents) m_extents.emplace(m_input, m_directory);
  return m_extents->IsClear(index, header.data) ? kZipOk : kZipCorrupt;
}

ZipResult ZipReader::UnzipToMemory(int index, void* destination, unsigned int length) {
  if (destination == nullptr && length > 0) return kZipBadArguments;
  if (index != m_inProgress || index < 0) {
    m_inProgress = -1;
    if (index < 0 || index >= m_directory.Count()) return kZipBadArguments;
    if (const ZipResult result = StartExtraction(index); result != kZipOk) return result;
  }
  // In progress again only when it went well.
  m_inProgress = -1;
  size_t got;
  const auto state = m_extraction.Read(static_cast<uint8_t*>(destination), length, got);
  if (got > 0) {
    m_inProgress = index;
    return kZipMore;
  }
  switch (state) {
    case ZipExtraction::State::kBroken:
      return kZipFlateError;
    case ZipExtraction::State::kMismatch:
      return kZipCorrupt;
    default:
      return kZipOk;
  }
}

ZipResult ZipReader::UnzipToFile(int index, void* destination, unsigned long kind) {
  m_inProgress = -1;
  if (index < 0 || destination == nullptr || destination == INVALID_HANDLE_VALUE)
    return kZipBadArguments;
  ZIPENTRY entry;
  if (const ZipResult result = GetItem(index, entry); result != kZipOk) return result;
  if (entry.attr & FILE_ATTRIBUTE_DIRECTORY) return kZipOk;

  HANDLE file = destination;
  DestinationFile created;
  const auto path = static_cast<const char*>(destination);
  if (kind == kZipFileName) {
    const size_t folder = FolderLength(path);
    if (path[folder == std::string::npos ? 0 : folder + 1] == 0) return kZipOk;
  }
  // Before the file is created: an entry that can't be extracted replaces nothing.
  if (const ZipResult result = StartExtraction(index); result != kZipOk) return result;
  if (kind == kZipFileName) {
    CreateFolderOf(path);
    if (!created.Open(path, {.attributes = entry.attr, .flushes = false})) return kZipNoFile;
    file = created.Handle();
  }
  if (const ZipResult result = CopyTo(file); result != kZipOk) return result;
  // Only disk files have times to set.
  SetFileTime(file, &entry.ctime, &entry.atime, &entry.mtime);
  return kind == kZipHandle || created.Commit() ? kZipOk : kZipWriteError;
}

ZipResult ZipReader::CopyTo(HANDLE file) {
  if (!m_piece) m_piece.reset(new uint8_t[kPieceSize]);
  for (;;) {
    size_t size;
    const auto state = m_extraction.Read(m_piece.get(), kPieceSize, size);
    if (size == 0) {
      switch (state) {
        case ZipExtraction::State::kBroken:
          return kZipWriteError;
        case ZipExtraction::State::kMismatch:
          return kZipCorrupt;
        default:
          return kZipOk;
      }
    }
    for (size_t done = 0; done < size;) {
      DWORD written = 0;
      if (!WriteFile(file, m_piece.get() + done, static_cast<DWORD>(size - done), &written,
                     nullptr) ||
          written == 0)
        return kZipWriteError;
      done += written;
    }
  }
}

// Level by level. What can't be made shows when the file is created.
void ZipReader::CreateFolderOf(const char* path) {
  const size_t length = FolderLength(path);
  if (length == std::string::npos || !IsBelowRoot(path)) return;
  const std::string folder(path, length);
  for (size_t i = 0; i < folder.size(); ++i) {
    if (IsDBCSLeadByte(folder[i]))
      ++i;
    else if (folder[i] == '/' || folder[i] == '\\')
      ::CreateDirectoryA((m_rootFolder + folder.substr(0, i)).c_str(), nullptr);
  }
  ::CreateDirectoryA((m_rootFolder + folder).c_str(), nullptr);
}
