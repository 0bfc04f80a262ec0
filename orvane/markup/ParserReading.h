// The parser's innermost reading, inline: it is done for every tag, name and value of a document.
#pragma once

#include "markup/CharClasses.h"
#include "markup/OXParser.h"
#include "markup/TextScan.h"
#include "markup/TokenTable.h"

// As GetToken with the parser's own token, without a report.
inline bool COXParser::NextToken() {
  const char* at = m_position;
  while (IsSpace(*at)) ++at;
  m_position = at;
  if (at == m_end) return false;
  const FoundToken found = FindToken(at);
  m_token.SetType(found.type);
  m_position = at + found.length;
  return true;
}

// The name is a part of the input.
inline bool COXParser::ReadName(Text& name) {
  const char* const start = m_position;
  const char* at = start;
  while (IsNameCharacter(*at)) ++at;
  m_position = at;
  name = {start, static_cast<size_t>(at - start)};
  return *at == '=' || *at == kTagClose || *at == kSlash || IsSpace(*at) || ReportBadName();
}

// The text is a part of the input, or stands in m_pieces until the next reading.
inline bool COXParser::ReadString(char quote, bool decode, Text& text) {
  const char* const start = m_position;
  const char* stop = start;
  if (quote == '"') stop = FindFirst<'"', kAmpersand, kCarriageReturn>(start, m_end);
  if (quote == '\'') stop = FindFirst<'\'', kAmpersand, kCarriageReturn>(start, m_end);
  if (stop == m_end || *stop != quote) return ReadStringInPieces(quote, decode, text);
  m_position = stop + 1;
  text = {start, static_cast<size_t>(stop - start)};
  return true;
}
