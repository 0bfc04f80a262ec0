// Builds the children and attributes of an element of a markup tree.
#pragma once

#include <afxwin.h>

#include "markup/OXElement.h"

// The attribute by which a child with a CDATA section states its encoding.
inline constexpr char kXmlEncodingAttribute[] = "enc";

// Adds to one element, which must outlive the object. The children added through one object stand
// in the order added, in front of those that the element had before; texts of values are "%d" for
// an int, "%lu" for an unsigned long and for a time (seconds since 1970).
//
// Children belong to the element. When memory runs out an operation gives null or FALSE and adds
// nothing.
//
// An encoding is 0 for a plain text and anything else for a scrambled one (MRegistry::EncriptStr).
class ORVANE_API XmlTag {
 public:
  // defaultEncoding: the one that a reader takes for granted, see XmlLine::SetDefaultEncoding.
  XmlTag(COXParserElement& element, int defaultEncoding)
      : m_element(element), m_defaultEncoding(defaultEncoding) {}
  virtual ~XmlTag() = default;

  COXParserElement* AddChild(const char* name);
  // With an attribute, whose value is stored as a text.
  COXParserElement* AddChild(const char* name, const char* attribute, const char* value);
  COXParserElement* AddChild(const char* name, const char* attribute, int value);
  COXParserElement* AddChild(const char* name, const char* attribute, unsigned long value);
  COXParserElement* AddChild(const char* name, const char* attribute, const CTime& value);

  // With a CDATA section, and the integer attribute "enc" when the encoding is not the default one.
  // A plain text with "]]>" in it, which would end the section, is put into several sections.
  COXParserElement* AddCDataChild(const char* name, const char* text, int encoding);
  COXParserElement* AddCDataChild(const char* name, unsigned long value, int encoding);

  // Adds an attribute to the element itself, as a text.
  BOOL AddAttribute(const char* name, const char* value);
  BOOL AddAttribute(const char* name, int value);
  BOOL AddAttribute(const char* name, unsigned long value);
  BOOL AddAttribute(const char* name, const CTime& value);

 private:
  // Counts a child that was inserted at m_count.
  COXParserElement* Counted(COXParserElement* child);

  COXParserElement& m_element;
  int m_count = 0;
  int m_defaultEncoding;
};
