#include "dircmp/DifferencePage.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "dircmp/DocumentText.h"
#include "dircmp/HtmlFile.h"
#include "dircmp/HtmlText.h"
#include "dircmp/LineDiff.h"
#include "resources/resource.h"
#include "settings/MString.h"

namespace {

// Equal lines that are shown before and after a difference.
constexpr int kContext = 4;
// Where a page ends, so that browsers can open it.
constexpr int kMostRows = 20000;
// A gap of fewer lines takes no less room than they do.
constexpr int kSmallestGap = 3;

// What the page says when one of the documents is not shown.
UINT WhyNotShown(bool isBase, DocumentText::Kind kind) {
  switch (kind) {
    case DocumentText::Kind::Binary:
      return isBase ? IDS_PAGE_BASE_NO_TEXT : IDS_PAGE_REVISED_NO_TEXT;
    case DocumentText::Kind::TooLarge:
      return isBase ? IDS_PAGE_BASE_TOO_LARGE : IDS_PAGE_REVISED_TOO_LARGE;
    default:
      return isBase ? IDS_PAGE_BASE_UNREADABLE : IDS_PAGE_REVISED_UNREADABLE;
  }
}

std::string NameOfEnd(std::string_view end) {
  return end == "\r\n" ? "CR LF" : end == "\n" ? "LF" : "CR";
}

// A line with its changed ranges in an element of its own. Its end is named where it is all that
// changed, and wherever it changed in a part of the line if white space counts: else it is just
// what stands next to a changed word.
std::string HtmlOfLine(const TextLine& line, const ChangedRanges& ranges,
                       const std::string& element, bool spaceCounts) {
  std::string html;
  size_t done = 0;
  const size_t size = line.text.size();
  for (const auto& [begin, end] : ranges) {
    const size_t textEnd = std::min(static_cast<size_t>(end), size);
    html += HtmlOf(line.text.substr(done, static_cast<size_t>(begin) - done));
    html +=
        "<" + element + ">" +
        HtmlOf(line.text.substr(static_cast<size_t>(begin), textEnd - static_cast<size_t>(begin)));
    const bool isEndNamed = static_cast<size_t>(begin) >= size || (spaceCounts && begin > 0);
    if (static_cast<size_t>(end) > size && isEndNamed) html += " " + NameOfEnd(line.end);
    html += "</" + element + ">";
    done = textEnd;
  }
  return html + HtmlOf(line.text.substr(done));
}

class Rows {
 public:
  Rows(HtmlFile& file, const DocumentText& left, const DocumentText& right,
       const CompareOptions& options, const ContentCompare::StopPoll& stop)
      : m_file(file),
        m_left(left),
        m_right(right),
        m_options(options),
        m_blocks(DiffLines(left, right, options, stop)) {
    for (const LineBlock& block : m_blocks) m_differences += block.isDifferent;
  }

  int differences() const { return m_differences; }

  void Write() {
    if (m_differences == 0) {
      WriteNote(TextHtml(IDS_PAGE_NO_LINE_DIFFERS));
    }
    for (size_t i = 0; i < m_blocks.size(); ++i) {
      if (m_rows >= kMostRows) {
        WriteNote(TextHtml(IDS_PAGE_ENDS));
        return;
      }
      if (m_blocks[i].isDifferent) {
        WriteDifferent(m_blocks[i]);
      } else {
        WriteEqual(m_blocks[i], i == 0, i + 1 == m_blocks.size());
      }
    }
  }

 private:
  void WriteDifferent(const LineBlock& block) {
    const WordDifference words = DiffWords(m_left, m_right, block, m_options);
    ++m_difference;
    for (int row = 0; row < block.rows() && m_rows < kMostRows; ++row, ++m_rows) {
      m_file << "<tr class=\"changed\"" << (row == 0 ? Anchor() : std::string()) << ">";
      WriteChangedLine(m_left, block.left, row, block.leftCount, words.left, "del");
      WriteChangedLine(m_right, block.right, row, block.rightCount, words.right, "ins");
      m_file << "</tr>\n";
    }
  }

  std::string Anchor() const { return " id=\"d" + std::to_string(m_difference) + "\""; }

