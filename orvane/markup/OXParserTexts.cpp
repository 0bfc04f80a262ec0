// Reading what is not a tag: texts, comments, sections, declarations.
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "markup/CharClasses.h"
#include "markup/NodePoolInline.h"
#include "markup/OXParser.h"
#include "markup/TextScan.h"

namespace {

// What COXQuickString::Trim leaves of a text, its way with leading white space included.
std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsSpace(text.back())) text.remove_suffix(1);
  size_t leading = 0;
  while (leading < text.size() && IsSpace(text[leading])) ++leading;
  text.remove_suffix(leading);
  return text;
}

// The number that digits (without sign) stand for, modulo 2^32; false: there are none, or others.
bool ReadDigits(const char* digits, unsigned base, unsigned& number) {
  number = 0;
  if (*digits == 0) return false;
  for (; *digits != 0; ++digits) {
    const char c = *digits;
    const char lower = static_cast<char>(c | 0x20);
    unsigned digit = base;
    if (IsDigit(c)) digit = c - '0';
    if (lower >= 'a' && lower <= 'f') digit = lower - 'a' + 10;
    if (digit >= base) return false;
    number = number * base + digit;
  }
  return true;
}

}  // namespace

// Always false, and null where an object is expected.
bool COXParser::ReportNoObject() {
  ReportError(kOutOfMemory, "Unable to create new parser object");
  return false;
}

COXParserObject* COXParser::NewObject(COXParserElement* parent, int type, Text text) {
  COXParserObject* const object = m_pool.NewObject(parent, type, text);
  if (object == nullptr) ReportNoObject();
  return object;
}

// text is part of the input, where a line end may be two characters.
COXParserObject* COXParser::NewJoined(COXParserElement* parent, int type, Text text) {
  const char* const end = text.data() + text.size();
  if (FindFirst<kCarriageReturn>(text.data(), end) == end) return NewObject(parent, type, text);
  m_pieces.Clear();
  if (m_pieces.AppendJoined(text)) return NewObject(parent, type, m_pieces.Text());
  ReportNoObject();
  return nullptr;
}

// Reads up to and over what closes an object.
bool COXParser::ReadUntil(Text closing, const char* error, Text& text) {
  const char last = closing.back();
  const Text rest = Rest();
  for (size_t from = closing.size() - 1; from < rest.size(); ++from) {
    const auto* const found =
        static_cast<const char*>(memchr(rest.data() + from, last, rest.size() - from));
    if (found == nullptr) break;
    from = found - rest.data();
    text = rest.substr(0, from + 1);
    if (!text.ends_with(closing)) continue;
    text.remove_suffix(closing.size());
    m_position = found + 1;
    return true;
  }
  m_position = m_end;
  ReportError(kEndOfBuffer, "%s", error);
  return false;
}

COXParserObject* COXParser::ParseProcessingInstruction(COXParserElement* parent) {
  Text text;
  if (!ReadUntil("?>", "Unexpected end of buffer while parsing processing instruction.", text)) {
    return nullptr;
  }
  return NewJoined(parent, COXParserObject::PROCINSTR, text);
}

COXParserObject* COXParser::ParseComment(COXParserElement* parent) {
  Text text;
  if (!ReadUntil("-->", "Unexpected end of buffer while parsing comment.", text)) return nullptr;
  return NewJoined(parent, COXParserObject::COMMENT, text);
}

COXParserObject* COXParser::ParseMarkup(COXParserElement* parent) {
  if (Rest().starts_with("DOCTYPE")) return ParseDocType(parent);
  if (Rest().starts_with("[CDATA[")) return ParseCData(parent);
  Text text;
  if (!ReadUntil(">", "Unexpected end of buffer while parsing markup.", text)) return nullptr;
  return NewJoined(parent, COXParserObject::MARKUP, text);
}

COXParserObject* COXParser::ParseCData(COXParserElement* parent) {
  m_position += strlen("[CDATA[");
  Text text;
  // A section that the text ends with is accepted, by design, when it is empty.
  if (m_position != m_end && !ReadUntil("]]>", "Unexpected end of buffer while CDATA.", text)) {
    return nullptr;
  }
  return NewObject(parent, COXParserObject::CDATA, text);
}

// The object keeps what stands before the "[" of an internal subset, and what stands behind it from
// the "]" on.
COXParserObject* COXParser::ParseDocType(COXParserElement* parent) {
  constexpr char kError[] = "Unexpected end of buffer while parsing DOCTYPE entry.";
  const char* const start = m_position;
  const char* const stop = FindFirst<kTagClose, '['>(start, m_end);
  Text text;
  if (stop == m_end || *stop == kTagClose) {
    if (!ReadUntil(">", kError, text)) return nullptr;
    return NewJoined(parent, COXParserObject::MARKUP, text);
  }
  m_position = stop + 1;
  if (!ParseSubset() || !ReadUntil(">", kError, text)) return nullptr;
  m_pieces.Clear();
  if (m_pieces.AppendJoined({start, static_cast<size_t>(stop - start)}) &&
      m_pieces.AppendJoined(text)) {
    return NewObject(parent, COXParserObject::MARKUP, m_pieces.Text());
  }
  ReportNoObject();
  return nullptr;
}

