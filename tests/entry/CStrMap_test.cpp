#include "entry/CStrMap.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

TEST(CStrMap, OneEntryPerExactKey) {
  CStrMap<int> map;
  map.SetAt("Key", 1);
  map.SetAt("key", 2);
  map.SetAt("Key", 3);
  map[""] = 4;
  EXPECT_EQ(map.GetCount(), 3);
  int value = 0;
  EXPECT_TRUE(map.Lookup("Key", value));
  EXPECT_EQ(value, 3);
  EXPECT_TRUE(map.Lookup(CString("key"), value));
  EXPECT_EQ(value, 2);
  EXPECT_FALSE(map.Lookup("KEY", value));
  EXPECT_TRUE(map.RemoveKey("key"));
  EXPECT_FALSE(map.Lookup("key", value));
}

TEST(CStrMap, IterationVisitsEveryEntryOnce) {
  CStrMap<unsigned int> map;
  map.InitHashTable(17);
  for (unsigned i = 0; i < 1000; ++i) map[std::to_string(i).c_str()] = i;
  std::set<unsigned> seen;
  for (POSITION position = map.GetStartPosition(); position != nullptr;) {
    CString key;
    unsigned value = 0;
    map.GetNextAssoc(position, key, value);
    EXPECT_EQ(std::to_string(value), static_cast<const char*>(key));
    EXPECT_TRUE(seen.insert(value).second) << value;
  }
  EXPECT_EQ(seen.size(), 1000u);
}
