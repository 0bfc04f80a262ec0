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
#include "tree_text.h"

namespace {

constexpr char kDocument[] =
    "\xEF\xBB\xBF<?xml version=\"1.0\"?>\r\n<!DOCTYPE d SYSTEM \"d.dtd\" [\r\n<!ENTITY e \"val "
    "ue\">"
    "<!ELEMENT d (#PCDATA)> <!ENTITY f '>'> ] >\r\n<!-- a\r\ncomment -->\r\n"
    "<d a=\"1&lt;2\" b='3&lt;4' c=-12 d=\"\r\n\">\r\n  text &amp; &e; &#65; &unknown; &broken\r\n"
    "<e x=\"y\"/><e><f>a</f>b<f g = \"long long long long value\" >c</F></e>\r\n"
    "<![CDATA[raw ]] <text>\r\n]]><?pi data?> 'quoted' - /text = more </d>\r\n";

// Closes and ignores, so that places are restored and mistakes passed over.
class LenientParser : public COXParser {
 public:
  LenientParser() { m_strictEndTags = FALSE; }

 protected:
  int IsEndTagMissing(const char* element, const char* tag, int isEndTag) override {
    return *element == 'e' && (tag == nullptr || *tag == 'e' || (isEndTag && *tag == 'd'));
  }
  int IgnoreStartTag(COXParserElement* element, int) override { return *element->GetName() == 'x'; }
  int IgnoreEndTag(const char* name) override { return *name == 'x'; }
};

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

class Mutator {
 public:
  explicit Mutator(unsigned number) : m_random(number) {}

  std::string Change(std::string text) {
    static const std::string kPieces[] = {
        "<",   ">",    "/",    "&",    ";",         "\"",  "'",  "=",          "!",   "-->",
        "]]>", "?>",   "<!--", "<?",   "<![CDATA[", "[",   "]",  "<!DOCTYPE",  "&#x", "&lt;",
        "\r",  "\r\n", "\xFF", "</e>", "<e>",       "<x>", "\t", "99999999999"};
    for (int changes = 1 + Below(4); changes > 0 && !text.empty(); --changes) {
      const size_t at = Below(text.size());
      const size_t length = Below(20);
      switch (Below(5)) {
        case 0:
          text[at] = static_cast<char>(1 + Below(255));
          break;
        case 1:
          text.erase(at, length);
          break;
        case 2:
          text.insert(at, text.substr(Below(text.size()), length));
          break;
        case 3:
          text.insert(at, kPieces[Below(std::size(kPieces))]);
          break;
        default:
          text.resize(at);
          break;
      }
    }
    return text;
  }

  // Follows the grammar mostly.
  std::string Make(int depth = 0) {
    std::string text;
    for (int i = Below(6); i > 0; --i) {
      const std::string name(1 + Below(3), "dexEq"[Below(5)]);
      switch (Below(depth < 5 ? 9 : 6)) {
        case 0:
          text += "words " + std::string(Below(20), 'w') + "\r\n";
          break;
        case 1:
          text += "&" + name + ";&#" + std::to_string(Below(300)) + ";&gt;";
          break;
        case 2:
          text += "<!--" + name + "-->";
          break;
        case 3:
          text += "<" + name + " a='" + name + "' b=" + std::to_string(Below(99)) + "/>";
          break;
        case 4:
          text += "<![CDATA[" + name + "]]>";
          break;
        case 5:
          text += Below(10) == 0 ? "</" + name + ">" : "<?" + name + "?>";
          break;
        default:
          text += "<" + name + ">" + Make(depth + 1);
          if (Below(10) != 0) text += "</" + name + ">";
      }
    }
    return text;
  }

 private:
  size_t Below(size_t limit) { return m_random() % limit; }
  std::mt19937 m_random;
};

TEST(HostileMarkup, MutatedAndMadeDocuments) {
  const TempFolder folder;
  const unsigned count = IsLongRun() ? 25'000 : 400;
  for (unsigned number = 0; number < count && !testing::Test::HasFailure(); ++number) {
    SCOPED_TRACE(number);
    Mutator mutator(number);
    const std::string mutated = mutator.Change(kDocument + (number % 2 ? 3 : 0));
    Try<COXParser>(mutated, folder);
    Try<LenientParser>(mutated, folder);
    const std::string made = mutator.Make();
    Try<LenientParser>(made, folder);
    Try<COXParser>("<q>" + made + "</q>", folder);
  }
}

TEST(HostileMarkup, EveryPrefixOfADocument) {
  const TempFolder folder;
  const std::string document = kDocument;
  for (size_t length = 0; length <= document.size(); ++length) {
    Try<COXParser>(document.substr(0, length), folder);
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
  int WriteElement(COXMarkupFile& file, COXParserObject* object, int depth) override {
    volatile char frame[16] = {};
    return COXParser::WriteElement(file, object, depth) + frame[0];
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

TEST(HostileMarkup, AllocationFailsWhileParsing) {
  std::string document = kDocument;
  for (int i = 0; i < 40; ++i) {
    document +=
        "<row id=\"" + std::to_string(i) + "\"><name>n&amp;" + std::to_string(i) + "</name></row>";
  }
  for (unsigned n = 1;; ++n) {
    SCOPED_TRACE(n);
    int parsed;
    bool happened;
    int codes[4] = {};
    {
      COXParser parser;
      int count = 0;
      struct Seen {
        int* codes;
        int* count;
      } seen = {codes, &count};
      parser.SetErrorRptFunction(
          [](int code, const char*, int, int, unsigned long data) {
            auto* const target = reinterpret_cast<Seen*>(data);
            if (code != 108 && *target->count < 4) target->codes[(*target->count)++] = code;
            return 0;
          },
          reinterpret_cast<unsigned long>(&seen));
      const allocations::FailNth fail(n);
      parsed = parser.Parse(document.c_str());
      happened = fail.Happened();
    }
    if (!happened) {
      EXPECT_TRUE(parsed);
      break;
    }
    ASSERT_FALSE(parsed);
    ASSERT_EQ(codes[0], 103);
    ASSERT_EQ(codes[1], 0);
  }
}

TEST(HostileMarkup, AllocationFailsWhileWriting) {
  const TempFolder folder;
  const std::string path = folder / "out.xml";
  COXParser parser;
  ASSERT_TRUE(parser.Parse(kDocument));
  ASSERT_TRUE(parser.WriteFile(path.c_str()));
  const std::string whole = folder.Read("out.xml");
  for (unsigned n = 1;; ++n) {
    SCOPED_TRACE(n);
    int written;
    bool happened;
    {
      const allocations::FailNth fail(n);
      written = parser.WriteFile(path.c_str());
      happened = fail.Happened();
    }
    ASSERT_EQ(written != 0, !happened);
    if (!happened) break;
  }
  EXPECT_EQ(folder.Read("out.xml"), whole);
}

}  // namespace
