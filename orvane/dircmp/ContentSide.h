// One of two contents that are compared, a block of it at a time. Inside the library only.
#pragma once

#include "dircmp/ContentCompare.h"
#include "dircmp/LetterCase.h"

class ContentSide {
 public:
  // The block has room for ContentCompare::kBlockSize bytes; letters is null where case counts.
  ContentSide(ByteSource& source, unsigned char* block, const LetterCase* letters)
      : m_source(source), m_block(block), m_next(block), m_end(block), m_letters(letters) {}

  const unsigned char* next() const { return m_next; }
  size_t left() const { return static_cast<size_t>(m_end - m_next); }
  // No further bytes, in this block or after it. Tells after Fill.
  bool hasEnded() const { return m_hasEnded && m_next == m_end; }

  void Advance(size_t count) { m_next += count; }
  bool IsAtSpace() const { return m_next < m_end && IsSpace(*m_next); }
  // Of this block; true when there was any.
  bool SkipSpaces() {
    const unsigned char* const start = m_next;
    while (IsAtSpace()) ++m_next;
    return m_next > start;
  }

  // Whether the next byte is the second of a character of two bytes.
  bool IsAtTrailByte() const { return IsTrailByte(m_next); }

  // Reads a block when this one is used up: false when that fails.
  bool Fill() {
    if (m_next < m_end || m_hasEnded) return true;
    if (m_letters != nullptr && m_letters->hasLeadBytes()) m_startsWithTrail = IsTrailByte(m_end);
    const int read = m_source.Read(m_block, ContentCompare::kBlockSize);
    if (read < 0) return false;
    m_hasEnded = read == 0;
    m_next = m_block;
    m_end = m_block + read;
    return true;
  }
  bool NeedsFill() const { return m_next == m_end && !m_hasEnded; }

  static bool IsSpace(unsigned char byte) { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }

 private:
  // A byte that is no lead byte ends its character, whatever it is: of the lead bytes before a
  // place, an odd number means that the last of them is waiting for its second byte.
  bool IsTrailByte(const unsigned char* place) const {
    if (place == m_block) return m_startsWithTrail;
    const unsigned char* const first = m_block + (m_startsWithTrail ? 1 : 0);
    const unsigned char* run = place;
    while (run > first && m_letters->IsLead(run[-1])) --run;
    return (place - run) % 2 != 0;
  }

  ByteSource& m_source;
  unsigned char* m_block;
  const unsigned char* m_next;
  const unsigned char* m_end;
  const LetterCase* m_letters;
  bool m_hasEnded = false;
  bool m_startsWithTrail = false;
};
