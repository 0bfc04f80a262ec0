// Making a report of a list's items.
#pragma once

#include <afxwin.h>

#include <memory>
#include <vector>

#include "entry/export.h"
#include "lists/ReportSettings.h"
#include "ops/MultiOp.h"

class MListCtrl;
class ReportFile;
class ReportItems;
class ReportWriter;
struct ReportHead;

// One report of a list. The items that pass the active filters are sorted, then written row by row:
// beyond an index of the items the memory that it takes does not grow with them. A page, a list of
// 300,000 items or a plain text, which is gone through twice to find the columns' widths: they all
// show progress and can be stopped.
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
  bool GeneratePages(ReportHead& head);
  bool WriteReport(const ReportHead& head);
  int Fail(UINT messageId, DWORD error);

  MListCtrl& m_list;
  const ReportSettings& m_settings;
  std::unique_ptr<ReportItems> m_items;
  std::unique_ptr<ReportFile> m_file;
  std::unique_ptr<ReportWriter> m_writer;
};
