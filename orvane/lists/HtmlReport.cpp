// Reports as a page: one file that needs nothing outside of it (HTML 5, UTF-8).
#include "lists/ReportWriter.h"

#include <string>

#include "lists/HtmlReportParts.h"
#include "lists/ReportText.h"

namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0), kWhite = RGB(255, 255, 255);

// A text as a string of a style sheet; a "<" could end the sheet.
std::string styleStringOf(std::string_view text) {
  std::string style = "\"";
  for (const char character : text) {
    if (std::string_view("\"\\<>&").find(character) != std::string_view::npos) {
      char escape[8];
      snprintf(escape, sizeof escape, "\\%X ", static_cast<unsigned>(character));
      style += escape;
    } else {
      style += character;
    }
  }
  return style + '"';
}

std::string styleOf(COLORREF color) {
  char text[8];
  snprintf(text, sizeof text, "#%02x%02x%02x", GetRValue(color), GetGValue(color),
           GetBValue(color));
  return text;
}

class HtmlReport : public ReportWriter {
 public:
  using ReportWriter::ReportWriter;

  void Begin() override {
    const std::string name = HtmlOf(m_head.title.empty() ? m_head.product : m_head.title);
    m_html = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n";
    m_html += kHtmlPageViewport;
    m_html += "<meta name=\"generator\" content=\"" + HtmlOf(m_head.product) + "\">\n";
    m_html += "<title>" + name + "</title>\n<style>\n";
    m_html += kHtmlPageStyle;
    m_html += kHtmlReportStyle;
    AddColumnStyles();
    m_html += "</style>\n</head>\n<body>\n";
    if (m_head.isShown) AddTop();
    m_html += "<table>\n";
    if (m_head.isShown) AddTitles();
    m_html += "<tbody>\n";
    Flush();
  }

  void Add(const ReportRow& row) override {
    m_html += "<tr";
    AddColors(row);
    m_html += '>';
    for (size_t i = 0; i < row.cells.size(); ++i) AddCell(m_head.columns[i], row.cells[i]);
    m_html += "</tr>\n";
    Flush();
  }

  void End() override {
    m_html += "</tbody>\n</table>\n<footer>";
    // What stands before the product and the address in the footer, and between them.
    const std::string_view footer = m_head.footer;
    const size_t address = footer.size() - m_head.url.size();
    AppendHtml(m_html, footer.substr(0, address));
    if (!m_head.url.empty()) {
      const std::string url = HtmlOf(m_head.url);
      m_html += "<a href=\"" + url + "\">" + url + "</a>";
    }
    m_html += "</footer>\n";
    if (m_head.isShown) m_html += kHtmlReportScript;
    m_html += "</body>\n</html>\n";
    Flush();
  }

 private:
  // On a narrow screen each cell has its column's title before it.
  void AddColumnStyles() {
    for (size_t i = 0; i < m_head.columns.size(); ++i) {
      const ReportColumn& column = m_head.columns[i];
      const std::string number = std::to_string(i + 1);
      if (column.kind == MListCtrl::Numeric)
        m_html += "@media not all and (max-width: 40rem) { th:nth-child(" + number +
                  "), td:nth-child(" + number + ") { text-align: right; } }\n";
      if (column.kind != MListCtrl::Text)
        m_html += "td:nth-child(" + number + ") { white-space: nowrap; }\n";
      if (m_head.isShown)
        m_html += "@media screen and (max-width: 40rem) { td:nth-child(" + number +
                  ")::before { content: " + styleStringOf(column.title) + "; } }\n";
    }
  }

  void AddTop() {
    m_html += "<header>\n";
    if (!m_head.title.empty()) m_html += "<h1>" + HtmlOf(m_head.title) + "</h1>\n";
    if (!m_head.secondaryTitle.empty())
      m_html += "<p class=\"secondary\">" + HtmlOf(m_head.secondaryTitle) + "</p>\n";
    for (const std::string& note : m_head.notes) m_html += "<p>" + HtmlOf(note) + "</p>\n";
    m_html += "</header>\n";
  }

  void AddTitles() {
    m_html += "<thead>\n<tr>";
    for (size_t i = 0; i < m_head.columns.size(); ++i) {
      const ReportColumn& column = m_head.columns[i];
      m_html += "<th scope=\"col\"";
      if (column.kind != MListCtrl::Text) m_html += " data-typed";
      if (static_cast<int>(i) == m_head.sortedBy)
        m_html += m_head.isDescending ? " aria-sort=\"descending\"" : " aria-sort=\"ascending\"";
      m_html += '>';
      AppendHtml(m_html, column.title);
      m_html += "</th>";
    }
    m_html += "</tr>\n</thead>\n";
  }

  // Rows of one state have the same colours, and often follow each other.
  void AddColors(const ReportRow& row) {
    if (row.text != m_text || row.background != m_background) {
      m_text = row.text;
      m_background = row.background;
      m_colors.clear();
      if (m_text != kBlack || m_background != kWhite)
        m_colors = " style=\"color:" + styleOf(ReadableOn(m_background, m_text));
      if (m_background != kWhite) m_colors += ";background:" + styleOf(m_background);
      if (!m_colors.empty()) m_colors += '"';
    }
    m_html += m_colors;
  }

  void AddCell(const ReportColumn& column, const ReportCell& cell) {
    m_html += "<td";
    if (column.kind == MListCtrl::Numeric)
      AddSortValue(static_cast<int32_t>(cell.number));
    else if (column.kind != MListCtrl::Text)
      AddSortValue(cell.number);
    m_html += '>';
    if (!cell.link.empty()) {
      m_html += "<a href=\"";
      AppendHtml(m_html, cell.link);
      m_html += "\">";
    }
    AppendHtml(m_html, cell.text);
    if (!cell.link.empty()) m_html += "</a>";
    m_html += "</td>";
  }

  void AddSortValue(int64_t number) {
    m_html += " data-sort=\"";
    m_html += std::to_string(number);
    m_html += '"';
  }

  void Flush() {
    m_file.Write(m_html);
    m_html.clear();
  }

  std::string m_html;
  COLORREF m_text = kBlack, m_background = kWhite;
  std::string m_colors;  // the attribute for them
};

}  // namespace

std::unique_ptr<ReportWriter> MakeHtmlReport(COXMarkupFile& file, const ReportHead& head) {
  return std::make_unique<HtmlReport>(file, head);
}
