#include "markup/XmlLine.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "markup/OXParser.h"
#include "settings/RegistryUtil.h"
#include "support/AssertionLog.h"
#include "tree_text.h"

namespace {

// A line that was read from a text, with a trace log of its own.
class Line : public testing::Test {
 protected:
  Line() { XmlLine::SetTrace((m_folder / "trace.log").c_str()); }
  ~Line() override { XmlLine::SetTrace(nullptr); }

  COXParserElement& Parse(std::string text) {
    EXPECT_TRUE(m_parser.Parse(text.data())) << text;
    return *m_parser.Root().GetElement(0);
  }

  std::string Trace() const { return m_folder.Read("trace.log"); }

  COXParser m_parser;
  TempFolder m_folder;
};

}  // namespace

TEST_F(Line, CursorsGoOverObjectsAndAttributes) {
  COXParserElement& element = Parse("<item a=1 b='two'><x/><y/>text</item>");
  XmlLine line(element, 0);
  EXPECT_TRUE(line.IsLineValid() && line.IsSameLine("ITEM") && !line.IsSameLine("items"));
  int count = 0;
  for (int i = 0; line.HasMoreObjects(i); ++i, ++count) EXPECT_TRUE(line.SetObject(i));
  EXPECT_EQ(count, 3);
  EXPECT_FALSE(line.IsAttributeValid() || line.HasMoreAttributes(0));
  EXPECT_STREQ(line.GetAttributeData(1), "two");
  EXPECT_FALSE(line.IsAttributeValid());
  EXPECT_TRUE(line.SetCurrentAttribute(0));
  EXPECT_TRUE(line.HasMoreAttributes(1) && !line.HasMoreAttributes(2));
  EXPECT_STREQ(line.GetAttributeData(), "1");

  // Removing keeps a cursor at its object, or at the one that follows it.
  line.SetObject(1);
  EXPECT_TRUE(line.RemoveObject(2) && line.RemoveObject(0));
  EXPECT_STREQ(line.GetChild()->GetName(), "y");
  element.AddElement("z");
  EXPECT_TRUE(line.RemoveObject(0));
  EXPECT_STREQ(line.GetChild()->GetName(), "z");
  EXPECT_TRUE(line.RemoveObject(0));
  EXPECT_FALSE(line.IsObjectValid());
  EXPECT_EQ(Trace(), "");
}

TEST_F(Line, WithNothingInItHasNoFirst) {
  XmlLine line(Parse("<item/>"), 0);
  EXPECT_TRUE(line.IsLineValid());
  EXPECT_FALSE(line.IsObjectValid() || line.SetObject(0) || line.SetCurrentAttribute(0) ||
               line.HasMoreObjects(0));
  const XmlLine unset(Parse("<item><a/></item>"), -1);
  EXPECT_TRUE(unset.IsLineValid());
  EXPECT_FALSE(unset.IsObjectValid() || unset.HasMoreObjects(0));
  EXPECT_EQ(Trace(), "");
}

TEST_F(Line, DataAreUnscrambledAsTheElementSays) {
  const std::string secret(MRegistry::EncriptStr("secret"));
  const std::string data = "<![CDATA[" + secret + "]]>";
  const struct {
    const char* attributes;
    int defaultEncoding;
    std::string read;
  } cases[] = {{"", 0, secret},          {"", 3, "secret"},           {"enc=1", 0, "secret"},
               {"enc='1'", 0, "secret"}, {"ENC=\"-2\"", 0, "secret"}, {"enc=0", 1, secret},
               {"enc=''", 1, secret}};
  for (const auto& c : cases) {
    const std::string child = std::string("<d ") + c.attributes + ">" + data + "</d>";
    XmlLine parent(Parse("<item>" + child + "</item>"), 0);
    parent.SetDefaultEncoding(c.defaultEncoding);
    EXPECT_EQ(std::string(parent.GetObjectData()), c.read) << child;
    XmlLine own(*parent.GetChild(), 0);
    own.SetDefaultEncoding(c.defaultEncoding);
    EXPECT_EQ(std::string(own.GetData()), c.read) << child;
    EXPECT_EQ(std::string(own.GetObjectData()), c.read) << child;
  }
  EXPECT_EQ(Trace(), "");
}

