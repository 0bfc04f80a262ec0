#include "markup/XmlTag.h"

#include <gtest/gtest.h>

#include <string>

#include "markup/OXParser.h"
#include "markup/XmlLine.h"
#include "settings/RegistryUtil.h"
#include "support/Allocations.h"
#include "support/TempFolder.h"

namespace {

std::string Names(const COXParserElement& element) {
  std::string names;
  for (int i = 0; i < element.NumObjects(); ++i) {
    names += std::string(element.GetElement(i)->GetName()) + " ";
  }
  return names;
}

std::string Value(const COXParserElement* element, const char* attribute) {
  const COXAttribute* const found = element->FindAttribute(attribute, true);
  return found == nullptr || found->IsInteger() ? "none" : found->GetStringValue();
}

}  // namespace

TEST(XmlTag, ChildrenStandInTheOrderAddedInFrontOfEarlierOnes) {
  COXParserElement element(nullptr, "e");
  element.AddElement("old");
  XmlTag tag(element, 0);
  tag.AddChild("a");
  tag.AddChild("b", "x", "text");
  tag.AddCDataChild("c", "text", 0);
  tag.AddChild("d");
  EXPECT_EQ(Names(element), "a b c d old ");
  XmlTag(element, 0).AddChild("second");
  EXPECT_EQ(Names(element), "second a b c d old ");
}

TEST(XmlTag, ValuesAreTexts) {
  COXParserElement element(nullptr, "e");
  XmlTag tag(element, 0);
  EXPECT_EQ(Value(tag.AddChild("c", "v", "a \"b\""), "v"), "a \"b\"");
  EXPECT_EQ(Value(tag.AddChild("c", "v", INT_MIN), "v"), "-2147483648");
  EXPECT_EQ(Value(tag.AddChild("c", "v", 4294967295ul), "v"), "4294967295");
  EXPECT_EQ(Value(tag.AddChild("c", "v", CTime(2147483647)), "v"), "2147483647");
  EXPECT_TRUE(tag.AddAttribute("text", "x"));
  EXPECT_TRUE(tag.AddAttribute("int", -5));
  EXPECT_TRUE(tag.AddAttribute("unsigned", 4000000000ul));
  EXPECT_TRUE(tag.AddAttribute("time", CTime(0)));
  EXPECT_EQ(Value(&element, "text") + Value(&element, "int") + Value(&element, "unsigned") +
                Value(&element, "time"),
            "x-540000000000");
}

TEST(XmlTag, TheEncodingIsStatedWhenItIsNotTheDefault) {
  for (const int defaultEncoding : {0, 1}) {
    for (const int encoding : {0, 1, 2}) {
      COXParserElement element(nullptr, "e");
      const COXParserElement* const child =
          XmlTag(element, defaultEncoding).AddCDataChild("c", "secret", encoding);
      ASSERT_EQ(child->NumObjects(), 1);
      EXPECT_EQ(child->GetObject(0)->GetType(), COXParserObject::CDATA);
      EXPECT_EQ(child->GetObject(0)->IsText("secret", TRUE), encoding == 0);
      const COXAttribute* const stated = child->FindAttribute("enc", true);
      EXPECT_EQ(stated != nullptr, encoding != defaultEncoding);
      if (stated != nullptr) {
        EXPECT_TRUE(stated->IsInteger() && stated->GetIntValue() == encoding);
      }
    }
  }
}

TEST(XmlTag, WithoutMemoryNothingIsAdded) {
  bool failed = true;
  for (unsigned n = 1; failed; ++n) {
    COXParserElement element(nullptr, "e");
    element.AddElement("old");
    XmlTag tag(element, 0);
    {
      const allocations::FailNth fail(n);
      const bool plain = tag.AddCDataChild("a", "]]>", 0) != nullptr;
      const bool scrambled = tag.AddCDataChild("b", 12ul, 1) != nullptr;
      failed = fail.Happened();
      EXPECT_EQ(plain && scrambled, !failed);
    }
    tag.AddChild("c");
    const std::string names = Names(element);
    EXPECT_TRUE(names == (failed ? "a c old " : "a b c old ") || (failed && names == "b c old "))
        << n << ": " << names;
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
