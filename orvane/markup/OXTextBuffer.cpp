#include "markup/OXTextBuffer.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "markup/TextScan.h"

namespace {

constexpr size_t kFirstCapacity = 256;
constexpr size_t kMaxCapacity = 0x7FFFFFFF;

struct Entity {
  std::string_view text;
  char character;
};

constexpr Entity kEntities[] = {
    {"&apos;", '\''}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&amp;", '&'}};

}  // namespace

void COXTextBuffer::Free() {
  ::operator delete(m_text);
  m_text = nullptr;
  m_length = m_capacity = 0;
}

bool COXTextBuffer::Reserve(size_t length) {
  if (length <= m_capacity) return true;
  if (length > kMaxCapacity) return false;
  const size_t capacity =
      std::max({length, std::min(m_capacity * 2, kMaxCapacity), kFirstCapacity});
  auto* const text = static_cast<char*>(::operator new(capacity, std::nothrow));
  if (text == nullptr) return false;
  if (m_length > 0) memcpy(text, m_text, m_length);
  ::operator delete(m_text);
  m_text = text;
  m_capacity = capacity;
  return true;
}

bool COXTextBuffer::Append(std::string_view text) {
  if (text.empty()) return true;
  if (!Reserve(m_length + text.size())) return false;
  CopyBytes(m_text + m_length, text.data(), text.size());
  m_length += text.size();
  return true;
}

bool COXTextBuffer::AppendJoined(std::string_view text) {
  if (text.empty()) return true;
  if (!Reserve(m_length + text.size())) return false;
  const char* const end = text.data() + text.size();
  for (const char* at = text.data(); at != end;) {
    const char* stop = FindFirst<'\r'>(at, end);
    const bool joins = stop != end && stop + 1 != end && stop[1] == '\n';
    if (!joins && stop != end) ++stop;
    CopyBytes(m_text + m_length, at, stop - at);
    m_length += stop - at;
    at = joins ? stop + 1 : stop;
  }
  return true;
}

void COXTextBuffer::DecodeEntities() {
  const char* const end = m_text + m_length;
  char* to = m_text;
  for (const char* from = m_text; from != end;) {
    const char* const stop = FindFirst<'&'>(from, end);
    memmove(to, from, stop - from);
    to += stop - from;
    from = stop;
    if (stop == end) break;
    const std::string_view rest(stop, end - stop);
    const Entity* const entity =
        std::find_if(std::begin(kEntities), std::end(kEntities),
                     [rest](const Entity& each) { return rest.starts_with(each.text); });
    const bool known = entity != std::end(kEntities);
    *to++ = known ? entity->character : '&';
    from += known ? entity->text.size() : 1;
  }
  m_length = to - m_text;
}

const char* COXTextBuffer::ZeroTerminated() {
  if (!Reserve(m_length + 1)) return nullptr;
  m_text[m_length] = 0;
  return m_text;
}
