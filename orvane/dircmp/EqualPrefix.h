// How far two blocks of bytes agree. Inside the library only.
#pragma once

#include <emmintrin.h>

#include <cstddef>

namespace equal_prefix {

inline __m128i Load(const unsigned char* bytes) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
}

// A 16-bit mask of the bytes that agree.
inline unsigned Agreeing(const unsigned char* left, const unsigned char* right) {
  return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(Load(left), Load(right))));
}

// The same without regard to the case of A to Z.
inline unsigned AgreeingLetters(const unsigned char* leftBytes, const unsigned char* rightBytes) {
  const __m128i left = Load(leftBytes), right = Load(rightBytes);
  const __m128i caseBit = _mm_set1_epi8(0x20);
  // Bytes above 0x7F count as negative here, and so as no letters.
  const __m128i lower = _mm_or_si128(left, caseBit);
  const __m128i isLetter = _mm_and_si128(_mm_cmpgt_epi8(lower, _mm_set1_epi8('a' - 1)),
                                         _mm_cmplt_epi8(lower, _mm_set1_epi8('z' + 1)));
  const __m128i differsInCase = _mm_cmpeq_epi8(_mm_xor_si128(left, right), caseBit);
  const __m128i agrees =
      _mm_or_si128(_mm_cmpeq_epi8(left, right), _mm_and_si128(isLetter, differsInCase));
  return static_cast<unsigned>(_mm_movemask_epi8(agrees));
}

template <class Mask>
size_t Length(const unsigned char* left, const unsigned char* right, size_t size, Mask mask) {
  size_t done = 0;
  for (; size - done >= 16; done += 16) {
    const unsigned agreeing = mask(left + done, right + done);
    if (agreeing != 0xFFFF) return done + static_cast<size_t>(__builtin_ctz(~agreeing));
  }
  while (done < size && left[done] == right[done]) ++done;
  return done;
}

}  // namespace equal_prefix

// The number of bytes before the first difference, size when there is none.
inline size_t EqualPrefix(const unsigned char* left, const unsigned char* right, size_t size) {
  using namespace equal_prefix;
  // Equal contents are the rule: four pieces a step, one branch.
  size_t done = 0;
  for (; size - done >= 64; done += 64) {
    const unsigned char *const l = left + done, *const r = right + done;
    const __m128i first =
        _mm_and_si128(_mm_cmpeq_epi8(Load(l), Load(r)), _mm_cmpeq_epi8(Load(l + 16), Load(r + 16)));
    const __m128i second = _mm_and_si128(_mm_cmpeq_epi8(Load(l + 32), Load(r + 32)),
                                         _mm_cmpeq_epi8(Load(l + 48), Load(r + 48)));
    if (_mm_movemask_epi8(_mm_and_si128(first, second)) != 0xFFFF) break;
  }
  return done + Length(left + done, right + done, size - done, Agreeing);
}

// The same without regard to the case of A to Z, except in the last bytes, where it may stop at a
// difference in case: the caller looks at what it stops at.
inline size_t EqualLettersPrefix(const unsigned char* left, const unsigned char* right,
                                 size_t size) {
  return equal_prefix::Length(left, right, size, equal_prefix::AgreeingLetters);
}
