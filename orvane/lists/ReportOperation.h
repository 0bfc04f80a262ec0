// Making a report of a list's items.
#pragma once

#include <afxwin.h>

#include <memory>

#include "entry/export.h"
#include "lists/ReportSettings.h"
#include "ops/MultiOp.h"
#include "ops/SharedWord.h"

class MListCtrl;

// One report of a list. The items that pass the active filters are sorted, then written row by row:
// beyond an index of the items the memory that a report takes does not grow with their number. A
// long one shows its progress and can be stopped.
//
// The report is written beside its file under another name and put in place when it is whole. One
// that has failed or was stopped leaves what was there.
class ORVANE_API ReportOperation : public MMultiOperation {
 public:
  // Both stay the caller's, and as they are while the report is made.
  ReportOperation(MListCtrl& list, const ReportSettings& settings);
  ~ReportOperation() override;

  // Makes the report. 1, or 0: no column is included, the file could not be written, which the user
  // is told unless the settings are quiet, or it was stopped.
  int Generate();

 protected:
  OperationReturnState Operation(unsigned index) override;

 private:
  enum class Outcome { Done, Stopped, NoColumns, NoFile, NotOpened, NotWritten };
  struct Run;

  // 0, or the system's error.
  DWORD MakeReport();
  DWORD WriteRows();
  bool MakePages();
  void Tell(UINT messageId) const;
  void Tell(UINT messageId, DWORD error) const;

  MListCtrl& m_list;
  const ReportSettings& m_settings;
  std::unique_ptr<Run> m_run;  // while a report is made
  Outcome m_outcome = Outcome::Done;
  SharedWord<DWORD> m_error;
};
