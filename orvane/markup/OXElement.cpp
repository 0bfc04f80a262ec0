#include "markup/OXElement.h"

#include <cstdio>
#include <cstring>
#include <memory>

#include "diag/trace.h"
#include "markup/ElementPath.h"

namespace {

// A new attribute with its name and value, or null.
template <class Value>
std::unique_ptr<COXAttribute> MakeAttribute(const char* name, Value value) {
  std::unique_ptr<COXAttribute> attribute(new (std::nothrow) COXAttribute);
  if (attribute == nullptr || !attribute->SetName(name) || !attribute->SetValue(value)) {
    return nullptr;
  }
  return attribute;
}

}  // namespace

COXParserElement::COXParserElement(COXParserElement* parent, const char* name)
    : COXParserObject(parent, ELEMENT, name) {
  m_classTag = kElement;
}

COXParserElement::COXParserElement(const COXParserElement& other) : COXParserObject(other) {
  m_objects.Share(other.m_objects);
  m_attributes.Share(other.m_attributes);
}

COXParserElement& COXParserElement::operator=(const COXParserElement& other) {
  if (this == &other) return *this;
  Clear();
  COXParserObject::operator=(other);
  m_objects.Share(other.m_objects);
  m_attributes.Share(other.m_attributes);
  return *this;
}

COXParserElement::~COXParserElement() { Clear(); }

COXParserElement* COXParserElement::AsElement(COXParserObject* object) {
  return object->m_classTag == kElement ? static_cast<COXParserElement*>(object) : nullptr;
}

COXParserObject* COXParserElement::GetObject(int index) const {
  ASSERT(index >= 0 && index < NumObjects());
  return index >= 0 && index < NumObjects() ? m_objects.At(index) : nullptr;
}

COXAttribute* COXParserElement::Attribute(int index) const {
  ASSERT(index >= 0 && index < NumAttributes());
  if (index < 0 || index >= NumAttributes()) return nullptr;
  return static_cast<COXAttribute*>(m_attributes.At(index));
}

COXParserElement* COXParserElement::GetElement(int index) const {
  COXParserObject* const object = GetObject(index);
  COXParserElement* const element = object == nullptr ? nullptr : AsElement(object);
  ASSERT(object == nullptr || element != nullptr);
  return element;
}

COXParserObject* COXParserElement::Insert(COXNodeList& list, int index, COXParserObject* node) {
  if (node == nullptr || index < 0 || index > list.Count()) {
    ASSERT(node == nullptr);
    return nullptr;
  }
  if (!list.Insert(index, node)) return nullptr;
  node->m_parent = this;
  return node;
}

COXParserObject* COXParserElement::AddObject(COXParserObject* object) {
  return Insert(m_objects, NumObjects(), object);
}

COXParserObject* COXParserElement::InsertObject(int index, COXParserObject* object) {
  return Insert(m_objects, index, object);
}

COXParserElement* COXParserElement::AddElement(const char* name) {
  return InsertElement(NumObjects(), name);
}

COXParserElement* COXParserElement::InsertElement(int index, const char* name) {
  std::unique_ptr<COXParserElement> element(new (std::nothrow) COXParserElement);
  if (element == nullptr || !element->SetName(name)) return nullptr;
  if (Insert(m_objects, index, element.get()) == nullptr) return nullptr;
  return element.release();
}

int COXParserElement::MoveObject(int index, COXParserObject* object) {
  if (object == nullptr) return 0;
  const int from = m_objects.Find(object);
  if (from < 0) return InsertObject(index, object) != nullptr;
  ASSERT(index >= 0 && index < NumObjects());
  if (index < 0 || index >= NumObjects()) return 0;
  const bool shared = m_objects.IsShared(from);
  m_objects.Remove(from);
  m_objects.Insert(index, object, shared);
  if (!shared) object->m_parent = this;
  return 1;
}

COXParserElement* COXParserElement::AddElementAtt(const char* name, int index,
                                                  const char* attribute, const char* value) {
  COXParserElement* const element = InsertElement(index, name);
  if (element == nullptr || element->AddAttribute(attribute, value) != nullptr) return element;
  DelObject(index);
  return nullptr;
}

COXParserElement* COXParserElement::AddElementAtt(const char* name, int index,
                                                  const char* attribute, int value) {
  char text[12];
  snprintf(text, sizeof text, "%d", value);
  return AddElementAtt(name, index, attribute, text);
}

COXParserElement* COXParserElement::AddElementAtt(const char* name, int index,
                                                  const char* attribute, CTime value) {
  return AddElementAtt(name, index, attribute, static_cast<int>(value.GetTime()));
}

COXParserElement* COXParserElement::AddElementObj(const char* name, int index, const char* text,
                                                  int type) {
  COXParserElement* const element = InsertElement(index, name);
  if (element == nullptr) return nullptr;
  std::unique_ptr<COXParserObject> object(new (std::nothrow) COXParserObject(element, type));
  if (object != nullptr && object->SetText(text) && element->AddObject(object.get()) != nullptr) {
    object.release();
    return element;
  }
  DelObject(index);
  return nullptr;
}

