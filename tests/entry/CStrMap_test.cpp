#include "entry/CStrMap.h"

#include <gtest/gtest.h>

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
