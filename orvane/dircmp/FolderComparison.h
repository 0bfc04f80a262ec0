// The documents of two folder trees, matched by their paths without regard to letter case, each
// with its state. Knows no window. Lets out the exceptions of failed allocations.
//
//   FolderComparison comparison(base, revised, prm, [&] { return stopped; });
//   if (comparison.Scan()) comparison.EvaluateAll();
//   for (const DocumentRecord& record : comparison.records()) ...
#pragma once

#include <afxwin.h>

#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

#include "dircmp/ContentCompare.h"
#include "dircmp/DirCmpPrm.h"
#include "dircmp/FileState.h"
#include "ops/SharedWord.h"

struct DocumentRecord {
  CString relativePath;  // below either folder, as it is written in the base folder if it is there
  FileState state = FileState::Unknown;
  bool isEvaluated = false;
  // Once evaluated. 0: there is no such file; of two equal files both have the later time.
  CTime baseModified;
  CTime revisedModified;
  CTime modified;  // the later of the two
};

// The parts of a document's path.
struct ORVANE_API DocumentName {
  explicit DocumentName(const char* relativePath);

  CString folder;     // before the last backslash; empty: none
  CString name;       // up to its last dot
  CString extension;  // after that dot, in lower case; empty: none
};

class ORVANE_API FolderComparison {
 public:
  // What could not be read, and the system's error.
  struct Problem {
    std::string path;
    DWORD error;
  };

  // stop: asked after every file that a scan finds and before every block that is read; true ends
  // the work.
  FolderComparison(const char* base, const char* revised, const DirCmpPrm& prm,
                   ContentCompare::StopPoll stop = {});
  FolderComparison(const FolderComparison&) = delete;
  FolderComparison& operator=(const FolderComparison&) = delete;

  // Ends the work for good, from any thread.
  void Stop() { m_isStopped = true; }
  // Asks stop, too.
  bool IsStopped();
  bool WasStopped() const { return m_isStopped; }

  // Walks both folders, without a window. Links to other folders are not entered. False: stopped.
  bool Scan();
  // For who walks the folders otherwise, see FolderScan: a file of the base folder, by its full
  // path, and of the revised folder. All of the base folder's come first.
  void AddBase(const char* path);
  void AddRevised(const char* path);
  void AddProblem(const char* path, DWORD error) { m_problems.push_back({path, error}); }

  // In the order of the walks. Records stay where they are as long as this object lives.
  std::deque<DocumentRecord>& records() { return m_records; }
  const std::deque<DocumentRecord>& records() const { return m_records; }
  // Whether the document's type is compared.
  bool IsCompared(const DocumentRecord& record) const;

  // Finds out state and times. Of a document in one folder nothing is opened. A pair that can't be
  // read is Modified, and a problem. False: stopped; the record is Unknown.
  bool Evaluate(DocumentRecord& record);
  // All records whose types are compared. False: stopped, now or in Scan.
  bool EvaluateAll();
  // After a stop: what is left over is Unknown, since what a stopped scan has found in one folder
  // may be in the other one, too.
  void LeaveRestUnknown();

  const DirCmpPrm& prm() const { return m_prm; }
  // Without a backslash at their ends.
  CString baseFolder() const;
  CString revisedFolder() const;
  CString BasePath(const DocumentRecord& record) const;
  CString RevisedPath(const DocumentRecord& record) const;
  const std::vector<Problem>& problems() const { return m_problems; }

 private:
  void ComparePair(DocumentRecord& record);
  CTime TimeOf(const CString& path);

  std::string m_base;  // with a backslash at its end
  std::string m_revised;
  DirCmpPrm m_prm;
  ContentCompare::StopPoll m_stop;
  ContentCompare m_contents;
  std::deque<DocumentRecord> m_records;
  std::unordered_map<std::string, DocumentRecord*> m_byPath;  // in lower case
  std::vector<Problem> m_problems;
  SharedWord<bool> m_isStopped = false;
};
