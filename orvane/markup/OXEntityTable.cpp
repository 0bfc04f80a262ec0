#include "markup/OXEntityTable.h"

#include <array>
#include <new>

namespace {

struct Predefined {
  std::string_view name;
  char value[2];
};

constexpr Predefined kPredefined[] = {
    {"gt", ">"}, {"lt", "<"}, {"amp", "&"}, {"apos", "'"}, {"quot", "\""}};

const Predefined* FindPredefined(std::string_view name) {
  for (const Predefined& entity : kPredefined) {
    if (entity.name == name) return &entity;
  }
  return nullptr;
}

}  // namespace

const char* COXEntityTable::Find(const char* name) const {
  if (const Predefined* entity = FindPredefined(name)) return entity->value;
  const auto found = m_declared.find(std::string_view(name));
  return found == m_declared.end() ? nullptr : found->second.c_str();
}

bool COXEntityTable::Declare(std::string_view name, std::string_view value) {
  if (FindPredefined(name) != nullptr) return true;
  try {
    m_declared.try_emplace(std::string(name), value);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

const char* COXEntityTable::NameOf(char c) {
  static constexpr auto kNames = [] {
    std::array<const char*, 256> names = {};
    for (const Predefined& entity : kPredefined) {
      names[static_cast<unsigned char>(entity.value[0])] = entity.name.data();
    }
    return names;
  }();
  return kNames[static_cast<unsigned char>(c)];
}
