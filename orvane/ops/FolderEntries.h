// The entries of a folder, one after the other, for the functions that walk whole trees.
#pragma once

#include <afxwin.h>

#include "entry/Handles.h"
#include "entry/export.h"

class ORVANE_API FolderEntries {
 public:
  // The entries of folder that match pattern. "." and ".." are left out. An empty name is no
  // folder.
  explicit FolderEntries(const CString& folder, const char* pattern = "*.*");
  FolderEntries(const FolderEntries&) = delete;
  FolderEntries& operator=(const FolderEntries&) = delete;

  // Whether the folder could be searched and something matched.
  bool Opened() const { return static_cast<bool>(m_search); }
  // Not opened: whether that is a failure, and not just because nothing matches or the folder is
  // gone.
  bool Unreadable() const { return m_unreadable; }

  // Moves on to the next entry, the first one at first. False at the end, and when the rest can't
  // be read, which Unreadable tells.
  bool Next();

  // Of the entry:
  const char* Name() const { return m_found.cFileName; }
  CString Path() const { return m_begin + m_found.cFileName; }
  const WIN32_FIND_DATAA& Data() const { return m_found; }
  // A folder, be it a link or a real one.
  bool IsFolder() const { return (m_found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
  // A junction or a symbolic link. Other reparse points (files kept in a cloud, deduplicated ones)
  // are what they look like.
  bool IsLink() const;
  // A folder whose entries belong to the tree: what a link leads to does not.
  bool IsRealFolder() const { return IsFolder() && !IsLink(); }

 private:
  CString m_begin;  // the folder with a backslash
  WIN32_FIND_DATAA m_found;
  unique_find m_search;
  bool m_atFirst = true;
  bool m_unreadable = false;
};

// Whether path is a link to another folder, and whether it is a folder without being one.
bool IsFolderLink(const char* path);
bool IsRealFolder(const char* path);

// Whether a program that moves, deletes or changes what stands at path acts on just that. Under
// Wine, where a link stands there, it is what the link leads to, which is not ours to touch; and
// only links to folders can be seen to be links.
bool CanActOnFolderLink(const char* path);
bool CanActOnFile(const char* path);
