// Reports of a list: from the command to the report.
#include "lists/LastReport.h"
#include "lists/MListCtrl.h"
#include "lists/ReportCommand.h"
#include "lists/ReportDialog.h"
#include "lists/ReportOperation.h"
#include "messages/message.h"
#include "resources/resource.h"

int MListCtrl::DoReport(const char* command) {
  const bool hasCommand = command != nullptr && *command != 0;
  ReportSettings settings = ReportCommand::Defaults(*this);
  if (hasCommand) {
    const char* const wrong = ReportCommand::Parse(*this, command, settings);
    if (wrong != nullptr) {
      if (!settings.isQuiet) Message::DisplayErrorMessage(IDS_REPORT_COMMAND_ERROR, wrong);
      return 0;
    }
  } else {
    LoadLastReport(*this, settings);
  }
  if (hasCommand && m_hWnd == nullptr) return ReportOperation(*this, settings).Generate();
  return RunReportDialog(*this, settings, !hasCommand);
}
