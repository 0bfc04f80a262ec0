#include "dircmp/HyperLinkReport.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <string_view>
#include <utility>

#include "dircmp/DifferencePage.h"
#include "dircmp/DocumentCopy.h"
#include "dircmp/HtmlFile.h"
#include "dircmp/HtmlText.h"
#include "entry/PathUtils.h"
#include "entry/strutils.h"
#include "ops/DirOp.h"
#include "resources/resource.h"
#include "settings/MString.h"

namespace {

constexpr FileState kSections[] = {FileState::Modified, FileState::New, FileState::Deleted};
constexpr char kIndexName[] = "\\index.html";
constexpr char kPagesFolder[] = "\\differences\\";
// From a page to the report's folder.
constexpr char kUp[] = "../../";
// Some file systems look through a whole folder for each new file.
constexpr size_t kPagesPerFolder = 500;

CString NameOf(FileState state) {
  CString name;
  AfxExtractSubString(name, MString::Loaded(IDS_FILE_STATES), static_cast<int>(state), '\t');
  return name;
}

const char* ClassOf(FileState state) {
  return state == FileState::Modified ? "modified" : state == FileState::New ? "new" : "deleted";
}

// In the order of the sections; what has none comes last.
int RankOf(FileState state) {
  return static_cast<int>(std::find(std::begin(kSections), std::end(kSections), state) -
                          std::begin(kSections));
}

std::string TimeHtml(const CTime& time) {
  return time == CTime() ? std::string() : HtmlOf(time.Format("%Y-%m-%d %H:%M"));
}

std::string Link(const std::string& url, const std::string& html) {
  return url.empty() ? html : "<a href=\"" + url + "\">" + html + "</a>";
}

std::string Heading(UINT id) { return "<th>" + TextHtml(id) + "</th>"; }

bool IsReportPage(const CString& path) {
  FileSource file(path);
  char start[512];
  const int size = file.isOpen() ? file.Read(start, sizeof start) : 0;
  return size > 0 && std::string_view(start, static_cast<size_t>(size)).find(kPageMark) !=
                         std::string_view::npos;
}

// Whether a full path is that of the folder or below it.
bool IsInFolder(const CString& path, const CString& folder) {
  const CString start = (path + "\\").Left(folder.GetLength() + 1);
  return lstrcmpiA(start, folder + "\\") == 0;
}

// Whether a folder has no entries, or isn't there.
bool IsEmpty(const CString& folder) {
  WIN32_FIND_DATAA found;
  const unique_find search(FindFirstFileA(folder + "\\*.*", &found));
  if (!search) return true;
  do {
    const std::string_view name = found.cFileName;
    if (name != "." && name != "..") return false;
  } while (FindNextFileA(search.get(), &found));
  return true;
}

// "1/17.html", below the folder of the pages.
std::string PageName(size_t number) {
  return std::to_string(number / kPagesPerFolder + 1) + "/" + std::to_string(number + 1) + ".html";
}

void DeletePagesOf(const CString& folder) {
  WIN32_FIND_DATAA found;
  const unique_find search(FindFirstFileA(folder + "*.html", &found));
  if (!search) return;
  do {
    const CString page = folder + found.cFileName;
    if (IsReportPage(page)) ForceDeleteFile(page);
  } while (FindNextFileA(search.get(), &found));
}

void DeletePages(const CString& pages) {
  for (int number = 1;; ++number) {
    const CString folder = pages + std::to_string(number).c_str() + "\\";
    if (GetFileAttributesA(folder) == INVALID_FILE_ATTRIBUTES) return;
    DeletePagesOf(folder);
  }
}

}  // namespace

HyperLinkReport::HyperLinkReport(const FolderComparison& comparison, const char* baseName,
                                 const char* revisedName, const HyperLinkReportOptions& options,
                                 const CompareOptions& compare)
    : m_comparison(comparison),
      m_baseName(*baseName != 0 ? CString(baseName) : comparison.baseFolder()),
      m_revisedName(*revisedName != 0 ? CString(revisedName) : comparison.revisedFolder()),
      m_options(options),
      m_compare(compare) {}

bool HyperLinkReport::HasSection(FileState state) const {
  return (state == FileState::Modified && m_options.includeModified) ||
         (state == FileState::New && m_options.includeNew) ||
         (state == FileState::Deleted && m_options.includeDeleted);
}

void HyperLinkReport::Add(const DocumentRecord& record) { m_documents.emplace_back(record); }

void HyperLinkReport::AddAll() {
  for (const DocumentRecord& record : m_comparison.records()) {
    if (HasSection(record.state) && m_comparison.IsCompared(record)) Add(record);
  }
}

