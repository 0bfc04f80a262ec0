// A list of the documents of two folder trees, each with the state of its comparison.
#pragma once

#include <afxcmn.h>

#include <memory>
#include <string>

#include "dircmp/DirCmpPrm.h"
#include "dircmp/FileState.h"
#include "dircmp/FolderComparison.h"
#include "dircmp/HlReportSettings.h"
#include "entry/export.h"
#include "lists/MListCtrl.h"
#include "ops/MultiOp.h"

class HyperLinkReport;

// Construct, Create or Subclass (or do without a window, for reports), set the registry key if the
// layout and the report's settings are to be kept (SetRegistryKey, SetSortMethod), InitList once,
// then whatever the user does. A new comparison takes a new list.
//
// What is derived from this class can open and analyse documents in its own way, add entries to the
// context menu, and show the progress of long work otherwise than by windows.
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
    kModified,
    kColumns
  };

  DirCmpCtrl();
  ~DirCmpCtrl() override;

  // Declares the columns, scans both folders, compares the documents and fills the list. An empty
  // or missing display name is replaced by the folder's path. 1, or 0: stopped by the user (what
  // was found until then is listed, what was not evaluated as Unknown), something could not be
  // read (Comparison()->problems()), or InitList has been called before (ASSERT).
  //
  // Unless prm says otherwise, work that takes longer than two seconds shows a progress window;
  // messages are dispatched from the start, so that the list is not to be destroyed by one.
  int InitList(const char* baseFolder, const char* revisedFolder, const DirCmpPrm& prm,
               const char* baseDisplayName = nullptr, const char* revisedDisplayName = nullptr);

  // Null: before InitList.
  const FolderComparison* Comparison() const { return m_comparison.get(); }
  // The items' identifiers are the addresses of their records.
  static const DocumentRecord& RecordOf(unsigned long id);
  // How many documents were listed with a state.
  int CountOf(FileState state) const;

  // Each state has its colour; all are black when the user's "useColourMarking" (a user value of
  // the product registry, 1 from the start) was 0 at InitList.
  void GetItemColors(unsigned long id, COLORREF& text, COLORREF& background) override;

  // Puts "Analyze" or "Open" for the item on top of the context menu, as the list's first client
  // command. id: kAutomaticId when the menu is not an item's.
  virtual void DoContextMenu(int row, unsigned long id, MPopupMenu& menu);
  // A client command of the list, by its number: 0 is that entry, for the item with the focus.
  virtual void ExecuteCommand(int command);
  // Analyses a Modified item in a new window of the host, opens any other one; 0: the selected
  // item.
  void OpenCommand(unsigned long id);

  // Starts this program again, without waiting, to show the differences of two documents:
  //
  //   PROGRAM Diff PARAMS "LEFT" "RIGHT" "LEFT TITLE" "RIGHT TITLE"
  //
  // A quotation mark in a title becomes an apostrophe. 1, or 0: it could not be started (reported
  // by VERIFY).
  virtual int NewWindow(const char* left, const char* right);
  // PARAMS; nothing in this class.
  virtual CString GetNewWindowParams(const char* left, const char* right);
  // A document's title: the display name, "->\" and the path below the folder of that name, or
  // below the other one. A path that is below neither: the path.
  CString GetTitle(const char* displayName, const char* path) const;
  // Opens a document with its program. 1, or 0: it could not be opened; the user has been told if
  // the list has a window.
  virtual int ViewFile(const char* path);
  // Copies a document, replacing what is there, a read-only file too; missing folders are made. 1,
  // or 0: GetLastError tells why.
  int CopyFileA(const char* source, const char* destination) const;

  // --- The pages that go with the list's reports: see ReportExtension.h ---

  const HlReportSettings& ReportPages() const { return m_reportPages; }
  // Until the next change; kept in the list's registry key, if it has one.
  void SetReportPages(const HlReportSettings& settings);
  // The dialog "Configure Hyper-link Reports". 1 changed, 0 cancelled.
  int ConfigureReports(CWnd* owner);
  // Writes the pages of the run's documents into a folder beside the report: "r_files" for
  // "r.htm", which is to be new, empty, or that of an earlier report.
  int GenerateHlReport(const HlReportRun& run, CString& note);
  // Where a cell of the report that the pages were written for leads to: from the document's name
  // to the document, from its status to its differences or to the section of its state.
  CString GenerateSourceFileLinks(unsigned long id, int column) const;

 protected:
  // Starts a program without waiting for it. 1, or 0: GetLastError tells why.
  virtual int StartProgram(const char* program, const char* commandLine);
  // Runs the scans and the evaluation; the writing of pages. They give DoOperation's result.
  // Without windows (no GUI) is set already where it was asked for.
  virtual int RunOperation(MMultiOperation& operation);
  virtual int RunPagesOperation(MMultiOperation& operation);
  // A document has been evaluated or written, on the thread of the operation.
  virtual void Progress(unsigned done, unsigned all);

 private:
  class Evaluation;

  void AddColumns();
  void Scan();
  void Evaluate();
  void Fill();
  unsigned long AddDocument(const DocumentRecord& record);
  void AttachCallbacks();
  bool IsDocument(unsigned long id) const;
  CString FolderOfSide(bool isBase) const;
  CString TitleOfSide(bool isBase, const char* path) const;
  int WritePages(const HlReportRun& run, CString& note);
  CString DocumentLink(const DocumentRecord& record) const;
  CString PageLink(const std::string& url) const;

  std::unique_ptr<FolderComparison> m_comparison;
  CString m_baseName, m_revisedName;
  int m_counts[kFileStates] = {};
  int m_usesColours = 1;
  HlReportSettings m_reportPages;
  // Of the report whose cells ask for their links:
  HlReportSettings::DocumentLinks m_documentLinks = HlReportSettings::kInactive;
  std::unique_ptr<HyperLinkReport> m_report;  // its pages; null: it has none
  CString m_pagesFolder;                      // where they stand, below the report's folder
};
