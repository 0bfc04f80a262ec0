#include "lists/TextPool.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

char g_empty[1] = "";

}  // namespace

char* TextPool::Copy(const char* text, size_t length) {
  if (length == 0) return g_empty;
  const size_t units = (length + 1 + kUnit - 1) / kUnit;
  char* copy;
  if (units > kLongest / kUnit) {
    auto* const added = new (new char[sizeof(LongText) + length + 1]) LongText{m_long, &m_long};
    if (m_long != nullptr) m_long->toThis = &added->next;
    m_long = added;
    copy = reinterpret_cast<char*>(added + 1);
  } else if (m_free[units] != nullptr) {
    copy = reinterpret_cast<char*>(m_free[units]);
    m_free[units] = m_free[units]->next;
  } else {
    if (m_unusedSize < units * kUnit) {
      m_blocks.push_back(std::make_unique_for_overwrite<char[]>(kBlock));
      m_unused = m_blocks.back().get();
      m_unusedSize = kBlock;
    }
    copy = m_unused;
    m_unused += units * kUnit;
    m_unusedSize -= units * kUnit;
  }
  memcpy(copy, text, length);
  copy[length] = 0;
  return copy;
}

void TextPool::Free(char* text) {
  if (text == nullptr || text == g_empty) return;
  const size_t units = (strlen(text) + 1 + kUnit - 1) / kUnit;
  if (units <= kLongest / kUnit) {
    auto* const freed = reinterpret_cast<FreeText*>(text);
    freed->next = m_free[units];
    m_free[units] = freed;
    return;
  }
  FreeLong(reinterpret_cast<LongText*>(text) - 1);
}

void TextPool::FreeLong(LongText* freed) {
  *freed->toThis = freed->next;
  if (freed->next != nullptr) freed->next->toThis = freed->toThis;
  delete[] reinterpret_cast<char*>(freed);
}

void TextPool::Clear() {
  while (m_long != nullptr) FreeLong(m_long);
  m_blocks.clear();
  m_unused = nullptr;
  m_unusedSize = 0;
  std::fill(std::begin(m_free), std::end(m_free), nullptr);
}
