// The list of a comparison's documents as the program shows it: filtered by state and text, with
// commands for either document.
#pragma once

#include <afxwin.h>

#include "dircmp/DirCmpCtrl.h"
#include "foldercmp/DocumentFilter.h"

class ComparisonList : public DirCmpCtrl {
 public:
  // Client commands beside the library's first one.
  enum Command { kOpenBase = 1, kOpenRevised = 2 };

  // Hidden, with the layout that is kept in the registry.
  BOOL Create(CWnd& parent, UINT id, CFont& font);

  // After InitList, when no layout was kept: columns that show their texts, the documents
  // that differ at the top.
  void SetFirstLayout();

  // Before InitList, and at any time later.
  void SetDocumentFilter(const DocumentFilter& filter);

  // Whether any document is not the same in both folders.
  bool HasDifferences() const;

  // The document with the focus; null: none has it.
  const DocumentRecord* FocusedDocument() const;
  bool HasDocument(Command side) const;

  // Ends what InitList is doing: it returns with what was found until then.
  void StopWork();
  // Whether InitList was ended before its time, by the user or by StopWork.
  bool WasStopped() const { return m_isStopped; }

  void DoContextMenu(int row, unsigned long id, MPopupMenu& menu) override;
  void ExecuteCommand(int command) override;
  int NewWindow(const char* left, const char* right) override;
  // How the folders were compared.
  CString GetNewWindowParams(const char* left, const char* right) override;

 protected:
  int FilterMatch(unsigned long id) const override;
  int RunOperation(MMultiOperation& operation) override;

 private:
  CString FilteredText(unsigned long id) const;

  DocumentFilter m_documentFilter;
  CString m_filterText;  // in lower case
  bool m_hasKeptLayout = false;
  MMultiOperation* m_running = nullptr;
  bool m_isStopped = false;
};
