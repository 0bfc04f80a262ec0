// Reading elements, their tags and attributes. A message takes 511 characters, so no more of a name
// is given to it: names may be as long as the document.
#include <algorithm>
#include <memory>

#include "markup/NodePoolInline.h"
#include "markup/ParserReading.h"

// Attributes on their way to an element. They are added together, so that its list mostly grows
// once.
struct COXAttributeGroup {
  static constexpr int kSize = 16;

  COXAttributeGroup() = default;
  COXAttributeGroup(const COXAttributeGroup&) = delete;
  COXAttributeGroup& operator=(const COXAttributeGroup&) = delete;
  ~COXAttributeGroup() { Delete(); }
  void Delete() {
    while (m_count > 0) delete m_attributes[--m_count];
  }

  COXParserObject* m_attributes[kSize];
  int m_count = 0;
};

namespace {

// Names are the same whatever their case, and mostly have the same case too.
bool SameName(const char* element, const char* tag) {
  const char* a = element;
  const char* b = tag;
  while (*a == *b && *a != 0) ++a, ++b;
  return (*a == *b || _stricmp(a, b) == 0) && *tag != 0;
}

}  // namespace

int COXParser::IsEndTagMissing(const char*, const char*, int) { return FALSE; }

int COXParser::IgnoreStartTag(COXParserElement*, int) { return FALSE; }

int COXParser::IgnoreEndTag(const char*) { return FALSE; }

int COXParser::AddObjectToElement(COXParserElement* element, COXParserObject* object) {
  if (object == nullptr) return 0;
  return element->Append(element->m_objects, object, m_pool);
}

inline bool COXParser::AddChild(COXParserElement* element, COXParserObject* child) {
  if (AddObjectToElement(element, child)) return true;
  ReportError(kOutOfMemory, "Unable to add an object to element '%.511s'.", element->GetName());
  return false;
}

// Calls itself for every level of a document, so its frame is to be small: whatever needs room is
// done in functions that have returned by then.
int COXParser::ParseElement(COXParserElement* element, int depth) {
  bool closed = false;
  const char* start = SaveBufferPos();
  while (!closed && NextToken()) {
    const int type = m_token.GetType();
    if (type == COXToken::TAG_START) {
      std::unique_ptr<COXParserElement> child;
      const Opened opened = OpenChild(element, depth, start, child);
      if (opened == Opened::kFailed) return 0;
      if (opened == Opened::kWithContent && !ParseElement(child.get(), depth + 1)) return 0;
      if (child != nullptr && !AddChild(element, child.get())) return 0;
      child.release();
      closed = opened == Opened::kClosesParent;
    } else if (type == COXToken::END_TAG_START) {
      if (!ParseClosing(element, depth, start, closed)) return 0;
    } else {
      if (!ParseContent(element)) return 0;
    }
    start = SaveBufferPos();
  }
  if (closed || depth == 0 || IsEndTagMissing(element->GetName(), nullptr, TRUE)) return 1;
  ReportError(kMissingEndTag, "Missing end tag '%.511s'.", element->GetName());
  return 0;
}

// Reads a start tag. There is no child when the tag is passed over or closes the element.
COXParser::Opened COXParser::OpenChild(COXParserElement* element, int depth, const char* start,
                                       std::unique_ptr<COXParserElement>& child) {
  int empty = 0;
  child.reset(ParseStartTag(element, empty));
  if (child == nullptr) return Opened::kFailed;
  if (IgnoreStartTag(child.get(), empty)) {
    child.reset();
    return Opened::kNothing;
  }
  if (depth > 0 && IsEndTagMissing(element->GetName(), child->GetName(), FALSE)) {
    RestoreBufferPos(start);
    child.reset();
    return Opened::kClosesParent;
  }
  if (depth >= kMaxNesting) {
    ReportError(kOutOfMemory, "Elements are nested deeper than %d levels.", kMaxNesting);
    return Opened::kFailed;
  }
  return empty ? Opened::kEmpty : Opened::kWithContent;
}

bool COXParser::ParseClosing(COXParserElement* element, int depth, const char* start,
                             bool& closed) {
  COXQuickString& name = m_endTagName;
  if (!ParseEndTag(element, name)) return false;
  if (IgnoreEndTag(name)) return true;
  if (depth == 0) {
    ReportError(kUnexpectedEndTag, "Unexpected end tag '%.511s'.", name.GetString());
  } else if (SameName(element->GetName(), name.GetString())) {
    closed = true;
  } else if (IsEndTagMissing(element->GetName(), name, TRUE)) {
    RestoreBufferPos(start);
    closed = true;
  } else {
    ReportError(kMissingEndTag, "Expecting end tag '%.511s'. Found end tag '%.511s' instead.",
                element->GetName(), name.GetString());
    return !m_strictEndTags;
  }
  return true;
}

