#include "dircmp/HtmlText.h"

#include "dircmp/DocumentText.h"
#include "settings/MString.h"

namespace {

bool IsUnreserved(char character) {
  const char lower = static_cast<char>(character | 0x20);
  return (lower >= 'a' && lower <= 'z') || (character >= '0' && character <= '9') ||
         std::string_view("-._~/").find(character) != std::string_view::npos;
}

}  // namespace

std::string HtmlOf(const CString& text) { return HtmlOf(Utf8Of(text)); }

std::string TextHtml(UINT id) { return HtmlOf(MString::Loaded(id)); }

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
