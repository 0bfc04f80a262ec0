#include "foldercmp/TypeList.h"

#include <cstring>

namespace {

constexpr char kSeparators[] = ";, \t";

// The extension in "*.c", ".c" or "c".
CString extensionOf(CString type) {
  if (type.Left(2) == "*.") return type.Mid(2);
  if (type.Left(1) == ".") return type.Mid(1);
  return type;
}

}  // namespace

CString NormalizedTypeList(const char* typed) {
  CString list;
  for (const char* c = typed; *c != 0;) {
    c += strspn(c, kSeparators);
    const int length = static_cast<int>(strcspn(c, kSeparators));
    if (length == 0) break;
    const CString extension = extensionOf(CString(c, length));
    c += length;
    if (extension == "*") return CString();
    if (!list.IsEmpty()) list += ";";
    list += "*." + extension;
  }
  return list;
}
