// The pages that go with the list's reports.
#include "dircmp/ConfigureReportsDialog.h"
#include "dircmp/DirCmpCtrl.h"
#include "dircmp/HtmlText.h"
#include "dircmp/HyperLinkReportOp.h"
#include "entry/strutils.h"
#include "markup/NoException.h"
#include "messages/message.h"
#include "resources/resource.h"

namespace {

constexpr char kFolderEnd[] = "_files";
constexpr size_t kPagesWithoutWindow = 20;

// "C:\\out\\r_files" for "C:\\out\\r.htm"
CString folderBeside(const CString& report) {
  CString folder, name;
  SplitAtLastBackslash(WithBackslashes(report), folder, name);
  const bool hasFolder = !name.IsEmpty();
  if (!hasFolder) name = folder;
  const int dot = name.ReverseFind('.');
  if (dot > 0) name = name.Left(dot);
  return (hasFolder ? folder + "\\" : CString()) + name + kFolderEnd;
}

}  // namespace

void DirCmpCtrl::SetReportPages(const HlReportSettings& settings) {
  m_reportPages = settings;
  if (GetRegistry() != nullptr) settings.Store(*GetRegistry());
}

int DirCmpCtrl::ConfigureReports(CWnd* owner) {
  ConfigureReportsDialog dialog(m_reportPages, owner);
  if (dialog.DoModal() != IDOK) return 0;
  SetReportPages(dialog.Settings());
  return 1;
}

// Few pages are written in a moment, under a busy cursor. Otherwise the window is up at once, so
// that nobody can start another report meanwhile.
int DirCmpCtrl::RunPagesOperation(MMultiOperation& operation) { return operation.DoOperation(1); }

int DirCmpCtrl::GenerateHlReport(const HlReportRun& run, CString& note) {
  m_report.reset();
  m_documentLinks = HlReportSettings::kInactive;
  if (m_comparison == nullptr || run.settings.format != ReportFormat::Html) return 1;
  if (run.settings.isPreview) {
    if (m_reportPages.hasSections()) note.LoadString(IDS_REPORT_NO_HYPERLINKS);
    return 1;
  }
  const int isWritten = WithoutException([&] { return WritePages(run, note); });
  if (isWritten)
    m_documentLinks = m_reportPages.documentLinks;
  else
    m_report.reset();
  return isWritten;
}

int DirCmpCtrl::WritePages(const HlReportRun& run, CString& note) {
  const HlReportSettings& pages = m_reportPages;
  const bool copies = pages.documentLinks == HlReportSettings::kCopies;
  if (!pages.hasSections() && !copies) return 1;
  m_report = std::make_unique<HyperLinkReport>(
      *m_comparison, m_baseName, m_revisedName,
      HyperLinkReportOptions{
          .includeModified = pages.includeModified,
          .includeNew = pages.includeNew,
          .includeDeleted = pages.includeDeleted,
          .copyDocuments = copies,
          .linkSourceFiles = !copies && pages.documentLinks != HlReportSettings::kInactive},
      OptionsOf(m_comparison->prm()));
  for (const unsigned long id : run.ids) {
    if (!IsDocument(id)) continue;
    const DocumentRecord& record = RecordOf(id);
    if (copies || m_report->HasSection(record.state)) m_report->Add(record);
  }
  const CString folder = folderBeside(run.settings.outputFile);
  const auto fail = [&](UINT text) {
    if (!run.settings.isQuiet) Message::DisplayErrorMessage(text, folder);
    return 0;
  };
  const HyperLinkReport::Target target = m_report->Prepare(folder);
  if (target != HyperLinkReport::Target::Ready)
    return fail(target == HyperLinkReport::Target::Occupied ? IDS_PAGES_OCCUPIED
                                                            : IDS_PAGES_NOT_WRITTEN);
  HyperLinkReportOp writing(*m_report,
                            [this](unsigned done, unsigned all) { Progress(done, all); });
  writing.SetNoGui(run.settings.isQuiet || m_comparison->prm().m_noGui);
  writing.SetShowProgress(m_report->documentCount() > kPagesWithoutWindow);
  const int isWhole = RunPagesOperation(writing);
  if (writing.wasAborted()) return 0;
  if (!isWhole) return fail(IDS_PAGES_NOT_WRITTEN);
  CString parent;
  SplitAtLastBackslash("\\" + folder, parent, m_pagesFolder);
  if (writing.IncompleteDocuments() > 0) {
    MString text;
    text.FormatMessage(IDS_PAGES_PROBLEMS, writing.IncompleteDocuments());
    note = text;
  }
  return 1;
}

CString DirCmpCtrl::GenerateSourceFileLinks(unsigned long id, int column) const {
  if (!IsDocument(id)) return {};
  const DocumentRecord& record = RecordOf(id);
  if (column == kDocumentName) return DocumentLink(record);
  if (column != kStatus || m_report == nullptr) return {};
  const std::string page = m_report->LinksOf(record).page;
  return PageLink(page.empty() ? m_report->SectionUrl(record.state) : page);
}

CString DirCmpCtrl::DocumentLink(const DocumentRecord& record) const {
  using Links = HlReportSettings;
  if (m_documentLinks == Links::kInactive) return {};
  if (m_documentLinks == Links::kCopies) {
    const HyperLinkReport::Links copies = m_report->LinksOf(record);
    return PageLink(copies.revised.empty() ? copies.base : copies.revised);
  }
  const bool wantsBase = m_documentLinks == Links::kBaseInPlace;
  const bool isBase =
      record.state == FileState::Deleted || (record.state != FileState::New && wantsBase);
  return HyperLinkReport::UrlInPlace(isBase ? m_comparison->BasePath(record)
                                            : m_comparison->RevisedPath(record))
      .c_str();
}

// The address of something in the folder of the pages, relative to the report.
CString DirCmpCtrl::PageLink(const std::string& url) const {
  if (url.empty()) return {};
  return (RelativeUrl(m_pagesFolder) + "/" + url).c_str();
}
