#include "dircmp/HtmlFile.h"

#include "entry/PathUtils.h"

namespace {

constexpr size_t kBufferSize = 64 * 1024;

// The looks are those of the lists' reports, and the colours those of the states in the list,
// darkened where they would be hard to read on white. On a narrow screen, rows become blocks: the
// two sides of a changed line stand below each other, an equal line once. On paper, changed words
// can be told without any colour: struck out and underlined.
constexpr std::string_view kStyle =
    R"(<meta name="viewport" content="width=device-width, initial-scale=1">
<style>
:root { color-scheme: light; --line: #dde1e6; --quiet: #59636e; --accent: #0b5cad; --shade: #f6f7f9; }
* { box-sizing: border-box; }
body { margin: 0; padding: 2rem clamp(1rem, 3vw, 3rem); color: #1b1f24; background: #fff;
  font: 0.9375rem/1.45 "Segoe UI", system-ui, "Liberation Sans", Arial, sans-serif; }
h1 { margin: 0 0 0.5rem; font-size: 1.5rem; line-height: 1.25; font-weight: 600; overflow-wrap: anywhere; }
h2 { margin: 2rem 0 0.5rem; font-size: 1.125rem; font-weight: 600; }
a { color: var(--accent); text-underline-offset: 0.15em; }
a:focus-visible { outline: 2px solid var(--accent); outline-offset: 2px; border-radius: 2px; }
nav { display: flex; flex-wrap: wrap; gap: 0.25rem 1.25rem; margin: 0.5rem 0 1rem; }
table { width: 100%; border-collapse: separate; border-spacing: 0; font-variant-numeric: tabular-nums; }
th, td { padding: 0.4rem 0.75rem; text-align: left; vertical-align: top; border-bottom: 1px solid var(--line); overflow-wrap: anywhere; }
th { position: sticky; top: 0; z-index: 1; background: #fff; border-bottom: 2px solid #b8c0c8; font-weight: 600; }
td a { color: inherit; text-decoration-color: color-mix(in srgb, currentcolor 40%, transparent); }
.time { white-space: nowrap; }
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
  body { padding: 1.25rem 1rem; }
  tbody, thead, tr, td, th { display: block; }
  table { display: block; }
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
  body { padding: 0; font-size: 9pt; color: #000; }
  nav { display: none; }
  a { color: inherit; text-decoration: none; }
  th { position: static; }
  th, td { padding: 2pt 5pt; }
  table.sides td { font-size: 7.5pt; }
  thead { display: table-header-group; }
  tr, h1, h2 { break-inside: avoid; }
  h2 { break-after: avoid; }
  td { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
}
</style>
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
        << kStyle << "</head>\n<body>\n";
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
