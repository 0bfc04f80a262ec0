// CArray and CMap: contents, order, and elements that own something.

#include <afxtempl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "support/Allocations.h"

namespace {

// Counts how many of it live, and knows when it is used outside of its life.
class Counted {
 public:
  Counted() : Counted(0) {}
  Counted(int value) : m_value(value), m_self(this) { ++alive; }
  Counted(const Counted& other) : Counted(other.m_value) { EXPECT_EQ(other.m_self, &other); }
  ~Counted() {
    EXPECT_EQ(m_self, this);
    m_self = nullptr;
    --alive;
  }
  Counted& operator=(const Counted& other) {
    EXPECT_EQ(m_self, this);
    m_value = other.m_value;
    return *this;
  }
  operator int() const { return m_value; }

  static inline int alive = 0;

 private:
  int m_value;
  Counted* m_self;
};

typedef CArray<CString, const char*> StringArray;

template <class Array>
std::string joined(const Array& a) {
  std::string text;
  for (int i = 0; i < a.GetSize(); ++i) text += (i > 0 ? " " : "") + std::string(a[i]);
  return text;
}

StringArray& fill(StringArray& a, std::initializer_list<const char*> texts) {
  for (const char* text : texts) a.Add(text);
  return a;
}

TEST(Array, InsertsAndRemovesInPlace) {
  StringArray a;
  EXPECT_EQ(a.GetUpperBound(), -1);
  EXPECT_EQ(a.GetData(), nullptr);
  EXPECT_EQ(a.Add("a"), 0);
  EXPECT_EQ(a.Add("b"), 1);
  a.InsertAt(1, "x", 2);
  EXPECT_EQ(joined(a), "a x x b");
  a.RemoveAt(0);
  a.RemoveAt(1, 2);
  EXPECT_EQ(joined(a), "x");
  a.SetAtGrow(3, "y");
  EXPECT_EQ(joined(a), "x   y");
  a.InsertAt(5, "z");
  EXPECT_EQ(joined(a), "x   y  z");
  a.SetAt(0, "w");
  a.ElementAt(1) = "v";
  a.SetSize(2);
  EXPECT_EQ(joined(a), "w v");
  a.RemoveAll();
  EXPECT_EQ(a.GetSize(), 0);
}

TEST(Array, AppendsCopiesAndInsertsArrays) {
  StringArray a, b;
  fill(a, {"1", "2"});
  fill(b, {"3", "4"});
  EXPECT_EQ(a.Append(b), 2);
  EXPECT_EQ(joined(a), "1 2 3 4");
  a.InsertAt(1, &b);
  EXPECT_EQ(joined(a), "1 3 4 2 3 4");
  b.Copy(a);
  b.Copy(b);
  EXPECT_EQ(joined(b), joined(a));
  a.SetSize(2);
  a.Append(a);
  EXPECT_EQ(joined(a), "1 3 1 3");
  a.InsertAt(1, &a);
  EXPECT_EQ(joined(a), "1 1 3 1 3 3 1 3");
  const StringArray empty;
  EXPECT_EQ(a.Append(empty), 8);
}

TEST(Array, ArgumentsMayBeElementsOfTheArray) {
  StringArray texts;
  texts.Add("first");
  CArray<Counted> objects;
  objects.Add(1);
  for (int i = 0; i < 100; ++i) {
    texts.Add(texts[0]);
    texts.InsertAt(0, texts[texts.GetUpperBound()]);
    objects.Add(objects[0]);
    objects.InsertAt(0, objects[objects.GetUpperBound()]);
  }
  for (int i = 0; i < texts.GetSize(); ++i) ASSERT_STREQ(texts[i], "first");
  for (int i = 0; i < objects.GetSize(); ++i) ASSERT_EQ(objects[i], 1);
}

TEST(Array, ElementsAreMadeAndEndedOnceEach) {
  const int before = Counted::alive;
  {
    CArray<Counted, int> a;
    a.SetSize(10, 3);
    for (int i = 0; i < 100; ++i) a.Add(i);
    EXPECT_EQ(Counted::alive, before + 110);
    a.RemoveAt(5, 20);
    a.InsertAt(3, 42, 7);
    a.FreeExtra();
    EXPECT_EQ(Counted::alive, before + 97);
    a.SetSize(40);
    EXPECT_EQ(Counted::alive, before + 40);
    a.SetSize(50);
    EXPECT_EQ(a[49], 0);
    CArray<Counted, int> b;
    b.Copy(a);
    EXPECT_EQ(Counted::alive, before + 100);
  }
  EXPECT_EQ(Counted::alive, before);
}

TEST(Array, AddingNeverCostsMoreThanAConstantTime) {
  for (int growBy : {-1, 1}) {
    CArray<int, int> a;
    a.SetSize(0, growBy);
    int moves = 0;
    for (int i = 0; i < 1'000'000; ++i) {
      const int* before = a.GetData();
      a.Add(i);
      moves += a.GetData() != before;
    }
    EXPECT_LT(moves, 60) << growBy;
    EXPECT_EQ(a[999'999], 999'999);
  }
}

TEST(Array, SizesThatDoNotFitThrow) {
  CArray<CString, const char*> a;
  a.Add("kept");
  EXPECT_THROW(a.SetSize(INT_MAX), CMemoryException*);
  EXPECT_THROW(a.SetSize(-1), CMemoryException*);
  EXPECT_THROW(a.SetAtGrow(INT_MAX, "x"), CMemoryException*);
  EXPECT_EQ(joined(a), "kept");
}

typedef CMap<CString, const char*, int, int> NumberMap;

template <class Key, class Argument, class Value>
auto entries(const CMap<Key, Argument, Value, Value>& map) {
  std::vector<std::pair<Key, Value>> found;
  for (POSITION p = map.GetStartPosition(); p != nullptr;) {
    auto& entry = found.emplace_back();
    map.GetNextAssoc(p, entry.first, entry.second);
  }
  return found;
}

TEST(Map, KeepsOneEntryAKey) {
  NumberMap map;
  int value = -1;
  EXPECT_FALSE(map.Lookup("a", value));
  EXPECT_FALSE(map.RemoveKey("a"));
  map.SetAt("a", 1);
  map["A"] = 3;
  map["a"] += 10;
  EXPECT_EQ(map["new"], 0);
  EXPECT_EQ(map.GetCount(), 3);
  EXPECT_TRUE(map.Lookup("a", value));
  EXPECT_EQ(value, 11);
  EXPECT_TRUE(map.RemoveKey("a"));
  EXPECT_FALSE(map.Lookup("a", value));
  map.RemoveAll();
  EXPECT_EQ(map.GetStartPosition(), nullptr);
  map["again"] = 1;
  EXPECT_EQ(map.GetCount(), 1);
}

// Numbers of the same value divided by 16 share a bucket.
TEST(Map, IteratesByBucketAndFromTheNewestInEach) {
  CMap<int, int, char, char> map;
  map.InitHashTable(5);
  EXPECT_EQ(map.GetHashTableSize(), 5u);
  map[16] = 'a';
  map[0] = 'b';
  map[17] = 'c';
  map[16 * 6] = 'd';
  map[64] = 'e';
  std::string order;
  for (const auto& [key, value] : entries(map)) order += value;
  EXPECT_EQ(order, "bdcae");
}

// Against the documented order, kept apart, while the map grows past what its buckets hold well.
TEST(Map, KeepsItsOrderHoweverManyEntries) {
  CMap<int, int, int, int> map;
  std::vector<std::vector<int>> buckets(17);
  std::minstd_rand random(1);
  for (int step = 0; step < 20000; ++step) {
    const int key = static_cast<int>(random() % 4096);
    std::vector<int>& bucket = buckets[(key >> 4) % 17];
    if (step >= 5000 && random() % 2 == 0) {
      EXPECT_EQ(map.RemoveKey(key), std::erase(bucket, key) != 0);
    } else {
      if (std::count(bucket.begin(), bucket.end(), key) == 0) bucket.insert(bucket.begin(), key);
      map[key] = step;
    }
  }
  std::vector<int> expected, found;
  for (const auto& bucket : buckets) expected.insert(expected.end(), bucket.begin(), bucket.end());
  for (const auto& [key, value] : entries(map)) found.push_back(key);
  EXPECT_EQ(found, expected);
  EXPECT_EQ(map.GetCount(), static_cast<int>(expected.size()));
  EXPECT_EQ(map.GetHashTableSize(), 17u);
}

TEST(Map, ManyEntriesAreFoundInConstantTime) {
  CMap<int, int, int, int> map;
  for (int i = 0; i < 1'000'000; ++i) map[i] = i;  // in quadratic time this takes many minutes
  for (int i = 0; i < 1'000'000; ++i) ASSERT_TRUE(map.RemoveKey(i));
  EXPECT_TRUE(map.IsEmpty());
}

TEST(Map, TheEntryJustReturnedMayBeRemoved) {
  NumberMap map;
  for (int i = 0; i < 200; ++i) map[std::to_string(i).c_str()] = i;
  std::set<int> seen;
  CString key;
  int value;
  for (POSITION p = map.GetStartPosition(); p != nullptr;) {
    map.GetNextAssoc(p, key, value);
    seen.insert(value);
    EXPECT_TRUE(map.RemoveKey(key));
  }
  EXPECT_EQ(seen.size(), 200u);
  EXPECT_TRUE(map.IsEmpty());
}

TEST(Map, EntriesAreMadeAndEndedOnceEach) {
  const int before = Counted::alive;
  {
    CMap<int, int, Counted, int> map(4);
    for (int round = 0; round < 3; ++round) {
      for (int i = 0; i < 50; ++i) map[i] = i;
      for (int i = 0; i < 49; ++i) map.RemoveKey(i);
      EXPECT_EQ(Counted::alive, before + 1);
    }
    EXPECT_EQ(map[49], 49);
  }
  EXPECT_EQ(Counted::alive, before);
}

TEST(Map, ThrowsForATableThatDoesNotFit) {
  NumberMap map;
  EXPECT_THROW(map.InitHashTable(UINT_MAX), CMemoryException*);
  map.InitHashTable(100'003, FALSE);
  map["a"] = 1;
  map.InitHashTable(7);  // too late: there is an entry
  EXPECT_EQ(map.GetHashTableSize(), 100'003u);
}

// Runs a call with its first allocation failing, then the second, until none is left to fail.
template <class Call, class Count>
void expectUnchangedByFailures(Call call, Count count) {
  const int before = count();
  for (unsigned n = 1;; ++n) {
    bool threw = false, happened;
    {
      allocations::FailNth failure(n);
      try {
        call();
      } catch (CMemoryException* e) {
        e->Delete();
        threw = true;
      }
      happened = failure.Happened();
    }
    ASSERT_EQ(threw, happened);
    if (!happened) return;
    ASSERT_EQ(count(), before);
  }
}

TEST(Collections, ACallThatFailsChangesNothing) {
  StringArray array;
  NumberMap map;
  CString text;
  for (int i = 0; i < 200; ++i) {
    text.Format("a text with room of its own %d", i);
    const LPCTSTR characters = text;
    expectUnchangedByFailures([&] { array.Add(text + "!"); }, [&] { return array.GetSize(); });
    expectUnchangedByFailures([&] { map[characters] = i; }, [&] { return map.GetCount(); });
  }
  EXPECT_EQ(array[199], text + "!");
  EXPECT_EQ(map[text], 199);
}

}  // namespace
