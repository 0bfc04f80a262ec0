#include "lists/ListDataMap.h"

#include <algorithm>
#include <cstring>

ListDataMap::ListDataMap() { m_first.fill(kNone); }

void ListDataMap::AddSlot(bool isText) {
  std::vector<Chunk> wider(m_chunks.size());
  for (size_t i = 0; i < wider.size(); ++i) {
    wider[i] = std::make_unique<uint32_t[]>(kChunk * (m_words + 1));
    for (size_t record = 0; record < kChunk; ++record)
      std::copy_n(&m_chunks[i][record * m_words], m_words, &wider[i][record * (m_words + 1)]);
  }
  m_isText.push_back(isText);
  m_chunks.swap(wider);
  ++m_words;
}

uint32_t ListDataMap::TakeRecord() {
  if (m_free != kNone) {
    const uint32_t record = m_free;
    m_free = At(record).next;
    return record;
  }
  if (m_used == m_chunks.size() * kChunk)
    m_chunks.push_back(std::make_unique<uint32_t[]>(kChunk * m_words));
  return m_used++;
}

void ListDataMap::Release(uint32_t record) {
  At(record) = {kNone, m_free, kNone, kNone};
  m_free = record;
}

uint32_t ListDataMap::Insert(uint32_t id) {
  const uint32_t record = TakeRecord();
  try {
    m_index.Insert(id, record);
  } catch (...) {
    Release(record);
    throw;
  }
  uint32_t& first = m_first[Bucket(id)];
  At(record) = {id, first, kNone, kNone};
  if (first != kNone) At(first).previous = record;
  first = record;
  std::fill_n(Values(record), m_isText.size(), Value{});
  ++m_count;
  return record;
}

void ListDataMap::Erase(uint32_t record) {
  for (int slot = 0; slot < Slots(); ++slot)
    if (m_isText[slot]) m_texts.Free(Slot(record, slot).text);
  const Header& header = At(record);
  if (header.next != kNone) At(header.next).previous = header.previous;
  (header.previous != kNone ? At(header.previous).next : m_first[Bucket(header.id)]) = header.next;
  m_index.Erase(header.id);
  Release(record);
  m_found = kNone;
  --m_count;
}

void ListDataMap::Clear() {
  m_index.Clear();
  m_texts.Clear();
  m_chunks.clear();
  m_used = 0;
  m_free = kNone;
  m_count = 0;
  m_found = kNone;
  m_first.fill(kNone);
}

void ListDataMap::SetText(uint32_t record, int slot, const char* text, size_t length) {
  char* const copy = m_texts.Copy(text, length);
  m_texts.Free(Slot(record, slot).text);
  Slot(record, slot).text = copy;
}
