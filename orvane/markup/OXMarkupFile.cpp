#include "markup/OXMarkupFile.h"

#include <algorithm>

#include "markup/TextScan.h"

int COXMarkupFile::Create(const char* path) {
  m_good = m_file.Open(path);
  m_length = 0;
  return m_good;
}

int COXMarkupFile::Write(std::string_view text) {
  while (m_good && !text.empty()) {
    const size_t size = std::min(text.size(), sizeof m_buffer - m_length);
    CopyBytes(m_buffer + m_length, text.data(), size);
    m_length += size;
    text.remove_prefix(size);
    if (m_length == sizeof m_buffer) m_good = Flush();
  }
  return m_good;
}

int COXMarkupFile::WriteTimes(std::string_view text, int times) {
  for (; times > 0; --times) Write(text);
  return m_good;
}

bool COXMarkupFile::Flush() {
  const DWORD size = m_length;
  m_length = 0;
  return size == 0 || m_file.Write(m_buffer, size);
}

int COXMarkupFile::Close() {
  const bool good = m_good && Flush() && m_file.Commit();
  m_good = false;
  m_file.Discard();
  return good;
}
