#include "foldercmp/diff/LineColumns.h"

#include <algorithm>

namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Unicode Standard Annex 11: what is wide, by blocks.
constexpr Range kWide[] = {
    {0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0x33FF},   {0x3400, 0x4DBF},
    {0x4E00, 0x9FFF},   {0xA000, 0xA4CF},   {0xA960, 0xA97F},   {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},
    {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD},
};

// Marks on the character before them, and what has no width.
constexpr Range kCombining[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x05BF, 0x05BF},
    {0x05C1, 0x05C2}, {0x05C4, 0x05C5}, {0x0610, 0x061A}, {0x064B, 0x065F},
    {0x0670, 0x0670}, {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x2064},
    {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF},
};

template <size_t size>
bool IsIn(const Range (&ranges)[size], char32_t character) {
  const auto found =
      std::lower_bound(ranges, ranges + size, character,
                       [](const Range& range, char32_t wanted) { return range.last < wanted; });
  return found != ranges + size && found->first <= character;
}

int WidthOf(char32_t character) {
  if (character < 0x300) return 1;
  return IsIn(kCombining, character) ? 0 : IsIn(kWide, character) ? 2 : 1;
}

bool IsControl(char32_t character) {
  return character < ' ' || (character >= 0x7F && character < 0xA0);
}

}  // namespace

void LineColumns::Next() {
  m_begin = m_end;
  m_column += m_width;
  Decode();
}

// Documents are well-formed; anything else is taken byte by byte.
void LineColumns::Decode() {
  if (isAtEnd()) return;
  const auto byteAt = [&](size_t place) -> unsigned {
    return place < m_line.size() ? static_cast<unsigned char>(m_line[place]) : 0u;
  };
  const unsigned lead = byteAt(m_begin);
  size_t size = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  m_character = size == 1 ? lead : lead & (0x7Fu >> size);
  for (size_t i = 1; i < size; ++i) {
    if ((byteAt(m_begin + i) & 0xC0) != 0x80) {
      m_character = lead;
      size = 1;
      break;
    }
    m_character = m_character << 6 | (byteAt(m_begin + i) & 0x3F);
  }
  m_end = m_begin + size;
  m_width = m_character == '\t' ? m_tabSize - m_column % m_tabSize : WidthOf(m_character);
}

int ColumnCount(std::string_view line, int tabSize) {
  LineColumns columns(line, tabSize);
  while (!columns.isAtEnd()) columns.Next();
  return columns.column();
}

std::vector<int> ColumnsOfBytes(std::string_view line, int tabSize, const std::vector<int>& bytes) {
  std::vector<int> result;
  LineColumns columns(line, tabSize);
  for (const int byte : bytes) {
    while (!columns.isAtEnd() && columns.byte() < byte) columns.Next();
    result.push_back(columns.column());
  }
  return result;
}

LineSlice SliceOfLine(std::string_view line, int tabSize, int firstColumn, int columns) {
  LineColumns place(line, tabSize);
  while (!place.isAtEnd() && place.column() + place.width() <= firstColumn) place.Next();
  LineSlice slice = {place.column(), {}, {}};
  for (; !place.isAtEnd() && place.column() < firstColumn + columns; place.Next()) {
    const char32_t character = place.character();
    if (character == '\t') {
      slice.text.append(static_cast<size_t>(place.width()), L' ');
      slice.widths.insert(slice.widths.end(), static_cast<size_t>(place.width()), 1);
    } else if (character >= 0x10000) {
      slice.text += static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
      slice.text += static_cast<wchar_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
      slice.widths.push_back(place.width());
      slice.widths.push_back(0);
    } else {
      slice.text += IsControl(character) ? L'\u00B7' : static_cast<wchar_t>(character);
      slice.widths.push_back(place.width());
    }
  }
  return slice;
}
