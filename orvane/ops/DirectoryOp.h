// Walks a folder tree and calls a function for every file, behind a progress window when it takes
// long.
//
//   DirectoryOp walk("C:\\work", 1, &OnFile, &context);
//   walk.SetFilterExt("txt");
//   walk.ExcludeDir("C:\\work\\old");
//   walk.DoOperation(0);
#pragma once

#include "entry/CStrMap.h"
#include "ops/MultiOp.h"

// Is given the context of the walk and the full path of a file. Not 0: success. Runs on the thread
// of the operation.
using DirectoryOpCallback = int (*)(void* context, const char* path);
using DirectoryCallback = DirectoryOpCallback;

class ORVANE_API DirectoryOp : public MMultiOperation {
 public:
  // recurse: not 0: sub-folders, too. Links to other folders are not entered, whatever recurse is.
  DirectoryOp(const char* root, int recurse, DirectoryOpCallback callback, void* context);

  // Keeps the walk out of a folder, which is given as the walk forms its path: the root as it was
  // given, then the names of the sub-folders. Letter case doesn't count.
  void ExcludeDir(const char* path);
  // Only files of this extension (without its dot, in any letter case); empty: all of them.
  void SetFilterExt(const char* ext);
  // What is looked for in each folder, "*.*" from the start. Sub-folders must match it, too: one
  // search a folder, by design. Not empty (ASSERT).
  void SetWildcard(const char* pattern);
  // Whether a callback that fails ends the walk. From the start: yes.
  void StopLoopOnFailure(int stop);

  // Adds a folder to a set of folders: its path in lower case, with the value 0.
  static void AddToDirMap(CStrMap<int>& map, const char* path);

  // DoOperation walks the tree, and gives 1 even when there is no root, or a callback has failed:
  // wasAborted tells of a failure that has ended the walk. A folder is walked once in the life of
  // the object: for a second run, create another. Folders that can't be read are reported (ASSERT).

 protected:
  void DoLoopOperation() override;
  // Not called: the work has no numbered items.
  OperationReturnState Operation(unsigned int index) override;
  // A folder could not be read to its end; GetLastError tells why. It has been reported already.
  virtual void FolderNotRead(const char* folder);

  CString m_root;
  int m_recurse;
  DirectoryOpCallback m_callback;
  void* m_context;
  CStrMap<int> m_folderSet;  // walked and excluded folders, in lower case
  CString m_filterExt;       // in lower case
  CString m_wildcard;
  int m_foldersFound = 0;
  int m_foldersFinished = 0;
  int m_foldersUnread = 0;  // that could not be read to their end
  int m_stopOnFailure = 1;
  DWORD m_fileAttributes = 0;  // of the file that the callback is called for

 private:
  void WalkFolder(const CString& folder);
  bool PassesFilter(const char* name) const;
};
