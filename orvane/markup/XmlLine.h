// Reads and changes an element of a markup tree through cursors.
#pragma once

#include <afxwin.h>

#include "markup/OXElement.h"

// A cursor over the objects (children of any kind) of one element, and one over its attributes; the
// element, a "line" of a settings or catalogue file, must outlive the XmlLine.
//
//     for (int i = 0; line.HasMoreObjects(i); ++i) {
//       line.SetObject(i);
//       ... line.GetChild(), line.GetObjectData() ...
//     }
//
// A cursor is an index counted from 0, or not valid:
// - The object cursor starts where the constructor says, the attribute cursor not valid.
// - SetObject and SetCurrentAttribute move it to something that is there; otherwise it stays.
//   Always allowed is 0 alone, as "the first, if any": with nothing there the cursor is not valid
//   from then on.
// - RemoveObject keeps the cursor at its object; when it is that one that goes, at the one that
//   followed it; when none followed, it is not valid.
// - Nothing else moves a cursor. An object that is added in front or deleted past the XmlLine
//   leaves the index as it is.
//
// The line is valid unless the constructor found a fault. Of a line that is not valid nothing can
// be read or changed.
//
// Misuse gives null, an empty text or FALSE. It is reported by ASSERT, and by an event in the trace
// log that SetTrace names.
class ORVANE_API XmlLine {
 public:
  // object: where the object cursor starts; -1 for not valid, 0 for the first, if any. The line is
  // not valid when the element has no name, when there is no such object, or when the element
  // states an encoding ("enc") but has no CDATA section.
  XmlLine(COXParserElement& element, int object);
  virtual ~XmlLine() = default;

  // The trace log's file, for the process; null or empty: none.
  static void SetTrace(const char* logFile);

  // The encoding of CDATA sections in elements that do not state one: what the XmlTag that wrote
  // them had for its default. 0 (plain) unless set here.
  void SetDefaultEncoding(int encoding) { m_defaultEncoding = encoding; }

  BOOL IsLineValid() const { return m_lineValid; }
  BOOL IsObjectValid() const { return m_object != kNone; }
  BOOL IsAttributeValid() const { return m_attribute != kNone; }
  // Whether the cursor is valid and there is something at an index.
  BOOL HasMoreObjects(int index) const;
  BOOL HasMoreAttributes(int index) const;

  BOOL SetObject(int index);
  BOOL SetCurrentAttribute(int index);

  // Whether the element has this name, in any letter case.
  BOOL IsSameLine(const char* name) const;
  const char* GetName() const;

  // The text of the element's own CDATA sections, unscrambled when it states an encoding. Sections
  // that follow each other are one text.
  CString GetData() const;
  // The same of the object at the cursor: an element, or a CDATA section of the line's own.
  CString GetObjectData() const;

  // The value of the attribute at the cursor, or at an index, as a text.
  CString GetAttributeData() const;
  CString GetAttributeData(int index) const;

  // The element at the cursor; at a path (COXParserElement::FindElement, in any letter case).
  COXParserElement* GetChild() const;
  COXParserElement* GetChild(const char* path) const;

  // Deletes an object.
  BOOL RemoveObject(int index);

  // Sets an attribute of the child at a path to a number. create: what is missing of the path is
  // appended; otherwise a missing child is misuse.
  BOOL ChangeChildVal(const char* path, int value, BOOL create, const char* attribute = "val");

 private:
  static constexpr int kNone = -1;

  bool HasObject(int index) const { return index >= 0 && index < m_element.NumObjects(); }
  bool HasAttribute(int index) const { return index >= 0 && index < m_element.NumAttributes(); }
  // What is wrong with the line, or null.
  const char* FaultOfLine(int object) const;
  // The element among the objects at an index, or null.
  COXParserElement* ElementAt(int index) const;
  int EncodingOf(const COXParserElement& element) const;
  CString DataOf(const COXParserElement& element) const;
  static CString Decoded(const char* text, int encoding);
  // Adds what is missing of a path, with an attribute for its end; null, and nothing is added, when
  // memory runs out.
  COXParserElement* CreateChild(const char* path, const char* attribute, const char* value);

  COXParserElement& m_element;
  int m_object = kNone;
  int m_attribute = kNone;
  int m_defaultEncoding = 0;
  bool m_lineValid;
};
