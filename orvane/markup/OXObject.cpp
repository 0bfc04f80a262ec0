#include <cstdio>

#include "markup/OXElement.h"

COXParserObject::COXParserObject(COXParserElement* parent, int type, const char* text)
    : m_text(text), m_type(type), m_parent(parent) {}

COXParserElement* COXParserObject::GetParent() const {
  return m_parent != nullptr && m_parent->GetType() == ELEMENT ? m_parent : nullptr;
}

COXAttribute::COXAttribute(const char* name, const char* value) : COXAttribute() {
  SetName(name);
  SetValue(value);
}

COXAttribute::COXAttribute(const char* name, int value) : COXAttribute() {
  SetName(name);
  SetValue(value);
}

COXAttribute::COXAttribute(const COXAttribute& other) = default;

COXAttribute& COXAttribute::operator=(const COXAttribute& other) {
  if (this == &other) return *this;
  m_type = other.m_type;
  m_text = other.m_text;
  if (other.m_flags == kString) {
    SetValue(other.m_stringValue.GetString());
  } else {
    SetValue(other.m_intValue);
  }
  return *this;
}

const char* COXAttribute::GetStringValue() const {
  if (m_flags == kString) return m_stringValue.GetString();
  if (m_flags != kInteger) return "";
  static char text[12];
  snprintf(text, sizeof text, "%d", m_intValue);
  return text;
}

int COXAttribute::SetValue(const char* value) {
  m_flags = kString;
  return m_stringValue.SetString(value);
}

int COXAttribute::SetValue(int value) {
  m_stringValue.Empty();
  m_flags = kInteger;
  m_intValue = value;
  return 1;
}

int COXAttribute::IsValue(const char* value, int caseSensitive) const {
  return m_flags == kString && m_stringValue.Compare(value, caseSensitive);
}
