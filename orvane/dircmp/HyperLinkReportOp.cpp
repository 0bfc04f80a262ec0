#include "dircmp/HyperLinkReportOp.h"

#include <utility>

#include "resources/resource.h"
#include "settings/MString.h"

HyperLinkReportOp::HyperLinkReportOp(HyperLinkReport& report,
                                     std::function<void(unsigned, unsigned)> progress)
    : MMultiOperation(0, static_cast<unsigned>(report.documentCount()) + 1),
      m_report(report),
      m_progress(std::move(progress)) {
  MString message;
  message.LoadString(IDS_PAGES_WRITING);
  SetMessage(message);
}

OperationReturnState HyperLinkReportOp::Operation(unsigned int index) {
  if (index == m_report.documentCount())
    return m_report.WriteIndex() ? OperationDone : OperationFailed;
  if (!m_report.WriteDocument(index, [this] { return m_aborted != 0; })) ++m_incomplete;
  m_progress(index + 1, m_end);
  return OperationDone;
}
