// Documents changed and made at random, documents nested as deep as can be, and memory that runs
// out.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <random>

#include "entry/Handles.h"
#include "support/Allocations.h"
#include "support/LongRun.h"
#include "support/TempFolder.h"
#include "page_parser.h"
#include "tree_text.h"

namespace {

constexpr char kDocument[] =
    "\xEF\xBB\xBF<?xml version=\"1.0\"?>\r\n<!DOCTYPE d SYSTEM \"d.dtd\" [\r\n<!ENTITY e \"val "
    "ue\">"
    "<!ELEMENT d (#PCDATA)> <!ENTITY f '>'> ] >\r\n<!-- a\r\ncomment -->\r\n"
    "<d a=\"1&lt;2\" b='3&lt;4' c=-12 d=\"\r\n\">\r\n  text &amp; &e; &#65; &unknown; &broken\r\n"
    "<p x=\"y\"/><p><f>a</f>b<f g = \"long long long long value\" >c</F></p>\r\n"
    "<![CDATA[raw ]] <text>\r\n]]><?pi data?> 'quoted' - /text = more </d>\r\n";

// Parses a document with every block at a page without access; what parses is written, and reads
// back.
template <class Parser>
void Try(const std::string& document, const TempFolder& folder) {
  const allocations::GuardedBytes text(document.c_str(), document.size() + 1);
  allocations::ResetPeak();
  const size_t before = allocations::Peak();
  auto guard = std::make_unique<allocations::GuardPages>();
  Parser parser;
  const Errors errors(parser);
  const int parsed = parser.Parse(reinterpret_cast<const char*>(text.data()));
  EXPECT_LE(allocations::Peak() - before, 48 * document.size() + 64 * 1024);
  if (!parsed) {
    EXPECT_FALSE(errors.all().empty());
    return;
  }
  guard.reset();
  // The internal subset is not written; what may be left of it is no document any more.
  if (parser.IsEmpty() || document.find("DOCTYPE") != std::string::npos) return;
  const std::string path = folder / "out.xml";
  ASSERT_TRUE(parser.WriteFile(path.c_str()));
  Parser second;
  const Errors secondErrors(second);
  EXPECT_TRUE(second.ParseFile(path.c_str())) << secondErrors.Text() << "\n" << document;
}

std::string Changed(std::string text, unsigned number) {
  static const std::string kPieces[] = {
      "<",   ">",    "/",    "&",    ";",         "\"",     "'",  "=",          "!",   "-->",
      "]]>", "?>",   "<!--", "<?",   "<![CDATA[", "[",      "]",  "<!DOCTYPE",  "&#x", "&lt;",
      "\r",  "\r\n", "\xFF", "</p>", "<p>",       "<font>", "\t", "99999999999"};
  std::mt19937 random(number);
  const auto below = [&random](size_t limit) { return random() % limit; };
  for (size_t changes = 1 + below(4); changes > 0 && !text.empty(); --changes) {
    const size_t at = below(text.size());
    const size_t length = below(20);
    switch (below(5)) {
      case 0:
        text[at] = static_cast<char>(1 + below(255));
        break;
      case 1:
        text.erase(at, length);
        break;
      case 2:
        text.insert(at, text.substr(below(text.size()), length));
        break;
      case 3:
        text.insert(at, kPieces[below(std::size(kPieces))]);
        break;
      default:
        text.resize(at);
        break;
    }
  }
  return text;
}

TEST(HostileMarkup, CutAndChangedDocuments) {
  const TempFolder folder;
  for (size_t length = 0; length <= strlen(kDocument); ++length) {
    Try<COXParser>(std::string(kDocument, length), folder);
  }
  const unsigned count = IsLongRun() ? 50'000 : 800;
  for (unsigned number = 0; number < count && !testing::Test::HasFailure(); ++number) {
    SCOPED_TRACE(number);
    // What has no subset is written, too.
    const char* const document = number % 2 ? strstr(kDocument, "<!--") : kDocument;
    const std::string changed = Changed(document, number);
    Try<COXParser>(changed, folder);
    Try<PageParser>(changed, folder);
  }
}

std::string Nested(int levels) {
  std::string text;
  for (int i = 0; i < levels; ++i) text += "<e a='1'>";
  for (int i = 0; i < levels; ++i) text += "</e>";
  return text;
}

// As a host's parser may: its own frame comes on top of every level.
class FrameParser : public COXParser {
 protected:
  int ParseElement(COXParserElement* element, int depth) override {
    volatile char frame[16] = {};
    return COXParser::ParseElement(element, depth) + frame[0];
  }
};

DWORD WINAPI Run(void* function) {
  (*static_cast<std::function<void()>*>(function))();
  return 0;
}

void RunOnOneMegabyte(std::function<void()> run) {
  const unique_kernel_handle thread(
      CreateThread(nullptr, 1024 * 1024, Run, &run, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr));
  ASSERT_TRUE(thread);
  WaitForSingleObject(thread.get(), INFINITE);
}

TEST(HostileMarkup, NestingFitsAStackOfOneMegabyte) {
  const TempFolder folder;
  RunOnOneMegabyte([&folder] {
    FrameParser parser;
    const Errors errors(parser);
    EXPECT_TRUE(parser.Parse(Nested(COXParser::kMaxNesting).c_str())) << errors.Text();
    EXPECT_TRUE(parser.WriteFile((folder / "deep.xml").c_str()));
    FrameParser second;
    EXPECT_TRUE(second.ParseFile((folder / "deep.xml").c_str()));
    second.Clear();

    EXPECT_FALSE(parser.Parse(Nested(COXParser::kMaxNesting + 1).c_str()));
    EXPECT_EQ(errors.Text().substr(0, 3), "103");
    // A million opening tags.
    parser.Parse(Nested(1'000'000).c_str());
    ASSERT_EQ(errors.all().size(), 2u);
    EXPECT_EQ(errors.all()[1].code, 103);
  });
}

// An entity of a few bytes that would become gigabytes.
TEST(HostileMarkup, ExpansionIsBounded) {
  std::string document = "<!DOCTYPE d [<!ENTITY e " + std::string(100'000, 'x') + ">]>";
  for (int i = 0; i < 100'000; ++i) document += "&e;";
  COXParser parser;
  const Errors errors(parser);
  allocations::ResetPeak();
  const size_t before = allocations::Peak();
  EXPECT_FALSE(parser.Parse(document.c_str()));
  EXPECT_EQ(errors.all().size(), 1u);
  EXPECT_EQ(errors.all()[0].code, 103);
  EXPECT_LE(allocations::Peak() - before, 32 * document.size());
}

// Keeps the codes of errors other than entities'.
class CodeKeeper : public COXParser {
 public:
  int m_codes[4] = {};
  int m_count = 0;

 protected:
  int DefErrorHandler(int code, const char*, int, int, unsigned long) override {
    if (code != kBadEntity && m_count < 4) m_codes[m_count++] = code;
    return 0;
  }
};

TEST(HostileMarkup, AllocationFailsWhileParsing) {
  std::string document = kDocument;
  for (int i = 0; i < 40; ++i) document += "<row id=\"long\"><name>n&amp;m</name></row>";
  document += "<many";
  for (int i = 0; i < 40; ++i) document += " x=1";
  document += "/>";
  bool happened = true;
  for (unsigned n = 1; happened; ++n) {
    SCOPED_TRACE(n);
    CodeKeeper parser;
    int parsed;
    {
      const allocations::FailNth fail(n);
      parsed = parser.Parse(document.c_str());
      happened = fail.Happened();
    }
    ASSERT_EQ(parsed != 0, !happened);
    ASSERT_EQ(parser.m_codes[0], happened ? 103 : 0);
    ASSERT_LE(parser.m_count, 1);
  }
}

}  // namespace
