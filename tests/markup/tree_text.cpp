#include "tree_text.h"

namespace {

std::string DescribeAttribute(const COXAttribute& attribute) {
  std::string text = attribute.GetName();
  if (attribute.IsInteger()) return text + "=" + std::to_string(attribute.GetIntValue());
  if (attribute.HasValue()) return text + "='" + attribute.GetStringValue() + "'";
  return text;
}

std::string DescribeObject(const COXParserObject& object, bool unwrapped) {
  static const char* const kNames[] = {"", "cdata", "comment", "", "markup", "", "pi"};
  COXQuickString text(object.GetText());
  const int type = object.GetType();
  if (type == COXParserObject::PLAINTEXT && unwrapped) text.Strip();
  return std::string(kNames[type]) + "\"" + text.GetString() + "\"";
}

}  // namespace

std::string Describe(const COXParserElement& element, bool unwrapped) {
  std::string text = element.GetName();
  for (int i = 0; i < element.NumAttributes(); ++i) {
    text += (i == 0 ? "[" : " ") + DescribeAttribute(*element.Attribute(i));
  }
  if (element.NumAttributes() > 0) text += "]";
  for (int i = 0; i < element.NumObjects(); ++i) {
    const COXParserObject& object = *element.GetObject(i);
    text += (i == 0 ? "{" : " ");
    text += object.GetType() == COXParserObject::ELEMENT
                ? Describe(*element.GetElement(i), unwrapped)
                : DescribeObject(object, unwrapped);
  }
  if (element.NumObjects() > 0) text += "}";
  return text;
}

Errors::Errors(COXParser& parser) {
  const auto keep = [](int code, const char* message, int line, int column, unsigned long errors) {
    reinterpret_cast<Errors*>(errors)->m_all.push_back({code, line, column, message});
    return 0;
  };
  parser.SetErrorRptFunction(keep, reinterpret_cast<unsigned long>(this));
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
