#include "zip/ZipCrc.h"

#include <emmintrin.h>
#include <wmmintrin.h>
#include <zlib.h>

namespace {

// Bytes are polynomials over GF(2), and their CRC is the remainder by P. A block of 128 bits that
// is D bits away from a later one may be replaced by a multiple that is added to the later one,
// since
//   block * x^D = high * x^(D+64) + low * x^D   (mod P),
// and the powers' remainders are constants of 32 bits. (Gopal and others, "Fast CRC Computation for
// Generic Polynomials Using PCLMULQDQ Instruction", Intel 2009.) Everything is bit-reversed here,
// as the CRC of zip archives is: hence 33-bit constants, and powers that are 32 off.
constexpr uint32_t kPolynomial = 0x04C11DB7;

constexpr uint64_t FoldConstant(unsigned power) {
  uint32_t remainder = 1;
  for (unsigned i = 0; i < power; ++i)
    remainder = remainder << 1 ^ (remainder >> 31 ? kPolynomial : 0);
  uint64_t reversed = 0;
  for (unsigned bit = 0; bit < 32; ++bit)
    if (remainder >> bit & 1) reversed |= 1ull << (31 - bit);
  return reversed << 1;
}

constexpr size_t kBlock = sizeof(__m128i);
constexpr size_t kStride = 4 * kBlock;  // four blocks at a time keep the multiplier busy

#define WITH_MULTIPLICATION __attribute__((target("pclmul,sse2")))

// The constants that carry a block over the given number of bytes.
template <size_t Bytes>
WITH_MULTIPLICATION __m128i Constants() {
  constexpr uint64_t kLow = FoldConstant(8 * Bytes + 32);
  constexpr uint64_t kHigh = FoldConstant(8 * Bytes - 32);
  return _mm_set_epi32(kHigh >> 32, static_cast<int>(kHigh), kLow >> 32, static_cast<int>(kLow));
}

WITH_MULTIPLICATION __m128i Load(const uint8_t* at) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
}

WITH_MULTIPLICATION __m128i Fold(__m128i block, __m128i constants, __m128i later) {
  const __m128i low = _mm_clmulepi64_si128(block, constants, 0x00);
  const __m128i high = _mm_clmulepi64_si128(block, constants, 0x11);
  return _mm_xor_si128(_mm_xor_si128(low, high), later);
}

// Of kStride bytes at least; a multiple of kBlock.
WITH_MULTIPLICATION uint32_t FoldedCrc(uint32_t crc, const uint8_t* at, size_t size) {
  const uint8_t* const end = at + size;
  __m128i blocks[4] = {Load(at), Load(at + kBlock), Load(at + 2 * kBlock), Load(at + 3 * kBlock)};
  blocks[0] = _mm_xor_si128(blocks[0], _mm_cvtsi32_si128(static_cast<int>(~crc)));
  at += kStride;
  const __m128i overStride = Constants<kStride>();
  for (; static_cast<size_t>(end - at) >= kStride; at += kStride)
    for (size_t i = 0; i < 4; ++i) blocks[i] = Fold(blocks[i], overStride, Load(at + i * kBlock));

  const __m128i overBlock = Constants<kBlock>();
  __m128i last = blocks[0];
  for (size_t i = 1; i < 4; ++i) last = Fold(last, overBlock, blocks[i]);
  for (; at < end; at += kBlock) last = Fold(last, overBlock, Load(at));

  // What is left has the same remainder as all bytes with the CRC so far; zlib inverts the CRC it
  // begins with, so this one stands for none.
  uint8_t bytes[kBlock];
  _mm_storeu_si128(reinterpret_cast<__m128i*>(bytes), last);
  return crc32(0xFFFFFFFF, bytes, sizeof bytes);
}

bool HasMultiplication() {
  static const bool has = __builtin_cpu_supports("pclmul");
  return has;
}

}  // namespace

uint32_t ZipCrc(uint32_t crc, const uint8_t* bytes, size_t size) {
  if (size >= kStride && HasMultiplication()) {
    const size_t folded = size / kBlock * kBlock;
    crc = FoldedCrc(crc, bytes, folded);
    bytes += folded;
    size -= folded;
  }
  return size > 0 ? crc32(crc, bytes, static_cast<uInt>(size)) : crc;
}
