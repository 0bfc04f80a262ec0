// The order of a list's rows.
#pragma once

#include <cstdint>
#include <vector>

#include "lists/ListDataMap.h"

// By one column, then by up to three others.
class ListOrder {
 public:
  using CompareValues = int (*)(unsigned long one, unsigned long two);
  using CompareTexts = int (*)(const char* one, const char* two);

  explicit ListOrder(const ListDataMap& map) : m_map(map) {}

  // Compares texts of a slot, identifiers, numbers of a slot as unsigned ones; or nothing, for a
  // column that cannot be compared.
  void ThenBy(int slot, CompareTexts compare) { Add({kTexts, slot, compare, nullptr}); }
  void ThenById(CompareValues compare) { Add({kIds, 0, nullptr, compare}); }
  void ThenByNumber(int slot) { Add({kNumbers, slot, nullptr, nullptr}); }
  void ThenByNothing() { Add({kNothing, 0, nullptr, nullptr}); }
  // Of the whole, the further columns included.
  void Descending() { m_descending = true; }

  // Below 0, 0 or above 0.
  int Compare(uint32_t one, uint32_t two) const;

  // Rows that compare equal keep their order. The client's functions may contradict themselves:
  // then the order is any. Throws std::bad_alloc, and what the client's functions throw.
  void Sort(std::vector<uint32_t>& records) const;

 private:
  enum Kind { kTexts, kIds, kNumbers, kNothing };
  struct Key {
    Kind kind;
    int slot;
    CompareTexts compareTexts;
    CompareValues compareValues;
  };
  void Add(const Key& key) {
    if (m_count < 4) m_keys[m_count++] = key;
  }
  int CompareFrom(int key, uint32_t one, uint32_t two) const;
  template <class ValueOf, class CompareValue>
  void SortBy(ValueOf valueOf, CompareValue compareValue, int next,
              std::vector<uint32_t>& records) const;

  const ListDataMap& m_map;
  Key m_keys[4];
  int m_count = 0;
  bool m_descending = false;
};
