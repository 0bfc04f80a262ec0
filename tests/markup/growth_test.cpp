// Time and memory grow with the size of a document and no faster, whatever it consists of.
#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <memory>

#include "support/Allocations.h"
#include "support/LongRun.h"
#include "tree_text.h"

namespace {

constexpr size_t kMegabyte = 1024 * 1024;

std::string Repeat(const std::string& before, const std::string& piece, const std::string& after,
                   size_t size) {
  std::string text = before;
  text.reserve(before.size() + size + piece.size() + after.size());
  while (text.size() < before.size() + size) text += piece;
  return text + after;
}

std::string Entities(size_t size) {
  std::string text = "<!DOCTYPE d [";
  for (int i = 0; text.size() < size; ++i) text += "<!ENTITY e" + std::to_string(i) + " v>";
  return text + "]>&e0;";
}

struct Family {
  const char* name;
  bool parses;
  std::function<std::string(size_t size)> make;
};

// The end tags that come too early are passed over, and a "p" closes the one before.
class LenientParser : public COXParser {
 public:
  LenientParser() { m_strictEndTags = FALSE; }

 protected:
  int IsEndTagMissing(const char* element, const char* tag, int) override {
    return *element == 'p' && (tag == nullptr || *tag == 'p' || *tag == 'd');
  }
};

const std::vector<Family>& Families() {
  static const std::vector<Family> families = {
      {"opening tags", false, [](size_t n) { return Repeat("", "<a>", "", n); }},
      {"empty elements", true, [](size_t n) { return Repeat("<r>", "<a/>", "</r>", n); }},
      {"rows", true,
       [](size_t n) { return Repeat("<r>", "<row id=\"1\"><c>text</c></row>\r\n", "</r>", n); }},
      {"attributes", true, [](size_t n) { return Repeat("<r ", "a=1 ", "/>", n); }},
      {"one attribute", true, [](size_t n) { return Repeat("<r a=\"", "x", "\"/>", n); }},
      {"encoded attribute", true, [](size_t n) { return Repeat("<r a=\"", "&lt;", "\"/>", n); }},
      {"one name", true, [](size_t n) { return Repeat("<", "n", "/>", n); }},
      {"one text", true, [](size_t n) { return Repeat("", "word ", "", n); }},
      {"short lines", true, [](size_t n) { return Repeat("", "a\r\n", "", n); }},
      {"entity references", true, [](size_t n) { return Repeat("", "&lt;", "", n); }},
      {"unknown entities", true, [](size_t n) { return Repeat("", "&x;\n", "", n); }},
      {"unfinished entities", true, [](size_t n) { return Repeat("", "&x ", "", n); }},
      {"ampersands", true, [](size_t n) { return Repeat("", "&", "", n); }},
      {"end tags", true, [](size_t n) { return Repeat("", "</x>\n", "", n); }},
      {"wrong end tags", true,
       [](size_t n) {
         const std::string name(n / 2, 'n');
         return Repeat("<" + name + ">", "</b>", "</" + name + ">", n / 2);
       }},
      {"implied end tags", true, [](size_t n) { return Repeat("<d>", "<p>t", "</d>", n); }},
      {"comments", true, [](size_t n) { return Repeat("", "<!---->", "", n); }},
      {"dashes", true, [](size_t n) { return Repeat("<!--", "-", "-->", n); }},
      {"brackets", true, [](size_t n) { return Repeat("<![CDATA[", "]>", "]]>", n); }},
      {"unfinished instruction", false, [](size_t n) { return Repeat("<?", "?", "", n); }},
      {"declared entities", true, Entities},
      {"unfinished declarations", false,
       [](size_t n) { return Repeat("<!DOCTYPE d [", "<", "", n); }},
  };
  return families;
}

int Count(int, const char*, int, int, unsigned long data) {
  ++*reinterpret_cast<size_t*>(data);
  return 0;
}

// Seconds for parsing a document so many times, with all trees kept: both sizes then take as much
// memory that was not touched before.
double Measure(const Family& family, const std::string& document, int times) {
  std::vector<std::unique_ptr<LenientParser>> parsers(times);
  for (auto& parser : parsers) parser = std::make_unique<LenientParser>();
  size_t errors = 0;
  LARGE_INTEGER start, end, frequency;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&start);
  for (auto& parser : parsers) {
    parser->SetErrorRptFunction(Count, reinterpret_cast<unsigned long>(&errors));
    EXPECT_EQ(parser->Parse(document.c_str()) != 0, family.parses);
  }
  QueryPerformanceCounter(&end);
  EXPECT_LE(errors, times * document.size());
  return static_cast<double>(end.QuadPart - start.QuadPart) / frequency.QuadPart;
}

TEST(MarkupGrowth, TimeIsInProportion) {
  // The short run only tells proportion from squares: other programs run beside it.
  const int factor = IsLongRun() ? 64 : 8;
  const size_t unit = IsLongRun() ? kMegabyte : kMegabyte / 8;
  const double allowed = IsLongRun() ? 1.3 : 4;
  for (const Family& family : Families()) {
    const std::string small = family.make(unit);
    const std::string large = family.make(factor * unit);
    double ratio = 0;
    for (int attempt = 0; attempt < 5; ++attempt) {
      ratio = Measure(family, large, 1) / Measure(family, small, factor);
      if (ratio <= allowed) break;
    }
    if (IsLongRun())
      printf("%-24s %d MB: %.2f of the time for as many documents of 1 MB\n", family.name, factor,
             ratio);
    EXPECT_LE(ratio, allowed) << family.name;
  }
}

TEST(MarkupGrowth, MemoryIsInProportion) {
  for (const Family& family : Families()) {
    const std::string document = family.make(kMegabyte);
    allocations::ResetPeak();
    const size_t before = allocations::Peak();
    Measure(family, document, 1);
    // A node of a few bytes takes 50 to 90; an element that another one's start tag closes, twice
    // that.
    EXPECT_LE(allocations::Peak() - before, 48 * document.size()) << family.name;
  }
}

TEST(MarkupGrowth, OneHundredMegabytesInOneAttribute) {
  const size_t size = (IsLongRun() ? 100 : 10) * kMegabyte;
  const std::string document = Repeat("<r a=\"", "value ", "\"/>", size);
  COXParser parser;
  ASSERT_TRUE(parser.Parse(document.c_str()));
  EXPECT_EQ(strlen(parser.Root().GetElement(0)->Attribute(0)->GetStringValue()),
            document.size() - strlen("<r a=\"\"/>"));
}

}  // namespace
