// Several values that belong together.
#pragma once

#include <string>
#include <vector>

#include "settings/RegistryUtil.h"

// Stores them as user values of a registry: all of them, or what stood there before stays, as far
// as the system lets it be put back.
class SettingsGroup {
 public:
  // The registry stays the caller's.
  explicit SettingsGroup(const MRegistry& registry) : m_registry(registry) {}

  void Add(const char* name, unsigned long value);
  void Add(const char* name, const char* value);

  // 1, or 0 when one was refused.
  int Save() const;

 private:
  struct Value {
    const char* name;
    bool isThere;
    bool isText;
    unsigned long number;
    CString text;
  };

  Value Stored(const Value& like) const;
  int Store(const Value& value) const;

  const MRegistry& m_registry;
  std::vector<Value> m_values;
};
