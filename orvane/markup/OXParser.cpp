// Parsing as a whole, the place in the text, and errors.
#include "markup/OXParser.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "markup/NoException.h"
#include "markup/TextScan.h"

namespace {

constexpr size_t kMessageSize = 512;
constexpr char kRootName[] = "[Root]";

}  // namespace

// Hosts may take their addresses, as std::min does.
const int COXParser::kMaxNesting;
const unsigned COXParser::kMaxExpansion;
const unsigned COXParser::kFreeExpansion;

COXParser::COXParser() : m_root(nullptr, kRootName) {}

COXParser::~COXParser() { COXParser::Clear(); }

void COXParser::Clear() {
  m_root.Clear();
  m_pool.Reset();
  m_entities.Clear();
}

const char* COXParser::TranslateErrorCode(int code) {
  switch (code) {
    case kNullBuffer:
      return "NULL buffer passed in";
    case kEndOfBuffer:
      return "Unexpected end of buffer";
    case kOutOfMemory:
      return "Out of memory";
    case kNoToken:
      return "Unable to retrieve a token";
    case kIllegalCharacter:
      return "Illegal characters encountered in token";
    case kUnexpectedToken:
      return "Unexpected token type";
    case kMissingEndTag:
      return "Missing end tag";
    case kBadEntity:
      return "Bad entity string";
    case kBadInteger:
      return "Bad integer value";
    case kMissingBracket:
      return "Missing end bracket in tag";
    case kUnexpectedEndTag:
      return "Unexpected end tag";
    default:
      return "Unknown Error";
  }
}

void COXParser::SetErrorRptFunction(COXParserErrorFunction function, unsigned long userData) {
  m_errorFunction = function;
  m_errorUserData = userData;
}

int COXParser::Parse(const char* text) {
  const int parsed = WithoutException([&] { return ParseInside(text); });
  m_text = m_position = m_end = nullptr;
  m_pool.SetSource(nullptr, nullptr);
  m_pieces.Free();
  m_entityName.Free();
  return parsed;
}

bool COXParser::ParseInside(const char* text) {
  Clear();
  // The mark is no part of the text: the first character behind it stands in column 1.
  m_text = text == nullptr ? nullptr : SkipByteOrderMark(text);
  m_end = text == nullptr ? nullptr : text + TextLength(text);
  m_expanded = 0;
  SetToStart();
  m_pool.SetSource(text, m_end);
  if (!Initialize()) return false;
  if (text == nullptr) {
    GetNextChar();
    return false;
  }
  const bool parsed = ParseElement(&m_root, 0) != 0;
  Cleanup();
  return parsed;
}

void COXParser::SetToStart() {
  m_position = m_text;
  m_lastPlace = {m_text, m_text, 1};
  m_token.Clear();
}

int COXParser::Initialize() {
  SetToStart();
  m_root.SetParent(nullptr);
  if (m_root.IsName(kRootName, TRUE) || m_root.SetName(kRootName)) return 1;
  ReportError(kOutOfMemory, "Unable to name the root");
  return 0;
}

int COXParser::Cleanup() { return 1; }

int COXParser::DefErrorHandler(int, const char*, int, int, unsigned long) { return 0; }

void COXParser::ReportError(int code, const char* format, ...) {
  char message[kMessageSize];
  va_list arguments;
  va_start(arguments, format);
  vsnprintf(message, sizeof message, format, arguments);
  va_end(arguments);

  const Place place = PlaceOf(m_position);
  const int column = static_cast<int>(place.position - place.lineStart) + (place.line == 1 ? 1 : 0);
  if (m_errorFunction != nullptr) {
    m_errorFunction(code, message, place.line, column, m_errorUserData);
  } else {
    DefErrorHandler(code, message, place.line, column, m_errorUserData);
  }
}

COXParser::Place COXParser::PlaceOf(const char* position) {
  if (position < m_lastPlace.lineStart) m_lastPlace = {m_text, m_text, 1};
  if (position < m_lastPlace.position) m_lastPlace.position = m_lastPlace.lineStart;
  const char* at = m_lastPlace.position;
  while (at != position) {
    const auto* const feed = static_cast<const char*>(memchr(at, kLineFeed, position - at));
    if (feed == nullptr) break;
    at = m_lastPlace.lineStart = feed + 1;
    ++m_lastPlace.line;
  }
  m_lastPlace.position = position;
  return m_lastPlace;
}
