// Reports as tab-separated values, the way spreadsheet programs read them back: a value with a tab,
// a line end or a quote in it stands between quotes, its own quotes doubled. The byte-order mark
// tells them that it is UTF-8. A value that such a program takes for a formula, with "=" before it,
// is not guarded: what is read back must be the list's value.
#include "lists/ReportWriter.h"

#include <string>

namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";

class TabReport : public ReportWriter {
 public:
  using ReportWriter::ReportWriter;

  void Begin() override {
    m_file.Write(kMark);
    if (!m_head.isShown) return;
    for (const ReportColumn& column : m_head.columns) AddValue(column.title);
    EndLine();
  }

  void Add(const ReportRow& row) override {
    for (const ReportCell& cell : row.cells) AddValue(cell.text);
    EndLine();
  }

  void End() override {
    m_file.Write(kLineEnd);
    AddValue(m_head.footer);
    EndLine();
  }

 private:
  void AddValue(std::string_view value) {
    if (m_values++ > 0) m_line += '\t';
    if (value.find_first_of("\t\r\n\"") == std::string_view::npos) {
      m_line += value;
      return;
    }
    m_line += '"';
    for (const char character : value) {
      if (character == '"') m_line += '"';
      m_line += character;
    }
    m_line += '"';
  }

  void EndLine() {
    if (m_line.empty()) m_line = "\"\"";  // a line with nothing in it would be no row
    m_line += kLineEnd;
    m_file.Write(m_line);
    m_line.clear();
    m_values = 0;
  }

  std::string m_line;
  size_t m_values = 0;
};

}  // namespace

std::unique_ptr<ReportWriter> MakeTabReport(COXMarkupFile& file, const ReportHead& head) {
  return std::make_unique<TabReport>(file, head);
}
