// The product registry: its roots, its values, and the answers to messages.
#include "settings/RegistryUtil.h"

#include <gtest/gtest.h>

#include "support/AssertionLog.h"
#include "support/RegistrySubtree.h"

namespace {

class Product : public testing::Test {
 protected:
  ~Product() override {
    MRegistry::FreeProductRegistry();
    AssertVerifyTrace::BlockGuiMessages(0);
  }

  MRegistry& Init(int perUser) {
    MRegistry::FreeProductRegistry();
    EXPECT_EQ(MRegistry::InitProductRegistry(m_subtree.c_str(), perUser), 1);
    return MRegistry::GetProductRegistry();
  }

  // Whether a value is stored below a root.
  bool Has(HKEY root, const char* name) const {
    return m_subtree.ReadRaw(root, name).type != REG_NONE;
  }

  RegistrySubtree m_subtree;
};

}  // namespace

TEST_F(Product, ValuesGoToTheRootThatWasAskedFor) {
  for (const HKEY userRoot : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
    MRegistry& registry = Init(userRoot == HKEY_CURRENT_USER);
    EXPECT_FALSE(registry.IsNull());
    EXPECT_EQ(registry.SetProductKey("product", "text"), 1);
    EXPECT_EQ(registry.SetProductKey("product number", 5), 1);
    EXPECT_EQ(registry.SetUserKey("user", "text"), 1);
    EXPECT_EQ(registry.SetUserKey("user number", 6), 1);
    EXPECT_TRUE(Has(HKEY_LOCAL_MACHINE, "product"));
    EXPECT_TRUE(Has(HKEY_LOCAL_MACHINE, "product number"));
    EXPECT_EQ(m_subtree.ReadRaw(userRoot, "user number").type, DWORD{REG_DWORD});
    EXPECT_TRUE(Has(userRoot, "user"));
    EXPECT_FALSE(Has(HKEY_CURRENT_USER, "product"));
    EXPECT_EQ(Has(HKEY_LOCAL_MACHINE, "user"), userRoot == HKEY_LOCAL_MACHINE);

    CString text;
    unsigned long number = 0;
    int signedNumber = 0;
    EXPECT_TRUE(registry.GetProductKey("product", text) && text == "text");
    EXPECT_TRUE(registry.GetProductKey("product number", number, 1) && number == 5);
    EXPECT_TRUE(registry.GetUserKey("user", text) && text == "text");
    EXPECT_TRUE(registry.GetUserKey("user number", number, 1) && number == 6);
    registry.SetUserKey("user number", static_cast<unsigned long>(-3));
    EXPECT_TRUE(registry.GetUserKey("user number", signedNumber, 1) && signedNumber == -3);

    EXPECT_EQ(registry.DeleteProductKey("product"), 1);
    EXPECT_FALSE(Has(HKEY_LOCAL_MACHINE, "product"));
    EXPECT_EQ(registry.DeleteUserKey("user"), 1);
    EXPECT_FALSE(Has(userRoot, "user"));
    EXPECT_EQ(registry.DeleteUserKeyAll(), 1);
    EXPECT_FALSE(MRegistry::KeyExists(userRoot, m_subtree.c_str()));
    EXPECT_EQ(registry.DeleteProductKeyAll(), userRoot == HKEY_CURRENT_USER);
    EXPECT_FALSE(MRegistry::KeyExists(HKEY_LOCAL_MACHINE, m_subtree.c_str()));
  }
}

TEST_F(Product, WhatCannotBeReadHasItsDefault) {
  MRegistry& registry = Init(1);
  registry.SetUserKey("name", "text");
  registry.SetProductKey("name", "text");
  CString text = "old";
  unsigned long number = 7;
  int signedNumber = 7;
  for (const char* name : {"name", "missing"}) {
    EXPECT_TRUE(!registry.GetUserKey(name, number, 4000000000ul) && number == 4000000000ul);
    EXPECT_TRUE(!registry.GetUserKey(name, signedNumber, -2) && signedNumber == -2);
    EXPECT_TRUE(!registry.GetProductKey(name, number, 3) && number == 3);
  }
  EXPECT_TRUE(!registry.GetUserKey("missing", text) && text.IsEmpty());
  EXPECT_TRUE(!registry.GetProductKey("missing", text) && text.IsEmpty());
}

