#pragma once

#include <afx.h>

// A new empty folder, removed with its files at the end.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    char temp[MAX_PATH], name[MAX_PATH];
    GetTempPath(MAX_PATH, temp);
    GetTempFileName(temp, "afx", 0, name);
    DeleteFile(name);
    CreateDirectory(name, nullptr);
    m_path = name;
  }
  ~TemporaryFolder() {
    WIN32_FIND_DATA found;
    HANDLE search = FindFirstFile(File("*"), &found);
    if (search != INVALID_HANDLE_VALUE) {
      do {
        SetFileAttributes(File(found.cFileName), FILE_ATTRIBUTE_NORMAL);
        DeleteFile(File(found.cFileName));
      } while (FindNextFile(search, &found));
      FindClose(search);
    }
    RemoveDirectory(m_path);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  CString File(LPCSTR name) const { return m_path + "\\" + name; }

 private:
  CString m_path;
};
