#include "dircmp/HtmlFile.h"

#include "entry/PathUtils.h"

namespace {

constexpr size_t kBufferSize = 64 * 1024;

// The colours are those of the states in the list, darkened where they would be hard to read on
// white. On paper the changed words can be told without any: struck out and underlined.
constexpr std::string_view kStyle = R"(<style>
body { font: 14px/1.4 "Segoe UI", "Liberation Sans", Arial, sans-serif; margin: 1.5em; color: #000; background: #fff; }
h1 { font-size: 1.4em; overflow-wrap: anywhere; }
h2 { font-size: 1.15em; margin-top: 1.6em; }
a { color: #0645ad; }
nav { margin: .6em 0; }
nav a { margin-right: 1em; }
table { border-collapse: collapse; width: 100%; }
th { text-align: left; background: #eee; }
th, td { padding: .15em .5em; border: 1px solid #ccc; vertical-align: top; overflow-wrap: anywhere; }
.time { white-space: nowrap; }
.modified { color: #007a00; }
.new { color: #0000ff; }
.deleted { color: #c00000; }
.note { color: #555; }
table.sides { table-layout: fixed; font: 12px/1.35 Consolas, "Liberation Mono", monospace; }
table.sides td { border: 0; border-left: 1px solid #ccc; padding: 0 .4em; white-space: pre-wrap; tab-size: 4; }
table.sides .line { width: 4em; text-align: right; color: #555; background: #f4f4f4; }
tr.changed td { background: #fff6d5; }
tr.changed td.none { background: #eee; }
tr.gap td { text-align: center; color: #555; background: #f4f4f4; }
del { background: #ffc9c9; }
ins { background: #c3efc3; }
@media print {
  body { margin: 0; font-size: 10pt; }
  nav { display: none; }
  a { color: inherit; text-decoration: none; }
  table.sides { font-size: 7.5pt; }
  thead { display: table-header-group; }
  tr { break-inside: avoid; }
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
