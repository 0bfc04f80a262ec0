// The nodes of a markup tree that are not elements.
#pragma once

#include "markup/OXNodeMemory.h"
#include "markup/OXQuickString.h"

class COXParserElement;

// A node: as it stands a text, comment, CDATA section, markup declaration or processing
// instruction; the base of attributes and elements. Nodes that were added to an element belong to
// it.
class ORVANE_API COXParserObject : public COXNodeMemory {
 public:
  enum ObjectType {
    CDATA = 1,  // the raw content of a CDATA section
    COMMENT,    // what stands between "<!--" and "-->"
    ELEMENT,    // a COXParserElement; the text is its name
    MARKUP,     // any other declaration: what stands between "<!" and ">"
    PLAINTEXT,  // characters between tags, entities resolved
    PROCINSTR   // what stands between "<?" and "?>"
  };

  // Type -1, no parent, an empty text.
  COXParserObject() = default;
  // A copy of text; empty when memory runs out.
  COXParserObject(COXParserElement* parent, int type, const char* text);
  // Copies are plain: the parent is the same, but does not hold the copy. An element or attribute
  // is never copied into a variable of this class, which would then pass for one.
  COXParserObject(const COXParserObject& other) = default;
  COXParserObject& operator=(const COXParserObject& other) = default;
  virtual ~COXParserObject() = default;

  int GetType() const { return m_type; }
  void SetType(int type) { m_type = type; }

  unsigned GetFlags() const { return m_flags; }
  void SetFlags(unsigned flags) { m_flags = flags; }

  // The element that holds this node, when its type is ELEMENT, or null.
  COXParserElement* GetParent() const;
  void SetParent(COXParserElement* parent) { m_parent = parent; }

  const char* GetText() const { return m_text.GetString(); }
  // 1, or 0 when memory ran out; the text is then empty.
  int SetText(const char* text) { return m_text.SetString(text); }
  // As COXQuickString::Compare: an empty text equals nothing.
  int IsText(const char* text, int caseSensitive) const {
    return m_text.Compare(text, caseSensitive);
  }

 protected:
  enum ClassTag { kPlain = 0, kAttribute = 1, kElement = 2 };

  COXParserObject(COXParserElement* parent, int type) : m_type(type), m_parent(parent) {}

  COXQuickString m_text;
  int m_type = -1;
  COXParserElement* m_parent = nullptr;
  unsigned m_flags = 0;
  int m_classTag = kPlain;

 private:
  friend class COXNodePool;
  friend class COXParserElement;
};

// A name with a value, which is a text or an integer. Its type is 0.
class ORVANE_API COXAttribute : public COXParserObject {
 public:
  // Without name and value.
  COXAttribute() : COXParserObject(nullptr, 0) {
    m_flags = static_cast<unsigned>(kNone);
    m_classTag = kAttribute;
  }
  COXAttribute(const char* name, const char* value);
  COXAttribute(const char* name, int value);
  COXAttribute(const COXAttribute& other);
  // Copies type, name and value; a value of no kind becomes the integer.
  COXAttribute& operator=(const COXAttribute& other);

  int IsValidObj() const { return m_classTag == kAttribute; }

  const char* GetName() const { return GetText(); }
  int SetName(const char* name) { return SetText(name); }
  int IsName(const char* name, int caseSensitive) const { return IsText(name, caseSensitive); }

  // Whether there is a value, and of which kind.
  bool HasValue() const { return m_flags != static_cast<unsigned>(kNone); }
  bool IsInteger() const { return m_flags == kInteger; }

  // The text; an integer as "%d", in a buffer that all attributes share and the next call
  // overwrites; empty when there is no value.
  const char* GetStringValue() const;
  // The integer; 0 for a text.
  int GetIntValue() const { return m_flags == kString ? 0 : m_intValue; }

  // A text leaves the integer field as it is; an integer empties the text. 1, or 0 when memory ran
  // out.
  int SetValue(const char* value);
  int SetValue(int value);

  // Whether the value is this text. Never for an integer or an empty text.
  int IsValue(const char* value, int caseSensitive) const;

 protected:
  // The kind of value, kept in the flags.
  enum Kind { kNone = -1, kString = 0, kInteger = 1 };

  COXQuickString m_stringValue;
  int m_intValue = 0;

 private:
  friend class COXNodePool;
};
