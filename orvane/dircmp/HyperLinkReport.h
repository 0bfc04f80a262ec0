// The report of a folder comparison as pages for a browser: an index with a section per state, and
// for every modified document a page that shows both sides with their differences.
//
//   index.html             the index
//   differences\1\1.html   a page per modified document, some hundred in a folder
//   base\, revised\        copies of the documents, if wanted
//
// Pages need nothing outside of the report but the documents they link to. Lets out the exceptions
// of failed allocations.
#pragma once

#include <afxwin.h>

#include <string>
#include <vector>

#include "dircmp/FolderComparison.h"

struct HyperLinkReportOptions {
  // The states that get a section.
  bool includeModified = true;
  bool includeNew = true;
  bool includeDeleted = true;
  // Documents are copied into the report, and linked to there.
  bool copyDocuments = false;
  // Documents are linked to where they are; copies go first.
  bool linkSourceFiles = false;
};

class ORVANE_API HyperLinkReport {
 public:
  // What came of the target folder.
  enum class Target {
    Ready,
    Occupied,    // it holds something else than an earlier report, or one of the compared folders
    NotCreated,  // GetLastError tells why
  };

  // The comparison stays the caller's and is evaluated already. Display names: how the folders are
  // called in the report; empty: by their paths. compare: for the differences.
  HyperLinkReport(const FolderComparison& comparison, const char* baseName, const char* revisedName,
                  const HyperLinkReportOptions& options, const CompareOptions& compare);

  // Whether a state has a section.
  bool HasSection(FileState state) const;
  // Before Prepare: a document for the report. One whose state has no section gets its links only.
  // Records stay the caller's.
  void Add(const DocumentRecord& record);
  // All documents of the comparison whose types are compared and whose states have a section.
  void AddAll();

  // Makes the folder of the report, which is to be new, empty, or that of an earlier report, whose
  // pages of differences are deleted: nobody's files are written over.
  Target Prepare(const char* folder);
  // The documents of the report are numbered from 0. One at a time, so that long reports can show
  // their progress and be stopped; false: something could not be written (problems). stop: as for
  // DiffLines; the document is left without its page, which is no problem.
  size_t documentCount() const { return m_documents.size(); }
  bool WriteDocument(size_t number, const ContentCompare::StopPoll& stop = {});
  // After the documents, whose links it holds.
  bool WriteIndex();

  CString IndexPath() const;

  // Where a document that was written can be looked at: addresses relative to the report's folder,
  // or full ones; empty: there is none.
  struct Links {
    std::string page;  // its differences
    std::string base;
    std::string revised;
  };
  Links LinksOf(const DocumentRecord& record) const;
  // The section of a state in the index; empty: it has none.
  std::string SectionUrl(FileState state) const;
  // A file where it is.
  static std::string UrlInPlace(const CString& path);

  const std::vector<FolderComparison::Problem>& problems() const { return m_problems; }

 private:
  struct Document {
    explicit Document(const DocumentRecord& documentRecord) : record(&documentRecord) {}

    const DocumentRecord* record;
    bool isPageWritten = false;
    // Addresses; empty: there is none.
    std::string baseUrl;
    std::string revisedUrl;
  };
  // Sections by state, and documents in them by path.
  static bool IsBefore(const Document& left, const Document& right);

  void Sort();
  std::string UrlOfSide(const CString& path, const char* side, const DocumentRecord& record);
  bool WritePage(size_t number, const ContentCompare::StopPoll& stop);
  bool HasPage(size_t number) const;
  std::string PageUrl(size_t number) const;
  std::string NavigationOf(size_t number) const;
  std::string SectionHtml(FileState state) const;
  std::string RowHtml(size_t number) const;
  std::string TitleHtml() const;
  bool Note(const CString& path, DWORD error);

  const FolderComparison& m_comparison;
  CString m_baseName;
  CString m_revisedName;
  HyperLinkReportOptions m_options;
  CompareOptions m_compare;
  CString m_folder;
  std::vector<Document> m_documents;  // by state in the order of the sections, then by path
  std::vector<FolderComparison::Problem> m_problems;
};
