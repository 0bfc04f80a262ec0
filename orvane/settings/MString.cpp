#include "settings/MString.h"

#include <mbctype.h>
#include <mbstring.h>

#include <cctype>
#include <cstring>
#include <string>

namespace {

constexpr int kInserts = 3;
// Of each text, so that all of them together fit into the 32,767 characters that the system
// formats.
constexpr size_t kLongestInsert = 9000;  // bytes

// Makes a module the current resource module for a scope.
class ResourceModule {
 public:
  explicit ResourceModule(HINSTANCE module) : m_old(AfxGetResourceHandle()) {
    if (module != nullptr) AfxSetResourceHandle(module);
  }
  ~ResourceModule() { AfxSetResourceHandle(m_old); }
  ResourceModule(const ResourceModule&) = delete;
  ResourceModule& operator=(const ResourceModule&) = delete;

 private:
  HINSTANCE m_old;
};

// A text as the insert that the system formats: its beginning when it is very long.
CString Shortened(const char* text) {
  if (strnlen(text, kLongestInsert + 1) <= kLongestInsert) return text;
  const auto* const bytes = reinterpret_cast<const unsigned char*>(text);
  const bool splits = _mbsbtype(bytes, kLongestInsert - 1) == _MBC_LEAD;
  return CString(text, static_cast<int>(kLongestInsert) - (splits ? 1 : 0));
}

// Takes the number of an insert, "1" to "99", off a text; 0: there is none.
int TakeNumber(const char*& text) {
  int number = 0;
  for (int digits = 0; digits < 2 && isdigit(static_cast<unsigned char>(*text)); ++digits) {
    number = number * 10 + (*text++ - '0');
  }
  return number;
}

// Takes what stands between two "!" off a text; empty: there is none.
std::string TakeFormat(const char*& text) {
  if (*text != '!') return {};
  const char* const end = strchr(text + 1, '!');
  if (end == nullptr) return {};
  const std::string format(text + 1, end);
  text = end + 1;
  return format;
}

// Whether an insert's own format shows a value of this kind, and takes no further ones.
bool Fits(const std::string& format, const MInsert& insert) {
  const size_t conversion = format.find_first_not_of("-+ #.0123456789");
  return conversion != std::string::npos && conversion + 1 == format.size() &&
         strchr(insert.IsText() ? "s" : "cdiouxX", format[conversion]) != nullptr;
}

// The format of a message with every insert's own format such that it fits the insert; inserts past
// the third are dropped. No second byte of a double-byte character is a "%".
std::string FittingFormat(const char* text, const MInsert* const (&inserts)[kInserts]) {
  std::string result;
  while (*text != 0) {
    if (*text != '%') {
      result += *text++;
      continue;
    }
    const char* const escape = text++;
    if (*text == '0') break;  // "%0" ends the message
    if (!isdigit(static_cast<unsigned char>(*text))) {
      if (*text != 0) ++text;
      result.append(escape, text - escape);
      continue;
    }
    const int number = TakeNumber(text);
    std::string format = TakeFormat(text);
    if (number > kInserts) continue;
    const MInsert& insert = *inserts[number - 1];
    if (!Fits(format, insert)) format = insert.Format();
    result += '%' + std::to_string(number) + '!' + format + '!';
  }
  return result;
}

}  // namespace

BOOL MString::LoadString(UINT id, HINSTANCE module) {
  const ResourceModule current(module);
  return CString::LoadString(id);
}

CString MString::Loaded(UINT id) {
  MString text;
  text.LoadString(id);
  return text;
}

BOOL MString::FormatMessage(UINT id, const MInsert& one, const MInsert& two, const MInsert& three) {
  return Fill(id, one, two, three, nullptr);
}

BOOL MString::Fill(UINT id, const MInsert& one, const MInsert& two, const MInsert& three,
                   HINSTANCE module) {
  MString text;
  if (!text.LoadString(id, module)) {
    Empty();
    return FALSE;
  }
  FormatText(text, one, two, three);
  return TRUE;
}

// Inserts may be views of this string, so it changes last. The format gets a character more,
// because for an empty message the system gives no text at all.
void MString::FormatText(const char* format, const MInsert& one, const MInsert& two,
                         const MInsert& three) {
  const MInsert* const inserts[kInserts] = {&one, &two, &three};
  CString texts[kInserts];
  DWORD_PTR values[kInserts];
  for (int i = 0; i < kInserts; ++i) {
    texts[i] = Shortened(inserts[i]->Text());
    values[i] = inserts[i]->IsText() ? reinterpret_cast<DWORD_PTR>(static_cast<LPCSTR>(texts[i]))
                                     : inserts[i]->Number();
  }
  CString result;
  result.FormatMessage((FittingFormat(format, inserts) + '.').c_str(), values[0], values[1],
                       values[2]);
  *this = result.Left(result.GetLength() - 1);
}
