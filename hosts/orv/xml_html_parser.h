// Reads HTML pages with the library's parser: what derived parsers are for.
#pragma once

#include <map>
#include <string>

#include "markup/OXParser.h"

// Closes elements whose end tag HTML lets out (p, li, td, tr, option and their like) and those that
// have none (br, img...); takes attributes without value or without quotes, texts that begin with
// "=" or ">", and scripts and styles as they are. Character references and the common entities
// become UTF-8. Wrong end tags are reported and passed over.
class HtmlParser : public COXParser {
 public:
  HtmlParser();

 protected:
  int Initialize() override;
  COXParserElement* ParseStartTag(COXParserElement* parent, int& empty) override;
  int ParseAttributes(COXParserElement* element) override;
  int ParseElement(COXParserElement* element, int depth) override;
  int IsEndTagMissing(const char* element, const char* tag, int isEndTag) override;
  int IgnoreEndTag(const char* name) override;
  int AddObjectToElement(COXParserElement* element, COXParserObject* object) override;
  const char* GetLiteralString(const char* name) override;

 private:
  struct WithoutCase {
    bool operator()(const std::string& left, const std::string& right) const {
      return _stricmp(left.c_str(), right.c_str()) < 0;
    }
  };

  bool ParseValue(COXParserElement* element, const char* name);
  bool ParseBareValue(COXParserElement* element, const char* name);
  // Whether an attribute was created; reports when it was not.
  bool Added(const COXParserElement* element, const COXAttribute* attribute);
  bool ParseRaw(COXParserElement* element);
  void TakeTextOfMarks(COXParserElement* element);
  bool IsOpen(const char* name) const { return m_open.find(name) != m_open.end(); }

  std::map<std::string, int, WithoutCase> m_open;  // how many elements of a name are open
  const char* m_markupUntil = nullptr;  // scripts and styles before this place are markup
  std::string m_literal;
};
