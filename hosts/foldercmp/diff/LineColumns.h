// A line of UTF-8 in columns of one width, as a monospaced font shows it: tabs go to their stops,
// wide characters take two columns, combining marks none.
#pragma once

#include <afxwin.h>

#include <string>
#include <string_view>
#include <vector>

// Goes through the characters of a line.
class LineColumns {
 public:
  // tabSize: columns from stop to stop, from 1.
  LineColumns(std::string_view line, int tabSize) : m_line(line), m_tabSize(tabSize) { Decode(); }

  bool isAtEnd() const { return m_begin == m_line.size(); }
  int byte() const { return static_cast<int>(m_begin); }
  char32_t character() const { return m_character; }
  int column() const { return m_column; }
  int width() const { return m_width; }  // in columns
  void Next();

 private:
  void Decode();

  std::string_view m_line;
  int m_tabSize;
  size_t m_begin = 0;
  size_t m_end = 0;
  int m_column = 0;
  int m_width = 0;
  char32_t m_character = 0;
};

int ColumnCount(std::string_view line, int tabSize);
// The columns where the characters at some bytes begin; the bytes ascend.
std::vector<int> ColumnsOfBytes(std::string_view line, int tabSize, const std::vector<int>& bytes);

// The part of a line that stands in some columns, to be drawn: a width in columns for each unit of
// its text. Tabs are blanks, other control characters dots.
struct LineSlice {
  int column;  // where it begins, which may be before the columns asked for
  std::wstring text;
  std::vector<int> widths;
};

LineSlice SliceOfLine(std::string_view line, int tabSize, int firstColumn, int columns);
