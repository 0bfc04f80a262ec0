#include "settings/SettingsGroup.h"

void SettingsGroup::Add(const char* name, unsigned long value) {
  m_values.push_back({name, true, false, value, CString()});
}

void SettingsGroup::Add(const char* name, const char* value) {
  m_values.push_back({name, true, true, 0, value});
}

int SettingsGroup::Save() const {
  std::vector<Value> before;
  before.reserve(m_values.size());
  for (const Value& value : m_values) before.push_back(Stored(value));
  for (size_t i = 0; i < m_values.size(); ++i) {
    if (Store(m_values[i])) continue;
    for (size_t stored = 0; stored < i; ++stored) Store(before[stored]);
    return 0;
  }
  return 1;
}

SettingsGroup::Value SettingsGroup::Stored(const Value& like) const {
  Value value = {like.name, false, like.isText, 0, CString()};
  value.isThere = like.isText ? m_registry.GetUserKey(like.name, value.text)
                              : m_registry.GetUserKey(like.name, value.number, 0);
  return value;
}

int SettingsGroup::Store(const Value& value) const {
  if (!value.isThere) return m_registry.DeleteUserKey(value.name);
  return value.isText ? m_registry.SetUserKey(value.name, static_cast<const char*>(value.text))
                      : m_registry.SetUserKey(value.name, value.number);
}
