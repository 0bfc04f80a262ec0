#include "markup/XmlTag.h"

#include <gtest/gtest.h>

#include <string>

#include "markup/OXParser.h"
#include "markup/XmlLine.h"
#include "support/Allocations.h"
#include "support/TempFolder.h"
#include "tree_text.h"

TEST(XmlTag, ChildrenStandInTheOrderAddedInFrontOfEarlierOnes) {
  COXParserElement element(nullptr, "e");
  element.AddElement("old");
  XmlTag tag(element, 0);
  tag.AddChild("a");
  tag.AddChild("b", "x", "\"");
  tag.AddChild("b", "x", INT_MIN);
  tag.AddChild("b", "x", 4294967295ul);
  tag.AddChild("b", "x", CTime(2147483647));
  tag.AddCDataChild("c", "text", 0);
  tag.AddChild("d");
  XmlTag second(element, 0);
  second.AddChild("second");
  EXPECT_TRUE(second.AddAttribute("text", "x") && second.AddAttribute("int", -5) &&
              second.AddAttribute("unsigned", 4000000000ul) &&
              second.AddAttribute("time", CTime(0)));
  EXPECT_EQ(Describe(element),
            "e[text='x' int='-5' unsigned='4000000000' time='0']{second a b[x='\"'] "
            "b[x='-2147483648'] b[x='4294967295'] b[x='2147483647'] c{cdata\"text\"} d old}");
}

TEST(XmlTag, TheEncodingIsStatedWhenItIsNotTheDefault) {
  for (const int defaultEncoding : {0, 1}) {
    for (const int encoding : {0, 1, 2}) {
      COXParserElement element(nullptr, "e");
      const COXParserElement* const child =
          XmlTag(element, defaultEncoding).AddCDataChild("c", "secret", encoding);
      const std::string tree = Describe(*child);
      const std::string stated =
          encoding == defaultEncoding ? "c{" : "c[enc=" + std::to_string(encoding) + "]{";
      EXPECT_EQ(tree.substr(0, stated.size() + 6), stated + "cdata\"");
      EXPECT_EQ(tree == stated + "cdata\"secret\"}", encoding == 0) << tree;
    }
  }
}

TEST(XmlTag, WithoutMemoryNothingIsAdded) {
  bool failed = true;
  for (unsigned n = 1; failed; ++n) {
    COXParserElement element(nullptr, "e");
    element.AddElement("old");
    XmlTag tag(element, 0);
    bool plain, scrambled;
    {
      const allocations::FailNth fail(n);
      plain = tag.AddCDataChild("a", "]]>", 0) != nullptr;
      scrambled = tag.AddCDataChild("b", 12ul, 1) != nullptr;
      failed = fail.Happened();
    }
    EXPECT_EQ(plain && scrambled, !failed);
    tag.AddChild("c");
    std::string names;
    for (int i = 0; i < element.NumObjects(); ++i) names += element.GetElement(i)->GetName();
    EXPECT_EQ(names, std::string(plain ? "a" : "") + (scrambled ? "b" : "") + "cold") << n;
  }
}

// Whatever is put into a CDATA section comes back from the file.
TEST(XmlTag, DataSurviveAFile) {
  std::string everyByte;
  for (int c = 1; c < 256; ++c) everyByte += static_cast<char>(c);
  const std::string texts[] = {everyByte,
                               "]]>",
                               "]]]>>]]>]]>",
                               "a]]>\r\n b",
                               "  ",
                               "\r\n\r\n",
                               "]]",
                               "<&\">",
                               "x",
                               "",
                               everyByte + "]]>" + everyByte};
  const TempFolder folder;
  const std::string path = folder / "data.xml";
  {
    COXParser parser;
    XmlTag tag(*parser.Root().AddElement("data"), 1);
    for (const std::string& text : texts) {
      for (const int encoding : {0, 1, 2}) tag.AddCDataChild("d", text.c_str(), encoding);
    }
    tag.AddCDataChild("d", 4294967295ul, 1);
    ASSERT_TRUE(parser.WriteFile(path.c_str()));
  }
  COXParser parser;
  ASSERT_TRUE(parser.ParseFile(path.c_str()));
  XmlLine line(*parser.Root().GetElement(0), 0);
  line.SetDefaultEncoding(1);
  int i = 0;
  for (const std::string& text : texts) {
    for (const int encoding : {0, 1, 2}) {
      line.SetObject(i++);
      EXPECT_EQ(std::string(line.GetObjectData()), text) << text << " as " << encoding;
    }
  }
  line.SetObject(i);
  EXPECT_STREQ(line.GetObjectData(), "4294967295");
  EXPECT_FALSE(line.HasMoreObjects(i + 1));
}
