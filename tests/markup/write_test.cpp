// What is written, and that it reads back as the same tree.
#include <gtest/gtest.h>

#include <random>

#include "support/LongRun.h"
#include "support/TempFolder.h"
#include "tree_text.h"

namespace {

std::string Written(COXParser& parser) {
  const TempFolder folder;
  EXPECT_TRUE(parser.WriteFile((folder / "new\\folder/out.xml").c_str()));
  return folder.Read("new\\folder\\out.xml");
}

TEST(Writer, EveryTypeOfObject) {
  COXParser parser;
  ASSERT_TRUE(
      parser.Parse("<?xml version='1.0'?><!DOCTYPE d><!-- c --><d a=1 b='\"<&>&apos;' c=''>"
                   "t&lt;&gt;&amp;&apos;&quot;<e><![CDATA[<raw>\n]]><f x=\"\"/></e></d>"));
  COXParserElement* const d = parser.Root().GetElement(3);
  d->AddAttribute(new COXAttribute)->SetName("none");
  d->AddObject(new COXParserObject(d, 77, "of no type"));
  parser.Root().AddAttribute("ignored", 1);
  EXPECT_EQ(Written(parser),
            "<?xml version='1.0'?>\r\n"
            "<!DOCTYPE d>\r\n"
            "<!-- c -->\r\n"
            "<d a=1 b=\"&quot;&lt;&amp;&gt;&amp;apos;\" c=\"\" none=\"\">\r\n"
            "   t&lt;&gt;&amp;&apos;&quot;\r\n"
            "   <e>\r\n"
            "      <![CDATA[<raw>\n]]>\r\n"
            "      <f x=\"\"/>\r\n"
            "   </e>\r\n"
            "</d>\r\n");
}

TEST(Writer, WrapsTextAtEightyCharacters) {
  const std::string forty(40, 'x');
  const std::string thirtyNine(39, 'y');
  const std::string ninety(90, 'z');
  COXParser parser;
  COXParserElement* const e = parser.Root().AddElement("e");
  const auto add = [e](const std::string& text) {
    e->AddObject(new COXParserObject(e, COXParserObject::PLAINTEXT, text.c_str()));
  };
  add("  " + forty + "\t" + thirtyNine + " " + forty + "\r\n " + forty + " " + ninety + " end ");
  add(" \t ");
  add("=1 =2");
  EXPECT_EQ(Written(parser), "<e>\r\n   " + forty + " " + thirtyNine + "\r\n   " + forty +
                                 "\r\n   " + forty + "\r\n   " + ninety +
                                 "\r\n   end\r\n   &#61;1 =2\r\n</e>\r\n");
}

TEST(Writer, RefusesWhatItCantWrite) {
  const TempFolder folder;
  const std::string path = folder.Write("old.xml", "old");
  COXParser parser;
  EXPECT_FALSE(parser.WriteFile(path.c_str()));  // no children
  COXParserElement* at = &parser.Root();
  for (int i = 0; i <= COXParser::kMaxNesting; ++i) at = at->AddElement("e");
  EXPECT_FALSE(parser.WriteFile(path.c_str()));
  EXPECT_EQ(folder.Read("old.xml"), "old");
  at->GetParent()->ClearObjects();
  EXPECT_TRUE(parser.WriteFile(path.c_str()));
  EXPECT_FALSE(parser.WriteFile((path + "\\file.xml").c_str()));
  EXPECT_FALSE(parser.WriteFile(nullptr));
}

// Makes trees of every type of object, from a number.
class Generator {
 public:
  explicit Generator(unsigned seed) : m_random(seed) {}

  void Fill(COXParserElement& element, int depth) {
    for (int i = Below(4); i > 0; --i) AddAttribute(element);
    bool afterText = false;  // two texts in a row would be read as one
    for (int i = Below(depth == 0 ? 8 : 6); i > 0; --i) {
      const int type = 1 + Below(6);
      if (type == COXParserObject::ELEMENT) {
        COXParserElement* const child = element.AddElement(Name().c_str());
        if (depth < 6) Fill(*child, depth + 1);
      } else if (type != COXParserObject::PLAINTEXT || !afterText) {
        element.AddObject(new COXParserObject(&element, type, Content(type).c_str()));
      }
      afterText = type == COXParserObject::PLAINTEXT;
    }
  }

 private:
  int Below(int limit) { return static_cast<int>(m_random() % limit); }

  std::string Text(int length, const std::string& characters) {
    std::string text;
    while (length-- > 0) text += characters[Below(static_cast<int>(characters.size()))];
    return text;
  }

  // An element named "--" would read as the end of a comment: names begin with a letter.
  std::string Name() { return Text(1, "abcXYZ") + Text(Below(12), "abcXYZ019:_-"); }

  void AddAttribute(COXParserElement& element) {
    const std::string name = Name();
    if (Below(3) == 0) {
      element.AddAttribute(name.c_str(), static_cast<int>(m_random()));
    } else {
      element.AddAttribute(name.c_str(), Text(Below(40), "ab \"'<>&;\n\t=/lt\xE4\xA0").c_str());
    }
  }

  std::string Content(int type) {
    if (type == COXParserObject::PLAINTEXT) {
      return "=;&<>'\""[Below(7)] + Text(Below(300), "ab \"'<>&;=/-#!?l\xE4\xA0\n") + ".";
    }
    // What would end the object, or make another one of it, is not in its text.
    const std::string text = Text(Below(40), "ab \"'<&;[-\n\xE4");
    return type == COXParserObject::MARKUP ? "E" + text : text;
  }

  std::mt19937 m_random;
};

TEST(Writer, GeneratedTreesReadBackTheSame) {
  const TempFolder folder;
  const unsigned count = IsLongRun() ? 20'000 : 150;
  for (unsigned seed = 0; seed < count; ++seed) {
    SCOPED_TRACE(seed);
    COXParser parser;
    Generator(seed).Fill(parser.Root(), 0);
    parser.Root().ClearAttributes();
    if (parser.Root().NumObjects() == 0) continue;
    ASSERT_TRUE(parser.WriteFile((folder / "1.xml").c_str()));

    COXParser second;
    const Errors errors(second);
    ASSERT_TRUE(second.ParseFile((folder / "1.xml").c_str())) << errors.Text();
    ASSERT_EQ(errors.Text(), "");
    ASSERT_EQ(Describe(second.Root(), true), Describe(parser.Root(), true));
    ASSERT_TRUE(second.WriteFile((folder / "2.xml").c_str()));
    ASSERT_EQ(folder.Read("2.xml"), folder.Read("1.xml"));
  }
}

}  // namespace
