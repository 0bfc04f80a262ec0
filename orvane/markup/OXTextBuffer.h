// A growing text that the parser collects pieces in.
#pragma once

#include <string_view>

// Grows to twice its size and keeps its block when cleared. Operations that return a bool return
// false when memory runs out, and then nothing was appended.
class COXTextBuffer {
 public:
  COXTextBuffer() = default;
  ~COXTextBuffer() { Free(); }
  COXTextBuffer(const COXTextBuffer&) = delete;
  COXTextBuffer& operator=(const COXTextBuffer&) = delete;

  void Clear() { m_length = 0; }
  void Free();

  bool Append(std::string_view text);
  bool Append(char c) {
    if (m_length == m_capacity && !Reserve(m_length + 1)) return false;
    m_text[m_length++] = c;
    return true;
  }
  // Appends text with every carriage return before a line feed left out.
  bool AppendJoined(std::string_view text);

  // Replaces the entities that stand for the five characters of markup, once each.
  void DecodeEntities();

  std::string_view Text() const { return {m_text, m_length}; }
  // The same with a zero behind it; null when memory runs out.
  const char* ZeroTerminated();

 private:
  bool Reserve(size_t length);

  char* m_text = nullptr;
  size_t m_length = 0;
  size_t m_capacity = 0;
};
