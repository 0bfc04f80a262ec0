// Writes a folder tree into an open archive, one entry a step, and says of each file that could not
// be added why.
#pragma once

#include <string>
#include <vector>

#include "ops/MultiOp.h"
#include "zip/ZipWriter.h"

class TreeZipper : public MMultiOperation {
 public:
  // Lists the tree: files in the order of their names, folders that hold nothing as entries of
  // their own. Entries are named relative to folder. Of the files, those that match pattern are
  // taken, in every sub-folder; skipped (a path) is not, so that an archive can stand in the tree
  // that it holds.
  TreeZipper(std::string folder, std::string pattern, std::string skipped);

  // Whether folder could be read.
  bool read() const { return m_read; }

  // Zips what was listed. The archive stays the caller's.
  void Run(HZIP archive);

  int added() const { return m_added; }
  int failed() const { return m_notAdded; }
  // Whether the archive did not take the bytes: nothing that was added can be relied on then.
  bool writeFailed() const { return m_writeFailed; }

 protected:
  OperationReturnState Operation(unsigned int index) override;

 private:
  // False when the folder can't be read; prefix is its entry name with a "/" at its end.
  bool ListFolder(const std::string& prefix);
  void ListFile(const std::string& name);
  std::string PathOf(const std::string& name) const;

  HZIP m_archive = nullptr;
  std::string m_folder;
  std::string m_pattern;
  CString m_skipped;                 // in full
  std::vector<std::string> m_names;  // of entries; those of folders end in "/"
  bool m_read;
  int m_added = 0;
  int m_notAdded = 0;  // files and folders
  bool m_writeFailed = false;
};
