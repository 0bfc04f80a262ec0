// The writing of a comparison's pages, as an operation.
#pragma once

#include <functional>

#include "dircmp/HyperLinkReport.h"
#include "ops/MultiOp.h"

// Writes the pages of a prepared report one after the other, then its index. What can't be written
// leaves its document without links and does not stop the rest; without the index, the operation
// has failed.
class ORVANE_API HyperLinkReportOp : public MMultiOperation {
 public:
  // The report stays the caller's. progress: called after each document, on the thread of the
  // operation.
  HyperLinkReportOp(HyperLinkReport& report,
                    std::function<void(unsigned done, unsigned all)> progress);

  // How many documents lack something.
  int IncompleteDocuments() const { return m_incomplete; }

 protected:
  OperationReturnState Operation(unsigned int index) override;

 private:
  HyperLinkReport& m_report;
  std::function<void(unsigned, unsigned)> m_progress;
  SharedWord<int> m_incomplete;
};