bool COXParser::ParseContent(COXParserElement* element) {
  std::unique_ptr<COXParserObject> object;
  switch (m_token.GetType()) {
    case COXToken::PI_START:
      object.reset(ParseProcessingInstruction(element));
      break;
    case COXToken::COMMENT_START:
      object.reset(ParseComment(element));
      break;
    case COXToken::MARKUP_START:
      object.reset(ParseMarkup(element));
      break;
    case COXToken::DOUBLE_QUOTE:
    case COXToken::SINGLE_QUOTE:
      UngetChar();
      [[fallthrough]];
    case COXToken::TEXT:
      object.reset(ParseText(element));
      break;
    default:
      ReportError(kUnexpectedToken, "Unexpected token.");
      return false;
  }
  if (object == nullptr || !AddChild(element, object.get())) return false;
  object.release();
  return true;
}

COXParserElement* COXParser::ParseStartTag(COXParserElement* parent, int& empty) {
  if (!NextToken()) {
    ReportError(kEndOfBuffer, "Unexpected end of buffer while searching for tag name.");
    return nullptr;
  }
  if (m_token.GetType() != COXToken::TEXT) {
    ReportError(kUnexpectedToken, "Expecting tag name - none found.");
    return nullptr;
  }
  Text name;
  if (!ReadName(name)) return nullptr;
  std::unique_ptr<COXParserElement> element(m_pool.NewElement(parent, name));
  if (element == nullptr) {
    ReportError(kOutOfMemory, "Unable to create new parser Element");
    return nullptr;
  }
  if (!ParseAttributes(element.get())) return nullptr;
  empty = m_token.GetType() == COXToken::EMPTY_TAG_CLOSE;
  if (!empty && m_token.GetType() != COXToken::TAG_CLOSE) {
    ReportError(kMissingBracket, "Closing bracket for start tag '%.511s' not found.",
                element->GetName());
    return nullptr;
  }
  return element.release();
}

int COXParser::ParseAttributes(COXParserElement* element) {
  if (!NextToken()) {
    GetNextChar();  // reports the end
    return 0;
  }
  return m_token.GetType() == COXToken::TEXT ? ParseAttributeList(element) : 1;
}

// Stands on the first of at least one attribute.
int COXParser::ParseAttributeList(COXParserElement* element) {
  COXAttributeGroup group;
  bool good = true;
  while (good && m_token.GetType() == COXToken::TEXT) {
    std::unique_ptr<COXAttribute> attribute(ParseAttribute(element));
    good = attribute != nullptr;
    if (good) group.m_attributes[group.m_count++] = attribute.release();
    if (good && group.m_count == COXAttributeGroup::kSize) good = AddAttributes(element, group);
    if (good && !NextToken()) {
      GetNextChar();
      good = false;
    }
  }
  return AddAttributes(element, group) && good;
}

bool COXParser::AddAttributes(COXParserElement* element, COXAttributeGroup& group) {
  if (!element->m_attributes.Append(group.m_attributes, group.m_count, &m_pool)) {
    ReportError(kOutOfMemory, "Unable to create new attribute (element %.511s)",
                element->GetName());
    group.Delete();  // or it would be tried, and reported, again
    return false;
  }
  group.m_count = 0;
  return true;
}

COXAttribute* COXParser::ParseAttribute(COXParserElement* element) {
  Text name;
  if (!ReadName(name)) return nullptr;
  const auto fail = [&](int code, const char* what) {
    ReportError(code, "%s while parsing attribute (element %.511s, name %.*s).", what,
                element->GetName(), static_cast<int>(std::min<size_t>(name.size(), 511)),
                name.data());
    return nullptr;
  };
  if (!NextToken()) return fail(kNoToken, "Error");
  if (m_token.GetType() != COXToken::EQUALS) return fail(kUnexpectedToken, "Unexpected token");
  if (!NextToken()) return fail(kNoToken, "Error");

  Text value;
  int number = 0;
  const int type = m_token.GetType();
  switch (type) {
    case COXToken::TEXT:
      if (!ReadNumber(number)) return nullptr;
      break;
    case COXToken::DOUBLE_QUOTE:
      if (!ReadString('"', true, value)) return nullptr;
      break;
    case COXToken::SINGLE_QUOTE:
      // Not decoded, by design: the way to write a value with entities in it.
      if (!ReadString('\'', false, value)) return nullptr;
      break;
    default:
      return fail(kUnexpectedToken, "Unexpected token");
  }
  COXAttribute* const attribute = type == COXToken::TEXT
                                      ? m_pool.NewAttribute(element, name, number)
                                      : m_pool.NewAttribute(element, name, value);
  if (attribute == nullptr) {
    ReportError(kOutOfMemory, "Unable to create new attribute (element %.511s)",
                element->GetName());
  }
  return attribute;
}

int COXParser::ParseEndTag(COXParserElement*, COXQuickString& name) {
  if (!NextToken()) {
    ReportError(kNoToken, "Unexpected end of buffer while parsing endtag.");
    return 0;
  }
  if (m_token.GetType() != COXToken::TEXT) {
    ReportError(kUnexpectedToken, "Missing end tag name.");
    return 0;
  }
  if (!GetNameToken(name)) return 0;
  if (NextToken() && m_token.GetType() == COXToken::TAG_CLOSE) return 1;
  ReportError(kNoToken, "Missing end bracket while parsing end tag '%.511s'.", name.GetString());
  return 0;
}
