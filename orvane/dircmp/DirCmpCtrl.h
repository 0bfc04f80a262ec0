// A list of the documents of two folder trees, each with the state of its comparison.
#pragma once

#include <afxcmn.h>

#include <memory>

#include "dircmp/DirCmpPrm.h"
#include "dircmp/FileState.h"
#include "dircmp/FolderComparison.h"
#include "entry/export.h"
#include "lists/MListCtrl.h"

// Construct, Create or Subclass (or do without a window, for reports), InitList once, then whatever
// the user does. A new comparison takes a new list.
class ORVANE_API DirCmpCtrl : public MListCtrl {
 public:
  // Data indices of the columns.
  enum Column {
    kDocumentName,
    kType,
    kFolderName,
    kBaseModified,     // stored and reported, not shown
    kRevisedModified,  // the same
    kStatus,
    kModified
  };

  DirCmpCtrl();
  ~DirCmpCtrl() override;

  // Declares the columns, scans both folders, compares the documents and fills the list. An empty
  // or missing display name is replaced by the folder's path. 1, or 0: stopped by the user (what
  // was found until then is listed, what was not evaluated as Unknown), or something could not be
  // read.
  int InitList(const char* baseFolder, const char* revisedFolder, const DirCmpPrm& prm,
               const char* baseDisplayName = nullptr, const char* revisedDisplayName = nullptr);

  // The items' identifiers are the addresses of their records. Null: before InitList.
  const FolderComparison* Comparison() const { return m_comparison.get(); }
  static const DocumentRecord& RecordOf(unsigned long id);
  // How many items have a state.
  int CountOf(FileState state) const;

  void GetDisplayColors(int row, COLORREF& text, COLORREF& background) override;

  // Analyses a Modified item in a new window of the host, opens any other one; 0: the selected
  // item.
  void OpenCommand(unsigned long id);
  // Starts this program again, without waiting, to show the differences of two documents.
  virtual int NewWindow(const char* left, const char* right);
  // What goes before the paths in that program's arguments; nothing in this class.
  virtual CString GetNewWindowParams(const char* left, const char* right);
  // A document's title: the folder's display name, "->\" and the path below the folder.
  CString GetTitle(const char* displayName, const char* path) const;
  // Opens a document with its program.
  virtual int ViewFile(const char* path);

 private:
  std::unique_ptr<FolderComparison> m_comparison;
};
