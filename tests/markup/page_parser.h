// A parser for a small part of HTML, as a host may derive one: it closes, ignores, passes over and
// replaces.
#pragma once

#include <cstring>
#include <initializer_list>

#include "markup/OXParser.h"

class PageParser : public COXParser {
 public:
  PageParser() { m_strictEndTags = FALSE; }

 protected:
  int IsEndTagMissing(const char* element, const char* tag, int isEndTag) override {
    return Is(element, {"p", "li"}) && (isEndTag || Is(tag, {"p", "li", "ul"}));
  }
  int IgnoreStartTag(COXParserElement* element, int) override {
    return Is(element->GetName(), {"font"});
  }
  int IgnoreEndTag(const char* name) override { return Is(name, {"font", "br"}); }
  int AddObjectToElement(COXParserElement* element, COXParserObject* object) override {
    if (object->GetType() != COXParserObject::COMMENT) {
      return COXParser::AddObjectToElement(element, object);
    }
    delete object;
    return 1;
  }
  const char* GetLiteralString(const char* name) override {
    return strcmp(name, "nbsp") == 0 ? "\xA0" : COXParser::GetLiteralString(name);
  }
  COXParserElement* ParseStartTag(COXParserElement* parent, int& empty) override {
    COXParserElement* const element = COXParser::ParseStartTag(parent, empty);
    if (element != nullptr && Is(element->GetName(), {"br"})) empty = 1;
    return element;
  }

 private:
  static bool Is(const char* name, std::initializer_list<const char*> names) {
    for (const char* each : names) {
      if (_stricmp(name, each) == 0) return true;
    }
    return false;
  }
};