TEST_F(Product, ASecondOneIsRefused) {
  EXPECT_EQ(MRegistry::InitProductRegistry("", 1), 0);
  EXPECT_EQ(MRegistry::HasProductRegistry(), 0);
  MRegistry& first = Init(1);
  EXPECT_EQ(MRegistry::InitProductRegistry((m_subtree / "other").c_str(), 0), 0);
  EXPECT_EQ(&MRegistry::GetProductRegistry(), &first);
  first.SetUserKey("name", "text");
  EXPECT_TRUE(Has(HKEY_CURRENT_USER, "name"));
}

// Without a path values would end up in the root key, and deleting would delete all of it.
TEST_F(Product, TheNullRegistryKeepsNothing) {
  const AssertionLog log;
  MRegistry& null = MRegistry::GetProductRegistry();
  EXPECT_TRUE(null.IsNull());
  EXPECT_TRUE(log.Names("RegistryUtil"));
  EXPECT_FALSE(MRegistry(null).IsNull());
  CString text = "old";
  int number = 7;
  EXPECT_EQ(null.SetUserKey("Orvane test", "text"), 0);
  EXPECT_EQ(null.GetUserKey("Orvane test", text), 0);
  EXPECT_STREQ(text, "");
  EXPECT_EQ(null.GetUserKey("Orvane test", number, 3), 0);
  EXPECT_EQ(number, 3);
  EXPECT_EQ(null.DeleteUserKeyAll(), 0);
  EXPECT_EQ(null.DeleteProductKeyAll(), 0);
  EXPECT_EQ(null.SetDontShowMessage(42, 1, 1), 0);
  EXPECT_EQ(null.GetDisplayMessageVal(42), MRegistry::DMV_SHOW);
  EXPECT_EQ(null.GetMessageDisplayLevel(), 0);
}

TEST_F(Product, AnswersToMessages) {
  using namespace std::string_literals;
  MRegistry& registry = Init(1);
  const std::string messages = m_subtree / "Messages";
  EXPECT_EQ(registry.GetMessageDisplayLevel(), 0);
  registry.SetMessageDisplayLevel(2);
  EXPECT_EQ(registry.GetMessageDisplayLevel(), 2);
  EXPECT_EQ(registry.GetDisplayMessageVal(42), MRegistry::DMV_SHOW);
  const struct {
    int id, dontShow, answer;
    const char* stored;
    MRegistry::DisplayMessageVal read;
  } cases[] = {
      {42, 1, 0, "N", MRegistry::DMV_NO},   {42, 1, 1, "Y", MRegistry::DMV_YES},
      {42, 0, 1, "D", MRegistry::DMV_SHOW}, {-2, 7, -1, "Y", MRegistry::DMV_YES},
      {42, 0, 0, "D", MRegistry::DMV_SHOW},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(registry.SetDontShowMessage(c.id, c.dontShow, c.answer), 1);
    EXPECT_EQ(RegistrySubtree::ReadRaw(HKEY_CURRENT_USER, messages, std::to_string(c.id)),
              (RegistrySubtree::Value{REG_SZ, c.stored + "\0"s}));
    EXPECT_EQ(registry.GetDisplayMessageVal(c.id), c.read);
  }
  for (const char* damaged : {"", "y", "X", " Y"}) {
    MRegistry::SetKey(HKEY_CURRENT_USER, messages.c_str(), damaged, "42");
    EXPECT_EQ(registry.GetDisplayMessageVal(42), MRegistry::DMV_SHOW) << damaged;
  }
  MRegistry::SetKey(HKEY_CURRENT_USER, messages.c_str(), "Nothing", "42");
  EXPECT_EQ(registry.GetDisplayMessageVal(42), MRegistry::DMV_NO);
  AssertVerifyTrace::BlockGuiMessages(1);
  EXPECT_EQ(registry.GetDisplayMessageVal(42), MRegistry::DMV_YES);
}
