#include "xml_html_parser.h"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "xml_html_entities.h"

namespace {

// Names between blanks, with a blank at both ends.
using Names = const char*;

constexpr Names kVoid =
    " area base basefont br col embed frame hr img input isindex link meta param source track wbr ";
constexpr Names kRaw = " script style ";
constexpr Names kEndsWithText = " html head body ";

// Elements whose end tag may be missing, and the start tags that close them.
struct Closing {
  const char* element;
  Names startTags;
};

constexpr Closing kClosings[] = {
    {"p",
     " p address blockquote center dd div dl dt fieldset form h1 h2 h3 h4 h5 h6 hr li menu ol pre "
     "table tbody td tfoot th thead tr ul "},
    {"li", " li "},
    {"td", " td th tr tbody thead tfoot "},
    {"th", " td th tr tbody thead tfoot "},
    {"tr", " tr tbody thead tfoot "},
    {"thead", " tbody thead tfoot "},
    {"tbody", " tbody thead tfoot "},
    {"tfoot", " tbody thead tfoot "},
    {"option", " option optgroup "},
    {"optgroup", " optgroup "},
    {"dt", " dt dd "},
    {"dd", " dt dd "},
    {"colgroup", " colgroup tr tbody thead tfoot "},
};

bool IsAmong(const char* name, Names names) {
  const size_t length = strlen(name);
  if (length == 0) return false;
  for (const char* at = names; *at != 0; ++at) {
    if (*at == ' ' && _strnicmp(at + 1, name, length) == 0 && at[1 + length] == ' ') return true;
  }
  return false;
}

const Closing* FindClosing(const char* element) {
  for (const Closing& closing : kClosings) {
    if (_stricmp(closing.element, element) == 0) return &closing;
  }
  return nullptr;
}

std::string Utf8(unsigned long code) {
  std::string text;
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | code >> 6);
    text += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0 | code >> 12);
    text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x110000) {
    text += static_cast<char>(0xF0 | code >> 18);
    text += static_cast<char>(0x80 | (code >> 12 & 0x3F));
    text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (code & 0x3F));
  }
  return text;
}

}  // namespace

HtmlParser::HtmlParser() {
  m_strictEndTags = FALSE;
  SetCaseSensitive(FALSE);
}

int HtmlParser::Initialize() {
  m_open.clear();
  m_markupUntil = nullptr;
  return COXParser::Initialize();
}

COXParserElement* HtmlParser::ParseStartTag(COXParserElement* parent, int& empty) {
  COXParserElement* const element = COXParser::ParseStartTag(parent, empty);
  if (element != nullptr && IsAmong(element->GetName(), kVoid)) empty = 1;
  return element;
}

int HtmlParser::ParseAttributes(COXParserElement* element) {
  COXQuickString name;
  int more = GetToken(m_token, TRUE);
  while (more) {
    if (m_token.GetType() != COXToken::TEXT) return 1;
    // A slash that ends nothing is passed over: <br clear=all / >
    if (*m_position == kSlash) {
      GetNextChar();
      more = GetToken(m_token, TRUE);
      continue;
    }
    if (!GetNameToken(name)) return 0;
    more = GetToken(m_token, TRUE);
    if (!more) return 0;
    if (m_token.GetType() != COXToken::EQUALS) {
      if (!Added(element, element->AddAttribute(name, ""))) return 0;
      continue;  // with the token that follows
    }
    if (!ParseValue(element, name)) return 0;
    more = GetToken(m_token, TRUE);
  }
  return 0;
}

bool HtmlParser::ParseValue(COXParserElement* element, const char* name) {
  RemoveWhiteSpace();
  const char quote = GetNextChar();
  if (quote != '"' && quote != '\'') {
    if (quote == kEndOfText) return false;
    UngetChar();
    return ParseBareValue(element, name);
  }
  COXQuickString value;
  if (!GetStringToken(value, quote, TRUE)) return false;
  return Added(element, element->AddAttribute(name, value.GetString()));
}

// A value ends at white space or the end of the tag; a plain number stays one.
bool HtmlParser::ParseBareValue(COXParserElement* element, const char* name) {
  const char* const start = m_position;
  while (*m_position != 0 && *m_position != kTagClose &&
         !isspace(static_cast<unsigned char>(*m_position))) {
    ++m_position;
  }
  const std::string value(start, m_position);
  const int number = atoi(value.c_str());
  return Added(element, std::to_string(number) == value
                            ? element->AddAttribute(name, number)
                            : element->AddAttribute(name, value.c_str()));
}