  void WriteChangedLine(const DocumentText& text, int first, int row, int count,
                        const std::vector<ChangedRanges>& ranges, const char* element) {
    if (row >= count) {
      m_file << "<td class=\"line\"></td><td class=\"none\"></td>";
      return;
    }
    const auto line = static_cast<size_t>(first + row);
    WriteCells(first + row, HtmlOfLine(text.lines()[line], ranges[static_cast<size_t>(row)],
                                       element, m_options.whiteSpaceMode == kWhiteSpaceExact));
  }

  void WriteEqual(const LineBlock& block, bool isFirst, bool isLast) {
    const int rows = block.rows();
    const int before = isFirst ? 0 : std::min(kContext, rows);
    const int after = isLast ? 0 : std::min(kContext, rows - before);
    const int gap = rows - before - after;
    const bool isGapShown = gap < kSmallestGap;
    WriteEqualRows(block, 0, isGapShown ? rows : before);
    if (isGapShown) return;
    WriteGap(gap);
    WriteEqualRows(block, rows - after, rows);
  }

  void WriteEqualRows(const LineBlock& block, int begin, int end) {
    for (int row = begin; row < end && m_rows < kMostRows; ++row, ++m_rows) {
      m_file << "<tr>";
      WriteEqualLine(m_left, block.left, row, block.leftCount);
      WriteEqualLine(m_right, block.right, row, block.rightCount);
      m_file << "</tr>\n";
    }
  }

  void WriteEqualLine(const DocumentText& text, int first, int row, int count) {
    if (row < count) {
      WriteCells(first + row, HtmlOf(text.lines()[static_cast<size_t>(first + row)].text));
    } else {
      m_file << "<td class=\"line\"></td><td></td>";
    }
  }

  void WriteCells(int line, const std::string& html) {
    m_file << "<td class=\"line\">" << std::to_string(line + 1) << "</td><td>" << html << "</td>";
  }

  void WriteGap(int lines) {
    MString text;
    text.FormatMessage(IDS_PAGE_EQUAL_LINES, lines);
    std::string html = HtmlOf(text);
    // To the next difference at a click.
    if (m_difference < m_differences && m_rows < kMostRows) {
      html += " <a href=\"#d" + std::to_string(m_difference + 1) + "\">&#8595;</a>";
    }
    WriteNote(html);
  }

  void WriteNote(const std::string& html) {
    m_file << "<tr class=\"gap\"><td colspan=\"4\">" << html << "</td></tr>\n";
  }

  HtmlFile& m_file;
  const DocumentText& m_left;
  const DocumentText& m_right;
  const CompareOptions& m_options;
  const std::vector<LineBlock> m_blocks;
  int m_rows = 0;
  int m_differences = 0;
  int m_difference = 0;  // the last one that was written, counted from 1
};

}  // namespace

DWORD WriteDifferencePage(const CString& path, const DifferencePage& page,
                          const ContentCompare::StopPoll& stop) {
  DocumentText left, right;
  const DocumentText::Kind leftKind = left.Load(page.basePath);
  const DocumentText::Kind rightKind = right.Load(page.revisedPath);
  HtmlFile file(path, page.title, false);
  std::optional<Rows> rows;
  if (leftKind == DocumentText::Kind::Text && rightKind == DocumentText::Kind::Text) {
    rows.emplace(file, left, right, page.options, stop);
  }
  if (stop && stop()) return ERROR_CANCELLED;
  file << "<h1 class=\"modified\">" << page.title << "</h1>\n<nav>" << page.navigation;
  if (rows && rows->differences() > 0) {
    file << "<a href=\"#d1\">" << TextHtml(IDS_PAGE_FIRST_DIFFERENCE) << "</a>";
  }
  file << "</nav>\n<table class=\"sides\">\n"
          "<colgroup><col style=\"width:4em\"><col><col style=\"width:4em\"><col></colgroup>\n"
          "<thead><tr><th colspan=\"2\">"
       << page.baseHeading << "</th><th colspan=\"2\">" << page.revisedHeading
       << "</th></tr></thead>\n<tbody>\n";
  if (rows) {
    rows->Write();
  } else {
    const bool isLeft = leftKind != DocumentText::Kind::Text;
    file << "<tr class=\"gap\"><td colspan=\"4\">"
         << TextHtml(WhyNotShown(isLeft, isLeft ? leftKind : rightKind)) << "</td></tr>\n";
  }
  file << "</tbody>\n</table>\n";
  return file.Finish();
}
