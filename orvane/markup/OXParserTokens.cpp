// Reading characters and tokens.
#include <algorithm>
#include <climits>

#include "markup/ParserReading.h"

namespace {

// What a name reserves, so that a string that reads many keeps one block.
constexpr unsigned kNameReserve = 100;

}  // namespace

char COXParser::GetNextChar(int count, int reportEnd, int joinLineEnds) {
  if (m_position == nullptr) {
    if (reportEnd) ReportError(kNullBuffer, "NULL buffer supplied.");
    return kEndOfText;
  }
  char c = kEndOfText;
  for (; count > 0; --count) {
    if (m_position == m_end) {
      if (reportEnd) ReportError(kEndOfBuffer, "Unexpected end of buffer.");
      return kEndOfText;
    }
    c = *m_position++;
    if (joinLineEnds && c == kCarriageReturn && *m_position == kLineFeed) c = *m_position++;
  }
  return c;
}

void COXParser::UngetChar(int count) {
  m_position -= std::clamp<ptrdiff_t>(count, 0, m_position - m_text);
}

int COXParser::RemoveWhiteSpace() {
  if (m_position == nullptr) return 0;
  while (IsSpace(*m_position)) ++m_position;
  return m_position != m_end;
}

int COXParser::GetToken(COXToken& token, int reportEnd) {
  token.Clear();
  if (!RemoveWhiteSpace()) {
    GetNextChar(1, reportEnd);
    return 0;
  }
  const FoundToken found = FindToken(m_position);
  token.SetType(found.type);
  m_position += found.length;
  return 1;
}

// Always false, for a name that stopped before what can't follow it.
bool COXParser::ReportBadName() {
  if (m_position == m_end) {
    ReportError(kEndOfBuffer, "Unexpected end of buffer while name.");
  } else {
    const char illegal = *m_position++;
    ReportError(kIllegalCharacter, "Illegal character (%c) encountered while parsing name.",
                illegal);
  }
  return false;
}

bool COXParser::ReadNumber(int& number) {
  const bool negative = *m_position == '-';
  if (negative || *m_position == '+') ++m_position;
  constexpr long long kFarOut = 1LL << 32;
  long long value = 0;
  for (; IsDigit(*m_position); ++m_position) {
    value = std::min(value * 10 + (*m_position - '0'), kFarOut);
  }
  if (m_position == m_end) {
    ReportError(kEndOfBuffer, "Unexpected end of buffer while parsing integer.");
    return false;
  }
  number = static_cast<int>(std::clamp<long long>(negative ? -value : value, INT_MIN, INT_MAX));
  return true;
}

// A string with line ends or entities in it.
bool COXParser::ReadStringInPieces(char quote, bool decode, Text& text) {
  const char* const start = m_position;
  const char* const stop = std::find(start, m_end, quote);
  if (stop == m_end) {
    m_position = m_end;
    ReportError(kEndOfBuffer, "Unexpected end of buffer while parsing string.");
    return false;
  }
  m_position = stop + 1;
  m_pieces.Clear();
  if (!m_pieces.AppendJoined({start, static_cast<size_t>(stop - start)})) {
    ReportError(kOutOfMemory, "Out of memory while parsing string.");
    return false;
  }
  if (decode) m_pieces.DecodeEntities();
  text = m_pieces.Text();
  return true;
}

// Outside of a parse there is no text, which GetNextChar reports.

int COXParser::GetNameToken(COXQuickString& name) {
  Text text;
  if (m_position == nullptr ? GetNextChar() == kEndOfText : !ReadName(text)) {
    name.Empty();
    return 0;
  }
  if (name.SetReserved(text.data(), text.size(), kNameReserve)) return 1;
  ReportError(kOutOfMemory, "Out of memory while parsing name.");
  return 0;
}

int COXParser::GetNumberToken(int& number) {
  return m_position == nullptr ? GetNextChar() : ReadNumber(number);
}

int COXParser::GetStringToken(COXQuickString& text, char quote, int decode) {
  text.Empty();
  if (m_position == nullptr) return GetNextChar();
  Text read;
  if (!ReadString(quote, decode != 0, read)) return 0;
  if (text.SetString(read.data(), static_cast<int>(read.size()))) return 1;
  ReportError(kOutOfMemory, "Out of memory while parsing string.");
  return 0;
}
