#include "markup/XmlTag.h"

#include <cstdio>
#include <cstring>
#include <new>
#include <string_view>

#include "settings/RegistryUtil.h"

namespace {

// A number as a text.
class NumberText {
 public:
  explicit NumberText(int value) { snprintf(m_text, sizeof m_text, "%d", value); }
  explicit NumberText(unsigned long value) { snprintf(m_text, sizeof m_text, "%lu", value); }
  explicit NumberText(const CTime& value)
      : NumberText(static_cast<unsigned long>(value.GetTime())) {}
  operator const char*() const { return m_text; }

 private:
  char m_text[12];
};

constexpr std::string_view kSectionEnd = "]]>";

// Adds a text in as many CDATA sections as it takes: one, unless it has "]]>" in it, which is then
// divided behind its second character.
bool AddSections(COXParserElement& element, const char* text) {
  for (;;) {
    const char* const end = strstr(text, kSectionEnd.data());
    const int length = static_cast<int>(end == nullptr ? strlen(text) : end + 2 - text);
    auto* const section =
        new (std::nothrow) COXParserObject(&element, COXParserObject::CDATA, nullptr);
    COXQuickString part;
    if (section == nullptr || !part.SetString(text, length) ||
        !section->SetText(part.GetString()) || element.AddObject(section) == nullptr) {
      delete section;
      return false;
    }
    if (end == nullptr) return true;
    text += length;
  }
}

}  // namespace

COXParserElement* XmlTag::Counted(COXParserElement* child) {
  m_count += child != nullptr;
  return child;
}

COXParserElement* XmlTag::AddChild(const char* name) {
  return Counted(m_element.InsertElement(m_count, name));
}

COXParserElement* XmlTag::AddChild(const char* name, const char* attribute, const char* value) {
  return Counted(m_element.AddElementAtt(name, m_count, attribute, value));
}

COXParserElement* XmlTag::AddChild(const char* name, const char* attribute, int value) {
  return AddChild(name, attribute, NumberText(value));
}

COXParserElement* XmlTag::AddChild(const char* name, const char* attribute, unsigned long value) {
  return AddChild(name, attribute, NumberText(value));
}

COXParserElement* XmlTag::AddChild(const char* name, const char* attribute, const CTime& value) {
  return AddChild(name, attribute, NumberText(value));
}

// A scrambled text has no "]" in it.
COXParserElement* XmlTag::AddCDataChild(const char* name, const char* text, int encoding) {
  COXParserElement* const child = m_element.InsertElement(m_count, name);
  if (child == nullptr) return nullptr;
  bool added = false;
  try {
    added = encoding != 0 ? AddSections(*child, MRegistry::EncriptStr(text))
                          : AddSections(*child, text == nullptr ? "" : text);
  } catch (CMemoryException* noMemory) {
    noMemory->Delete();
  }
  if (added && encoding != m_defaultEncoding) {
    added = child->AddAttribute(kXmlEncodingAttribute, encoding) != nullptr;
  }
  if (added) return Counted(child);
  m_element.DelObject(m_count);
  return nullptr;
}

COXParserElement* XmlTag::AddCDataChild(const char* name, unsigned long value, int encoding) {
  return AddCDataChild(name, NumberText(value), encoding);
}

BOOL XmlTag::AddAttribute(const char* name, const char* value) {
  return m_element.AddAttribute(name, value) != nullptr;
}

BOOL XmlTag::AddAttribute(const char* name, int value) {
  return AddAttribute(name, NumberText(value));
}

BOOL XmlTag::AddAttribute(const char* name, unsigned long value) {
  return AddAttribute(name, NumberText(value));
}

BOOL XmlTag::AddAttribute(const char* name, const CTime& value) {
  return AddAttribute(name, NumberText(value));
}
