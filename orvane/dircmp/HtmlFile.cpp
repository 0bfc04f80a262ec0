#include "dircmp/HtmlFile.h"

#include "entry/PathUtils.h"
#include "lists/HtmlReportParts.h"

namespace {

constexpr size_t kBufferSize = 64 * 1024;

// The colours are those of the states in the list, darkened where they would be hard to read on
// white. On a narrow screen, rows become blocks: the two sides of a changed line stand below each
// other, an equal line once. On paper, changed words can be told without any colour: struck out and
// underlined.
constexpr std::string_view kStyle =
    R"(h1 { margin-bottom: 0.5rem; }
h2 { margin: 2rem 0 0.5rem; font-size: 1.125rem; font-weight: 600; }
nav { display: flex; flex-wrap: wrap; gap: 0.25rem 1.25rem; margin: 0.5rem 0 1rem; }
.time, td.modified, td.new, td.deleted, table:not(.sides) th:last-child { white-space: nowrap; }
.modified { color: #007a00; }
.new { color: #0000ff; }
.deleted { color: #c00000; }
.note { color: var(--quiet); font-weight: 400; }
table.sides { table-layout: fixed; }
table.sides td { padding: 0 0.5rem; border: 0; font: 0.8125rem/1.5 Consolas, "Liberation Mono", Menlo, monospace; white-space: pre-wrap; tab-size: 4; }
table.sides td:nth-child(2) { border-right: 1px solid var(--line); }
table.sides td.line { color: var(--quiet); background: var(--shade); text-align: right; user-select: none; }
tr.changed { scroll-margin-top: 4rem; }
tr.changed td:nth-child(2) { background: #ffeef0; }
tr.changed td:nth-child(4) { background: #e8faec; }
tr.changed td.none { background: var(--shade); }
table.sides tr.gap td { padding: 0.4rem; text-align: center; color: var(--quiet); background: var(--shade); border: 0; font-family: inherit; }
@media screen {
  del, ins { text-decoration: none; border-radius: 2px; }
  del { background: #ffc1c8; }
  ins { background: #abebb9; }
}
@media screen and (max-width: 40rem) {
  table:not(.sides) thead { display: none; }
  table:not(.sides) tr { padding: 0.5rem 0; border-top: 1px solid var(--line); }
  table:not(.sides) td { padding: 0.05rem 0; border: 0; }
  td:empty { display: none; }
  td.time::before { content: attr(data-title) " "; color: var(--quiet); }
  table.sides th { position: static; padding: 0.2rem 0; border: 0; }
  table.sides thead { padding-bottom: 0.5rem; border-bottom: 2px solid #b8c0c8; }
  table.sides td { padding-left: 1.25rem; text-indent: -1rem; border: 0; }
  table.sides td:nth-child(2) { border: 0; }
  table.sides td:empty { display: block; }
  table.sides td.line, table.sides td.none, table.sides tr:not(.changed) td:nth-child(4) { display: none; }
  table.sides td::before { content: "  "; }
  tr.changed td:nth-child(2)::before { content: "- "; }
  tr.changed td:nth-child(4)::before { content: "+ "; }
}
@media print {
  nav { display: none; }
  table.sides td { font-size: 7.5pt; }
  h2 { break-inside: avoid; break-after: avoid; }
}
)";

}  // namespace

HtmlFile::HtmlFile(const CString& path, const std::string& title, bool replaces) {
  EnsureFileFolder(path);
  if (!m_file.Open(path))
    m_error = GetLastError();
  else if (m_file.Replaces() && !replaces)
    m_error = ERROR_FILE_EXISTS;
  *this << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        << kPageMark << "\n<title>" << title << "</title>\n"
        << kHtmlPageViewport << "<style>\n"
        << kHtmlPageStyle << kStyle << "</style>\n</head>\n<body>\n";
}

HtmlFile& HtmlFile::operator<<(std::string_view html) {
  m_buffer += html;
  if (m_buffer.size() >= kBufferSize) Flush();
  return *this;
}

DWORD HtmlFile::Finish() {
  *this << "</body>\n</html>\n";
  Flush();
  if (m_error == 0 && !m_file.Commit()) m_error = GetLastError();
  m_file.Discard();
  return m_error;
}

void HtmlFile::Flush() {
  if (m_error == 0 && !m_file.Write(m_buffer.data(), static_cast<DWORD>(m_buffer.size())))
    m_error = GetLastError();
  m_buffer.clear();
}
