// The scrambling of texts: a salt, two characters that check the rest, and the text's bytes, masked
// and written in base 64 (RFC 4648, section 5, without padding).
#include <array>
#include <cstring>

#include "settings/RegistryUtil.h"

namespace {

constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
constexpr int kHeader = 3;  // the salt and the check
constexpr int kBitsPerDigit = 6;

// The value of each character as a digit, or -1.
constexpr auto kValues = [] {
  std::array<signed char, 256> values;
  values.fill(-1);
  for (signed char i = 0; i < 64; ++i) values[static_cast<unsigned char>(kDigits[i])] = i;
  return values;
}();

int ValueOf(char digit) { return kValues[static_cast<unsigned char>(digit)]; }

// A mask for each byte in turn, which depends on the salt and on the bytes before.
class Mask {
 public:
  explicit Mask(unsigned salt) : m_state((salt + 1) * 0x9E3779B9u) { Advance(0); }

  unsigned char Scramble(unsigned char byte) {
    const auto masked = static_cast<unsigned char>(byte ^ (m_state >> 24));
    Advance(byte);
    return masked;
  }

  unsigned char Restore(unsigned char masked) {
    const auto byte = static_cast<unsigned char>(masked ^ (m_state >> 24));
    Advance(byte);
    return byte;
  }

  // 12 bits over all bytes.
  unsigned Check() const { return m_state >> 20; }

 private:
  void Advance(unsigned char byte) {
    m_state = (m_state ^ byte) * 1664525u + 1013904223u;
    m_state ^= m_state >> 15;
  }

  unsigned m_state;
};

unsigned NewSalt() {
  LARGE_INTEGER counter = {};
  QueryPerformanceCounter(&counter);
  return counter.LowPart * 0x9E3779B9u >> (32 - kBitsPerDigit);
}

}  // namespace

CString MRegistry::EncriptStr(const char* text) {
  if (text == nullptr) text = "";
  const size_t length = strlen(text);
  CString result;
  const size_t resultLength = kHeader + (length * 8 + kBitsPerDigit - 1) / kBitsPerDigit;
  char* out = result.GetBufferSetLength(static_cast<int>(resultLength));
  char* const header = out;
  out += kHeader;

  const unsigned salt = NewSalt();
  Mask mask(salt);
  unsigned bits = 0;
  int bitCount = 0;
  for (const char* in = text; *in != 0; ++in) {
    bits = bits << 8 | mask.Scramble(static_cast<unsigned char>(*in));
    for (bitCount += 8; bitCount >= kBitsPerDigit;) {
      bitCount -= kBitsPerDigit;
      *out++ = kDigits[bits >> bitCount & 63];
    }
  }
  if (bitCount > 0) *out++ = kDigits[bits << (kBitsPerDigit - bitCount) & 63];

  header[0] = kDigits[salt];
  header[1] = kDigits[mask.Check() >> 6];
  header[2] = kDigits[mask.Check() & 63];
  result.ReleaseBuffer(static_cast<int>(resultLength));
  return result;
}

CString MRegistry::DescriptStr(const char* text) {
  const size_t length = text == nullptr ? 0 : strlen(text);
  if (length < kHeader) return CString();
  const int salt = ValueOf(text[0]), high = ValueOf(text[1]), low = ValueOf(text[2]);
  if (salt < 0 || high < 0 || low < 0) return CString();

  const int digits = static_cast<int>(length) - kHeader;
  CString result;
  char* const begin = result.GetBufferSetLength(digits / 4 * 3 + digits % 4 * kBitsPerDigit / 8);
  char* out = begin;
  Mask mask(static_cast<unsigned>(salt));
  unsigned bits = 0;
  int bitCount = 0;
  bool sound = true;
  for (const char* in = text + kHeader; sound && *in != 0; ++in) {
    const int value = ValueOf(*in);
    sound = value >= 0;
    bits = bits << kBitsPerDigit | (static_cast<unsigned>(value) & 63);
    bitCount += kBitsPerDigit;
    if (bitCount < 8) continue;
    bitCount -= 8;
    *out = static_cast<char>(mask.Restore(static_cast<unsigned char>(bits >> bitCount)));
    sound = sound && *out++ != 0;
  }
  // What is left of the last digit is empty.
  sound = sound && bitCount < kBitsPerDigit && (bits & ((1u << bitCount) - 1)) == 0 &&
          mask.Check() == static_cast<unsigned>(high << kBitsPerDigit | low);
  result.ReleaseBuffer(sound ? static_cast<int>(out - begin) : 0);
  return result;
}
