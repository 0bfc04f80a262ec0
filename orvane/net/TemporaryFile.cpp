#include "net/TemporaryFile.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace {

CString makeFileIn(const char* folder, const char* prefix) {
  char path[MAX_PATH];
  return GetTempFileNameA(folder, prefix, 0, path) != 0 ? CString(path) : CString();
}

// The lower-cased extension of the object that the URL names, without query and fragment; empty:
// none.
std::string extensionOf(std::string_view url) {
  url = url.substr(0, url.find_first_of("?#"));
  if (const size_t scheme = url.find("://"); scheme != url.npos) url.remove_prefix(scheme + 3);
  const size_t slash = url.rfind('/');
  if (slash == url.npos) return {};
  url.remove_prefix(slash);
  const size_t dot = url.rfind('.');
  if (dot == url.npos) return {};
  std::string extension(url.substr(dot + 1));
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return extension;
}

}  // namespace

CString MakeTemporaryFileFor(const char* url) {
  static constexpr std::string_view kKept[] = {"htm", "html", "xml", "doc", "zip"};
  char folder[MAX_PATH];
  const DWORD length = GetTempPathA(MAX_PATH, folder);
  if (length == 0 || length >= MAX_PATH) return CString();
  const std::string extension = extensionOf(url);
  const bool isKept = std::find(std::begin(kKept), std::end(kKept), extension) != std::end(kKept);
  for (;;) {
    const CString path = makeFileIn(folder, "tmp");
    if (path.IsEmpty() || !isKept) return path;
    const CString named = path.Left(path.ReverseFind('.') + 1) + extension.c_str();
    if (MoveFileA(path, named)) return named;
    const DWORD error = GetLastError();
    DeleteFileA(path);
    // The name is taken: the next number may be free.
    if (error != ERROR_ALREADY_EXISTS && error != ERROR_FILE_EXISTS) {
      SetLastError(error);
      return CString();
    }
  }
}
