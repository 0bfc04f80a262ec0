// Reports of a list: from the command to the report.
#include "lists/LastReport.h"
#include "lists/MListCtrl.h"
#include "lists/ReportCommand.h"
#include "lists/ReportDialog.h"
#include "lists/ReportOperation.h"
#include "markup/NoException.h"
#include "messages/message.h"
#include "resources/resource.h"

int MListCtrl::DoReport(const char* command) {
  return WithoutException([=, this] {
    const bool hasCommand = command != nullptr && *command != 0;
    ReportSettings settings = ReportCommand::Defaults(*this);
    const char* const wrong = hasCommand ? ReportCommand::Parse(*this, command, settings) : nullptr;
    if (wrong != nullptr) {
      if (!settings.isQuiet) Message::DisplayErrorMessage(IDS_REPORT_COMMAND_ERROR, wrong);
      return 0;
    }
    if (!hasCommand) LoadLastReport(*this, settings);
    if (hasCommand && m_hWnd == nullptr) return ReportOperation(*this, settings).Generate();
    return RunReportDialog(*this, settings, !hasCommand);
  });
}
