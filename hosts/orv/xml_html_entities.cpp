#include "xml_html_entities.h"

#include <cstring>
#include <iterator>

namespace {

// From 160 on, one a code point.
constexpr const char* kLatin1[] = {
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",
    "copy",   "ordf",   "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn",
    "sup2",   "sup3",   "acute",  "micro",  "para",   "middot", "cedil",  "sup1",   "ordm",
    "raquo",  "frac14", "frac12", "frac34", "iquest", "Agrave", "Aacute", "Acirc",  "Atilde",
    "Auml",   "Aring",  "AElig",  "Ccedil", "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave",
    "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde", "Ograve", "Oacute", "Ocirc",  "Otilde",
    "Ouml",   "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",  "Uuml",   "Yacute", "THORN",
    "szlig",  "agrave", "aacute", "acirc",  "atilde", "auml",   "aring",  "aelig",  "ccedil",
    "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute", "icirc",  "iuml",   "eth",
    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};
static_assert(std::size(kLatin1) == 96);

constexpr struct {
  const char* name;
  unsigned long code;
} kOthers[] = {
    {"OElig", 0x152},   {"oelig", 0x153},   {"Scaron", 0x160},  {"scaron", 0x161},
    {"Yuml", 0x178},    {"circ", 0x2C6},    {"tilde", 0x2DC},   {"ensp", 0x2002},
    {"emsp", 0x2003},   {"thinsp", 0x2009}, {"ndash", 0x2013},  {"mdash", 0x2014},
    {"lsquo", 0x2018},  {"rsquo", 0x2019},  {"sbquo", 0x201A},  {"ldquo", 0x201C},
    {"rdquo", 0x201D},  {"bdquo", 0x201E},  {"dagger", 0x2020}, {"Dagger", 0x2021},
    {"bull", 0x2022},   {"hellip", 0x2026}, {"permil", 0x2030}, {"lsaquo", 0x2039},
    {"rsaquo", 0x203A}, {"euro", 0x20AC},   {"trade", 0x2122},  {"larr", 0x2190},
    {"uarr", 0x2191},   {"rarr", 0x2192},   {"darr", 0x2193},   {"harr", 0x2194},
    {"minus", 0x2212},  {"le", 0x2264},     {"ge", 0x2265},     {"ne", 0x2260},
};

}  // namespace

unsigned long HtmlEntity(const char* name) {
  for (size_t i = 0; i < std::size(kLatin1); ++i) {
    if (strcmp(kLatin1[i], name) == 0) return 160 + i;
  }
  for (const auto& other : kOthers) {
    if (strcmp(other.name, name) == 0) return other.code;
  }
  return 0;
}