// Goes over the declarations up to the "]".
bool COXParser::ParseSubset() {
  for (;;) {
    m_position = FindFirst<kTagOpen, ']'>(m_position, m_end);
    if (m_position != m_end && *m_position == ']') return true;
    const char* const end = std::find(m_position, m_end, kTagClose);
    if (end == m_end) {
      m_position = m_end;
      ReportError(kEndOfBuffer, "Unexpected end of buffer while parsing DOCTYPE entry.");
      return false;
    }
    const Text declaration(m_position + 1, end - m_position - 1);
    m_position = end + 1;
    if (!DeclareEntity(declaration)) {
      ReportError(kOutOfMemory, "Unable to declare an entity");
      return false;
    }
  }
}

// Declares the entity of "!ENTITY name value"; the value is what follows the name, quotes included.
bool COXParser::DeclareEntity(Text declaration) {
  constexpr Text kDeclares = "!ENTITY ";
  if (declaration.size() <= kDeclares.size() ||
      _strnicmp(declaration.data(), kDeclares.data(), kDeclares.size()) != 0) {
    return true;
  }
  declaration.remove_prefix(kDeclares.size());
  const Text name = declaration.substr(0, declaration.find(' '));
  declaration.remove_prefix(name.size());
  declaration.remove_prefix(std::min(declaration.find_first_not_of(" \t"), declaration.size()));
  return m_entities.Declare(name, declaration);
}

COXParserObject* COXParser::ParseText(COXParserElement* parent) {
  const char* const start = m_position;
  const char* const stop = FindFirst<kTagOpen, kAmpersand, kCarriageReturn>(start, m_end);
  if (stop != m_end && *stop != kTagOpen) return ParsePieces(parent, stop);
  m_position = stop;
  const Text text(start, stop - start);
  return NewObject(parent, COXParserObject::PLAINTEXT, Trimmed(text));
}

// A text that isn't the same as its part of the input: stop is the first place that may differ.
COXParserObject* COXParser::ParsePieces(COXParserElement* parent, const char* stop) {
  m_pieces.Clear();
  while (AppendPiece({m_position, static_cast<size_t>(stop - m_position)})) {
    m_position = stop;
    if (stop == m_end || *stop == kTagOpen) {
      return NewObject(parent, COXParserObject::PLAINTEXT, Trimmed(m_pieces.Text()));
    }
    ++m_position;
    // A carriage return before a line feed is left out.
    const bool good = *stop == kAmpersand        ? ParseEntity()
                      : *m_position != kLineFeed ? AppendPiece("\r")
                                                 : true;
    if (!good) break;
    stop = FindFirst<kTagOpen, kAmpersand, kCarriageReturn>(m_position, m_end);
  }
  return nullptr;
}

bool COXParser::AppendPiece(Text text) { return m_pieces.Append(text) || ReportNoObject(); }

// Reads an entity reference from behind its "&" and appends what it stands for.
bool COXParser::ParseEntity() {
  const char* end = m_position;
  while (end != m_end && *end != ';' && *end != kTagOpen && !IsSpace(*end)) ++end;
  m_entityName.Clear();
  const char* name = nullptr;
  if (m_entityName.Append(Text(m_position, end - m_position))) name = m_entityName.ZeroTerminated();
  if (name == nullptr) return ReportNoObject();
  const bool complete = *end == ';';
  m_position = complete ? end + 1 : end;

  const char* const value = complete ? GetLiteralString(name) : nullptr;
  if (value == nullptr) {
    ReportError(kBadEntity,
                complete ? "Bad character entity '&%.511s;' encountered."
                         : "Missing ';' on character entity '&%.511s'.",
                name);
    return AppendPiece("&") && AppendPiece(m_entityName.Text()) && AppendPiece(complete ? ";" : "");
  }
  // A declared value ends at its first blank or closing bracket; the bracket alone is itself.
  size_t length = 0;
  while (value[length] != 0 && value[length] != ' ' && value[length] != kTagClose) ++length;
  if (length == 0 && value[0] == kTagClose && value[1] == 0) length = 1;
  m_expanded += length;
  if (m_expanded >
      static_cast<unsigned long long>(m_end - m_text) * kMaxExpansion + kFreeExpansion) {
    ReportError(kOutOfMemory, "Entities make the document more than %u times as large.",
                kMaxExpansion);
    return false;
  }
  return AppendPiece({value, length});
}

const char* COXParser::GetLiteralString(const char* name) {
  if (*name != '#') return m_entities.Find(name);
  const bool hexadecimal = name[1] == 'x' || name[1] == 'X';
  unsigned number = 0;
  if (!ReadDigits(name + (hexadecimal ? 2 : 1), hexadecimal ? 16 : 10, number)) return nullptr;
  static char text[2];
  text[0] = static_cast<char>(number);
  return text;
}
