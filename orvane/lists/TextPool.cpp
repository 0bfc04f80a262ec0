#include "lists/TextPool.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace {

char g_empty[1] = "";

}  // namespace

char* TextPool::Copy(const char* text, size_t length) {
  if (length == 0) return g_empty;
  const size_t units = (length + 1 + kUnit - 1) / kUnit;
  char* copy;
  if (units > kLongest / kUnit) {
    const auto place = [this](const char* added) {
      return std::lower_bound(m_long.begin(), m_long.end(), added, std::less<const char*>());
    };
    std::unique_ptr<char[]> added(new char[length + 1]);
    m_long.insert(place(added.get()), added.get());
    copy = added.release();
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
  m_long.erase(std::lower_bound(m_long.begin(), m_long.end(), text, std::less<char*>()));
  delete[] text;
}

void TextPool::Clear() {
  for (char* const text : m_long) delete[] text;
  m_long.clear();
  m_blocks.clear();
  m_unused = nullptr;
  m_unusedSize = 0;
  std::fill(std::begin(m_free), std::end(m_free), nullptr);
}
