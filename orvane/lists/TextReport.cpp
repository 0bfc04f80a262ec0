// Reports as plain text in aligned columns, for a fixed font.
#include "lists/ReportWriter.h"

#include <algorithm>
#include <string>
#include <vector>

#include "lists/ReportText.h"

namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";
constexpr size_t kBetween = 2;  // blanks between two columns
// Longer texts go on in the next line of their column: one of them is not to make every line of the
// report as long as itself.
constexpr size_t kWidest = 80;

// Takes the next line off a text of several.
std::string_view takeLine(std::string_view& text) {
  const size_t end = std::min(text.find_first_of("\r\n"), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end);
  if (text.starts_with("\r\n"))
    text.remove_prefix(2);
  else if (!text.empty())
    text.remove_prefix(1);
  return line;
}

class TextReport : public ReportWriter {
 public:
  TextReport(COXMarkupFile& file, const ReportHead& head)
      : ReportWriter(file, head), m_widths(head.columns.size()), m_rest(head.columns.size()) {
    if (!head.isShown) return;
    for (size_t i = 0; i < m_widths.size(); ++i) Widen(i, head.columns[i].title);
  }

  bool MeasuresFirst() const override { return true; }
  void Measure(const ReportRow& row) override {
    for (size_t i = 0; i < m_widths.size(); ++i) Widen(i, row.cells[i].text);
  }

  void Begin() override {
    m_file.Write(kMark);
    if (!m_head.isShown) return;
    for (const std::string& title : {m_head.title, m_head.secondaryTitle})
      if (!title.empty()) Line(title);
    if (const size_t width = std::max(WidthOf(m_head.title), WidthOf(m_head.secondaryTitle));
        width > 0) {
      Line(std::string(width, '='));
    }
    for (const std::string& note : m_head.notes) Line(note);
    Line("");
    for (size_t i = 0; i < m_rest.size(); ++i) m_rest[i] = m_head.columns[i].title;
    Lines();
    for (size_t i = 0; i < m_widths.size(); ++i) Cell(i, std::string(m_widths[i], '-'));
    EndLine();
  }

  void Add(const ReportRow& row) override {
    for (size_t i = 0; i < m_rest.size(); ++i) m_rest[i] = row.cells[i].text;
    Lines();
  }

  void End() override {
    Line("");
    Line(m_head.footer);
  }

 private:
  void Widen(size_t column, std::string_view text) {
    size_t& width = m_widths[column];
    do {
      const std::string_view line = takeLine(text);
      if (line.size() > width) width = std::max(width, std::min(WidthOf(line), kWidest));
    } while (!text.empty());
  }

  // Writes what is left of the cells, line by line.
  void Lines() {
    do {
      for (size_t i = 0; i < m_rest.size(); ++i) {
        std::string_view after = m_rest[i];
        const std::string_view line = takeLine(after);
        const size_t fits = FittingBytes(line, m_widths[i]);
        m_rest[i] = fits < line.size() ? m_rest[i].substr(fits) : after;
        Cell(i, line.substr(0, fits));
      }
      EndLine();
    } while (std::any_of(m_rest.begin(), m_rest.end(),
                         [](std::string_view rest) { return !rest.empty(); }));
  }

  void Cell(size_t column, std::string_view text) {
    if (column > 0) m_line.append(kBetween, ' ');
    const size_t blanks = m_widths[column] - std::min(WidthOf(text), m_widths[column]);
    const bool toTheRight = m_head.columns[column].kind == MListCtrl::Numeric;
    if (toTheRight) m_line.append(blanks, ' ');
    const size_t start = m_line.size();
    AppendPrintable(m_line, text);
    std::replace(m_line.begin() + static_cast<std::ptrdiff_t>(start), m_line.end(), '\t', ' ');
    if (!toTheRight) m_line.append(blanks, ' ');
  }

  void EndLine() {
    m_line.erase(m_line.find_last_not_of(' ') + 1);
    m_line += kLineEnd;
    m_file.Write(m_line);
    m_line.clear();
  }

  void Line(std::string_view text) {
    m_file.Write(text);
    m_file.Write(kLineEnd);
  }

  std::vector<size_t> m_widths;
  std::vector<std::string_view> m_rest;  // of the cells of a row
  std::string m_line;
};

}  // namespace

std::unique_ptr<ReportWriter> MakeTextReport(COXMarkupFile& file, const ReportHead& head) {
  return std::make_unique<TextReport>(file, head);
}