TEST_F(Line, ChildValues) {
  COXParserElement& element = Parse("<item><a val='old'/><Deep><b other='1'/></Deep></item>");
  XmlLine line(element, 0);
  EXPECT_TRUE(line.ChangeChildVal("A", -7, FALSE));
  EXPECT_TRUE(line.ChangeChildVal("deep\\b", 8, FALSE));
  EXPECT_TRUE(line.ChangeChildVal("new", 9, TRUE));
  EXPECT_TRUE(line.ChangeChildVal("deep\\c\\d", 10, TRUE));
  EXPECT_TRUE(line.ChangeChildVal("deep\\c\\d", 12, TRUE));
  EXPECT_TRUE(line.ChangeChildVal("a", 11, TRUE, "count"));
  EXPECT_EQ(Describe(element),
            "item{a[val='-7' count='11'] Deep{b[other='1' val='8'] c{d[val='12']}} new[val='9']}");
  EXPECT_EQ(Trace(), "");
}

TEST_F(Line, MisuseIsReportedTwiceAndChangesNothing) {
  COXParserElement& element = Parse("<item n=1>text<a/></item>");
  COXParserElement nameless;
  COXParserElement& empty = *element.GetElement(1);
  const struct {
    const char* event;
    std::function<bool(XmlLine&)> fails;  // with its cursor at the text
  } cases[] = {
      {"XMLGetChild Error: NULL Pointer1", [](XmlLine& l) { return !l.GetChild(); }},
      {"XMLGetChild Error: NULL Pointer2", [](XmlLine& l) { return !l.GetChild("b"); }},
      {"XMLGetObject Error: ", [](XmlLine& l) { return !l.SetObject(2) && !l.SetObject(-1); }},
      {"XMLGetObject Error: ", [](XmlLine& l) { return l.GetObjectData().IsEmpty(); }},
      {"XMLGetObject Error: ", [](XmlLine& l) { return l.GetData().IsEmpty(); }},
      {"XMLGetObject Error: ", [](XmlLine& l) { return !l.RemoveObject(2); }},
      {"XMLGetAtt Error: ", [](XmlLine& l) { return !l.SetCurrentAttribute(1); }},
      {"XMLGetAttData Error: ", [](XmlLine& l) { return l.GetAttributeData().IsEmpty(); }},
      {"XMLGetAttData Error: ", [](XmlLine& l) { return l.GetAttributeData(1).IsEmpty(); }},
      {"XMLChangeTag Error: NULL Pointer",
       [](XmlLine& l) { return !l.ChangeChildVal("b", 1, FALSE); }},
      {"XMLChangeTag Error: NULL Pointer",
       [](XmlLine& l) { return !l.ChangeChildVal("", 1, TRUE); }},
      {"XMLLine Error: NULL Child", [&](XmlLine&) { return !XmlLine(empty, 1).IsLineValid(); }},
      {"XMLLine Error: Invalid Line",
       [&](XmlLine&) { return !XmlLine(nameless, 0).IsLineValid(); }},
  };
  for (const auto& c : cases) {
    DeleteFileA((m_folder / "trace.log").c_str());
    XmlLine line(element, 0);
    const AssertionLog log;
    EXPECT_TRUE(c.fails(line)) << c.event;
    EXPECT_TRUE(log.Names("XmlLine")) << c.event;
    EXPECT_NE(Trace().find(std::string("     ") + c.event), std::string::npos) << c.event;
    EXPECT_TRUE(line.IsObjectValid());
    EXPECT_EQ(element.NumObjects(), 2);
  }
}

TEST_F(Line, OfALineThatIsNotValidNothingCanBeRead) {
  COXParserElement& element = Parse("<item enc=1><a/></item>");
  XmlLine line(element, 0);
  EXPECT_NE(Trace().find("XMLLine Error: CData"), std::string::npos);
  EXPECT_FALSE(line.IsLineValid() || line.IsSameLine("item") || line.SetObject(0) ||
               line.SetCurrentAttribute(0) || line.HasMoreObjects(0) || line.GetChild("a") ||
               line.RemoveObject(0) || line.ChangeChildVal("a", 1, TRUE));
  EXPECT_STREQ(line.GetName(), "");
  EXPECT_STREQ(line.GetAttributeData(0), "");
  EXPECT_EQ(Describe(element), "item[enc=1]{a}");
}