bool HtmlParser::Added(const COXParserElement* element, const COXAttribute* attribute) {
  if (attribute != nullptr) return true;
  ReportError(kOutOfMemory, "Unable to create new attribute (element %s)", element->GetName());
  return false;
}

int HtmlParser::ParseElement(COXParserElement* element, int depth) {
  if (depth > 0 && IsAmong(element->GetName(), kRaw) && ParseRaw(element)) return 1;
  TakeTextOfMarks(element);
  const auto open = m_open.try_emplace(element->GetName(), 0).first;
  ++open->second;
  const int parsed = COXParser::ParseElement(element, depth);
  if (--open->second == 0) m_open.erase(open);
  return parsed;
}

int HtmlParser::AddObjectToElement(COXParserElement* element, COXParserObject* object) {
  if (!COXParser::AddObjectToElement(element, object)) return 0;
  TakeTextOfMarks(element);
  return 1;
}

// A text may begin with what is a token of its own: <code>=</code>. Where it can't be added the
// parser goes on to refuse that token.
void HtmlParser::TakeTextOfMarks(COXParserElement* element) {
  RemoveWhiteSpace();
  const char* const start = SaveBufferPos();
  COXToken token;
  GetToken(token, FALSE);
  RestoreBufferPos(start);
  const int type = token.GetType();
  if (type != COXToken::EQUALS && type != COXToken::TAG_CLOSE &&
      type != COXToken::EMPTY_TAG_CLOSE && type != COXToken::COMMENT_END) {
    return;
  }
  std::unique_ptr<COXParserObject> text(ParseText(element));
  if (text == nullptr || !COXParser::AddObjectToElement(element, text.get())) {
    RestoreBufferPos(start);
  } else {
    text.release();
  }
}

// The content of a script or style, up to its end tag, is one section. False: it is read as markup,
// because it has no end or contains what ends a section; so is then what stands in it, and each
// part of the page is looked through once.
bool HtmlParser::ParseRaw(COXParserElement* element) {
  const char* const start = m_position;
  if (start < m_markupUntil) return false;
  const size_t length = strlen(element->GetName());
  const char* end = strstr(start, "</");
  while (end != nullptr && _strnicmp(end + 2, element->GetName(), length) != 0) {
    end = strstr(end + 2, "</");
  }
  const std::string content = end != nullptr ? std::string(start, end) : std::string();
  if (end == nullptr || content.find("]]>") != std::string::npos) {
    m_markupUntil = end != nullptr ? end : start + strlen(start);
    return false;
  }
  if (content.find_first_not_of(" \t\r\n") != std::string::npos) {
    auto section =
        std::make_unique<COXParserObject>(element, COXParserObject::CDATA, content.c_str());
    if (!AddObjectToElement(element, section.get())) return false;
    section.release();
  }
  m_position = end + 2;
  COXQuickString name;
  return ParseEndTag(element, name) != 0;
}

int HtmlParser::IsEndTagMissing(const char* element, const char* tag, int isEndTag) {
  const Closing* const closing = FindClosing(element);
  if (tag == nullptr) return closing != nullptr || IsAmong(element, kEndsWithText);
  if (closing == nullptr) return isEndTag && IsAmong(element, kEndsWithText) && IsOpen(tag);
  return isEndTag ? IsOpen(tag) : IsAmong(tag, closing->startTags);
}

int HtmlParser::IgnoreEndTag(const char* name) {
  return IsAmong(name, kVoid) || (!IsOpen(name) && FindClosing(name) != nullptr);
}

const char* HtmlParser::GetLiteralString(const char* name) {
  unsigned long code = 0;
  if (*name == '#') {
    // Only what the parser itself takes for a number.
    const char* const low = COXParser::GetLiteralString(name);
    if (low == nullptr) return nullptr;
    const bool hexadecimal = tolower(name[1]) == 'x';
    code = strtoul(name + (hexadecimal ? 2 : 1), nullptr, hexadecimal ? 16 : 10);
    if (code < 0x80) return low;
  } else {
    const char* const value = COXParser::GetLiteralString(name);
    if (value != nullptr) return value;
    code = HtmlEntity(name);
    if (code == 0) return nullptr;
  }
  m_literal = Utf8(code);
  return m_literal.c_str();
}
