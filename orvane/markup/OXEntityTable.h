// The entities that a document may use.
#pragma once

#include <map>
#include <string>
#include <string_view>

// The five that every document has, in the order gt, lt, amp, apos, quot, and those that it
// declares.
class COXEntityTable {
 public:
  // The value of an entity; names are case-sensitive. Null: not there.
  const char* Find(const char* name) const;

  // Adds an entity; the first declaration of a name holds, and the five are always there. False:
  // out of memory.
  bool Declare(std::string_view name, std::string_view value);

  // Leaves the five.
  void Clear() { m_declared.clear(); }

  // The name of the one of the five that stands for a character, or null. Declared entities are not
  // asked: the written document doesn't declare them any more.
  static const char* NameOf(char c);

 private:
  std::map<std::string, std::string, std::less<>> m_declared;
};
