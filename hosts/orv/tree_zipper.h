// Writes a folder tree into an open archive, and says of each file that could not be added why.
#pragma once

#include <string>

#include "zip/ZipWriter.h"

class TreeZipper {
 public:
  // Entries are named relative to folder. Of the files, those that match pattern are taken, in
  // every sub-folder; skipped (a path) is not, so that an archive can stand in the tree that it
  // holds.
  TreeZipper(HZIP archive, std::string folder, std::string pattern, std::string skipped);

  // Zips the tree: files in the order of their names, folders that hold nothing as entries of their
  // own. False when folder cannot be read.
  bool Run();

  int added() const { return m_added; }
  int failed() const { return m_failed; }

 private:
  // False when the folder can't be read; prefix is its entry name with a "/" at its end.
  bool AddFolder(const std::string& prefix);
  void AddFile(const std::string& name);
  void Count(const std::string& name, unsigned long result);
  std::string PathOf(const std::string& name) const;

  HZIP m_archive;
  std::string m_folder;
  std::string m_pattern;
  std::string m_skipped;
  int m_added = 0;
  int m_failed = 0;
};
