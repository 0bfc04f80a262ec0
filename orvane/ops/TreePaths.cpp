#include "ops/TreePaths.h"

#include <cstring>

#include "entry/Handles.h"
#include "entry/PathUtils.h"
#include "entry/strutils.h"

namespace {

// What a folder is to the file system; false when it can't be looked at.
struct Identity {
  bool Read(const char* folder) {
    const unique_file handle(CreateFileA(
        folder, FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return handle && GetFileInformationByHandle(handle.get(), &m_info);
  }

  bool operator==(const Identity& other) const {
    return m_info.dwVolumeSerialNumber == other.m_info.dwVolumeSerialNumber &&
           m_info.nFileIndexHigh == other.m_info.nFileIndexHigh &&
           m_info.nFileIndexLow == other.m_info.nFileIndexLow;
  }

  BY_HANDLE_FILE_INFORMATION m_info;
};

}  // namespace

CString ComparedPath(const char* path) {
  CString result = FullFolderOf(path);
  result.MakeLower();
  return result;
}

const char* PathBelow(const CString& outer, const CString& inner) {
  const int length = outer.GetLength();
  if (inner.Left(length) != outer) return nullptr;
  const char* const rest = static_cast<const char*>(inner) + length;
  return *rest == 0 || *rest == '\\' ? rest : nullptr;
}

bool HoldsFolder(const char* outer, const char* inner) {
  const CString outerPath = ComparedPath(outer);
  if (PathBelow(outerPath, ComparedPath(inner)) != nullptr) return true;
  Identity wanted, folder;
  if (!wanted.Read(outer)) return false;
  CString parent, name;
  for (CString path = FullFolderOf(inner); !path.IsEmpty(); path = parent) {
    if (folder.Read(path.Right(1) == ":" ? path + "\\" : path) && folder == wanted) return true;
    SplitAtLastBackslash(path, parent, name);
    if (parent.GetLength() == path.GetLength()) break;
  }
  return false;
}

bool IsSameFolder(const char* one, const char* other) {
  if (ComparedPath(one) == ComparedPath(other)) return true;
  Identity first, second;
  return first.Read(one) && second.Read(other) && first == second;
}
