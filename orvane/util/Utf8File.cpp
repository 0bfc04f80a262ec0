#include "util/Utf8File.h"

namespace {

// A line end, or three bytes for a unit.
constexpr unsigned kMostBytes = 3;

}  // namespace

bool Utf8File::Create(const char* path) {
  m_good = m_file.Open(path);
  return m_good;
}

void Utf8File::Write(wchar_t unit) {
  if (m_length + kMostBytes > sizeof m_buffer) m_good = Flush() && m_good;
  if (unit == '\n' && m_last != '\r') Put('\r');
  m_last = unit;
  if (unit < 0x80) {
    Put(unit);
    return;
  }
  m_hasNonAscii = true;
  if (unit < 0x800) {
    Put(0xC0 | unit >> 6);
  } else {
    Put(0xE0 | unit >> 12);
    Put(0x80 | (unit >> 6 & 0x3F));
  }
  Put(0x80 | (unit & 0x3F));
}

bool Utf8File::Flush() {
  const DWORD size = m_length;
  m_length = 0;
  return m_file.Write(m_buffer, size);
}

bool Utf8File::Close() {
  m_good = m_good && Flush() && m_file.Commit();
  return m_good;
}
