#include "lists/ReportText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool isAscii(std::string_view text) {
  uint32_t all = 0, word;
  size_t i = 0;
  for (; i + sizeof word <= text.size(); i += sizeof word) {
    memcpy(&word, text.data() + i, sizeof word);
    all |= word;
  }
  for (; i < text.size(); ++i) all |= static_cast<unsigned char>(text[i]);
  return (all & 0x80808080) == 0;
}

// What stands for each byte; null: the byte itself.
using Replacements = std::array<const char*, 256>;

constexpr const char* kPictures[] = {
    "\xE2\x90\x80", "\xE2\x90\x81", "\xE2\x90\x82", "\xE2\x90\x83", "\xE2\x90\x84", "\xE2\x90\x85",
    "\xE2\x90\x86", "\xE2\x90\x87", "\xE2\x90\x88", nullptr,        nullptr,        "\xE2\x90\x8B",
    "\xE2\x90\x8C", nullptr,        "\xE2\x90\x8E", "\xE2\x90\x8F", "\xE2\x90\x90", "\xE2\x90\x91",
    "\xE2\x90\x92", "\xE2\x90\x93", "\xE2\x90\x94", "\xE2\x90\x95", "\xE2\x90\x96", "\xE2\x90\x97",
    "\xE2\x90\x98", "\xE2\x90\x99", "\xE2\x90\x9A", "\xE2\x90\x9B", "\xE2\x90\x9C", "\xE2\x90\x9D",
    "\xE2\x90\x9E", "\xE2\x90\x9F"};

constexpr Replacements kPrintable = [] {
  Replacements all = {};
  for (size_t i = 0; i < std::size(kPictures); ++i) all[i] = kPictures[i];
  all[0x7F] = "\xE2\x90\xA1";
  return all;
}();

constexpr Replacements kHtml = [] {
  Replacements all = kPrintable;
  all['&'] = "&amp;";
  all['<'] = "&lt;";
  all['>'] = "&gt;";
  all['"'] = "&quot;";
  all['\''] = "&#39;";
  return all;
}();

void appendReplaced(std::string& to, std::string_view text, const Replacements& replacements) {
  const char* from = text.data();
  const char* const end = from + text.size();
  for (const char* at = from; at != end; ++at) {
    const char* const replacement = replacements[static_cast<unsigned char>(*at)];
    if (replacement == nullptr) continue;
    to.append(from, at);
    to += replacement;
    from = at + 1;
  }
  to.append(from, end);
}

// Characters that take two columns: the wide and full-width ones (Unicode Standard Annex 11).
struct Range {
  uint32_t first, last;
};
constexpr Range kWide[] = {
    {0x1100, 0x115F}, {0x2E80, 0x303E}, {0x3041, 0xA4CF}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
    {0xFE30, 0xFE6F}, {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD}};
constexpr Range kCombining[] = {
    {0x0300, 0x036F}, {0x200B, 0x200F}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}};

template <size_t N>
bool isIn(const Range (&ranges)[N], uint32_t character) {
  return std::any_of(std::begin(ranges), std::end(ranges), [=](const Range& range) {
    return character >= range.first && character <= range.last;
  });
}

// Takes the character at a place in a text that is UTF-8.
uint32_t takeCharacter(std::string_view text, size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at++]);
  if (lead < 0xC0) return lead;
  uint32_t character = lead & (lead < 0xE0 ? 0x1F : lead < 0xF0 ? 0x0F : 0x07);
  while (at < text.size() && (text[at] & 0xC0) == 0x80)
    character = character << 6 | (static_cast<unsigned char>(text[at++]) & 0x3F);
  return character;
}

size_t widthOf(uint32_t character) {
  if (character < 0x300) return 1;
  return isIn(kCombining, character) ? 0 : isIn(kWide, character) ? 2 : 1;
}

}  // namespace

std::string_view Utf8Of(std::string_view ansi, std::string& buffer) {
  if (isAscii(ansi)) return ansi;
  const int length = static_cast<int>(ansi.size());
  std::vector<wchar_t> wide(ansi.size());
  wide.resize(static_cast<size_t>(
      MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, wide.data(), length)));
  std::replace_if(
      wide.begin(), wide.end(), [](wchar_t c) { return c >= 0x80 && c < 0xA0; }, L'\xFFFD');
  const int wideLength = static_cast<int>(wide.size());
  buffer.resize(wide.size() * kReplacement.size());
  buffer.resize(
      static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), wideLength, buffer.data(),
                                              static_cast<int>(buffer.size()), nullptr, nullptr)));
  return buffer;
}

std::string Utf8Of(const CString& text) {
  std::string buffer;
  return std::string(
      Utf8Of({static_cast<LPCSTR>(text), static_cast<size_t>(text.GetLength())}, buffer));
}

void AppendHtml(std::string& html, std::string_view utf8) { appendReplaced(html, utf8, kHtml); }

std::string HtmlOf(std::string_view utf8) {
  std::string html;
  AppendHtml(html, utf8);
  return html;
}

void AppendPrintable(std::string& text, std::string_view utf8) {
  appendReplaced(text, utf8, kPrintable);
}

size_t WidthOf(std::string_view utf8) {
  if (isAscii(utf8)) return utf8.size();
  size_t width = 0;
  for (size_t at = 0; at < utf8.size();) width += widthOf(takeCharacter(utf8, at));
  return width;
}

size_t FittingBytes(std::string_view utf8, size_t width) {
  if (isAscii(utf8)) return std::min(utf8.size(), std::max<size_t>(width, 1));
  size_t taken = 0, at = 0;
  while (at < utf8.size()) {
    size_t next = at;
    taken += widthOf(takeCharacter(utf8, next));
    if (taken > width && at > 0) break;
    at = next;
  }
  return at;
}
