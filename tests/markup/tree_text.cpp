#include "tree_text.h"

#include <cctype>

namespace {

std::string Unwrap(const std::string& text) {
  std::string words;
  for (const char c : text) {
    const bool space = isspace(static_cast<unsigned char>(c)) != 0;
    if (!space) {
      words += c;
    } else if (!words.empty() && words.back() != ' ') {
      words += ' ';
    }
  }
  if (!words.empty() && words.back() == ' ') words.pop_back();
  return words;
}

std::string DescribeAttribute(const COXAttribute& attribute) {
  std::string text = attribute.GetName();
  if (attribute.IsInteger()) return text + "=" + std::to_string(attribute.GetIntValue());
  if (attribute.HasValue()) return text + "='" + attribute.GetStringValue() + "'";
  return text;
}

std::string DescribeElement(const COXParserElement& element, bool unwrapped);

std::string DescribeObject(const COXParserElement& parent, int index, bool unwrapped) {
  const COXParserObject& object = *parent.GetObject(index);
  const std::string text = object.GetText();
  switch (object.GetType()) {
    case COXParserObject::CDATA:
      return "cdata\"" + text + "\"";
    case COXParserObject::COMMENT:
      return "comment\"" + text + "\"";
    case COXParserObject::ELEMENT:
      return DescribeElement(*parent.GetElement(index), unwrapped);
    case COXParserObject::MARKUP:
      return "markup\"" + text + "\"";
    case COXParserObject::PLAINTEXT:
      return "\"" + (unwrapped ? Unwrap(text) : text) + "\"";
    case COXParserObject::PROCINSTR:
      return "pi\"" + text + "\"";
    default:
      return "type " + std::to_string(object.GetType());
  }
}

std::string DescribeElement(const COXParserElement& element, bool unwrapped) {
  std::string text = element.GetName();
  for (int i = 0; i < element.NumAttributes(); ++i) {
    text += (i == 0 ? "[" : " ") + DescribeAttribute(*element.Attribute(i));
  }
  if (element.NumAttributes() > 0) text += "]";
  for (int i = 0; i < element.NumObjects(); ++i) {
    text += (i == 0 ? "{" : " ") + DescribeObject(element, i, unwrapped);
  }
  if (element.NumObjects() > 0) text += "}";
  return text;
}

int Keep(int code, const char* message, int line, int column, unsigned long userData) {
  reinterpret_cast<std::vector<Reported>*>(userData)->push_back({code, line, column, message});
  return 0;
}

}  // namespace

std::string Describe(const COXParserElement& element) { return DescribeElement(element, false); }

std::string DescribeUnwrapped(const COXParserElement& element) {
  return DescribeElement(element, true);
}

Errors::Errors(COXParser& parser) {
  parser.SetErrorRptFunction(Keep, reinterpret_cast<unsigned long>(&m_all));
}

std::string Errors::Text() const {
  std::string text;
  for (const Reported& error : m_all) {
    if (!text.empty()) text += "; ";
    text += std::to_string(error.code) + " " + std::to_string(error.line) + ":" +
            std::to_string(error.column) + " " + error.message;
  }
  return text;
}