int COXParserElement::Delete(COXNodeList& list, int index) {
  ASSERT(index >= 0 && index < list.Count());
  if (index < 0 || index >= list.Count()) return 0;
  COXParserObject* const node = list.At(index);
  const bool shared = list.IsShared(index);
  list.Remove(index);
  if (!shared) delete node;
  return 1;
}

int COXParserElement::DelObject(int index) { return Delete(m_objects, index); }

int COXParserElement::DelObject(COXParserObject* object) {
  const int index = object == nullptr ? -1 : m_objects.Find(object);
  return index < 0 ? 0 : DelObject(index);
}

// Goes down to an element without children before deleting it, so that no destructor has children
// to delete. The way back up is the parent of each element on the way, set here: an object may have
// been given another one.
void COXParserElement::ClearObjects() {
  COXParserElement* at = this;
  for (;;) {
    const int last = at->NumObjects() - 1;
    if (last < 0) {
      if (at == this) break;
      COXParserElement* const done = at;
      at = done->m_parent;
      delete done;
      continue;
    }
    COXParserObject* const object = at->m_objects.At(last);
    const bool shared = at->m_objects.IsShared(last);
    at->m_objects.Remove(last);
    if (shared) continue;
    COXParserElement* const element = AsElement(object);
    if (element == nullptr || element->NumObjects() == 0) {
      delete object;
    } else {
      element->m_parent = at;
      at = element;
    }
  }
  m_objects.RemoveAll();
}

COXAttribute* COXParserElement::AddAttribute(COXAttribute* attribute) {
  return static_cast<COXAttribute*>(Insert(m_attributes, NumAttributes(), attribute));
}

COXAttribute* COXParserElement::AddAttribute(const char* name, const char* value) {
  std::unique_ptr<COXAttribute> attribute = MakeAttribute(name, value);
  return AddAttribute(attribute.get()) != nullptr ? attribute.release() : nullptr;
}

COXAttribute* COXParserElement::AddAttribute(const char* name, int value) {
  std::unique_ptr<COXAttribute> attribute = MakeAttribute(name, value);
  return AddAttribute(attribute.get()) != nullptr ? attribute.release() : nullptr;
}

int COXParserElement::DelAttribute(int index) { return Delete(m_attributes, index); }

int COXParserElement::DelAttribute(COXAttribute* attribute) {
  const int index = attribute == nullptr ? -1 : m_attributes.Find(attribute);
  return index < 0 ? 0 : DelAttribute(index);
}

void COXParserElement::ClearAttributes() {
  for (int i = NumAttributes(); i-- > 0;) {
    if (!m_attributes.IsShared(i)) delete m_attributes.At(i);
  }
  m_attributes.RemoveAll();
}

void COXParserElement::Clear() {
  ClearObjects();
  ClearAttributes();
}

COXAttribute* COXParserElement::FindAttribute(const char* name, bool caseSensitive) const {
  for (int i = 0; i < NumAttributes(); ++i) {
    auto* const attribute = static_cast<COXAttribute*>(m_attributes.At(i));
    if (attribute->IsName(name, caseSensitive)) return attribute;
  }
  return nullptr;
}

COXAttribute* COXParserElement::FindAttribute(const char* name, const char* value,
                                              bool caseSensitive) const {
  for (int i = 0; i < NumAttributes(); ++i) {
    auto* const attribute = static_cast<COXAttribute*>(m_attributes.At(i));
    if (attribute->IsName(name, caseSensitive) && attribute->IsValue(value, caseSensitive)) {
      return attribute;
    }
  }
  return nullptr;
}

COXAttribute* COXParserElement::FindAttribute(const char* name, int value,
                                              bool caseSensitive) const {
  for (int i = 0; i < NumAttributes(); ++i) {
    auto* const attribute = static_cast<COXAttribute*>(m_attributes.At(i));
    if (attribute->IsInteger() && attribute->GetIntValue() == value &&
        attribute->IsName(name, caseSensitive)) {
      return attribute;
    }
  }
  return nullptr;
}

COXParserElement* COXParserElement::FindChild(const char* name, size_t length,
                                              int caseSensitive) const {
  for (int i = 0; i < NumObjects(); ++i) {
    COXParserElement* const child = AsElement(m_objects.At(i));
    if (child == nullptr || child->m_type != ELEMENT || child->m_text.GetLength() != length) {
      continue;
    }
    const char* const text = child->GetName();
    if ((caseSensitive ? strncmp(text, name, length) : _strnicmp(text, name, length)) == 0) {
      return child;
    }
  }
  return nullptr;
}

COXParserElement* COXParserElement::FindElement(const char* path, int caseSensitive) const {
  COXParserElement* found = nullptr;
  const COXParserElement* at = this;
  while (path != nullptr && *path != 0 && *path != '\\') {
    const char* const end = FirstNameEnd(path);
    found = at->FindChild(path, end - path, caseSensitive);
    if (found != nullptr) at = found;
    path = *end == 0 ? end : end + 1;
  }
  return found;
}
