#include "util/Utf8File.h"

namespace {

// A line end, or three bytes for a unit.
constexpr unsigned kMostBytes = 3;

}  // namespace

Utf8File::~Utf8File() {
  if (!m_file) return;
  m_file.reset();
  DeleteFileA(m_path);
}

bool Utf8File::Create(const char* path) {
  // Without sharing: the system looks for other users of the file before it empties it.
  m_file.reset(
      CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  m_path = path;
  m_good = static_cast<bool>(m_file);
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
  DWORD written = 0;
  const DWORD size = m_length;
  m_length = 0;
  return WriteFile(m_file.get(), m_buffer, size, &written, nullptr) && written == size;
}

bool Utf8File::Close() {
  m_good = m_good && Flush();
  if (!m_good) return false;
  m_file.reset();
  return true;
}
