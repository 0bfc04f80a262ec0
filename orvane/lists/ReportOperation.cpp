#include "lists/ReportOperation.h"

#include <algorithm>
#include <new>
#include <vector>

#include "entry/PathUtils.h"
#include "lists/MListCtrl.h"
#include "lists/ReportItems.h"
#include "lists/ReportText.h"
#include "lists/ReportWriter.h"
#include "markup/NoException.h"
#include "messages/message.h"
#include "resources/resource.h"
#include "settings/MString.h"
#include "util/SystemErrorWords.h"

namespace {

std::unique_ptr<ReportWriter> makeWriter(ReportFormat format, COXMarkupFile& file,
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

// Runs something that gives 0 or an error of the system's; an exception becomes one.
template <class Work>
DWORD errorOf(Work work) {
  try {
    return work();
  } catch (const std::bad_alloc&) {
    return ERROR_NOT_ENOUGH_MEMORY;
  } catch (CMemoryException* exception) {
    exception->Delete();
    return ERROR_NOT_ENOUGH_MEMORY;
  } catch (CException* exception) {
    exception->Delete();
  } catch (...) {
  }
  return ERROR_INTERNAL_ERROR;  // of a client's function
}

DWORD lastErrorOr(DWORD other) {
  const DWORD error = GetLastError();
  return error != 0 ? error : other;
}

// Begins the file, in a folder that is made when missing. 0, or the system's error: also when what
// stands at path could not be replaced.
DWORD openFile(COXMarkupFile& file, const CString& path) {
  char full[MAX_PATH];
  if (!GetFullPath(path, full)) return ERROR_BAD_PATHNAME;
  EnsureFileFolder(full);
  return file.Create(full) ? 0 : lastErrorOr(ERROR_CANNOT_MAKE);
}

// 0, or the system's error of a write that has just failed on this thread: after one not even an
// empty text can be written.
DWORD writeError(COXMarkupFile& file) {
  return file.Write("") ? 0 : lastErrorOr(ERROR_WRITE_FAULT);
}

// A report of up to so many cells is made within a moment, under a busy cursor.
constexpr size_t kCellsWithoutWindow = 200'000;

}  // namespace

struct ReportOperation::Run {
  Run(MListCtrl& list, const ReportSettings& settings) : items(list, settings) {}

  ReportItems items;
  COXMarkupFile file;
  ReportHead head;
  std::unique_ptr<ReportWriter> writer;
};

ReportOperation::ReportOperation(MListCtrl& list, const ReportSettings& settings)
    : m_list(list), m_settings(settings) {}

ReportOperation::~ReportOperation() = default;

int ReportOperation::Generate() {
  return WithoutException([this] {
    m_outcome = Outcome::NotWritten;
    const DWORD error = errorOf([this] { return MakeReport(); });
    m_run.reset();
    switch (m_outcome) {
      case Outcome::Done:
        return 1;
      case Outcome::NoColumns:
        Tell(IDS_REPORT_NO_FIELD);
        return 0;
      case Outcome::NoFile:
        Tell(IDS_SPECIFY_PATH);
        return 0;
      case Outcome::NotOpened:
        Tell(IDS_FILE_NOT_OPENED, error);
        return 0;
      case Outcome::NotWritten:
        Tell(IDS_REPORT_NOT_WRITTEN, error);
        return 0;
      default:
        return 0;
    }
  });
}

DWORD ReportOperation::MakeReport() {
  const auto ends = [this](Outcome outcome, DWORD error = 0) {
    m_outcome = outcome;
    return error;
  };
  m_run = std::make_unique<Run>(m_list, m_settings);
  if (!m_run->items.HasColumns()) return ends(Outcome::NoColumns);
  if (m_settings.outputFile.IsEmpty()) return ends(Outcome::NoFile);
  if (const DWORD error = openFile(m_run->file, m_settings.outputFile); error != 0)
    return ends(Outcome::NotOpened, error);
  {
    const CWaitCursor wait;
    m_run->items.Select();
  }
  m_run->head = m_run->items.Head();
  if (!MakePages()) return ends(Outcome::Stopped);
  m_run->writer = makeWriter(m_settings.format, m_run->file, m_run->head);
  if (const DWORD error = WriteRows(); error != 0) return ends(Outcome::NotWritten, error);
  if (m_run->items.Count() > 0 && wasAborted()) return ends(Outcome::Stopped);
  m_run->writer->End();
  DWORD error = writeError(m_run->file);
  if (error == 0 && !m_run->file.Close()) error = lastErrorOr(ERROR_WRITE_FAULT);
  return ends(error == 0 ? Outcome::Done : Outcome::NotWritten, error);
}

// The client's pages; false: there is to be no report.
bool ReportOperation::MakePages() {
  const HlReportCallbacks& pages = m_list.HlReport();
  if (m_settings.format != ReportFormat::Html || pages.generate == nullptr) return true;
  const std::vector<unsigned long> ids = m_run->items.Ids();
  CString note;
  if (!pages.generate(m_list.HlReportClient(), {m_settings, ids}, note)) return false;
  if (!note.IsEmpty()) m_run->head.notes.push_back(Utf8Of(note));
  return true;
}

// The item numbers of the operation count through all passes over the rows. With a window the rows
// are written on another thread, and the window is up all the time, so that nobody can change the
// list meanwhile.
DWORD ReportOperation::WriteRows() {
  const size_t count = m_run->items.Count();
  const unsigned passes = m_run->writer->MeasuresFirst() ? 2 : 1;
  MString message;
  message.LoadString(IDS_REPORT_WRITING);
  SetTitle(m_list.ListTitle(), message);
  SetRange(0, passes * static_cast<unsigned>(count));
  SetNoGui(m_settings.isQuiet);
  SetShowProgress(count * m_run->head.columns.size() > kCellsWithoutWindow);
  m_error = 0;
  if (passes == 1 || count == 0) {
    m_run->writer->Begin();
    if (const DWORD error = writeError(m_run->file); error != 0) return error;
  }
  const bool done = DoOperation(1) != 0;
  const DWORD error = m_error;
  return done || error != 0 ? error : ERROR_INTERNAL_ERROR;
}

OperationReturnState ReportOperation::Operation(unsigned index) {
  m_error = errorOf([=, this] {
    const auto count = static_cast<unsigned>(m_run->items.Count());
    const ReportRow& row = m_run->items.Row(index % count);
    if (m_run->writer->MeasuresFirst() && index < count) {
      m_run->writer->Measure(row);
      if (index + 1 == count) m_run->writer->Begin();
    } else {
      m_run->writer->Add(row);
    }
    return writeError(m_run->file);
  });
  return m_error == 0 ? OperationDone : OperationFailedStop;
}

void ReportOperation::Tell(UINT messageId) const {
  if (!m_settings.isQuiet) Message::DisplayErrorMessage(messageId);
}

void ReportOperation::Tell(UINT messageId, DWORD error) const {
  if (!m_settings.isQuiet)
    Message::DisplayErrorMessage(messageId, m_settings.outputFile, SystemErrorWords(error));
}
