#include "dircmp/DocumentText.h"

#include <algorithm>
#include <utility>

#include "dircmp/ByteSource.h"

namespace {

std::wstring WideOf(std::string_view text, UINT codePage) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(
      static_cast<size_t>(MultiByteToWideChar(codePage, 0, text.data(), size, nullptr, 0)), 0);
  MultiByteToWideChar(codePage, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string Utf8Of(std::wstring_view wide) {
  const int size = static_cast<int>(wide.size());
  std::string text(static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr,
                                                           0, nullptr, nullptr)),
                   0);
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(), static_cast<int>(text.size()),
                      nullptr, nullptr);
  return text;
}

bool IsWellFormedUtf8(std::string_view text) {
  return text.empty() || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(),
                                             static_cast<int>(text.size()), nullptr, 0) > 0;
}

std::string FromUtf16(std::string_view bytes, bool isBigEndian) {
  std::wstring wide(bytes.size() / 2, 0);
  for (size_t i = 0; i < wide.size(); ++i) {
    const auto first = static_cast<unsigned char>(bytes[2 * i]);
    const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
    wide[i] = static_cast<wchar_t>(isBigEndian ? first << 8 | second : second << 8 | first);
  }
  return Utf8Of(wide);
}

}  // namespace

std::string Utf8OfText(std::string_view text, UINT codePage) {
  return Utf8Of(WideOf(text, codePage));
}

std::string LowerUtf8(std::string_view text) {
  const auto isAscii = [](char character) { return static_cast<signed char>(character) >= 0; };
  if (std::all_of(text.begin(), text.end(), isAscii)) {
    std::string lower(text);
    for (char& character : lower) character += character >= 'A' && character <= 'Z' ? 32 : 0;
    return lower;
  }
  std::wstring wide = WideOf(text, CP_UTF8);
  CharLowerBuffW(wide.data(), static_cast<DWORD>(wide.size()));
  return Utf8Of(wide);
}

DocumentText::Kind DocumentText::Load(const char* path) {
  FileSource file(path);
  if (!file.isOpen()) return Kind::Unreadable;
  if (file.size() > kMostBytes) return Kind::TooLarge;
  // One byte more than it has: a file that grows meanwhile is found out.
  std::string bytes(static_cast<size_t>(std::max<int64_t>(file.size(), 0)) + 1, 0);
  size_t done = 0;
  int read = 0;
  while ((read = file.Read(bytes.data() + done, static_cast<int>(bytes.size() - done))) > 0) {
    done += static_cast<size_t>(read);
    if (done > kMostBytes) return Kind::TooLarge;
    if (done == bytes.size()) bytes.resize(2 * done);
  }
  if (read < 0) return Kind::Unreadable;
  bytes.resize(done);
  return Assign(std::move(bytes));
}

DocumentText::Kind DocumentText::Assign(std::string bytes) {
  m_lines.clear();
  m_text.clear();
  const std::string_view view = bytes;
  if (view.starts_with("\xFF\xFE") || view.starts_with("\xFE\xFF")) {
    m_text = FromUtf16(view.substr(2), view[0] == '\xFE');
  } else if (view.find('\0') != view.npos) {
    return Kind::Binary;
  } else if (view.starts_with("\xEF\xBB\xBF")) {
    m_text = Utf8OfText(view.substr(3), CP_UTF8);
  } else if (IsWellFormedUtf8(view)) {
    m_text = std::move(bytes);
  } else {
    m_text = Utf8OfText(view);
  }
  return SplitLines() ? Kind::Text : Kind::TooLarge;
}

// False: too many.
bool DocumentText::SplitLines() {
  const std::string_view text = m_text;
  for (size_t begin = 0; begin < text.size();) {
    const size_t end = std::min(text.find_first_of("\r\n", begin), text.size());
    const size_t endSize = text.substr(end, 2) == "\r\n" ? 2 : end < text.size() ? 1 : 0;
    if (m_lines.size() == kMostLines) return false;
    m_lines.push_back({text.substr(begin, end - begin), text.substr(end, endSize)});
    begin = end + endSize;
  }
  return true;
}
