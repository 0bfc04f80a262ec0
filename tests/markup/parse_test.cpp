// What a document becomes: its tree, or the code and place of what is wrong with it.
#include <gtest/gtest.h>

#include "support/Allocations.h"
#include "tree_text.h"

namespace {

struct Case {
  const char* document;
  const char* tree;         // of the root's children; null: the parse fails
  const char* errors = "";  // as Errors::Text() has them
};

// Parses a document that ends at a page without access.
void Check(const Case& expected) {
  SCOPED_TRACE(expected.document);
  const allocations::GuardedBytes text(expected.document, strlen(expected.document) + 1);
  COXParser parser;
  const Errors errors(parser);
  const int parsed = parser.Parse(reinterpret_cast<const char*>(text.data()));
  EXPECT_EQ(errors.Text(), expected.errors);
  ASSERT_EQ(parsed != 0, expected.tree != nullptr);
  if (parsed == 0) return;
  const std::string tree = *expected.tree == 0 ? "" : "{" + std::string(expected.tree) + "}";
  EXPECT_EQ(Describe(parser.Root()), "[Root]" + tree);
}

TEST(Parser, Documents) {
  constexpr Case kCases[] = {
      {"", ""},
      {" \t\r\n", ""},
      {"\xEF\xBB\xBF<a/>", "a"},
      {"\xEF\xBB<a/>", "\"\xEF\xBB\" a"},
      {"<a></a><b/>", "a b"},
      {"<a></A>", "a"},
      {"< a >< b / >", nullptr,
       "106 1:10 Unexpected token while parsing attribute (element b, name )."},
      {"< a >< b\t/></ a >", "a{b}"},
      {"<ns:a-1_/>", "ns:a-1_"},
      {"  a  b\t<a/>c", "\"a  b\" a \"c\""},
      {"\"quoted\" 'too'", "\"\"quoted\" 'too'\""},
      {"<a>/b -c ]]></a>", "a{\"/b -c ]]>\"}"},
      {"a\r\nb\rc\n\rd", "\"a\nb\rc\n\rd\""},
      {"<?xml version=\"1.0\"?><?p?>", "pi\"xml version=\"1.0\"\" pi\"p\""},
      {"<!--a-b\r\n<x>--><!-->-->", "comment\"a-b\n<x>\" comment\">\""},
      {"<!ELEMENT a (b)><!doctype x>", "markup\"ELEMENT a (b)\" markup\"doctype x\""},
      {"<!-x>", "markup\"-x\""},
      {"<![CDATA[<a>&lt;]]\r\n>]]]>", "cdata\"<a>&lt;]]\r\n>]\""},
      {"<![CDATA[]]><![CDATA[", "cdata\"\" cdata\"\""},
      {"<!DOCTYPE a SYSTEM \"b\">", "markup\"DOCTYPE a SYSTEM \"b\"\""},
      {"<!DOCTYPE a [<!ELEMENT a ANY> ] >", "markup\"DOCTYPE a ] \""},
  };
  for (const Case& each : kCases) Check(each);
}

TEST(Parser, Attributes) {
  constexpr Case kCases[] = {
      {"<e x=12 y='1&lt;2' z=\"1&lt;2\"/>", "e[x=12 y='1&lt;2' z='1<2']"},
      {"<e a=\"\" a='' a=\"a\" />", "e[a='' a='' a='a']"},
      {"<e a = '1' b=\n\"2\"c=3></e>", "e[a='1' b='2' c=3]"},
      {"<e a=\"&apos;&lt;&gt;&quot;&amp;\" b=\"&amp;lt;&amp;amp;&x;&#65;&\"/>",
       "e[a=''<>\"&' b='&lt;&amp;&x;&#65;&']"},
      {"<e a=\"1\r\n2\r3\" b='\r\n'/>", "e[a='1\n2\r3' b='\n']"},
      {"<e a='\"<>' b=\"'\"/>", "e[a='\"<>' b=''']"},
      {"<e a=-5 b=+6 c=- d=007/>", "e[a=-5 b=6 c=0 d=7]"},
      {"<e a=2147483647 b=-2147483648 c=99999999999999999999 d=-2147483649/>",
       "e[a=2147483647 b=-2147483648 c=2147483647 d=-2147483648]"},
      {"<e a=1b=2/>", "e[a=1 b=2]"},
  };
  for (const Case& each : kCases) Check(each);
}

TEST(Parser, Entities) {
  constexpr Case kCases[] = {
      {"&lt;&gt;&amp;&apos;&quot;", "\"<>&'\"\""},
      {"x&#65;&#x41;&#X4a;&#065;y", "\"xAAJAy\""},
      {"a&#32;b&#0;c&#256;d&#321;e", "\"abcdAe\""},
      {"a&#10;b", "\"a\nb\""},
      // The text is trimmed in the way of the quick string.
      {"&#9;abc", "\"\tab\""},
      {"<a>&#32;</a>", "a{\"\"}"},
      {"a&nbsp;b", "\"a&nbsp;b\"", "108 1:8 Bad character entity '&nbsp;' encountered."},
      {"&LT;", "\"&LT;\"", "108 1:5 Bad character entity '&LT;' encountered."},
      {"&;&#;&#x;&#1a;", "\"&;&#;&#x;&#1a;\"",
       "108 1:3 Bad character entity '&;' encountered.; "
       "108 1:6 Bad character entity '&#;' encountered.; "
       "108 1:10 Bad character entity '&#x;' encountered.; "
       "108 1:15 Bad character entity '&#1a;' encountered."},
      {"a & b", "\"a & b\"", "108 1:4 Missing ';' on character entity '&'."},
      {"a &lt<b/>", "\"a &lt\" b", "108 1:6 Missing ';' on character entity '&lt'."},
      {"\n&lt", "\"&lt\"", "108 2:3 Missing ';' on character entity '&lt'."},
      {"&a&lt;", "\"&a&lt;\"", "108 1:7 Bad character entity '&a&lt;' encountered."},
      {"<!DOCTYPE d [<!ENTITY e one> <!entity f  \tt\"wo words\">]>&e;&f;",
       "markup\"DOCTYPE d ]\" \"onet\"wo\""},
      {"<!DOCTYPE d [<!ENTITY e \"]\"><!ENTITY e twice><!ENTITY lt no><!ENTITYx y>]>&e;&lt;",
       "markup\"DOCTYPE d ]\" \"\"]\"<\""},
      {"<!DOCTYPE d [<!ENTITY %20><!ENTITY >]>&%20;", "markup\"DOCTYPE d ]\" \"\""},
  };
  for (const Case& each : kCases) Check(each);
}

TEST(Parser, Failures) {
  constexpr Case kCases[] = {
      // tags
      {"<a><b></a>", nullptr, "107 1:11 Expecting end tag 'b'. Found end tag 'a' instead."},
      {"<a>\r\n  <b>\r\n</a>", nullptr,
       "107 3:4 Expecting end tag 'b'. Found end tag 'a' instead."},
      {"<a>\n<b/>", nullptr, "107 2:4 Missing end tag 'a'."},
      {"x\n</x>y", "\"x\" \"y\"", "201 2:4 Unexpected end tag 'x'."},
      {"<", nullptr, "102 1:2 Unexpected end of buffer while searching for tag name."},
      {"<>", nullptr, "106 1:3 Expecting tag name - none found."},
      {"<a!>", nullptr, "105 1:4 Illegal character (!) encountered while parsing name."},
      {"<\xE4/>", nullptr, "105 1:3 Illegal character (\xE4) encountered while parsing name."},
      {"<a", nullptr, "102 1:3 Unexpected end of buffer while name."},
      {"<a ", nullptr, "102 1:4 Unexpected end of buffer."},
      {"<a <b/>", nullptr, "110 1:5 Closing bracket for start tag 'a' not found."},
      {"</", nullptr, "104 1:3 Unexpected end of buffer while parsing endtag."},
      {"</>", nullptr, "106 1:4 Missing end tag name."},
      {"<a></a ", nullptr, "104 1:8 Missing end bracket while parsing end tag 'a'."},
      {"<a></a b>", nullptr, "104 1:8 Missing end bracket while parsing end tag 'a'."},
      // attributes
      {"<a x=abc/>", nullptr,
       "106 1:11 Unexpected token while parsing attribute (element a, name abc)."},
      {"<a x ", nullptr, "104 1:6 Error while parsing attribute (element a, name x)."},
      {"<a x=", nullptr, "104 1:6 Error while parsing attribute (element a, name x)."},
      {"<a x=>", nullptr, "106 1:7 Unexpected token while parsing attribute (element a, name x)."},
      {"<a x=\"1", nullptr, "102 1:8 Unexpected end of buffer while parsing string."},
      {"<a x='1\r\n2\"", nullptr, "102 2:2 Unexpected end of buffer while parsing string."},
      {"<a x=12", nullptr, "102 1:8 Unexpected end of buffer while parsing integer."},
      {"<a 'x'/>", nullptr, "110 1:5 Closing bracket for start tag 'a' not found."},
      // other objects
      {"<!--x--", nullptr, "102 1:8 Unexpected end of buffer while parsing comment."},
      {"<!-->", nullptr, "102 1:6 Unexpected end of buffer while parsing comment."},
      {"<?x?", nullptr, "102 1:5 Unexpected end of buffer while parsing processing instruction."},
      {"<!x", nullptr, "102 1:4 Unexpected end of buffer while parsing markup."},
      {"<![CDATA[x]]", nullptr, "102 1:13 Unexpected end of buffer while CDATA."},
      {"<!DOCTYPE x", nullptr, "102 1:12 Unexpected end of buffer while parsing DOCTYPE entry."},
      {"<!DOCTYPE x [<a", nullptr,
       "102 1:16 Unexpected end of buffer while parsing DOCTYPE entry."},
      {"<!DOCTYPE x []", nullptr, "102 1:15 Unexpected end of buffer while parsing DOCTYPE entry."},
      // tokens that begin nothing
      {"=", nullptr, "106 1:2 Unexpected token."},
      {"/>", nullptr, "106 1:3 Unexpected token."},
      {"-->", nullptr, "106 1:4 Unexpected token."},
      {"\xEF\xBB\xBF=", nullptr, "106 1:2 Unexpected token."},
  };
  for (const Case& each : kCases) Check(each);
}

TEST(Parser, EveryParseStartsAnew) {
  COXParser parser;
  const Errors errors(parser);
  EXPECT_TRUE(parser.Parse("<!DOCTYPE d [<!ENTITY e one>]>&e;"));
  EXPECT_TRUE(parser.Parse("&e;"));
  EXPECT_EQ(Describe(parser.Root()), "[Root]{\"&e;\"}");
  // What was complete before the failure stays.
  EXPECT_FALSE(parser.Parse("<a/>text<b><c/>"));
  EXPECT_EQ(Describe(parser.Root()), "[Root]{a \"text\"}");
  EXPECT_FALSE(parser.Parse(nullptr));
  EXPECT_TRUE(parser.IsEmpty());
  EXPECT_EQ(errors.Text(),
            "108 1:4 Bad character entity '&e;' encountered.; 107 1:16 Missing end tag 'b'.; "
            "101 1:1 NULL buffer supplied.");
}

TEST(Parser, LongNamesAreCutInMessages) {
  const std::string name(2000, 'n');
  COXParser parser;
  const Errors errors(parser);
  EXPECT_FALSE(parser.Parse(("<" + name + ">").c_str()));
  EXPECT_FALSE(parser.Parse(("<a " + name + " x>").c_str()));
  ASSERT_EQ(errors.all().size(), 2u);
  EXPECT_EQ(errors.all()[0].message, ("Missing end tag '" + name).substr(0, 511));
  EXPECT_EQ(errors.all()[1].message.size(), 511u);
}

}  // namespace
