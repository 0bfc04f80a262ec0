// Memory for very many short texts.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

// Texts of up to kLongest bytes with their zero are cut from large blocks, and what is freed is
// used again for texts of about the same length; longer ones are allocated one by one. A text of a
// million costs its own bytes and, on average, four more.
class TextPool {
 public:
  TextPool() = default;
  ~TextPool() { Clear(); }
  TextPool(const TextPool&) = delete;
  TextPool& operator=(const TextPool&) = delete;

  // A copy with a zero behind it. Empty texts share one, which is not to be written to. Throws
  // std::bad_alloc.
  char* Copy(const char* text, size_t length);
  // Takes back what Copy gave, unchanged; null is no text.
  void Free(char* text);
  // Ends all texts.
  void Clear();

 private:
  static constexpr size_t kUnit = 8;
  static constexpr size_t kLongest = 256;
  static constexpr size_t kBlock = 64 * 1024;

  struct FreeText {
    FreeText* next;
  };
  // Stands before a text that is allocated alone.
  struct LongText {
    LongText* next;
    LongText** toThis;  // what points to this one
  };

  void FreeLong(LongText* freed);

  FreeText* m_free[kLongest / kUnit + 1] = {};  // by length in units
  std::vector<std::unique_ptr<char[]>> m_blocks;
  char* m_unused = nullptr;  // the rest of the last block
  size_t m_unusedSize = 0;
  LongText* m_long = nullptr;  // those allocated one by one
};
