// Making nodes, inline: it is done for every tag, attribute and text of a document.
#pragma once

#include "markup/OXNodePool.h"
#include "markup/TextScan.h"

// Most texts are shorter than a unit: copying one whole unit is faster than looking at the length.
inline char* COXNodePool::Place(char* at, std::string_view text) const {
  const char* const from = text.data();
  if (from >= m_sourceStart && from + text.size() <= m_sourceLast) {
    size_t copied = 0;
    do {
      CopyUnit(at + copied, from + copied);
      copied += kUnit;
    } while (copied < text.size());
  } else {
    CopyBytes(at, from, text.size());
  }
  at[text.size()] = 0;
  return at;
}

// The texts are copied before the node is made: then its fields are written once.

inline COXParserObject* COXNodePool::NewObject(COXParserElement* parent, int type,
                                               std::string_view text) {
  void* const memory = Allocate(sizeof(COXParserObject) + text.size() + 1);
  if (memory == nullptr) return nullptr;
  char* const place = Place(static_cast<char*>(memory) + sizeof(COXParserObject), text);
  auto* const object = ::new (memory) COXParserObject(parent, type);
  object->m_text.Borrow(place, text.size());
  return object;
}

inline COXParserElement* COXNodePool::NewElement(COXParserElement* parent, std::string_view name) {
  void* const memory = Allocate(sizeof(COXParserElement) + name.size() + 1);
  if (memory == nullptr) return nullptr;
  char* const place = Place(static_cast<char*>(memory) + sizeof(COXParserElement), name);
  auto* const element = ::new (memory) COXParserElement();
  element->m_parent = parent;
  element->m_text.Borrow(place, name.size());
  return element;
}

inline COXAttribute* COXNodePool::NewAttribute(COXParserElement* parent, std::string_view name,
                                               std::string_view value) {
  void* const memory = Allocate(sizeof(COXAttribute) + name.size() + value.size() + 2);
  if (memory == nullptr) return nullptr;
  char* const namePlace = Place(static_cast<char*>(memory) + sizeof(COXAttribute), name);
  char* const valuePlace = Place(namePlace + name.size() + 1, value);
  auto* const attribute = ::new (memory) COXAttribute();
  attribute->m_parent = parent;
  attribute->m_text.Borrow(namePlace, name.size());
  attribute->m_stringValue.Borrow(valuePlace, value.size());
  attribute->m_flags = COXAttribute::kString;
  return attribute;
}

inline COXAttribute* COXNodePool::NewAttribute(COXParserElement* parent, std::string_view name,
                                               int value) {
  void* const memory = Allocate(sizeof(COXAttribute) + name.size() + 1);
  if (memory == nullptr) return nullptr;
  char* const place = Place(static_cast<char*>(memory) + sizeof(COXAttribute), name);
  auto* const attribute = ::new (memory) COXAttribute();
  attribute->m_parent = parent;
  attribute->m_text.Borrow(place, name.size());
  attribute->m_intValue = value;
  attribute->m_flags = COXAttribute::kInteger;
  return attribute;
}
