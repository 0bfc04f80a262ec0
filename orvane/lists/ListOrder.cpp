#include "lists/ListOrder.h"

#include <algorithm>
#include <climits>

namespace {

template <class Number>
int compareNumbers(Number one, Number two) {
  return one < two ? -1 : one > two;
}

}  // namespace

int ListOrder::CompareFrom(int key, uint32_t one, uint32_t two) const {
  int result = 0;
  for (; key < m_count && result == 0; ++key) {
    const Key& by = m_keys[key];
    switch (by.kind) {
      case kTexts:
        result = by.compareTexts(m_map.Text(one, by.slot), m_map.Text(two, by.slot));
        break;
      case kIds:
        result = by.compareValues(m_map.Id(one), m_map.Id(two));
        break;
      case kNumbers:
        result = compareNumbers(m_map.Slot(one, by.slot).number, m_map.Slot(two, by.slot).number);
        break;
      case kNothing:
        break;
    }
  }
  return result;
}

int ListOrder::Compare(uint32_t one, uint32_t two) const {
  const int result = CompareFrom(0, one, two);
  return m_descending ? -std::max(result, -INT_MAX) : result;
}

// A merge sort needs few comparisons, and stays within its rows whatever a comparison says. What
// the first keys compare is at hand; the others, from `next` on, are looked up.
template <class ValueOf, class CompareValue>
void ListOrder::SortBy(ValueOf valueOf, CompareValue compareValue, int next,
                       std::vector<uint32_t>& records) const {
  struct Entry {
    decltype(valueOf(0u)) value;
    uint32_t record;
  };
  std::vector<Entry> entries(records.size());
  std::transform(records.begin(), records.end(), entries.begin(), [&](uint32_t record) {
    return Entry{valueOf(record), record};
  });
  const auto compare = [&](const Entry& one, const Entry& two) {
    const int result = compareValue(one.value, two.value);
    return result != 0 ? result : CompareFrom(next, one.record, two.record);
  };
  if (m_descending)
    std::stable_sort(entries.begin(), entries.end(),
                     [&](const Entry& one, const Entry& two) { return compare(one, two) > 0; });
  else
    std::stable_sort(entries.begin(), entries.end(),
                     [&](const Entry& one, const Entry& two) { return compare(one, two) < 0; });
  std::transform(entries.begin(), entries.end(), records.begin(),
                 [](const Entry& entry) { return entry.record; });
}

void ListOrder::Sort(std::vector<uint32_t>& records) const {
  if (m_count == 0) return;
  const Key& first = m_keys[0];
  const auto number = [this](uint32_t record, const Key& key) {
    return m_map.Slot(record, key.slot).number;
  };
  switch (first.kind) {
    case kTexts:
      return SortBy([&](uint32_t record) { return m_map.Text(record, first.slot); },
                    first.compareTexts, 1, records);
    case kIds:
      return SortBy([&](uint32_t record) { return m_map.Id(record); }, first.compareValues, 1,
                    records);
    case kNumbers:
      // Of few different ones, the states of documents for example, the next key decides mostly.
      if (const Key& second = m_keys[1]; m_count > 1 && second.kind == kNumbers) {
        return SortBy(
            [&](uint32_t record) {
              return uint64_t{number(record, first)} << 32 | number(record, second);
            },
            compareNumbers<uint64_t>, 2, records);
      }
      return SortBy([&](uint32_t record) { return number(record, first); },
                    compareNumbers<uint32_t>, 1, records);
    case kNothing:
      return SortBy([](uint32_t) { return 0u; }, compareNumbers<uint32_t>, 1, records);
  }
}
