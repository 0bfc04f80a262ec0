// A list of made-up files, for tests.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lists/MListCtrl.h"
#include "settings/RegistryUtil.h"
#include "support/RegistrySubtree.h"

// So that messages of GoogleTest show the text.
inline std::string str(const CString& text) {
  return std::string(text, static_cast<size_t>(text.GetLength()));
}

// A number in the place of a text.
inline const char* number(uint32_t value) {
  return reinterpret_cast<const char*>(static_cast<uintptr_t>(value));
}

// The files of a made-up folder: name, state, time, size.
class Files : public MListCtrl {
 public:
  enum { kName, kState, kTime, kSize };

  explicit Files(int store = 0) {
    StoreMultiLine(store);
    AddColumn("Name", MListCtrl::CompareStr);
    AddEnumColumn("State", 3, "Same\tModified\tNew");
    AddTimeColumn("Time", 1);
    AddNumericColumn("Size");
  }

  unsigned long Add(unsigned long id, const char* name, uint32_t state = 0, uint32_t time = 0,
                    uint32_t size = 0) {
    const char* const values[] = {name, number(state), number(time), number(size)};
    return AddItem(id, values);
  }
  // The identifiers of the rows.
  std::vector<unsigned long> Ids() const {
    std::vector<unsigned long> ids;
    for (int row = 0; row < GetItemCount(); ++row) ids.push_back(GetItemData(row));
    return ids;
  }
  std::vector<unsigned long> Selected() const {
    IdArray ids;
    InitSelectedArray(ids);
    return {ids.GetData(), ids.GetData() + ids.GetSize()};
  }
};

using Ids = std::vector<unsigned long>;

// A key whose user values are the user's own.
class UserKey : public RegistrySubtree {
 public:
  UserKey() { MRegistry::InitProductRegistry(c_str(), 1); }
  ~UserKey() { MRegistry::FreeProductRegistry(); }
};
