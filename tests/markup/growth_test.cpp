// Time and memory grow with the size of a document and no faster, whatever it consists of.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "support/Allocations.h"
#include "support/LongRun.h"
#include "page_parser.h"

namespace {

constexpr size_t kMegabyte = 1024 * 1024;

std::string Repeat(const std::string& before, const std::string& piece, const std::string& after,
                   size_t size) {
  std::string text = before;
  text.reserve(before.size() + size + piece.size() + after.size());
  while (text.size() < before.size() + size) text += piece;
  return text + after;
}

// Documents that consist of one piece over and over.
struct Family {
  const char *before, *piece, *after;
  bool parses = true;

  std::string Make(size_t size) const { return Repeat(before, piece, after, size); }
};

constexpr Family kFamilies[] = {
    {"", "<a>", "", false},
    {"<r>", "<row id=\"1\"><c>text</c></row>\r\n", "</r>"},
    {"<r ", "a=1 ", "/>"},
    {"<r a=\"", "&lt;", "\"/>"},
    {"<", "n", "/>"},
    {"", "word ", ""},
    {"", "&lt;", ""},
    {"", "&x;\n", ""},
    {"", "&", ""},
    {"", "</x>\n", ""},
    {"<ul>", "<li>t", "</ul>"},
    {"", "<!---->", ""},
    {"<!--", "-", "-->"},
    {"<![CDATA[", "]>", "]]>"},
    {"<!DOCTYPE d [", "<!ENTITY e v>", "]>&e;"},
    {"<!DOCTYPE d [", "<", "", false},
};

// Seconds for parsing a document so many times, with all trees kept: both sizes then take as much
// memory that was not touched before.
double Measure(bool parses, const std::string& document, int times) {
  std::vector<std::unique_ptr<PageParser>> parsers(times);
  for (auto& parser : parsers) parser = std::make_unique<PageParser>();
  const auto start = std::chrono::steady_clock::now();
  for (auto& parser : parsers) {
    EXPECT_EQ(parser->Parse(document.c_str()) != 0, parses);
  }
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Other programs run beside the short run: it only tells proportion from squares.
void ExpectProportion(const std::string& name, bool parses,
                      const std::function<std::string(size_t size)>& make) {
  const int factor = IsLongRun() ? 64 : 8;
  const size_t unit = IsLongRun() ? kMegabyte : kMegabyte / 8;
  const double allowed = IsLongRun() ? 1.3 : 4;
  const std::string small = make(unit);
  const std::string large = make(factor * unit);
  double ratio = 0;
  for (int attempt = 0; attempt < 5; ++attempt) {
    ratio = Measure(parses, large, 1) / Measure(parses, small, factor);
    if (ratio <= allowed) break;
  }
  if (IsLongRun()) printf("%-40s %.2f of the time for documents of 1 MB\n", name.c_str(), ratio);
  EXPECT_LE(ratio, allowed) << name;

  allocations::ResetPeak();
  const size_t before = allocations::Peak();
  Measure(parses, large, 1);
  // A node of a few bytes takes 50 to 90; an element that another one's start tag closes, twice
  // that.
  EXPECT_LE(allocations::Peak() - before, 48 * large.size()) << name;
}

TEST(MarkupGrowth, TimeAndMemoryAreInProportion) {
  for (const Family& family : kFamilies) {
    ExpectProportion(family.Make(20), family.parses,
                     [&family](size_t size) { return family.Make(size); });
  }
  ExpectProportion("errors that tell a long name", true, [](size_t size) {
    const std::string name(size / 2, 'n');
    return Repeat("<" + name + ">", "</b>", "</" + name + ">", size / 2);
  });
  ExpectProportion("entities", true, [](size_t size) {
    std::string text = "<!DOCTYPE d [";
    for (int i = 0; text.size() < size; ++i) text += "<!ENTITY e" + std::to_string(i) + " v>";
    return text + "]>&e0;";
  });
}

}  // namespace
