#include "markup/XmlLine.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <source_location>

#include "diag/trace.h"
#include "markup/ElementPath.h"
#include "markup/XmlTag.h"
#include "settings/RegistryUtil.h"

namespace {

CString traceFile;

constexpr char kNullPointer[] = "NULL Pointer";

// Reports misuse in both logs. The titles have two blanks in front, like those of function traces.
void Report(const char* title, const char* text,
            std::source_location where = std::source_location::current()) {
  AssertVerifyTrace::FailedLine(ORVANE_ASSERT_SOURCE, static_cast<int>(where.line()));
  TraceEvent(traceFile, title, text);
}

bool IsSection(const COXParserElement& element, int index) {
  return element.GetObject(index)->GetType() == COXParserObject::CDATA;
}

bool HasSection(const COXParserElement& element) {
  for (int i = 0; i < element.NumObjects(); ++i) {
    if (IsSection(element, i)) return true;
  }
  return false;
}

}  // namespace

void XmlLine::SetTrace(const char* logFile) { traceFile = logFile; }

XmlLine::XmlLine(COXParserElement& element, int object) : m_element(element) {
  const char* const fault = FaultOfLine(object);
  m_lineValid = fault == nullptr;
  if (fault != nullptr) {
    Report("  XMLLine Error", fault);
  } else if (HasObject(object)) {
    m_object = object;
  }
}

const char* XmlLine::FaultOfLine(int object) const {
  if (!m_element.IsValidObj()) return "!IsValidObj";
  if (*m_element.GetName() == 0) return "Invalid Line";
  const bool startsAnywhere = object == kNone || HasObject(object);
  const bool startsNowhere = object == 0 && m_element.NumObjects() == 0;
  if (!startsAnywhere && !startsNowhere) return "NULL Child";
  const bool statesEncoding = m_element.FindAttribute(kXmlEncodingAttribute, false) != nullptr;
  if (statesEncoding && EncodingOf(m_element) != 0 && !HasSection(m_element)) return "CData";
  return nullptr;
}

BOOL XmlLine::HasMoreObjects(int index) const { return IsObjectValid() && HasObject(index); }

BOOL XmlLine::HasMoreAttributes(int index) const {
  return IsAttributeValid() && HasAttribute(index);
}

BOOL XmlLine::SetObject(int index) {
  if (m_lineValid && HasObject(index)) {
    m_object = index;
    return TRUE;
  }
  if (m_lineValid && index == 0) {
    m_object = kNone;
  } else {
    Report("  XMLGetObject Error", kNullPointer);
  }
  return FALSE;
}

BOOL XmlLine::SetCurrentAttribute(int index) {
  if (m_lineValid && HasAttribute(index)) {
    m_attribute = index;
    return TRUE;
  }
  if (m_lineValid && index == 0) {
    m_attribute = kNone;
  } else {
    Report("  XMLGetAtt Error", kNullPointer);
  }
  return FALSE;
}

BOOL XmlLine::IsSameLine(const char* name) const {
  return m_lineValid && name != nullptr && m_element.IsName(name, FALSE);
}

const char* XmlLine::GetName() const { return m_lineValid ? m_element.GetName() : ""; }

// A file that was read has texts for its integer attributes when they are written in quotes.
int XmlLine::EncodingOf(const COXParserElement& element) const {
  const COXAttribute* const encoding = element.FindAttribute(kXmlEncodingAttribute, false);
  return encoding == nullptr ? m_defaultEncoding : atoi(encoding->GetStringValue());
}

CString XmlLine::Decoded(const char* text, int encoding) {
  return encoding != 0 ? MRegistry::DescriptStr(text) : CString(text);
}

CString XmlLine::DataOf(const COXParserElement& element) const {
  size_t length = 0;
  for (int i = 0; i < element.NumObjects(); ++i) {
    if (IsSection(element, i)) length += strlen(element.GetObject(i)->GetText());
  }
  CString data;
  char* end = data.GetBufferSetLength(static_cast<int>(length));
  for (int i = 0; i < element.NumObjects(); ++i) {
    if (!IsSection(element, i)) continue;
    const char* const text = element.GetObject(i)->GetText();
    end = std::copy_n(text, strlen(text), end);
  }
  data.ReleaseBuffer(static_cast<int>(length));
  return Decoded(data, EncodingOf(element));
}

