#include "lists/ReportOperation.h"

#include <algorithm>
#include <new>
#include <vector>

#include "lists/MListCtrl.h"
#include "lists/ReportFile.h"
#include "lists/ReportItems.h"
#include "lists/ReportText.h"
#include "lists/ReportWriter.h"
#include "messages/message.h"
#include "resources/resource.h"
#include "settings/MString.h"

namespace {

std::unique_ptr<ReportWriter> makeWriter(ReportFormat format, ReportFile& file,
                                         const ReportHead& head) {
  switch (format) {
    case ReportFormat::Text:
      return MakeTextReport(file, head);
    case ReportFormat::Xml:
      return MakeXmlReport(file, head);
    case ReportFormat::TabSeparated:
      return MakeTabReport(file, head);
    default:
      return MakeHtmlReport(file, head);
  }
}

// The system's words for an error, without the end of their sentence, which the message has itself.
CString wordsFor(DWORD error) {
  char text[512] = "";
  FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                 MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), text, sizeof text, nullptr);
  CString words(text);
  words.TrimRight("\r\n .");
  return words;
}

// A report of up to so many cells is made within a moment, under a busy cursor.
constexpr size_t kCellsWithoutWindow = 200'000;

}  // namespace

struct ReportOperation::Run {
  Run(MListCtrl& list, const ReportSettings& settings) : items(list, settings) {}

  ReportItems items;
  ReportFile file;
  ReportHead head;
  std::unique_ptr<ReportWriter> writer;
};

ReportOperation::ReportOperation(MListCtrl& list, const ReportSettings& settings)
    : m_list(list), m_settings(settings) {}

ReportOperation::~ReportOperation() = default;

int ReportOperation::Generate() {
  Outcome outcome = Outcome::NotWritten;
  DWORD error = 0;
  try {
    m_run = std::make_unique<Run>(m_list, m_settings);
    if (!m_run->items.HasColumns()) {
      Tell(IDS_REPORT_NO_FIELD);
      return 0;
    }
    if (m_settings.outputFile.IsEmpty()) {
      Tell(IDS_SPECIFY_PATH);
      return 0;
    }
    outcome = MakeReport(error);
  } catch (const std::bad_alloc&) {
    error = ERROR_NOT_ENOUGH_MEMORY;
  }
  m_run.reset();
  if (outcome == Outcome::NotOpened) Tell(IDS_FILE_NOT_OPENED, error);
  if (outcome == Outcome::NotWritten) Tell(IDS_REPORT_NOT_WRITTEN, error);
  return outcome == Outcome::Done;
}

ReportOperation::Outcome ReportOperation::MakeReport(DWORD& error) {
  error = m_run->file.Open(m_settings.outputFile);
  if (error != 0) return Outcome::NotOpened;
  {
    const CWaitCursor wait;
    m_run->items.Select();
  }
  m_run->head = m_run->items.Head();
  const HlReportCallbacks& pages = m_list.HlReport();
  if (m_settings.format == ReportFormat::Html && pages.generate != nullptr) {
    const std::vector<unsigned long> ids = m_run->items.Ids();
    CString note;
    if (!pages.generate(m_list.HlReportClient(), {m_settings, ids}, note)) return Outcome::Stopped;
    if (!note.IsEmpty()) m_run->head.notes.push_back(Utf8Of(note));
  }
  m_run->writer = makeWriter(m_settings.format, m_run->file, m_run->head);
  return WriteRows(error);
}

// The item numbers of the operation count through all passes over the rows. With a window the rows
// are written on another thread, and the window is up all the time, so that nobody can change the
// list meanwhile.
ReportOperation::Outcome ReportOperation::WriteRows(DWORD& error) {
  const size_t count = m_run->items.Count();
  const unsigned passes = m_run->writer->MeasuresFirst() ? 2 : 1;
  MString message;
  message.LoadString(IDS_REPORT_WRITING);
  SetTitle(m_list.ListTitle(), message);
  SetRange(0, passes * static_cast<unsigned>(count));
  SetNoGui(m_settings.isQuiet);
  SetShowProgress(count * m_run->head.columns.size() > kCellsWithoutWindow);
  m_error = 0;
  if (passes == 1 || count == 0) m_run->writer->Begin();
  const bool done = DoOperation(1) != 0;
  error = m_error;
  if (!done && error == 0) error = ERROR_INTERNAL_ERROR;  // a client's function has thrown
  if (error != 0) return Outcome::NotWritten;
  if (count > 0 && wasAborted()) return Outcome::Stopped;
  m_run->writer->End();
  error = m_run->file.PutInPlace();
  return error == 0 ? Outcome::Done : Outcome::NotWritten;
}

OperationReturnState ReportOperation::Operation(unsigned index) {
  try {
    const auto count = static_cast<unsigned>(m_run->items.Count());
    const ReportRow& row = m_run->items.Row(index % count);
    if (m_run->writer->MeasuresFirst() && index < count) {
      m_run->writer->Measure(row);
      if (index + 1 == count) m_run->writer->Begin();
    } else {
      m_run->writer->Add(row);
    }
    m_error = m_run->file.Error();
  } catch (const std::bad_alloc&) {
    m_error = ERROR_NOT_ENOUGH_MEMORY;
  }
  return m_error == 0 ? OperationDone : OperationFailedStop;
}

void ReportOperation::Tell(UINT messageId) const {
  if (!m_settings.isQuiet) Message::DisplayErrorMessage(messageId);
}

void ReportOperation::Tell(UINT messageId, DWORD error) const {
  if (!m_settings.isQuiet)
    Message::DisplayErrorMessage(messageId, m_settings.outputFile, wordsFor(error));
}
