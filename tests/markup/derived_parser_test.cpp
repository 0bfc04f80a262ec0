// Parsers derived from COXParser: what the virtual operations and the readers are for.
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "page_parser.h"
#include "tree_text.h"

namespace {

TEST(DerivedParser, ClosesIgnoresAndReplaces) {
  struct {
    const char* document;
    const char* tree;
    const char* errors = "";
  } const cases[] = {
      {"<ul><li>a<LI>b</ul>c", "ul{li{\"a\"} LI{\"b\"}} \"c\""},
      {"<p>a<p>b<br>c</p><p>", "p{\"a\"} p{\"b\" br \"c\"} p"},
      {"<p>a<ul><li><p>b</ul>", "p{\"a\"} ul{li p{\"b\"}}"},
      {"<p><font size=3>a</font><!-- gone --></p>", "p{\"a\"}"},
      {"<p>a&nbsp;-", "p{\"a\xA0-\"}"},
      {"</font>a</br>", "\"a\""},
      {"<a>\n<b></x></b>t</a>", "a{b \"t\"}",
       "107 2:7 Expecting end tag 'b'. Found end tag 'x' instead."},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.document);
    PageParser parser;
    const Errors errors(parser);
    EXPECT_TRUE(parser.Parse(each.document));
    EXPECT_EQ(Describe(parser.Root()), std::string("[Root]{") + each.tree + "}");
    EXPECT_EQ(errors.Text(), each.errors);
  }
}

// Opens the readers to the tests.
class Reader : public COXParser {
 public:
  using COXParser::GetNameToken;
  using COXParser::GetNextChar;
  using COXParser::GetNumberToken;
  using COXParser::GetStringToken;
  using COXParser::GetToken;
  using COXParser::RemoveWhiteSpace;
  using COXParser::ReportError;
  using COXParser::RestoreBufferPos;
  using COXParser::SaveBufferPos;
  using COXParser::UngetChar;

  // Runs something in place of parsing the text.
  std::string Read(const char* text, const std::function<void(Reader&)>& run) {
    const Errors errors(*this);
    m_run = run;
    Parse(text);
    return errors.Text();
  }

 protected:
  int ParseElement(COXParserElement*, int) override {
    m_run(*this);
    return 1;
  }

 private:
  std::function<void(Reader&)> m_run;
};

TEST(DerivedParser, ReadsCharacters) {
  std::string read;
  const auto next = [&read](Reader& reader, int count = 1, int join = TRUE) {
    read += reader.GetNextChar(count, FALSE, join);
    reader.ReportError(0, "%s", "");
  };
  Reader reader;
  EXPECT_EQ(reader.Read("ab\r\ncd",
                        [&](Reader& r) {
                          next(r, 3, FALSE);  // the carriage return alone
                          next(r);
                          const char* const place = r.SaveBufferPos();
                          next(r, 2);
                          r.UngetChar(4);
                          next(r, 0);
                          r.UngetChar(99);
                          next(r, 0);
                          r.RestoreBufferPos(place);
                          next(r, 0);
                          r.GetNextChar(3);
                        }),
            "0 1:4 ; 0 2:0 ; 0 2:2 ; 0 1:3 ; 0 1:1 ; 0 2:0 ; 102 2:2 Unexpected end of buffer.");
  EXPECT_EQ(read, std::string("\r\nd\0\0\0", 6));
}

TEST(DerivedParser, ReadsTokensAndTheirContents) {
  Reader reader;
  const std::string errors = reader.Read(" na-me 12 |a&lt;\r\nb|", [](Reader& r) {
    COXToken token;
    EXPECT_TRUE(r.GetToken(token, TRUE));
    EXPECT_EQ(token.GetType(), COXToken::TEXT);
    COXQuickString text("before");
    EXPECT_TRUE(r.GetNameToken(text));
    EXPECT_STREQ(text, "na-me");
    int number = 0;
    EXPECT_TRUE(r.RemoveWhiteSpace() && r.GetNumberToken(number));
    EXPECT_EQ(number, 12);
    EXPECT_EQ(r.GetNextChar(2), '|');
    EXPECT_TRUE(r.GetStringToken(text, '|', TRUE));
    EXPECT_STREQ(text, "a<\nb");
    EXPECT_FALSE(r.GetStringToken(text, '|', TRUE));
    EXPECT_TRUE(text.IsEmpty());
  });
  EXPECT_EQ(errors, "102 2:2 Unexpected end of buffer while parsing string.");
  Reader idle;
  COXQuickString name;
  EXPECT_FALSE(idle.GetNameToken(name) || idle.RemoveWhiteSpace());
}

// The place of errors doesn't depend on what is replaced, nor on the document before.
TEST(DerivedParser, InitializeMayBeReplaced) {
  struct : COXParser {
    int Initialize() override { return 1; }
  } parser;
  const Errors errors(parser);
  EXPECT_FALSE(parser.Parse((std::string(100'000, '\n') + "=").c_str()));
  EXPECT_FALSE(parser.Parse("\xEF\xBB\xBF="));
  EXPECT_EQ(errors.Text(), "106 100001:1 Unexpected token.; 106 1:2 Unexpected token.");
}

TEST(DerivedParser, AnExceptionOfTheHostEndsTheParse) {
  COXParser parser;
  parser.SetErrorRptFunction(
      [](int, const char*, int, int, unsigned long) -> int { throw std::runtime_error("stop"); },
      0);
  EXPECT_FALSE(parser.Parse("<a x='1'>&lt<b>"));
  EXPECT_EQ(Describe(parser.Root()), "[Root]");
  EXPECT_FALSE(parser.Parse("<a/><b x='1' y=>"));
  EXPECT_EQ(Describe(parser.Root()), "[Root]{a}");
}

}  // namespace
