// An element of a markup tree.
#pragma once

#include "markup/OXNodeList.h"
#include "markup/OXObject.h"

class CTime;

// An element: a name, attributes and children, both in order. What is added belongs to the element
// and is deleted with it, or when it is deleted or cleared here.
//
// Indexes count from 0. An index out of range gives null or 0, changes nothing and is reported by
// ASSERT. An operation that creates something returns null when memory runs out, and then nothing
// was added.
//
// A copy of an element shares the children and attributes of the original and never deletes them;
// it owns what is added to it afterwards. Using a copy after the original, or one of the nodes that
// they share, is gone is an error of the caller's.
class ORVANE_API COXParserElement : public COXParserObject {
 public:
  COXParserElement() : COXParserObject(nullptr, ELEMENT) { m_classTag = kElement; }
  // A copy of name. parent is only remembered: adding is another step.
  COXParserElement(COXParserElement* parent, const char* name);
  COXParserElement(const COXParserElement& other);
  COXParserElement& operator=(const COXParserElement& other);
  // Deletes children and attributes, without recursion however deep the tree is. The destructor of
  // a derived class no longer finds children in an element that is deleted as part of a larger
  // tree.
  ~COXParserElement() override;

  int IsValidObj() const { return m_classTag == kElement; }

  const char* GetName() const { return GetText(); }
  int SetName(const char* name) { return SetText(name); }
  int IsName(const char* name, int caseSensitive) const { return IsText(name, caseSensitive); }

  int NumObjects() const { return m_objects.Count(); }
  int NumAttributes() const { return m_attributes.Count(); }

  // (<windows.h> makes a macro of GetObject. It stands for one name here and in every caller, since
  // this header includes it.)
  COXParserObject* GetObject(int index) const;
  COXAttribute* Attribute(int index) const;
  // The child at index when it is an element; else null, with an ASSERT.
  COXParserElement* GetElement(int index) const;

  // Makes an object the last child, or the child at index (0 to NumObjects()), with this element as
  // its parent, and returns it. Null for null or when memory ran out: the object stays the
  // caller's.
  COXParserObject* AddObject(COXParserObject* object);
  COXParserObject* InsertObject(int index, COXParserObject* object);
  // The same with a new element.
  COXParserElement* AddElement(const char* name);
  COXParserElement* InsertElement(int index, const char* name);
  // Moves a child to index, counted without it, or inserts an object that is not a child yet. 1, or
  // 0 when nothing was changed.
  int MoveObject(int index, COXParserObject* object);

  // A new child element at index with one text attribute; numbers and times (seconds since 1970)
  // are stored as "%d".
  COXParserElement* AddElementAtt(const char* name, int index, const char* attribute,
                                  const char* value);
  COXParserElement* AddElementAtt(const char* name, int index, const char* attribute, int value);
  COXParserElement* AddElementAtt(const char* name, int index, const char* attribute, CTime value);
  // A new child element at index that holds one object of a type.
  COXParserElement* AddElementObj(const char* name, int index, const char* text, int type);

  // Takes a child out and deletes it: 1, or 0 when there is none.
  int DelObject(int index);
  int DelObject(COXParserObject* object);
  void ClearObjects();

  // Makes an attribute the last one; names may repeat. Null as for AddObject.
  COXAttribute* AddAttribute(COXAttribute* attribute);
  COXAttribute* AddAttribute(const char* name, const char* value);
  COXAttribute* AddAttribute(const char* name, int value);
  int DelAttribute(int index);
  int DelAttribute(COXAttribute* attribute);
  void ClearAttributes();

  // ClearObjects and ClearAttributes.
  void Clear();

  // The first attribute with a name; with that name and text value; with that name and integer
  // value (an attribute holds one or the other). Null: none, or a null argument.
  COXAttribute* FindAttribute(const char* name, bool caseSensitive) const;
  COXAttribute* FindAttribute(const char* name, const char* value, bool caseSensitive) const;
  COXAttribute* FindAttribute(const char* name, int value, bool caseSensitive) const;

  // The element at a path of names separated by "\": each name is looked up among the children of
  // the one found before. A name that is not there is passed over, by design, so "a\x\b" finds the
  // "b" of "a"; only the last name decides whether the result is null. The path ends at an empty
  // name.
  COXParserElement* FindElement(const char* path, int caseSensitive) const;

 private:
  friend class COXNodePool;
  friend class COXParser;

  COXParserObject* Insert(COXNodeList& list, int index, COXParserObject* node);
  static int Delete(COXNodeList& list, int index);
  // Makes a node the last of a list, whose array comes from the pool; false: out of memory.
  bool Append(COXNodeList& list, COXParserObject* node, COXNodePool& pool) {
    if (!list.Append(node, &pool)) return false;
    node->m_parent = this;
    return true;
  }
  COXParserElement* FindChild(const char* name, size_t length, int caseSensitive) const;
  static COXParserElement* AsElement(COXParserObject* object);

  COXNodeList m_objects;
  COXNodeList m_attributes;
};
