#include <gtest/gtest.h>

#include <memory>

#include "support/Allocations.h"
#include "support/AssertionLog.h"
#include "tree_text.h"

namespace {

std::unique_ptr<COXParserElement> Tree() {
  auto root = std::make_unique<COXParserElement>(nullptr, "root");
  root->AddElement("a")->AddElement("b")->AddAttribute("n", 1);
  root->AddElement("A")->AddElement("c");
  root->AddObject(new COXParserObject(root.get(), COXParserObject::PLAINTEXT, "a"));
  root->AddElement("b");
  return root;
}

TEST(Element, FindsByPath) {
  struct {
    const char* path;
    int caseSensitive;
    const char* found;  // the path from the root, or null
  } const cases[] = {
      {"a", TRUE, "root/a"},      {"A", TRUE, "root/A"},         {"A", FALSE, "root/a"},
      {"a\\b", TRUE, "root/a/b"}, {"a\\x\\b", TRUE, "root/a/b"}, {"x\\b", TRUE, "root/b"},
      {"a\\b\\x", TRUE, nullptr}, {"a\\", TRUE, "root/a"},       {"a\\\\b", TRUE, "root/a"},
      {"\\a", TRUE, nullptr},     {"", TRUE, nullptr},           {nullptr, TRUE, nullptr},
      {"ab", TRUE, nullptr},      {"A\\C", FALSE, nullptr},      {"A\\c", TRUE, "root/A/c"},
  };
  const auto root = Tree();
  for (const auto& each : cases) {
    SCOPED_TRACE(each.path != nullptr ? each.path : "null");
    const COXParserElement* const found = root->FindElement(each.path, each.caseSensitive);
    ASSERT_EQ(found != nullptr, each.found != nullptr);
    if (found == nullptr) continue;
    std::string path = found->GetName();
    for (const COXParserElement* at = found->GetParent(); at != nullptr; at = at->GetParent()) {
      path = at->GetName() + ("/" + path);
    }
    EXPECT_EQ(path, each.found);
  }
}

TEST(Element, FindsAttributes) {
  COXParserElement element(nullptr, "e");
  COXAttribute* const number = element.AddAttribute("n", 5);
  COXAttribute* const text = element.AddAttribute("n", "5");
  COXAttribute* const other = element.AddAttribute("N", "five");
  EXPECT_EQ(element.FindAttribute("N", true), other);
  EXPECT_EQ(element.FindAttribute("N", false), number);
  EXPECT_EQ(element.FindAttribute("n", "5", true), text);
  EXPECT_EQ(element.FindAttribute("n", "FIVE", false), other);
  EXPECT_EQ(element.FindAttribute("n", "five", true), nullptr);
  EXPECT_EQ(element.FindAttribute("N", 5, false), number);
  EXPECT_EQ(element.FindAttribute("n", 6, true), nullptr);
  EXPECT_EQ(element.FindAttribute(nullptr, true), nullptr);
  EXPECT_EQ(element.FindAttribute("n", nullptr, true), nullptr);
}

TEST(Attribute, HoldsATextOrAnInteger) {
  COXAttribute attribute;
  EXPECT_STREQ(attribute.GetStringValue(), "");
  EXPECT_EQ(attribute.GetIntValue(), 0);
  attribute.SetValue(-5);
  EXPECT_STREQ(attribute.GetStringValue(), "-5");
  EXPECT_FALSE(attribute.IsValue("-5", TRUE));
  attribute.SetValue("text");
  EXPECT_EQ(attribute.GetIntValue(), 0);
  EXPECT_TRUE(attribute.IsValue("TEXT", FALSE));
  EXPECT_FALSE(attribute.IsValue("TEXT", TRUE));
  COXAttribute copy("name", 7);
  attribute = copy;
  EXPECT_TRUE(attribute.IsName("name", TRUE) && attribute.GetIntValue() == 7);
  copy.SetValue("seven");
  attribute = copy;
  EXPECT_TRUE(attribute.IsValue("seven", TRUE));
}

TEST(Element, InsertsMovesAndDeletes) {
  COXParserElement root(nullptr, "r");
  root.AddElement("b");
  root.InsertElement(0, "a");
  COXParserElement* const c = root.InsertElement(2, "c");
  EXPECT_TRUE(root.MoveObject(0, c));
  EXPECT_EQ(Describe(root), "r{c a b}");
  EXPECT_TRUE(root.MoveObject(2, c));
  EXPECT_FALSE(root.MoveObject(0, nullptr));
  EXPECT_TRUE(root.MoveObject(1, new COXParserElement(nullptr, "new")));
  EXPECT_EQ(Describe(root), "r{a new b c}");
  EXPECT_EQ(root.GetElement(1)->GetParent(), &root);
  EXPECT_TRUE(root.DelObject(1) && root.DelObject(c));
  EXPECT_FALSE(root.DelObject(static_cast<COXParserObject*>(nullptr)));

  root.AddElementAtt("n", 0, "x", "text")->AddElementAtt("m", 0, "y", -3);
  root.AddElementAtt("t", 0, "time", CTime(1000000000));
  root.AddElementObj("c", 0, "raw", COXParserObject::CDATA);
  COXParserElement& n = *root.GetElement(2);
  n.AddAttribute("z", 1);
  EXPECT_TRUE(n.DelAttribute(0));
  EXPECT_FALSE(n.DelAttribute(root.FindAttribute("z", true)));
  EXPECT_EQ(Describe(root), "r{c{cdata\"raw\"} t[time='1000000000'] n[z=1]{m[y='-3']} a b}");
}

TEST(Element, IndexOutOfRangeIsReported) {
  const auto root = Tree();
  const std::string before = Describe(*root);
  const std::function<bool()> refused[] = {
      [&] { return root->GetObject(4) == nullptr; },
      [&] { return root->GetObject(-1) == nullptr; },
      [&] { return root->GetElement(2) == nullptr; },  // a text
      [&] { return root->Attribute(0) == nullptr; },
      [&] { return root->DelObject(4) == 0; },
      [&] { return root->DelAttribute(0) == 0; },
      [&] { return root->InsertElement(5, "x") == nullptr; },
      [&] { return root->MoveObject(4, root->GetObject(0)) == 0; },
  };
  for (const auto& call : refused) {
    const AssertionLog log;
    EXPECT_TRUE(call() && log.Names("OXElement")) << &call - refused;
  }
  EXPECT_EQ(Describe(*root), before);
}

TEST(Element, CopiesShareChildren) {
  const auto root = Tree();
  root->AddAttribute("x", "1");
  const std::string before = Describe(*root);
  {
    COXParserElement copy(*root);
    EXPECT_EQ(Describe(copy), before);
    EXPECT_EQ(copy.GetObject(0), root->GetObject(0));
    copy.InsertElement(1, "own")->AddElement("child");
    copy.AddAttribute("own", 1);
    copy.DelObject(0);
    copy.MoveObject(0, copy.GetObject(2));
    EXPECT_EQ(copy.GetObject(0)->GetParent(), root.get());
    COXParserElement second(nullptr, "second");
    second.AddElement("replaced");
    second = copy;
    EXPECT_EQ(Describe(second), Describe(copy));
  }
  EXPECT_EQ(Describe(*root), before);
}

// Far deeper than a stack of 1 MB would bear, made without the parser.
TEST(Element, DeepAndWideTreesAreDeleted) {
  COXParserElement root(nullptr, "root");
  COXParserElement* at = &root;
  for (int i = 0; i < 100'000; ++i) {
    at = at->AddElement("e");
    at->SetParent(nullptr);  // deleting doesn't depend on it
  }
  for (int i = 0; i < 20'000; ++i) root.AddElement("wide")->AddAttribute("n", i);
  root.ClearObjects();
  EXPECT_EQ(root.NumObjects(), 0);
}

TEST(Element, OutOfMemoryAddsNothing) {
  const auto root = Tree();
  const std::string before = Describe(*root);
  const std::function<bool(COXParserElement&)> additions[] = {
      [](COXParserElement& e) { return e.AddElement("new") != nullptr; },
      [](COXParserElement& e) { return e.AddAttribute("new", "value") != nullptr; },
      [](COXParserElement& e) { return e.AddAttribute("new", 1) != nullptr; },
      [](COXParserElement& e) { return e.AddElementAtt("new", 0, "x", "1") != nullptr; },
      [](COXParserElement& e) { return e.AddElementObj("new", 0, "x", 1) != nullptr; },
  };
  for (const auto& add : additions) {
    bool added = false;
    for (unsigned n = 1; !added; ++n) {
      {
        const allocations::FailNth fail(n);
        added = add(*root);
        EXPECT_EQ(added, !fail.Happened());
      }
      EXPECT_EQ(Describe(*root) == before, !added);
    }
    root->DelObject(root->FindElement("new", TRUE));
    root->ClearAttributes();
  }
}

}  // namespace
