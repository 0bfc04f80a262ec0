#include "lists/ListOrder.h"

#include <algorithm>
#include <climits>

namespace {

int compareNumbers(uint32_t one, uint32_t two) { return one < two ? -1 : one > two; }

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

// A merge sort needs few comparisons, and stays within its rows whatever a comparison says.
template <class CompareFirst>
void ListOrder::SortEntries(std::vector<Entry>& entries, CompareFirst compareFirst) const {
  const auto compare = [&](const Entry& one, const Entry& two) {
    const int result = compareFirst(one.value, two.value);
    return result != 0 ? result : CompareFrom(1, one.record, two.record);
  };
  if (m_descending)
    std::stable_sort(entries.begin(), entries.end(),
                     [&](const Entry& one, const Entry& two) { return compare(one, two) > 0; });
  else
    std::stable_sort(entries.begin(), entries.end(),
                     [&](const Entry& one, const Entry& two) { return compare(one, two) < 0; });
}

void ListOrder::Sort(std::vector<uint32_t>& records) const {
  using Value = ListDataMap::Value;
  if (m_count == 0) return;
  const Key& first = m_keys[0];
  static char empty[] = "";
  std::vector<Entry> entries(records.size());
  std::transform(records.begin(), records.end(), entries.begin(), [&](uint32_t record) {
    Value value = {};
    if (first.kind == kTexts || first.kind == kNumbers) value = m_map.Slot(record, first.slot);
    if (first.kind == kTexts && value.text == nullptr) value.text = empty;
    if (first.kind == kIds) value.number = m_map.Id(record);
    return Entry{value, record};
  });
  switch (first.kind) {
    case kTexts:
      SortEntries(entries, [fn = first.compareTexts](Value one, Value two) {
        return fn(one.text, two.text);
      });
      break;
    case kIds:
      SortEntries(entries, [fn = first.compareValues](Value one, Value two) {
        return fn(one.number, two.number);
      });
      break;
    case kNumbers:
      SortEntries(entries,
                  [](Value one, Value two) { return compareNumbers(one.number, two.number); });
      break;
    case kNothing:
      SortEntries(entries, [](Value, Value) { return 0; });
      break;
  }
  std::transform(entries.begin(), entries.end(), records.begin(),
                 [](const Entry& entry) { return entry.record; });
}
