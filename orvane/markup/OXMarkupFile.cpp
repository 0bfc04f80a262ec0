#include "markup/OXMarkupFile.h"

#include <algorithm>

#include "markup/TextScan.h"

int COXMarkupFile::Create(const char* path) {
  m_file.reset(
      CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  m_good = static_cast<bool>(m_file);
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
  DWORD written = 0;
  const DWORD size = m_length;
  m_length = 0;
  return size == 0 ||
         (WriteFile(m_file.get(), m_buffer, size, &written, nullptr) && written == size);
}

int COXMarkupFile::Close() {
  const bool good = m_good && Flush();
  m_good = false;
  m_file.reset();
  return good;
}