HyperLinkReport::Target HyperLinkReport::Prepare(const char* folder) {
  Sort();
  m_folder = FullFolderOf(folder);
  if (!IsEmpty(m_folder) && !IsReportPage(IndexPath())) return Target::Occupied;
  // An earlier report's folder that the documents have been moved into.
  for (const CString& compared : {m_comparison.baseFolder(), m_comparison.revisedFolder()}) {
    if (IsInFolder(FullFolderOf(compared + "\\"), m_folder)) return Target::Occupied;
  }
  if (!CreateDirectoryA(static_cast<LPCSTR>(m_folder))) return Target::NotCreated;
  DeletePages(m_folder + kPagesFolder);
  // From now on the folder is known as a report's, even if the report is never finished.
  if (!IsReportPage(IndexPath())) {
    HtmlFile index(IndexPath(), TitleHtml(), false);
    index << "<h1>" << TitleHtml() << "</h1>\n<p class=\"note\">" << TextHtml(IDS_PAGE_UNFINISHED)
          << "</p>\n";
    const DWORD error = index.Finish();
    SetLastError(error);
    if (error != 0) return Target::NotCreated;
  }
  return Target::Ready;
}

bool HyperLinkReport::IsBefore(const Document& left, const Document& right) {
  const int leftRank = RankOf(left.record->state), rightRank = RankOf(right.record->state);
  if (leftRank != rightRank) return leftRank < rightRank;
  const int order = lstrcmpiA(left.record->relativePath, right.record->relativePath);
  return order != 0 ? order < 0 : left.record < right.record;
}

// A report lists documents by their names, whatever order they were found in.
void HyperLinkReport::Sort() { std::sort(m_documents.begin(), m_documents.end(), IsBefore); }

HyperLinkReport::Links HyperLinkReport::LinksOf(const DocumentRecord& record) const {
  const auto found =
      std::lower_bound(m_documents.begin(), m_documents.end(), Document(record), IsBefore);
  if (found == m_documents.end() || found->record != &record) return {};
  const auto number = static_cast<size_t>(found - m_documents.begin());
  return {PageUrl(number), found->baseUrl, found->revisedUrl};
}

std::string HyperLinkReport::UrlInPlace(const CString& path) { return FileUrl(FullFolderOf(path)); }

std::string HyperLinkReport::SectionUrl(FileState state) const {
  return HasSection(state) ? std::string("index.html#") + ClassOf(state) : std::string();
}

bool HyperLinkReport::WriteDocument(size_t number, const ContentCompare::StopPoll& stop) {
  Document& document = m_documents[number];
  const DocumentRecord& record = *document.record;
  const size_t problems = m_problems.size();
  if (record.state != FileState::New) {
    document.baseUrl = UrlOfSide(m_comparison.BasePath(record), "base", record);
  }
  if (record.state != FileState::Deleted) {
    document.revisedUrl = UrlOfSide(m_comparison.RevisedPath(record), "revised", record);
  }
  if (HasPage(number)) document.isPageWritten = WritePage(number, stop);
  return m_problems.size() == problems;
}

// Where one of a document's files is linked to, copied there first if wanted.
std::string HyperLinkReport::UrlOfSide(const CString& path, const char* side,
                                       const DocumentRecord& record) {
  if (m_options.copyDocuments) {
    const CString relative = CString(side) + "\\" + record.relativePath;
    const CString copy = m_folder + "\\" + relative;
    if (CopyDocument(path, copy)) return RelativeUrl(relative);
    Note(copy, GetLastError());
  }
  return m_options.linkSourceFiles ? UrlInPlace(path) : std::string();
}

bool HyperLinkReport::WritePage(size_t number, const ContentCompare::StopPoll& stop) {
  const Document& document = m_documents[number];
  const DocumentRecord& record = *document.record;
  const auto link = [](const std::string& url, const std::string& html) {
    return Link(url.empty() || url.starts_with("file:") ? url : kUp + url, html);
  };
  const auto heading = [&](const CString& name, const CTime& time, const std::string& url) {
    return link(url, HtmlOf(name)) + " <span class=\"note\">" + TimeHtml(time) + "</span>";
  };
  DifferencePage page;
  page.title = HtmlOf(record.relativePath);
  page.baseHeading = heading(m_baseName, record.baseModified, document.baseUrl);
  page.revisedHeading = heading(m_revisedName, record.revisedModified, document.revisedUrl);
  page.navigation = NavigationOf(number);
  page.basePath = m_comparison.BasePath(record);
  page.revisedPath = m_comparison.RevisedPath(record);
  page.options = m_compare;
  const CString path = m_folder + kPagesFolder + WithBackslashes(PageName(number).c_str());
  try {
    const DWORD error = WriteDifferencePage(path, page, stop);
    return error != ERROR_CANCELLED && Note(path, error);
  } catch (const std::bad_alloc&) {
    // The other documents may well be smaller.
    return Note(path, ERROR_NOT_ENOUGH_MEMORY);
  }
}

