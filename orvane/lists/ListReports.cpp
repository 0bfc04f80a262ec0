// Reports of a list: from the command to the report.
#include "lists/MListCtrl.h"
#include "lists/ReportCommand.h"
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
  }
  // Without a window there is nobody to choose what the command leaves open.
  if (!hasCommand) return 0;
  return ReportOperation(*this, settings).Generate();
}
