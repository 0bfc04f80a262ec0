#include "dircmp/HtmlText.h"

#include <algorithm>

#include "dircmp/DocumentText.h"
#include "settings/MString.h"

namespace {

bool IsUnreserved(char character) {
  const char lower = static_cast<char>(character | 0x20);
  return (lower >= 'a' && lower <= 'z') || (character >= '0' && character <= '9') ||
         std::string_view("-._~/").find(character) != std::string_view::npos;
}

}  // namespace

std::string HtmlOf(std::string_view utf8) {
  std::string html;
  html.reserve(utf8.size() + 16);
  for (const char character : utf8) {
    switch (character) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      case '\'':
        html += "&#39;";
        break;
      case '\x7F':
        html += "\xE2\x90\xA1";
        break;
      default:
        if (static_cast<unsigned char>(character) < ' ' && character != '\t') {
          html += "\xE2\x90";
          html += static_cast<char>(0x80 + character);
        } else {
          html += character;
        }
    }
  }
  return html;
}

std::string HtmlOf(const CString& text) {
  return HtmlOf(Utf8OfText({static_cast<LPCSTR>(text), static_cast<size_t>(text.GetLength())}));
}

std::string TextHtml(UINT id) {
  MString text;
  text.LoadString(id);
  return HtmlOf(text);
}

std::string RelativeUrl(const CString& path) {
  const std::string utf8 = Utf8OfText(static_cast<LPCSTR>(path));
  std::string url;
  for (char character : utf8) {
    if (character == '\\') character = '/';
    if (IsUnreserved(character)) {
      url += character;
      continue;
    }
    constexpr char kDigits[] = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(character);
    url += {'%', kDigits[byte / 16], kDigits[byte % 16]};
  }
  return url;
}

std::string FileUrl(const CString& path) {
  const std::string url = RelativeUrl(path);
  if (url.starts_with("//")) return "file:" + url;
  // The colon of the drive stays one.
  if (url.substr(1, 3) == "%3A") return "file:///" + url.substr(0, 1) + ":" + url.substr(4);
  return "file:///" + url;
}
