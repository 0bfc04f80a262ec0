#include "markup/OXQuickString.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "markup/CharClasses.h"
#include "markup/TextScan.h"

namespace {

constexpr unsigned kMaxBlock = 0x7FFFFFFF;

// The length of text, at most limit, without looking further.
size_t BoundedLength(const char* text, int limit) { return limit < 1 ? 0 : strnlen(text, limit); }

}  // namespace

COXQuickString::COXQuickString(const char* text) {
  Init();
  SetString(text);
}

COXQuickString::COXQuickString(const COXQuickString& other) {
  Init();
  SetString(other.GetString());
}

COXQuickString::~COXQuickString() { Empty(); }

char* COXQuickString::AllocBuffer(unsigned size) {
  return static_cast<char*>(::operator new(size, std::nothrow));
}

void COXQuickString::Empty() {
  if (m_buffer != nullptr && !m_borrowed) ::operator delete(m_buffer);
  Init();
}

int COXQuickString::SetReserved(const char* text, size_t length, unsigned size) {
  if (m_buffer == nullptr || m_borrowed || m_capacity != size || length >= size) {
    Empty();
    return SetLength(size) && Add(text, length, true);
  }
  // As well as a new block of that size.
  CopyBytes(m_buffer, text, length);
  m_buffer[length] = 0;
  m_length = length;
  m_growBy = kGrowBy;
  return 1;
}

void COXQuickString::Adopt(char* block, unsigned capacity, unsigned length) {
  block[length] = 0;
  if (m_buffer != nullptr && !m_borrowed) ::operator delete(m_buffer);
  m_buffer = block;
  m_capacity = capacity;
  m_borrowed = 0;
  m_length = length;
}

bool COXQuickString::Grow(unsigned long long size, unsigned capacity) {
  char* const block = size <= kMaxBlock ? AllocBuffer(static_cast<unsigned>(size)) : nullptr;
  if (block == nullptr) return false;
  CopyBytes(block, m_buffer, m_length);
  Adopt(block, capacity, m_length);
  return true;
}

int COXQuickString::Assign(const char* text, size_t length) {
  // text may be part of this string, so the old block goes last.
  char* const block = length < kMaxBlock ? AllocBuffer(length + 1) : nullptr;
  if (block != nullptr) CopyBytes(block, text, length);
  Empty();
  if (block == nullptr) return 0;
  Adopt(block, length + 1, length);
  return 1;
}

int COXQuickString::SetString(const char* text) {
  if (text != nullptr) return Assign(text, strlen(text));
  Empty();
  return 1;
}

int COXQuickString::SetString(const char* text, int length) {
  if (text != nullptr && length >= 1) return Assign(text, BoundedLength(text, length));
  Empty();
  return 1;
}

int COXQuickString::Append(char c) {
  if (m_length + 2 > m_capacity) {
    const unsigned long long capacity = static_cast<unsigned long long>(m_growBy) + m_length;
    // A grow-by of 0 leaves no room for the character itself.
    const unsigned long long size = m_growBy == 0 ? capacity + 2 : capacity + 1;
    if (!Grow(size, capacity)) return 0;
  }
  m_buffer[m_length++] = c;
  m_buffer[m_length] = 0;
  return 1;
}

int COXQuickString::Add(const char* text, size_t added, bool exactCapacity) {
  const unsigned long long newLength = static_cast<unsigned long long>(m_length) + added;
  if (newLength + 1 <= m_capacity) {
    memmove(m_buffer + m_length, text, added);
    m_length = newLength;
    m_buffer[m_length] = 0;
    return 1;
  }
  // text may be part of this string, so it is copied before the old block goes.
  char* const block = newLength < kMaxBlock ? AllocBuffer(newLength + 1) : nullptr;
  if (block == nullptr) return 0;
  CopyBytes(block, m_buffer, m_length);
  CopyBytes(block + m_length, text, added);
  Adopt(block, (exactCapacity ? newLength : m_length) + 1, newLength);
  return 1;
}

int COXQuickString::AddString(const char* text) {
  return text == nullptr ? 0 : Add(text, strlen(text), false);
}

int COXQuickString::AddString(const char* text, int length) {
  return text == nullptr ? 0 : Add(text, BoundedLength(text, length), true);
}

int COXQuickString::SetLength(unsigned size) {
  if (size == m_capacity) return 1;
  if (size == 0) {
    Empty();
    return 1;
  }
  if (size < m_capacity) {
    m_buffer[size] = 0;
    m_length = std::min(m_length, size);
    return 1;
  }
  // The capacity may understate the block, so the text can be longer than what is asked for.
  return Grow(std::max(size, m_length + 1), size) ? 1 : 0;
}

int COXQuickString::Compare(const char* text, int caseSensitive) const {
  if (text == nullptr || IsEmpty()) return 0;
  return (caseSensitive ? strcmp(m_buffer, text) : _stricmp(m_buffer, text)) == 0;
}

int COXQuickString::TrimRight() {
  if (IsEmpty()) return 1;
  while (m_length > 0 && IsSpace(m_buffer[m_length - 1])) --m_length;
  m_buffer[m_length] = 0;
  return 1;
}

int COXQuickString::TrimLeft() {
  if (IsEmpty()) return 1;
  unsigned leading = 0;
  while (leading < m_length && IsSpace(m_buffer[leading])) ++leading;
  if (leading == 0) return 1;
  const unsigned kept = m_length - leading;
  char* const block = AllocBuffer(kept + 1);
  if (block == nullptr) return 0;
  CopyBytes(block, m_buffer, kept);
  Adopt(block, kept + 1, kept);
  return 1;
}

int COXQuickString::Trim() { return TrimRight() && TrimLeft(); }

int COXQuickString::Strip() {
  if (IsEmpty()) return 1;
  // Counts first, then writes.
  char* block = nullptr;
  unsigned written = 0;
  for (int pass = 0; pass < 2; ++pass) {
    written = 0;
    bool gap = false;  // white space since the last character written
    for (unsigned i = 0; i < m_length; ++i) {
      if (IsSpace(m_buffer[i])) {
        gap = written > 0;
        continue;
      }
      if (gap && block != nullptr) block[written] = ' ';
      written += gap;
      if (block != nullptr) block[written] = m_buffer[i];
      ++written;
      gap = false;
    }
    if (pass == 0 && (block = AllocBuffer(written + 1)) == nullptr) return 0;
  }
  Adopt(block, written + 1, written);
  return 1;
}

int COXQuickString::NumTokens(char separator) const {
  if (IsEmpty()) return 0;
  return 1 + static_cast<int>(std::count(m_buffer, m_buffer + m_length, separator));
}

COXQuickString COXQuickString::GetToken(int index, char separator) const {
  COXQuickString field;
  if (IsEmpty() || index < 0) return field;
  const char* const end = m_buffer + m_length;
  const char* start = m_buffer;
  for (;;) {
    const char* const stop = std::find(start, end, separator);
    if (index == 0) {
      field.SetString(start, static_cast<int>(stop - start));
      return field;
    }
    if (stop == end) return field;
    start = stop + 1;
    --index;
  }
}

COXQuickString& COXQuickString::operator=(const char* text) {
  SetString(text);
  return *this;
}

COXQuickString& COXQuickString::operator=(const COXQuickString& other) {
  if (this != &other) SetString(other.GetString());
  return *this;
}

COXQuickString& COXQuickString::operator+=(const char* text) {
  AddString(text);
  return *this;
}

COXQuickString& COXQuickString::operator+=(const COXQuickString& other) {
  AddString(other.GetString());
  return *this;
}