CString XmlLine::GetData() const {
  if (m_lineValid && HasSection(m_element)) return DataOf(m_element);
  Report("  XMLGetObject Error", kNullPointer);
  return CString();
}

CString XmlLine::GetObjectData() const {
  if (HasObject(m_object)) {
    if (IsSection(m_element, m_object)) {
      return Decoded(m_element.GetObject(m_object)->GetText(), EncodingOf(m_element));
    }
    const COXParserElement* const child = ElementAt(m_object);
    if (child != nullptr && HasSection(*child)) return DataOf(*child);
  }
  Report("  XMLGetObject Error", kNullPointer);
  return CString();
}

CString XmlLine::GetAttributeData() const {
  if (HasAttribute(m_attribute)) return m_element.Attribute(m_attribute)->GetStringValue();
  Report("  XMLGetAttData Error", kNullPointer);
  return CString();
}

CString XmlLine::GetAttributeData(int index) const {
  if (m_lineValid && HasAttribute(index)) return m_element.Attribute(index)->GetStringValue();
  Report("  XMLGetAttData Error", kNullPointer);
  return CString();
}

COXParserElement* XmlLine::ElementAt(int index) const {
  if (!HasObject(index) || m_element.GetObject(index)->GetType() != COXParserObject::ELEMENT) {
    return nullptr;
  }
  return m_element.GetElement(index);
}

COXParserElement* XmlLine::GetChild() const {
  COXParserElement* const child = ElementAt(m_object);
  if (child == nullptr) Report("  XMLGetChild Error", "NULL Pointer1");
  return child;
}

COXParserElement* XmlLine::GetChild(const char* path) const {
  COXParserElement* const child = m_lineValid ? m_element.FindElement(path, FALSE) : nullptr;
  if (child == nullptr) Report("  XMLGetChild Error", "NULL Pointer2");
  return child;
}

BOOL XmlLine::RemoveObject(int index) {
  if (!m_lineValid || !HasObject(index)) {
    Report("  XMLGetObject Error", kNullPointer);
    return FALSE;
  }
  m_element.DelObject(index);
  if (index < m_object) --m_object;
  if (!HasObject(m_object)) m_object = kNone;
  return TRUE;
}

// Follows the names that are there, so that the path finds the new child afterwards.
COXParserElement* XmlLine::CreateChild(const char* path, const char* attribute, const char* value) {
  COXParserElement* at = &m_element;
  COXParserElement* firstNew = nullptr;
  while (at != nullptr && *path != 0 && *path != '\\') {
    const char* const end = FirstNameEnd(path);
    COXQuickString name;
    if (!name.SetString(path, static_cast<int>(end - path))) {
      at = nullptr;
      break;
    }
    COXParserElement* const there = firstNew == nullptr ? at->FindElement(name, FALSE) : nullptr;
    at = there != nullptr ? there : at->AddElement(name);
    if (there == nullptr && firstNew == nullptr) firstNew = at;
    path = *end == 0 ? end : end + 1;
  }
  if (at != nullptr && at->AddAttribute(attribute, value) != nullptr) return at;
  if (firstNew != nullptr) firstNew->GetParent()->DelObject(firstNew);
  return nullptr;
}

BOOL XmlLine::ChangeChildVal(const char* path, int value, BOOL create, const char* attribute) {
  const bool canCreate = create && path != nullptr && *path != 0 && *path != '\\';
  COXParserElement* const child = m_lineValid ? m_element.FindElement(path, FALSE) : nullptr;
  if (!m_lineValid || (child == nullptr && !canCreate)) {
    Report("  XMLChangeTag Error", kNullPointer);
    return FALSE;
  }
  char text[12];
  snprintf(text, sizeof text, "%d", value);
  COXAttribute* const old = child == nullptr ? nullptr : child->FindAttribute(attribute, false);
  const bool done = child == nullptr ? CreateChild(path, attribute, text) != nullptr
                    : old == nullptr ? child->AddAttribute(attribute, text) != nullptr
                                     : old->SetValue(text) != 0;
  if (!done) Report("  XML Error", "Change Child Val");
  return done;
}