bool HyperLinkReport::HasPage(size_t number) const {
  return m_options.includeModified && number < m_documents.size() &&
         m_documents[number].record->state == FileState::Modified;
}

// Once it is written.
std::string HyperLinkReport::PageUrl(size_t number) const {
  if (!m_documents[number].isPageWritten) return {};
  return "differences/" + PageName(number);
}

std::string HyperLinkReport::NavigationOf(size_t number) const {
  std::string html = Link(kUp + std::string("index.html"), TextHtml(IDS_PAGE_ALL_DOCUMENTS));
  const auto add = [&](size_t target, UINT text) {
    if (HasPage(target)) html += Link("../" + PageName(target), TextHtml(text));
  };
  add(number - 1, IDS_PAGE_PREVIOUS_DOCUMENT);
  add(number + 1, IDS_PAGE_NEXT_DOCUMENT);
  return html;
}

bool HyperLinkReport::WriteIndex() {
  // The old index stays until the new one is whole.
  const CString path = IndexPath();
  HtmlFile file(path, TitleHtml(), true);
  file << "<h1>" << TitleHtml() << "</h1>\n<nav>";
  for (const FileState state : kSections) {
    if (HasSection(state)) file << Link(std::string("#") + ClassOf(state), HtmlOf(NameOf(state)));
  }
  file << "</nav>\n";
  for (const FileState state : kSections) {
    if (HasSection(state)) file << SectionHtml(state);
  }
  return Note(path, file.Finish());
}

std::string HyperLinkReport::SectionHtml(FileState state) const {
  std::string rows;
  int count = 0;
  for (size_t i = 0; i < m_documents.size(); ++i) {
    if (m_documents[i].record->state != state) continue;
    rows += RowHtml(i);
    ++count;
  }
  std::string html = std::string("<h2 id=\"") + ClassOf(state) + "\" class=\"" + ClassOf(state) +
                     "\">" + HtmlOf(NameOf(state)) + " (" + std::to_string(count) + ")</h2>\n";
  if (count == 0) return html;
  html += "<table>\n<thead><tr>";
  html += Heading(IDS_COLUMN_DOCUMENT_NAME) + Heading(IDS_COLUMN_FOLDER_NAME);
  if (state != FileState::New) html += Heading(IDS_COLUMN_BASE_MODIFIED);
  if (state != FileState::Deleted) html += Heading(IDS_COLUMN_REVISED_MODIFIED);
  html += Heading(IDS_COLUMN_STATUS);
  return html + "</tr></thead>\n<tbody>\n" + rows + "</tbody>\n</table>\n";
}

std::string HyperLinkReport::RowHtml(size_t number) const {
  const Document& document = m_documents[number];
  const DocumentRecord& record = *document.record;
  CString folder, name;
  SplitAtLastBackslash(record.relativePath, folder, name);
  if (name.IsEmpty()) std::swap(folder, name);
  const std::string& ownUrl =
      record.state == FileState::Deleted ? document.baseUrl : document.revisedUrl;
  const std::string pageUrl = PageUrl(number);
  std::string html = "<tr><td>" + Link(pageUrl.empty() ? ownUrl : pageUrl, HtmlOf(name)) +
                     "</td><td>" + HtmlOf(folder) + "</td>";
  const auto time = [&](UINT title, const CTime& modified, const std::string& url) {
    html += "<td class=\"time\" data-title=\"" + TextHtml(title) + "\">" +
            Link(url, TimeHtml(modified)) + "</td>";
  };
  if (record.state != FileState::New) {
    time(IDS_COLUMN_BASE_MODIFIED, record.baseModified, document.baseUrl);
  }
  if (record.state != FileState::Deleted) {
    time(IDS_COLUMN_REVISED_MODIFIED, record.revisedModified, document.revisedUrl);
  }
  return html + "<td class=\"" + ClassOf(record.state) + "\">" +
         Link(pageUrl, HtmlOf(NameOf(record.state))) + "</td></tr>\n";
}

std::string HyperLinkReport::TitleHtml() const {
  MString title;
  title.FormatMessage(IDS_COMPARISON_TITLE, m_baseName, m_revisedName);
  return HtmlOf(title);
}

CString HyperLinkReport::IndexPath() const { return m_folder + kIndexName; }

// True when there is no error to note.
bool HyperLinkReport::Note(const CString& path, DWORD error) {
  if (error != 0) m_problems.push_back({static_cast<LPCSTR>(path), error});
  return error == 0;
}
