// The growable 8-bit text that every name and text of a markup tree is kept in.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

// An owned, zero-terminated text with an explicit length. No counting of references, no formatting:
// appending single characters is what it is good at.
//
// Operations that return an int return 1, or 0 when memory ran out or an argument was null where
// that is said; the text is then what it was. A string belongs to one thread at a time.
//
// The capacity is the number of bytes that an append may use before it takes a larger block; every
// way to grow sets it in a way of its own, stated below.
class ORVANE_API COXQuickString {
 public:
  COXQuickString() { Init(); }
  COXQuickString(const char* text);
  COXQuickString(const COXQuickString& other);
  virtual ~COXQuickString();

  // Frees the text. The grow-by is 10 again, by design; SetString empties first, so it does the
  // same.
  void Empty();
  bool IsEmpty() const { return m_buffer == nullptr || *m_buffer == 0; }

  // Takes a copy of text, or of its first length characters, into a block of exactly the size
  // needed. A null text, and a length below 1, empty the string and succeed. Out of memory: the
  // string is empty.
  int SetString(const char* text);
  int SetString(const char* text, int length);

  // Appends one character. A full block is replaced by one of grow-by + length + 1 bytes, and the
  // capacity is one less than that.
  int Append(char c);

  // Appends text; null gives 0. Grows to the exact size, but the capacity then states only the old
  // length + 1: the next addition takes a new block again. For many additions reserve with
  // SetLength.
  int AddString(const char* text);

  // Appends the first length characters of text; null gives 0. Grows to the exact size.
  int AddString(const char* text, int length);

  // Never null. The text of an empty string is shared and must not be written.
  const char* GetString() const { return IsEmpty() ? "" : m_buffer; }
  unsigned GetLength() const { return m_length; }

  // Reserves a block of size bytes when size is above the capacity, and cuts the text to at most
  // size characters when it is below. 0 empties the string; the capacity itself changes nothing.
  int SetLength(unsigned size);

  // The bytes that Append reserves beyond the text; any value will do.
  void SetGrowBy(unsigned growBy) { m_growBy = growBy; }
  unsigned GetGrowBy() const { return m_growBy; }

  // Whether the texts are equal: 1 or 0, no order. An empty string equals nothing, not even an
  // empty text, by design. Without case: as _stricmp has it.
  int Compare(const char* text, int caseSensitive) const;

  // White space is what the C locale has: blank, tab, line feed, vertical tab, form feed, carriage
  // return. Bytes above 127 are never white space.

  // TrimRight drops the white space at the end.
  int TrimRight();
  // TrimLeft shortens the text at its *end* by as many characters as it has white space in front,
  // by design: "  ab" becomes "  ". The parser's texts depend on it.
  int TrimLeft();
  // TrimRight, then TrimLeft.
  int Trim();
  // Turns every run of white space into one blank, and drops those at both ends.
  int Strip();

  // The number of fields between separators: 0 for an empty string.
  int NumTokens(char separator) const;
  // The field at index, counted from 0; empty when there is no such field.
  COXQuickString GetToken(int index, char separator) const;

  COXQuickString& operator=(const char* text);
  COXQuickString& operator=(const COXQuickString& other);
  COXQuickString& operator+=(const char* text);
  COXQuickString& operator+=(const COXQuickString& other);

  bool operator==(const char* text) const { return Compare(text, TRUE) != 0; }
  bool operator==(const COXQuickString& other) const { return *this == other.GetString(); }
  bool operator!=(const char* text) const { return !(*this == text); }
  bool operator!=(const COXQuickString& other) const { return !(*this == other); }
  operator const char*() const { return GetString(); }

 protected:
  // The fields of a string without text.
  void Init() {
    m_buffer = nullptr;
    m_capacity = 0;
    m_borrowed = 0;
    m_length = 0;
    m_growBy = kGrowBy;
  }
  // A new block of exactly size bytes, or null. The global operator delete frees it.
  char* AllocBuffer(unsigned size);

  static constexpr unsigned kGrowBy = 10;

  char* m_buffer;
  // No block has 2^31 bytes, so the capacity leaves one bit free.
  unsigned m_capacity : 31;
  unsigned m_borrowed : 1;  // the block is part of a larger one, and is freed with that
  unsigned m_length;
  unsigned m_growBy;

 private:
  friend class COXNodePool;
  friend class COXParser;

  // Takes a text of length characters whose block outlives this string. The string is empty.
  void Borrow(char* text, unsigned length) {
    m_buffer = text;
    m_capacity = length + 1;
    m_borrowed = 1;
    m_length = length;
  }
  // Takes text with size bytes reserved, as Empty, SetLength and AddString would; a block of that
  // size stays.
  int SetReserved(const char* text, size_t length, unsigned size);
  // Replaces the block by another one that holds length characters.
  void Adopt(char* block, unsigned capacity, unsigned length);
  int Assign(const char* text, size_t length);
  int Add(const char* text, size_t length, bool exactCapacity);
  // Moves the text to a new block of size bytes, and states another capacity; false: no memory.
  bool Grow(unsigned long long size, unsigned capacity);
};
