// The items of a list: identifiers and values.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

#include "lists/IdIndex.h"
#include "lists/TextPool.h"

// Items are found by their identifier, and gone through in the order of 17 buckets: an identifier's
// bucket is (identifier >> 4) % 17, and within a bucket the newest item comes first. Clients see
// that order where rows are not sorted.
//
// A record is named by a number that stays while the item lives. It holds a value for each of the
// list's slots: a text, which the map owns, or a number.
class ListDataMap {
 public:
  static constexpr uint32_t kNone = IdIndex::kNone;

  union Value {
    char* text;  // null: none
    uint32_t number;
  };

  ListDataMap();
  ListDataMap(const ListDataMap&) = delete;
  ListDataMap& operator=(const ListDataMap&) = delete;

  // Adds a slot behind those that there are; items that exist get an empty value. Throws
  // std::bad_alloc.
  void AddSlot(bool isText);
  int Slots() const { return static_cast<int>(m_isText.size()); }

  size_t Count() const { return m_count; }
  // kNone: there is no such item. The last one found is found again at no cost. Several threads may
  // look for items as long as none changes the map.
  uint32_t Find(uint32_t id) const {
    // Automatic identifiers count as records do: most of them need no index.
    if (id < m_used && Id(id) == id) return id;
    const uint32_t found = m_found.load(std::memory_order_relaxed);
    if (found != kNone && Id(found) == id) return found;
    const uint32_t record = m_index.Find(id);
    if (record != kNone) Expect(record);
    return record;
  }
  // Lets the next Find have this item at once.
  void Expect(uint32_t record) const { m_found.store(record, std::memory_order_relaxed); }

  // A record with empty values. The identifier must not be there yet. Throws std::bad_alloc.
  uint32_t Insert(uint32_t id);
  void Erase(uint32_t record);
  void Clear();

  // In the order said above; kNone: no more.
  uint32_t First() const { return FirstFrom(0); }
  uint32_t Next(uint32_t record) const {
    const uint32_t next = At(record).next;
    return next != kNone ? next : FirstFrom(Bucket(Id(record)) + 1);
  }

  uint32_t Id(uint32_t record) const { return At(record).id; }
  Value& Slot(uint32_t record, int slot) const { return Values(record)[slot]; }
  // A text slot's text, never null.
  const char* Text(uint32_t record, int slot) const {
    const char* const text = Slot(record, slot).text;
    return text != nullptr ? text : "";
  }
  // Have the processor fetch a value, and the text that it points to when the value was fetched
  // before: sorted rows lie anywhere in memory.
  void FetchValue(uint32_t record, int slot) const { __builtin_prefetch(&Slot(record, slot)); }
  void FetchText(uint32_t record, int slot) const { __builtin_prefetch(Slot(record, slot).text); }
  // Copies length bytes into a text slot. Throws std::bad_alloc, and the text is as before.
  void SetText(uint32_t record, int slot, const char* text, size_t length);

  // The row in which the list last saw the item, for the list's own use.
  uint32_t& Row(uint32_t record) const { return At(record).row; }

 private:
  static constexpr size_t kBuckets = 17;
  static constexpr uint32_t kChunkBits = 12;
  static constexpr uint32_t kChunk = 1 << kChunkBits;

  struct Header {
    uint32_t id;    // kNone of a free record
    uint32_t next;  // in the bucket; of the free records for a free one
    uint32_t previous;
    uint32_t row;
  };
  static constexpr size_t kHeaderWords = sizeof(Header) / sizeof(uint32_t);
  using Chunk = std::unique_ptr<uint32_t[]>;

  static size_t Bucket(uint32_t id) { return (id >> 4) % kBuckets; }
  uint32_t FirstFrom(size_t bucket) const {
    for (; bucket < kBuckets; ++bucket)
      if (m_first[bucket] != kNone) return m_first[bucket];
    return kNone;
  }
  uint32_t* Words(uint32_t record) const {
    return m_chunks[record >> kChunkBits].get() + (record & (kChunk - 1)) * m_words;
  }
  Header& At(uint32_t record) const { return *reinterpret_cast<Header*>(Words(record)); }
  Value* Values(uint32_t record) const {
    return reinterpret_cast<Value*>(Words(record) + kHeaderWords);
  }
  uint32_t TakeRecord();
  void Release(uint32_t record);

  std::vector<bool> m_isText;
  size_t m_words = kHeaderWords;  // of a record
  std::vector<Chunk> m_chunks;
  uint32_t m_used = 0;  // records in chunks that have been in use
  uint32_t m_free = kNone;
  size_t m_count = 0;
  std::array<uint32_t, kBuckets> m_first;
  mutable std::atomic<uint32_t> m_found = kNone;
  IdIndex m_index;
  TextPool m_texts;
};
