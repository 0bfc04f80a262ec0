// Finds and copies characters, sixteen bytes at a time.
#pragma once

#include <emmintrin.h>

#include <cstddef>
#include <cstring>

// The first of some characters in [at, end), or end. Reads nothing outside.
template <char... Wanted>
inline const char* FindFirst(const char* at, const char* end) {
  for (; end - at >= 16; at += 16) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i found = (_mm_cmpeq_epi8(bytes, _mm_set1_epi8(Wanted)) | ...);
    if (const int mask = _mm_movemask_epi8(found)) return at + __builtin_ctz(mask);
  }
  while (at != end && ((*at != Wanted) && ...)) ++at;
  return at;
}

// As strlen. Looks at the aligned sixteen bytes that the zero is in, and never at a page without
// it.
inline size_t TextLength(const char* text) {
  const char* at = text;
  for (; (reinterpret_cast<size_t>(at) & 15) != 0; ++at) {
    if (*at == 0) return at - text;
  }
  for (;; at += 16) {
    const __m128i bytes = _mm_load_si128(reinterpret_cast<const __m128i*>(at));
    const int mask = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_setzero_si128()));
    if (mask != 0) return at - text + __builtin_ctz(mask);
  }
}

// What is copied at a time.
inline constexpr size_t kUnit = 16;

inline void CopyUnit(char* to, const char* from) {
  _mm_storeu_si128(reinterpret_cast<__m128i*>(to),
                   _mm_loadu_si128(reinterpret_cast<const __m128i*>(from)));
}

// The text behind a UTF-8 byte-order mark, if it begins with one.
inline const char* SkipByteOrderMark(const char* text) {
  constexpr char kMark[] = "\xEF\xBB\xBF";
  return strncmp(text, kMark, 3) == 0 ? text + 3 : text;
}

// As memcpy, without the cost of a call or of a string instruction, which is what counts for the
// few bytes that most names and texts have.
inline void CopyBytes(void* to, const void* from, size_t size) {
  auto* const target = static_cast<char*>(to);
  const auto* const source = static_cast<const char*>(from);
  if (size >= kUnit) {
    for (size_t at = 0; at + kUnit < size; at += kUnit) CopyUnit(target + at, source + at);
    CopyUnit(target + size - kUnit, source + size - kUnit);
  } else if (size >= 8) {
    memcpy(target, source, 8);
    memcpy(target + size - 8, source + size - 8, 8);
  } else if (size >= 4) {
    memcpy(target, source, 4);
    memcpy(target + size - 4, source + size - 4, 4);
  } else if (size > 0) {
    target[0] = source[0];
    target[size / 2] = source[size / 2];
    target[size - 1] = source[size - 1];
  }
}
