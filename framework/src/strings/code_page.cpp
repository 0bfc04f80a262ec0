#include "strings/code_page.h"

#include <afxver_.h>

#include <string.h>

#include <array>
#include <atomic>

#include <mbctype.h>  // last: its macros take names of the standard library

namespace strings {
namespace {

using Fold = std::array<char, 256>;

enum class Case { lower, upper };

// Lead bytes stay as they are.
Fold makeFold(Case to) {
  Fold fold{};
  for (int i = 0; i < 256; ++i) fold[i] = static_cast<char>(i);
  const auto convert = to == Case::upper ? &CharUpperBuffA : &CharLowerBuffA;
  const int end = GetACP() == CP_UTF8 ? 0x80 : 256;
  for (int i = 1; i < end; ++i)
    if (!IsDBCSLeadByte(static_cast<BYTE>(i))) convert(&fold[i], 1);
  return fold;
}

const Fold& fold(Case to) {
  static const Fold lower = makeFold(Case::lower);
  static const Fold upper = makeFold(Case::upper);
  return to == Case::upper ? upper : lower;
}

// A double-byte letter (Latin, Greek and Cyrillic ones have case).
void foldPair(char* pair, Case to) {
  const UINT codePage = static_cast<UINT>(_getmbcp());
  wchar_t wide[2];
  if (MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, pair, 2, wide, 2) != 1) return;
  const wchar_t before = wide[0];
  to == Case::upper ? CharUpperBuffW(wide, 1) : CharLowerBuffW(wide, 1);
  char folded[2];
  if (wide[0] != before &&
      WideCharToMultiByte(codePage, 0, wide, 1, folded, 2, nullptr, nullptr) == 2)
    memcpy(pair, folded, 2);
}

// The bytes of the UTF-8 character at p, of which at most so many are there.
int utf8Size(const char* p, int length) {
  const unsigned char lead = Byte(*p);
  const int size = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  return size <= length ? size : 1;
}

// Folds the UTF-8 character at p in its place: one whose other case takes more or fewer bytes
// stays.
void foldUtf8(char* p, int size, Case to, const Fold& table) {
  if (size == 1) {
    *p = table[Byte(*p)];
    return;
  }
  wchar_t wide[2];
  if (MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, p, size, wide, 2) != 1) return;
  to == Case::upper ? CharUpperBuffW(wide, 1) : CharLowerBuffW(wide, 1);
  char folded[4];
  if (WideCharToMultiByte(CP_UTF8, 0, wide, 1, folded, 4, nullptr, nullptr) == size)
    memcpy(p, folded, size);
}

// The runtime's page may have been set to another one since.
bool IsUtf8() { return GetACP() == CP_UTF8 && !DoubleByte(); }

int compareUtf8NoCase(const char* left, const char* right) {
  const Fold& table = fold(Case::lower);
  for (;;) {
    const int leftSize = utf8Size(left, static_cast<int>(strnlen(left, 4)));
    const int rightSize = utf8Size(right, static_cast<int>(strnlen(right, 4)));
    char l[5] = "", r[5] = "";
    memcpy(l, left, leftSize);
    memcpy(r, right, rightSize);
    foldUtf8(l, leftSize, Case::lower, table);
    foldUtf8(r, rightSize, Case::lower, table);
    const int difference = strcmp(l, r);
    if (difference != 0 || *left == '\0') return difference;
    left += leftSize;
    right += rightSize;
  }
}

void foldText(char* text, int length, Case to) {
  const Fold& table = fold(to);
  if (IsUtf8()) {
    for (int i = 0, size; i < length; i += size) {
      size = utf8Size(text + i, length - i);
      foldUtf8(text + i, size, to, table);
    }
    return;
  }
  if (!DoubleByte()) {
    for (int i = 0; i < length; ++i) text[i] = table[Byte(text[i])];
    return;
  }
  for (int i = 0; i < length; ++i) {
    if (CharSize(text + i) == 2)
      foldPair(text + i++, to);
    else
      text[i] = table[Byte(text[i])];
  }
}

unsigned foldedValue(const char* p, const Fold& table) {
  if (CharSize(p) == 1) return Byte(table[Byte(*p)]);
  char pair[2] = {p[0], p[1]};
  foldPair(pair, Case::lower);
  return Byte(pair[0]) << 8 | Byte(pair[1]);
}

}  // namespace

// The runtime tells its code page, but not everywhere whether that has double-byte characters. The
// answer for the latest code page is kept: its number above the lowest bit, which is the answer.
bool DoubleByte() {
  static std::atomic<unsigned> latest{0};
  const unsigned codePage = static_cast<unsigned>(_getmbcp());
  unsigned known = latest.load(std::memory_order_relaxed);
  if (known >> 1 != codePage) {
    CPINFO information;
    const bool doubleByte = GetCPInfo(codePage, &information) && information.MaxCharSize == 2;
    known = codePage << 1 | (doubleByte ? 1 : 0);
    latest.store(known, std::memory_order_relaxed);
  }
  return (known & 1) != 0;
}

const char* FindChar(const char* text, char ch) {
  if (!DoubleByte()) return strchr(text, ch);
  for (;; text += CharSize(text)) {
    if (*text == ch && CharSize(text) == 1) return text;
    if (*text == '\0') return nullptr;
  }
}

const char* FindSub(const char* text, const char* sub) {
  if (!DoubleByte()) return strstr(text, sub);
  const size_t length = strlen(sub);
  for (; *text != '\0'; text += CharSize(text))
    if (*text == *sub && strncmp(text, sub, length) == 0) return text;
  return nullptr;
}

bool IsOneOf(const char* p, const char* set) {
  if (!DoubleByte()) return *p != '\0' && strchr(set, *p) != nullptr;
  const unsigned value = CharValue(p);
  for (; *set != '\0'; set += CharSize(set))
    if (CharValue(set) == value) return true;
  return false;
}

void FoldUpper(char* text, int length) { foldText(text, length, Case::upper); }

void FoldLower(char* text, int length) { foldText(text, length, Case::lower); }

int CompareNoCase(const char* left, const char* right) {
  if (IsUtf8()) return compareUtf8NoCase(left, right);
  const Fold& table = fold(Case::lower);
  if (!DoubleByte()) {
    for (;; ++left, ++right) {
      const int difference = Byte(table[Byte(*left)]) - Byte(table[Byte(*right)]);
      if (difference != 0 || *left == '\0') return difference;
    }
  }
  for (;; left += CharSize(left), right += CharSize(right)) {
    const unsigned l = foldedValue(left, table), r = foldedValue(right, table);
    if (l != r) return l < r ? -1 : 1;
    if (l == 0) return 0;
  }
}

}  // namespace strings
